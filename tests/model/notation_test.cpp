// SPDX-License-Identifier: MIT
#include "model/modeltest.h"
#include "model/notation.h"

#include <climits>

namespace {

class Notation : public ModelTest {
  protected:
    static int check(const std::string& text) {
        return sanitycheckmacro(text.data(), lengthof(text));
    }

    static int count(const std::string& text) { return maclen(text.data(), lengthof(text)); }
};

// Characters

TEST_F(Notation, CharacterHelpers) {
    EXPECT_EQ('a', flipcase('A'));
    EXPECT_EQ('z', flipcase('Z'));
    EXPECT_EQ('A', flipcase('a'));
    EXPECT_EQ(';', flipcase('['));
    EXPECT_EQ('P', flipcase('0'));
    const std::string turning = "BFUDLR";
    for (int c = CHAR_MIN; c <= CHAR_MAX; c++) {
        const char letter = static_cast<char>(c);
        EXPECT_EQ(turning.find(letter) != std::string::npos ? 1 : 0, istwist(letter)) << c;
        EXPECT_EQ(istwist(letter) != 0, flipdir(letter) != ' ') << c;
    }
    EXPECT_EQ("FBDURL", std::string({flipdir('B'), flipdir('F'), flipdir('U'), flipdir('D'),
                                     flipdir('L'), flipdir('R')}));
}

// Checking and counting

TEST_F(Notation, TheCheckKnowsGoodFromBad) {
    for (const char* good : {"", "U", "UDLRFBudlrfb", "2", "12(R)", "s(R)", "s2(R)", "2(2(R)s)",
                             "*U>R", "*?", "2s(R)", "U2", "**", "*2(R)", "*s(R)"}) {
        EXPECT_EQ(1, check(good)) << good;
    }
    for (const char* bad : {"x", " ", "U R", "(R)", "U(R)", "2(R", "R)", "2(R))", "*", "2(R*)", "a",
                            "Z", "R'", "()", "2((R))", "\xd5", "\n", "R]", "U[R]"}) {
        EXPECT_EQ(0, check(bad)) << bad;
    }
    EXPECT_EQ(0, sanitycheckmacro("R\0U", 3));
}

TEST_F(Notation, ABracketHasTheLineConverted) {
    shell.line = "[R U' F2]";
    EXPECT_EQ(1, check(shell.line));
    EXPECT_EQ("RuFF", shell.line);
    shell.line = "[R U' F2";
    EXPECT_EQ(0, check(shell.line));
    EXPECT_EQ("[R U' F2", shell.line);
    shell.line = "[L]";
    EXPECT_EQ(1, check("[? no matter"));
    EXPECT_EQ("L", shell.line);
    shell.line = "L";
    EXPECT_EQ(0, check("[R]"));
    shell.line = "[R]";
    EXPECT_EQ(1, sanitycheckmacro("[R]", 0)); // the length rules: nothing is there
    EXPECT_EQ("[R]", shell.line);
}

struct length_case {
    const char* text;
    int turns;
};

TEST_F(Notation, LengthsAreCountedByCharacter) {
    const length_case cases[] = {
        {"",                      0          },
        {"U",                     1          },
        {"UuRr",                  4          },
        {"*F>R",                  2          },
        {"3(RU)",                 6          },
        {"2(R3(U))L",             9          },
        {"0(RU)",                 0          },
        {"(RU)F",                 3          },
        {"s(RU)",                 2          },
        {"s2(RU)",                4          },
        {"U)R",                   2          },
        {"a ?",                   0          },
        {"2U",                    -1         },
        {"U2",                    -1         },
        {"2 (R)",                 -1         },
        {"2(R",                   -1         },
        {"(R",                    -1         },
        {"2(2)",                  -1         },
        {"0(2U)",                 -1         },
        {"*(",                    -1         },
        {"99999(99999(U))",       INT_MAX    },
        {"99999999999999999(UR)", INT_MAX    },
        {"2147483646(U)",         INT_MAX - 1},
        {"2147483646(U)UU",       INT_MAX    },
    };
    for (const length_case& row : cases) {
        EXPECT_EQ(row.turns, count(row.text)) << row.text;
    }
}

TEST_F(Notation, TheReadOutShowsTheLengthOrStars) {
    loadout("3(RU)");
    EXPECT_EQ("6", shell.readout);
    loadout("2U");
    EXPECT_EQ("*****", shell.readout);
    loadout("");
    EXPECT_EQ("0", shell.readout);
    EXPECT_EQ(0, shell.readoutchanges);
}

} // namespace
