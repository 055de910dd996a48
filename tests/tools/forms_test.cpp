// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/slowcube.h"
#include "nullshell.h"
#include "solver/solver.h"
#include "tools/booktwin.h"
#include "tools/drawing.h"
#include "tools/forms.h"
#include "tools/movewriting.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

const std::string home = "UF UR UB UL DF DR DB DL FR FL BR BL UFR URB UBL ULF DRF DFL DLB DBR";
const std::string homefacelets = "UUUUUUUUURRRRRRRRRFFFFFFFFFDDDDDDDDDLLLLLLLLLBBBBBBBBB";

// Known from books: each edge flipped in place.
const std::string superflip = "UBULURUFURURFRBRDRFUFLFRFDFDFDLDRDBDLULBLFLDLBUBRBLBDB";

class Forms : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetmodel();
    }

    read_line read(const std::string& text, line_form form = anyform) {
        read_line line;
        EXPECT_TRUE(readform(text, form, line)) << text << ": " << notetext(line.error);
        makecube(line);
        return line;
    }

    std::string complaint(const std::string& text, line_form form = anyform) {
        read_line line;
        EXPECT_FALSE(readform(text, form, line)) << text;
        return notetext(line.error);
    }

    std::string notes(const std::string& text) {
        std::string told;
        for (const line_note& note : read(text).notes) {
            told += notetext(note) + "\n";
        }
        return told;
    }

    chance lots{74};
};

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
        text.replace(at, what.size(), with);
    }
    return text;
}

struct form_row {
    std::string text;
    line_form form;
    std::string macro; // of macro and moves
};

TEST_F(Forms, TheFormIsFoundOut) {
    const std::string wider = "  " + replaced(home, " ", "\t ") + " ";
    const form_row rows[] = {
        {"",                        macroform,    ""                },
        {"  RU\r",                  macroform,    "RU"              },
        {"RUru",                    macroform,    "RUru"            },
        {"2(rdRD)U4(rdRD)u",        macroform,    "2(rdRD)U4(rdRD)u"},
        {"R2(UF)",                  macroform,    "R2(UF)"          },
        {"U*FR>u",                  macroform,    "U*FR>u"          },
        {"s(RU)",                   macroform,    "s(RU)"           },
        {"R2",                      movesform,    "RR"              },
        {"R U F",                   movesform,    "RUF"             },
        {"R'",                      movesform,    "r"               },
        {"r'",                      movesform,    "r*L"             },
        {"RUR2",                    movesform,    "RURR"            },
        {"rU2",                     movesform,    "R*RUU"           },
        {"(RU)3",                   movesform,    "3(RU)"           },
        {"[R U' F2]",               movesform,    "RuFF"            },
        {"[]",                      movesform,    ""                },
        {"M E S",                   movesform,    "*L*D*F"          },
        {"M",                       movesform,    "*L"              },
        {"R U R U R U R U R U R U", movesform,    "RURURURURURU"    },
        {homefacelets,              faceletsform, ""                },
        {superflip,                 faceletsform, ""                },
        {home,                      cubiesform,   ""                },
        {wider,                     cubiesform,   ""                },
    };
    for (const form_row& row : rows) {
        const read_line line = read(row.text);
        EXPECT_STREQ(formnames[row.form], formnames[line.form]) << row.text;
        if (line.form == macroform || line.form == movesform) {
            EXPECT_EQ(row.macro, line.macro) << row.text;
        }
    }
}

TEST_F(Forms, AFormThatIsToldIsTheForm) {
    EXPECT_EQ(macroform, read("R2", macroform).form);
    EXPECT_EQ("R2", read("R2", macroform).macro);
    EXPECT_EQ("RuFF", read("[R U' F2]", macroform).macro) << "as the window converts it";
    EXPECT_EQ("R*R", read("r", movesform).macro);
    EXPECT_EQ("UFUR", read("UF UR", movesform).macro);
    EXPECT_EQ("RRUF", read("R2(UF)", movesform).macro);
    EXPECT_EQ("RRRRRRRRR", read("RRRRRRRRR", movesform).macro);
    EXPECT_EQ(faceletsform, read("UUU UUU UUU" + homefacelets.substr(9), faceletsform).form);
}

struct complaint_row {
    std::string text;
    line_form form;
    std::string why;
};

