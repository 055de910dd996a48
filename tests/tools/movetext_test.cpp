// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/slowcube.h"
#include "nullshell.h"
#include "tools/booktwin.h"
#include "tools/movetext.h"
#include "tools/movewriting.h"

#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace {

class Movetext : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetmodel();
    }

    static void doit(const std::string& macro) {
        parsestring(macro.c_str(), static_cast<int>(macro.size()));
    }

    static move_text macro(const std::string& text) {
        move_text moves;
        misfit bad = {};
        EXPECT_TRUE(readmacro(text, false, moves, bad)) << text << ": " << bad.why;
        return moves;
    }

    static move_text book(const std::string& text) {
        move_text moves;
        misfit bad = {};
        EXPECT_TRUE(readmoves(text, true, moves, bad)) << text << ": " << bad.why;
        return moves;
    }

    chance lots{1974};
};

struct text_row {
    const char* text;
    const char* expected;
};

TEST_F(Movetext, MovesAreReadAsInBooks) {
    constexpr text_row rows[] = {
        {"",                            ""                        },
        {"U D L R F B",                 "UDLRFB"                  },
        {"U' D' L' R' F' B'",           "udlrfb"                  },
        {"U2 R2' F'2",                  "UUrrff"                  },
        {"Uw Dw Lw Rw Fw Bw",           "U*UD*DL*LR*RF*FB*B"      },
        {"Rw' Rw2 Rw2'",                "r*LRR*R*Rrr*L*L"         },
        {"r u",                         "R*RU*U"                  },
        {"M E S M' E' S' M2",           "*L*D*F*R*U*B*L*L"        },
        {"x y z x' y' z' y2",           ">R>U>F>L>D>B>U>U"        },
        {"RUR'U'",                      "RUru"                    },
        {"R\xe2\x80\x99 U\xe2\x80\xb2", "ru"                      },
        {"R\xc2\xa0U\tF",               "RUF"                     },
        {"(R U)3",                      "3(RU)"                   },
        {"(R U)",                       "RU"                      },
        {"(R U)'",                      "ur"                      },
        {"(R U)2'",                     "2(ur)"                   },
        {"(R U)'2",                     "2(ur)"                   },
        {"(R U)0 F",                    "0(RU)F"                  },
        {"(R U)003",                    "3(RU)"                   },
        {"(R U)99999999999999999999",   "99999999999999999999(RU)"},
        {"((R U)2' F)3'",               "3(f2(RU))"               },
        {"((R)')' ()3",                 "R3()"                    },
        {"[R U' F2]",                   "RuFF"                    },
        {"[ R (U' F2)2 ] ",             "R2(uFF)"                 },
    };
    for (const text_row& row : rows) {
        EXPECT_EQ(row.expected, macrotext(book(row.text), false)) << row.text;
    }
}

TEST_F(Movetext, MovesAreWrittenAsInBooks) {
    constexpr text_row rows[] = {
        {"",                   ""                    },
        {"UDLRFB",             "U D L R F B"         },
        {"udlrfb",             "U' D' L' R' F' B'"   },
        {"RRrrRRR",            "R2 R2' R2 R"         },
        {"*F*B*L*R*U*D",       "S S' M M' E' E"      },
        {">R>L>U>D>F>B",       "x x' y y' z z'"      },
        {"*L*L*D*D>L>L",       "M2 E2 x2'"           },
        {"*R*R*U*U",           "M2' E2'"             },
        {"U*Ud*UL*Lr*LF*Fb*F", "Uw Dw' Lw Rw' Fw Bw'"},
        {"RR*R*Rrr*L*L",       "Rw2 Rw2'"            },
        {"RR*R",               "R2 M'"               },
        {"R*L",                "R M"                 },
        {"3(RU)F",             "(R U)3 F"            },
        {"R3(R2(U)*R)R",       "R (R (U)2 M')3 R"    },
        {"1(R)R",              "R2"                  },
        {"3()0(R)",            "()3 (R)0"            },
    };
    for (const text_row& row : rows) {
        EXPECT_EQ(row.expected, bookmoves(macro(row.text))) << row.text;
    }
}

struct refusal_row {
    const char* text;
    bool book; // read as moves, else as a macro
    bool sure; // strict, or certain
    std::size_t at;
    const char* why;
};

TEST_F(Movetext, WhatDoesNotFitIsToldWithItsPlace) {
    constexpr refusal_row rows[] = {
        {"RUq",             false, true,  2, "\"q\" does not fit"             },
        {"R U",             false, true,  1, "\" \" does not fit"             },
        {"(RU)",            false, true,  0, "\"(\" has no count"             },
        {"R)",              false, true,  1, "\")\" closes nothing"           },
        {"3(R2(U)",         false, true,  1, "\"(\" is not closed"            },
        {"R*",              false, true,  1, "\"*\" does not fit"             },
        {"R2",              false, true,  1, "\"2\" counts no group"          },
        {"12U",             false, true,  0, "\"1\" counts no group"          },
        {"*2(R)",           false, true,  2, "\"(\" has no count"             },
        {"x",               false, true,  0, "\"x\" does not fit"             },
        {"M",               false, true,  0, "\"M\" does not fit"             },
        {"R\xc3\xa9",       false, true,  1, "\"\xc3\xa9\" does not fit"      },
        {"R \xe2\x80\x9cU", true,  true,  2, "\"\xe2\x80\x9c\" does not fit"  },
        {"R\xff",           true,  true,  1, "\"\xff\" does not fit"          },
        {"R U q",           true,  true,  4, "\"q\" does not fit"             },
        {"R3",              true,  true,  1, "\"3\" does not fit"             },
        {"2R",              true,  true,  0, "\"2\" does not fit"             },
        {"R''",             true,  true,  2, "\"'\" does not fit"             },
        {"R, U",            true,  true,  1, "\",\" does not fit"             },
        {"[R, U]",          true,  true,  2, "\",\" does not fit"             },
        {"[[R]]",           true,  true,  1, "\"[\" does not fit"             },
        {"Mw",              true,  true,  1, "\"w\" does not fit"             },
        {"rw",              true,  true,  1, "\"w\" does not fit"             },
        {"X",               true,  true,  0, "\"X\" does not fit"             },
        {"*R",              true,  true,  0, "\"*\" does not fit"             },
        {"(R U",            true,  true,  0, "\"(\" is not closed"            },
        {"R)",              true,  true,  1, "\")\" closes nothing"           },
        {"[R U",            true,  true,  0, "\"[\" is not closed"            },
        {"[R] U",           true,  true,  4, "\"U\" stands behind the bracket"},
        {"R U]",            true,  true,  3, "\"]\" does not fit"             },
        {"R U r",           true,  false, 4,
         "\"r\" is a wide turn in moves and a turn back in a macro: "
         "--from tells which"                                                 },
    };
    for (const refusal_row& row : rows) {
        move_text moves;
        misfit bad = {};
        EXPECT_FALSE(row.book ? readmoves(row.text, row.sure, moves, bad)
                              : readmacro(row.text, row.sure, moves, bad))
            << row.text;
        EXPECT_EQ(row.at, bad.at) << row.text;
        EXPECT_EQ(row.why, bad.why) << row.text;
    }
}

TEST_F(Movetext, WideLettersNeedAWitness) {
    for (const char* witness : {"R'", "R2", "Uw", "M", "x", "(R)", "(R)2", "R\xe2\x80\x99"}) {
        for (const std::string& text : {std::string("r ") + witness, witness + std::string(" r")}) {
            move_text moves;
            misfit bad = {};
            EXPECT_TRUE(readmoves(text, false, moves, bad)) << text << ": " << bad.why;
        }
    }
}

// The slow twin does the moves one by one on a cube of its own.
TEST_F(Movetext, RandomMovesDoWhatTheTwinDoes) {
    for (int i = 0; i < 3000; i++) {
        const std::string text = randommoves(lots, 1 + i % 9);
        initcubies();
        doit(macrotext(book(text), false));
        slow_cube twin = slowsolved();
        bookturns(twin, text);
        ASSERT_EQ(twin, modelcube()) << text;
    }
}

TEST_F(Movetext, PlainMovesComeBackLetterForLetter) {
    for (int i = 0; i < 3000; i++) {
        const std::string text = plainmoves(lots, i % 40);
        EXPECT_EQ(text, bookmoves(macro(macrotext(book(text), false))));
    }
}

TEST_F(Movetext, MacrosComeBackAsMovesThatDoTheSame) {
    for (int i = 0; i < 3000; i++) {
        const std::string text = randommacro(lots, i % 9);
        initcubies();
        doit(text);
        const slow_cube expected = modelcube();
        initcubies();
        doit(macrotext(book(bookmoves(macro(text))), false));
        ASSERT_EQ(expected, modelcube()) << text << " as " << bookmoves(macro(text));
    }
}

TEST_F(Movetext, TheInverseTakesTheMacroBack) {
    for (int i = 0; i < 3000; i++) {
        const std::string text = randommacro(lots, i % 9);
        initcubies();
        doit(text);
        doit(macrotext(macro(text), true));
        ASSERT_EQ(slowsolved(), modelcube()) << text;
        EXPECT_EQ(macrotext(macro(text), false),
                  macrotext(macro(macrotext(macro(text), true)), true));
    }
}

TEST_F(Movetext, TheExpandedMacroDoesTheSameWithoutGroups) {
    for (int i = 0; i < 3000; i++) {
        const std::string text = randommacro(lots, i % 9);
        std::string expanded;
        ASSERT_TRUE(expandedmacro(macro(text), 1'000'000, expanded)) << text;
        EXPECT_EQ(std::string::npos, expanded.find_first_of("0123456789()")) << text;
        EXPECT_EQ(maclen(text.c_str(), static_cast<int>(text.size())),
                  maclen(expanded.c_str(), static_cast<int>(expanded.size())));
        initcubies();
        doit(text);
        const slow_cube expected = modelcube();
        initcubies();
        doit(expanded);
        ASSERT_EQ(expected, modelcube()) << text;
    }
}