TEST_F(Forms, WhatIsNoFormIsRefusedWithItsColumn) {
    const std::string zero("R\0U", 3);
    const std::string zeroname("\0X", 2);
    const std::string nozero("column 2: \"\0\" does not fit", 26);
    const std::string wide = "column 1: \"r\" is a wide turn in moves and a turn back in a macro: ";
    const std::string few = "column 1: 2 names of cubies instead of 20; ";
    const std::string& h = homefacelets;
    const std::string twocentres = replaced(h, "RRRRRRRRR", "RRRRURRRR");
    const std::string nocentre = replaced(h, "RRRRRRRRR", "RRRR'RRRR");
    const std::string nocorner = h.substr(0, 8) + "R" + h.substr(9, 8) + "U" + h.substr(18);
    const complaint_row rows[] = {
        {"q",                    anyform,      "column 1: \"q\" does not fit"               },
        {"  RUq",                anyform,      "column 5: \"q\" does not fit"               },
        {"R U q",                anyform,      "column 5: \"q\" does not fit"               },
        {"R2q",                  anyform,      "column 3: \"q\" does not fit"               },
        {"R\xe2\x80\x99q",       anyform,      "column 3: \"q\" does not fit"               },
        {"2U",                   anyform,      "column 1: \"2\" counts no group"            },
        {"*U2",                  anyform,      "column 3: \"2\" counts no group"            },
        {"R U (F",               anyform,      "column 5: \"(\" is not closed"              },
        {"3(RU",                 anyform,      "column 2: \"(\" is not closed"              },
        {"RU)",                  anyform,      "column 3: \")\" closes nothing"             },
        {"[R",                   anyform,      "column 1: \"[\" is not closed"              },
        {zero,                   anyform,      nozero                                       },
        {"r U R F",              anyform,      wide + "--from tells which"                  },
        {"RU UF",                anyform,      few + "--from=moves reads them as moves"     },
        {"R2",                   cubiesform,   "Improper edge cubie:  R2."                  },
        {"UF UR",                cubiesform,   "Improper edge cubie:  ."                    },
        {home + " X",            cubiesform,   "column 69: Surplus cubie."                  },
        {home + " X",            anyform,      "column 69: Surplus cubie."                  },
        {home + " UF",           anyform,      "column 69: Surplus cubie."                  },
        {home + zeroname,        cubiesform,   "Improper corner cubie: DBR?."               },
        {"XYZ" + home.substr(2), anyform,      "Improper edge cubie:  XYZ."                 },
        {"RU",                   faceletsform, "column 3: 2 facelets instead of 54"         },
        {h + "U",                faceletsform, "column 55: 55 facelets instead of 54"       },
        {twocentres,             faceletsform, "column 14: \"U\" is on two centres"         },
        {nocentre,               faceletsform, "column 14: \"'\" is no letter"              },
        {"X" + h.substr(1),      faceletsform, "column 1: \"X\" is on no centre"            },
        {"R" + h.substr(1),      anyform,      "column 18: \"R\" comes more than nine times"},
        {nocorner,               anyform,      "Improper corner cubie: RFR."                },
    };
    for (const complaint_row& row : rows) {
        EXPECT_EQ(row.why, complaint(row.text, row.form)) << row.text;
    }
}

struct cure_row {
    std::string text;
    std::string cure;
};

TEST_F(Forms, AnImpossibleCubeIsToldWithItsCure) {
    std::string flipped = homefacelets;
    std::swap(flipped[7], flipped[19]);
    const std::string swapped =
        replaced(replaced(replaced(home, "UF ", "X "), "UR ", "UF "), "X", "UR");
    const std::string flippeduf = replaced(home, "UF ", "FU ");
    const std::string twisted = replaced(home, "UFR", "FRU");
    const std::string twice = replaced(home, "UF ", "UR ");
    const std::string flip = "Flip any edge cubie";
    const std::string twist = "Twist any corner cubie counterclockwise";
    const std::string swap = "Swap any two edge cubies or any two corner cubies";
    const std::string valid = " to make a valid configuration.";
    const cure_row rows[] = {
        {flipped,   flip + valid           },
        {flippeduf, flip + valid           },
        {twisted,   twist + valid          },
        {swapped,   swap + valid           },
        {twice,     "Duplicate edge cubie."},
    };
    for (const cure_row& row : rows) {
        EXPECT_EQ(row.cure, complaint(row.text)) << row.text;
    }
}

// Nine times "FRUruf" has six kinds of letters, nine of each, as facelets have.
TEST_F(Forms, AMacroThatLooksLikeFaceletsIsOne) {
    std::string macro;
    for (int i = 0; i < 9; i++) {
        macro += "FRUruf";
    }
    EXPECT_EQ(macroform, read(macro).form);
}

// Facelets are known by their six centres, or by nine of each letter.
TEST_F(Forms, FaceletsWithAFaultAreFaceletsStill) {
    std::string centres = homefacelets;
    std::swap(centres[4], centres[9]);
    EXPECT_EQ("column 14: \"R\" is on two centres", complaint(centres));
    std::string tenth = homefacelets;
    tenth[0] = 'R';
    EXPECT_EQ("column 18: \"R\" comes more than nine times", complaint(tenth));
    std::string both = homefacelets;
    both[4] = 'R'; // ten of R, and on two centres: a macro
    EXPECT_EQ(macroform, read(both).form);
    EXPECT_EQ("54 letters are read as a macro, not as facelets\n", notes(both));
    EXPECT_EQ(movesform, read(replaced(homefacelets, "UUUUUUUUU", "UUUU UUUUU")).form);
}

TEST_F(Forms, AMacroNearlyAsLongAsFaceletsHasANote) {
    for (const auto& [length, noted] : {
             std::pair(49, false), {50, true },
               {53, true },
               {55, true },
               {58, true },
               {59, false}
    }) {
        const std::string macro = (homefacelets + "FFFFF").substr(0, static_cast<unsigned>(length));
        const std::string note =
            std::to_string(length) + " letters are read as a macro, not as facelets\n";
        EXPECT_EQ(noted ? note : "", notes(macro)) << length;
    }
}