TEST_F(Movetext, ExpandingEndsAtTheLimit) {
    struct limit_row {
        const char* text;
        std::size_t limit;
        bool good;
    };

    constexpr limit_row rows[] = {
        {"RU",                                     2,    true },
        {"RU",                                     1,    false},
        {"5(*RU)",                                 10,   true },
        {"5(*RU)",                                 9,    false},
        {"0(9999(R))U",                            20,   false},
        {"999999999999999999999999(999999999(R))", 1000, false},
        {"999999999999999999999999()",             0,    true },
        {"2(3(R)2(U))",                            10,   true },
        {"2(3(R)2(U))",                            9,    false},
    };
    for (const limit_row& row : rows) {
        std::string text;
        EXPECT_EQ(row.good, expandedmacro(macro(row.text), row.limit, text)) << row.text;
    }
}

// The window's own check is the twin here.
TEST_F(Movetext, AMacroIsWhatTheWindowLetsPass) {
    for (int i = 0; i < 200'000; i++) {
        std::string text;
        for (int length = below(lots, 9); length > 0; length--) {
            text += "URb23(()*>sx q"[below(lots, 14)];
        }
        move_text moves;
        misfit bad = {};
        EXPECT_EQ(sanitycheckmacro(text.c_str(), static_cast<int>(text.size())) != 0,
                  readmacro(text, false, moves, bad))
            << text;
    }
}

// Without the pairs, whose letter may be a digit, each digit must stand before another or a "(",
// and no group behind a turn.
TEST_F(Movetext, AStrictMacroLosesNoCount) {
    const std::regex pair("[*>].");
    const std::regex lost("[0-9](?![0-9(])");
    for (int i = 0; i < 50'000; i++) {
        std::string text;
        for (int length = below(lots, 9); length > 0; length--) {
            text += "URb23(()*s"[below(lots, 10)];
        }
        move_text moves;
        misfit bad = {};
        if (readmacro(text, false, moves, bad)) {
            const std::string plain = std::regex_replace(text, pair, "U");
            EXPECT_NE(std::regex_search(plain, lost) || plain.find("U(") != std::string::npos,
                      readmacro(text, true, moves, bad))
                << text;
        }
    }
}

TEST_F(Movetext, TooDeepAGroupIsRefused) {
    std::string deep;
    for (std::size_t i = 0; i < deepestgroup; i++) {
        deep += "1(";
    }
    const std::string good = deep + "R" + std::string(deepestgroup, ')');
    EXPECT_EQ("r", macrotext(macro(good), true));
    move_text moves;
    misfit bad = {};
    EXPECT_FALSE(readmacro(deep + "1(" + std::string(deepestgroup + 1, ')'), true, moves, bad));
    EXPECT_EQ("\"(\" is nested too deep", bad.why);
    EXPECT_EQ(2 * deepestgroup + 1, bad.at);
    EXPECT_FALSE(readmoves(std::string(deepestgroup + 1, '('), true, moves, bad));
    EXPECT_EQ(deepestgroup, bad.at);
}

TEST_F(Movetext, AnSIsAReset) {
    EXPECT_TRUE(macro("U2(s(R))").resets);
    EXPECT_TRUE(macro("sU").resets);
    EXPECT_FALSE(macro("*s").resets);
    EXPECT_FALSE(macro("RU").resets);
}

// The window's conversion itself tells what it keeps.
TEST_F(Movetext, TheWindowDropsWhatItsConversionDrops) {
    using places = std::vector<std::size_t>;
    EXPECT_EQ(places(), droppedbywindow("[R U' F2]"));
    EXPECT_EQ((places{1, 3}), droppedbywindow("[M x]"));
    EXPECT_EQ((places{2}), droppedbywindow("[Rw]"));
    EXPECT_EQ((places{3}), droppedbywindow("[R'2]"));
    EXPECT_EQ((places{2}), droppedbywindow("[R\xe2\x80\x99]"));
    EXPECT_EQ((places{1, 5, 6}), droppedbywindow("[(R U)2] x"));
    for (int i = 0; i < 2000; i++) {
        const std::string text = "[" + randommoves(lots, 5) + "]";
        std::string kept = text;
        const places dropped = droppedbywindow(text);
        for (auto at = dropped.rbegin(); at != dropped.rend(); ++at) {
            kept.erase(*at, characterat(text, *at));
        }
        EXPECT_EQ(places(), droppedbywindow(kept)) << text << " to " << kept;
    }
}

TEST_F(Movetext, ColumnsCountCharacters) {
    EXPECT_EQ(1U, columnof("", 0));
    EXPECT_EQ(3U, columnof("R U", 2));
    EXPECT_EQ(3U, columnof("R\xe2\x80\x99U", 4));
    EXPECT_EQ(3U, columnof("\xff\xffU", 2));
    EXPECT_EQ(2U, columnof("\xf0\x9f\x98\x80U", 4));
    EXPECT_EQ(4U, columnof("\xe2\x80U!", 3)) << "a sequence that is cut off counts by bytes";
}

} // namespace