TEST_F(Forms, FaceletsMayHaveAnyLetters) {
    for (const std::string letters : {"WRGYOB", "wrgyob", "abcdef", "DLBURF"}) {
        std::string text = superflip;
        for (char& c : text) {
            c = letters[std::string("URFDLB").find(c)];
        }
        read(text);
        const std::string cubies = cubiestext();
        read(superflip);
        EXPECT_EQ(cubiestext(), cubies) << letters;
    }
}

TEST_F(Forms, FaceletsMayBeAWordAFace) {
    std::string text = superflip;
    for (std::size_t i = 45; i > 0; i -= 9) {
        text.insert(i, " ");
    }
    EXPECT_EQ(faceletsform, read(text).form);
    EXPECT_EQ(superflip, faceletstext());
}

TEST_F(Forms, TheSuperflipIsTheSuperflip) {
    read(superflip);
    EXPECT_EQ("FU RU BU LU FD RD BD LD RF LF RB LB UFR URB UBL ULF DRF DFL DLB DBR", cubiestext());
}

// The twin spells the cube of geometry by a list of places.
TEST_F(Forms, FaceletsAreThoseOfTheTwin) {
    for (int i = 0; i < 2000; i++) {
        const std::string macro = randommacro(lots, i % 9);
        read(macro, macroform);
        ASSERT_EQ(bookfacelets(modelcube()), faceletstext()) << macro;
    }
}

TEST_F(Forms, ACubeComesBackThroughEachForm) {
    for (int i = 0; i < 2000; i++) {
        read(randommacro(lots, 5), macroform);
        const std::string facelets = faceletstext();
        const std::string cubies = cubiestext();
        EXPECT_EQ(faceletsform, read(facelets).form);
        EXPECT_EQ(facelets, faceletstext()) << "also with the centres elsewhere";
        EXPECT_EQ(cubies, cubiestext());
        EXPECT_EQ(cubiesform, read(cubies).form);
        EXPECT_EQ(cubies, cubiestext());
    }
}

// facelets -> cubies -> macro -> facelets, over cubes drawn by lot.
TEST_F(Forms, TheSolverClosesTheRound) {
    while (initializesolve() == 0) {
        continue;
    }
    lot from(1);
    for (int i = 0; i < 30; i++) {
        read(drawcubies(from));
        const std::string facelets = faceletstext();
        read(facelets);
        const std::string cubies = cubiestext();
        const read_line solution = read(my_user_enters_cube(cubies.c_str()), macroform);
        read(macrotext(solution.moves, true));
        EXPECT_EQ(facelets, faceletstext());
    }
}

TEST_F(Forms, NothingIsReadOtherwiseWithoutAWord) {
    EXPECT_EQ("", notes("RUruF"));
    EXPECT_EQ("", notes("[R U' F2]"));
    EXPECT_EQ("column 4: the window would drop \"M\"\ncolumn 6: the window would drop \"w\"\n",
              notes("[R MRw]"));
    EXPECT_EQ("column 2: \"2\" is read as the count of the group; --from=moves reads it with the "
              "letter before it\n",
              notes("R2(UF)"));
    EXPECT_EQ("", notes("U2(rdRD)")) << "the small letters tell";
    EXPECT_EQ("53 letters are read as a macro, not as facelets\n", notes(homefacelets.substr(1)));
    EXPECT_EQ("", notes("RUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUFRUF"));
}

TEST_F(Forms, ManyDroppedCharactersAreSummedUp) {
    const std::string told = notes("[" + std::string(25, 'M') + "]");
    EXPECT_EQ(21, std::count(told.begin(), told.end(), '\n'));
    EXPECT_TRUE(told.ends_with("column 21: the window would drop \"M\"\n"
                               "the window would drop 5 more\n"));
}

// A large part of all texts; whatever is accepted can be told and read back.
TEST_F(Forms, AnyBytesAreAnswered) {
    for (int i = 0; i < 30'000; i++) {
        std::string text;
        for (int length = below(lots, 12); length > 0; length--) {
            text += below(lots, 20) == 0 ? static_cast<char>(below(lots, 256))
                                         : "URFDLBurf2'()[] wMx*>s3"[below(lots, 23)];
        }
        for (int form = anyform; form < formcount; form++) {
            read_line line;
            if (readform(text, static_cast<line_form>(form), line)) {
                makecube(line);
                const std::string facelets = faceletstext();
                read(facelets);
                ASSERT_EQ(facelets, faceletstext()) << text;
            } else {
                ASSERT_FALSE(line.error.text.empty()) << text;
            }
        }
    }
}

TEST_F(Forms, NamesFindTheForms) {
    EXPECT_EQ(anyform, findform("auto"));
    EXPECT_EQ(cubiesform, findform("cubies"));
    EXPECT_EQ(-1, findform("cubie"));
    EXPECT_EQ(-1, findform(""));
}

} // namespace
