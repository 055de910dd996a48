// SPDX-License-Identifier: MIT
#include "model/modeltest.h"
#include "model/notation.h"

#include <algorithm>
#include <climits>

namespace {

class Parser : public ModelTest {
  protected:
    static codes queued() { return {turns, turns + turnptr}; }

    // Parses in queueing mode, on the tight copy that a sanitizer watches.
    static codes queue(const std::string& text) {
        const std::vector<char> tight(text.begin(), text.end());
        parsing = 1;
        EXPECT_EQ(parsestring(tight.data(), lengthof(text)), turnptr);
        parsing = 0;
        EXPECT_EQ(noturn, turns[turnptr]);
        return queued();
    }

    static codes reversed(const std::string& text) {
        const std::vector<char> tight(text.begin(), text.end());
        parsing = 1;
        revparsestring(tight.data(), lengthof(text));
        parsing = 0;
        EXPECT_EQ(noturn, turns[turnptr]);
        return queued();
    }

    static int check(const std::string& text) {
        return sanitycheckmacro(text.data(), lengthof(text));
    }

    static int count(const std::string& text) { return maclen(text.data(), lengthof(text)); }
};

// The forward parse

TEST_F(Parser, ACountBeforeASingleLetterIsLost) {
    EXPECT_EQ(1, check("2U"));
    EXPECT_EQ(-1, count("2U"));
    EXPECT_EQ(codes{0}, queue("2U"));
}

TEST_F(Parser, AGroupWithoutACountIsSkippedButCounted) {
    EXPECT_EQ(0, check("(RU)"));
    EXPECT_EQ(codes{}, queue("(RU)"));
    EXPECT_EQ(codes{8}, queue("(RU)F"));
    EXPECT_EQ(2, count("(RU)"));
    EXPECT_EQ((codes{6, 0, 6, 0, 6, 0}), queue("3(RU)"));
}

TEST_F(Parser, TheLetterOfAPairIsNotChecked) {
    EXPECT_EQ(codes{16}, queue("*U"));
    for (const char* pair : {"*u", "*(", ">)", ">7", "**", "*x"}) {
        EXPECT_EQ(1, check(pair)) << pair;
        EXPECT_EQ(codes{}, queue(pair)) << pair;
        EXPECT_EQ(codes{6}, queue(std::string(pair) + "R")) << pair;
    }
}

TEST_F(Parser, EveryTurnHasItsNotation) {
    for (int code = 0; code < turncount; code++) {
        EXPECT_EQ(codes{code}, queue(turn_table[code].notation));
        EXPECT_EQ(codes{inversemove[code]}, reversed(turn_table[code].notation));
    }
}

struct parse_case {
    const char* text;
    const char* forwards; // plain turns
    const char* backwards;
};

std::string plain(const codes& queue) {
    std::string text;
    for (int code : queue) {
        text += turn_table[code].notation;
    }
    return text;
}

TEST_F(Parser, TextsParseEitherWay) {
    const parse_case cases[] = {
        {"",               "",                  ""                 },
        {"R2(FU)",         "RFUFU",             "ufufr"            },
        {"2U",             "U",                 "u"                }, // steps over the lone digit
        {"U R?F",          "URF",               "fru"              },
        {"2(2(R)U)",       "RRURRU",            "urrurr"           },
        {"10(u)",          "uuuuuuuuuu",        "UUUUUUUUUU"       },
        {"0(R)U",          "U",                 "u"                },
        {"007(R)",         "RRRRRRR",           "rrrrrrr"          },
        {"2 (R)",          "",                  ""                 }, // broken off backwards
        {"2U(R)",          "U",                 ""                 },
        {"2*(R)",          "R",                 ""                 }, // ")" has no "("
        {"2(U*)R)",        "URUR",              "ruru"             },
        {"*2(R)",          "",                  "rr"               }, // backwards a count
        {"U2(RF",          "U",                 "fru"              },
        {"U)R",            "UR",                "r"                },
        {")R2(U))",        "RUU",               ""                 },
        {"*>F",            "F",                 ">B"               },
        {"*F>R",           "*F>R",              ">L*B"             },
        {"R*",             "R",                 "r"                },
        {"2()U",           "U",                 "u"                },
        {"2(3()U)",        "UU",                "uu"               },
        {"2(2(U*F)2(R))L", "U*FU*FRRU*FU*FRRL", "lrr*Bu*Burr*Bu*Bu"},
    };
    for (const parse_case& row : cases) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.forwards, plain(queue(row.text)));
        EXPECT_EQ(row.backwards, plain(reversed(row.text)));
        initparser();
    }
}

TEST_F(Parser, DirectModeTurnsTheCubeAndKeepsTheCodes) {
    apply("R2(FU)*U>L");
    const codes landed = {6, 8, 0, 8, 0, 16, 19};
    EXPECT_EQ(landed, held());
    const codes turned = places();
    initcubies();
    for (int code : landed) {
        applyturn(code);
    }
    EXPECT_EQ(turned, places());
}

TEST_F(Parser, AReversalTakesTheMacroBack) {
    const std::string macro = "R2(FU3(*Ul))>L12(bD)";
    apply(macro);
    EXPECT_EQ(0, solved());
    revparsestring(macro.data(), lengthof(macro));
    EXPECT_EQ(0, reversing);
    EXPECT_EQ(1, solved());
    EXPECT_EQ(2 * count(macro), undoptr);
}

// The queue

TEST_F(Parser, ANewMacroReplacesTheQueue) {
    queue("RUF");
    turn = 2;
    EXPECT_EQ((codes{2, 4}), queue("DL"));
    EXPECT_EQ(0, turn);
    turn = 1;
    EXPECT_EQ(codes{7}, reversed("R"));
    EXPECT_EQ(0, turn);
    EXPECT_EQ(codes{}, queue(""));
}

TEST_F(Parser, DirectModeLeavesTheQueueAlone) {
    queue("RUF");
    turn = 1;
    apply("DLxs(U)");
    revparsestring("DL", 2);
    EXPECT_EQ((codes{6, 0, 8}), queued());
    EXPECT_EQ(1, turn);
}

TEST_F(Parser, QueueingLeavesTheCubeAlone) {
    queue("RUF");
    EXPECT_EQ(1, solved());
    EXPECT_EQ(0, undoptr);
}

TEST_F(Parser, TheQueueTakes999TurnsAndTheParseEnds) {
    apply("U");
    EXPECT_EQ(codes(999, 6), queue(std::string(999, 'R')));
    EXPECT_EQ(codes(999, 6), queue(std::string(1000, 'R') + "x"));
    EXPECT_EQ(0, solved()); // the "x" was not reached
    EXPECT_EQ(codes(999, 7), reversed(std::string(5000, 'R')));
    EXPECT_EQ(0, reversing);
    EXPECT_EQ(codes(999, 6), queue("999999999999(R)"));
    EXPECT_EQ(codes(999, 6), queue("3(333(R))"));
    const codes nested = queue("999999(999999(RU))F");
    EXPECT_EQ(999U, nested.size());
    EXPECT_EQ(6, nested[998]);
    EXPECT_EQ(codes(999, 7), reversed("99999(99999(R))"));
    EXPECT_EQ(0, parselevel);
}

TEST_F(Parser, CountsOfAnySizeAreExact) {
    for (const char* four : {"10000000000(R)", "2147483648(R)", "4294967296(U)",
                             "99999999999999999999999996(*F)", "1000000000000(25(>R)3(L))"}) {
        apply(four);
        EXPECT_EQ(1, solved()) << four;
    }
    apply("99999999999999999999999999(R)"); // 3 modulo 4
    revparsestring("3(R)", 4);
    EXPECT_EQ(1, solved());
    EXPECT_EQ(codes(999, 6), queue("2147483648(R)"));
}

TEST_F(Parser, AGroupWithoutDigitsEndsTheReversal) {
    EXPECT_EQ(codes{3}, reversed("U(RF)D"));
    EXPECT_EQ(1, reversing);
    EXPECT_EQ(codes{7}, reversed("R"));
    EXPECT_EQ(0, reversing);
    EXPECT_EQ((codes{5, 3, 3, 3, 1}), reversed("U3(B(RF)D)L"));
    EXPECT_EQ(0, reversing); // the level around it ended as it should
    EXPECT_EQ(codes{}, reversed("s(RU)"));
    EXPECT_EQ(1, reversing);
    EXPECT_EQ(0, parselevel);
}

TEST_F(Parser, AReversalThatBrokeOffMakesParsesAppend) {
    reversed("U(RF)D");
    EXPECT_EQ((codes{3, 6}), queue("R"));
    EXPECT_EQ((codes{3, 6, 0}), queue("U"));
    EXPECT_EQ(0, turn);
    clearqueue();
    EXPECT_EQ(codes{8}, queue("F"));
    EXPECT_EQ(codes{7}, reversed("R"));
    EXPECT_EQ(codes{0}, queue("U"));
}

TEST_F(Parser, AReversalTakesTheLastFiveDigits) {
    EXPECT_EQ(codes(2, 7), reversed("300002(R)"));
    EXPECT_EQ((codes{1}), reversed("U100000(R)"));
    EXPECT_EQ(codes(12, 7), reversed("00012(R)"));
}

TEST_F(Parser, TheLengthArgumentRules) {
    EXPECT_EQ((codes{6, 0}), [] {
        parsing = 1;
        parsestring("RUF)", 2);
        return queued();
    }());
    parsing = 0;
    EXPECT_EQ((codes{6, 0}), queue(std::string("R\0U", 3)));
    EXPECT_EQ((codes{1, 7}), reversed(std::string("R\0U", 3)));
    EXPECT_EQ(codes{}, queue("*"));
    EXPECT_EQ(0, parsestring("RUF", -5));
    revparsestring("RUF", 0);
    EXPECT_EQ(1, solved());
    EXPECT_EQ(2, maclen("RUF", 2));
    EXPECT_EQ(1, sanitycheckmacro("R?", 1));
}

TEST_F(Parser, AllBytesAreHarmless) {
    std::string all;
    for (int byte = 0; byte < 256; byte++) {
        if (byte != '*' && byte != '>') {
            all += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(12U, queue(all).size());
    EXPECT_EQ(12U, reversed(all).size());
    EXPECT_EQ(0, check(all));
    EXPECT_EQ(-1, count(all));
}

TEST_F(Parser, DepthIsNoObstacle) {
    std::string text;
    for (int depth = 0; depth < 100000; depth++) {
        text += "2(";
    }
    text += "R" + std::string(100000, ')');
    EXPECT_EQ(1, check(text));
    EXPECT_EQ(INT_MAX, count(text));
    EXPECT_EQ(codes(999, 6), queue(text));
    EXPECT_EQ(codes(999, 7), reversed(text));
    apply(text); // a multiple of four turns
    EXPECT_EQ(1, solved());
    EXPECT_EQ(-1, count(std::string(1000000, '(')));
    EXPECT_EQ(codes{}, queue(std::string(1000000, '(')));
}

// Orders and resets

TEST_F(Parser, XResetsTheCubeInEitherMode) {
    apply("RU");
    EXPECT_EQ((codes{8, 4}), queue("FxL"));
    EXPECT_EQ(1, solved());
    apply("RUx");
    EXPECT_EQ(1, solved());
    apply("R3(Ux)F");
    revparsestring("F", 1);
    EXPECT_EQ(1, solved());
    EXPECT_EQ(0, check("x"));
}

struct order_case {
    const char* text;
    int order;
    int landed; // turns in the undo buffer
};

TEST_F(Parser, SFindsTheOrder) {
    const order_case
        cases[] =
            {
                {"s(RU)",         105, 210},
                {"s(R)",          4,   4  },
                {"s()",           1,   0  },
                {"s(>U)",         1,   1  },
                {"s(*F)",         4,   4  },
                {"s(2(R))",       2,   4  },
                {"s5(R)",         4,   4  }, // the count is of no use
                {"sU(R)",         4,   5  }, // armed until the next group
                {"Us(R)FFF",      4,   5  }, // the rest is not parsed
                {"s(xR)",         0,   2  }, // each application ends alike
                {"s(Rx)",         1,   1  },
                {"s(1(s(U))R)",   0,   10 },
                {"s(s(U)R)",      1,   4  }, // the rest of the group is not parsed either
                {"s(3(R)2(x)FR)", 0,   10 },
    };
    for (const order_case& row : cases) {
        SCOPED_TRACE(row.text);
        SetUp();
        apply("LF");
        initundo();
        apply(row.text);
        EXPECT_EQ(row.order, macorder);
        EXPECT_EQ(row.landed, undoptr);
        EXPECT_EQ(row.order != 0 ? 1 : 0, solved());
        EXPECT_EQ("inform: order = " + std::to_string(row.order), shell.messages.back());
    }
}

TEST_F(Parser, AnOrderThatNeverComesIsZero) {
    EXPECT_EQ(0, calcorder("xR"));
    EXPECT_EQ((codes{6, 6}), held());
    EXPECT_EQ(messages{"inform: order = 0"}, shell.messages);
    for (const char* macro : {"Ux2(R)", "FxR", "1(s(U))R"}) {
        EXPECT_EQ(0, calcorder(macro)) << macro;
        EXPECT_EQ(1, solved()) << macro;
    }
    EXPECT_EQ(1, check("s(1(s(U))R)"));
}

TEST_F(Parser, TheSingmasterFormIsReadAsItsLetters) {
    shell.line = "[R U' F2]";
    const int order = calcorder("RUF");
    EXPECT_EQ(order, calcorder("[R U' F2]"));
    EXPECT_NE(order, calcorder("RuFF"));
    EXPECT_EQ((codes{6, 0, 8}), queue("[R U' F2]"));
    EXPECT_EQ("[R U' F2]", shell.line);
}

TEST_F(Parser, AnOrderOfTheTextIsToldOnce) {
    apply("999999(s(RU))F1(s(F))");
    EXPECT_EQ((messages{"inform: order = 105", "inform: order = 4"}), shell.messages);
    EXPECT_EQ(4, macorder);
}

TEST_F(Parser, AnOrderIsToldWhenTheCubeStandsAsItWill) {
    int seen = -1;
    shell.whilemessage = [&seen] {
        seen = solved();
        apply("R");
    };
    apply("3(s(RU))");
    EXPECT_EQ(1, seen);
    EXPECT_EQ(0, parselevel);
    EXPECT_EQ(codes{6}, codes(undobuf + undoptr - 1, undobuf + undoptr));
}

TEST_F(Parser, SInQueueingModeQueuesTheGroupOnce) {
    apply("L");
    macorder = 7;
    EXPECT_EQ((codes{8, 6, 0}), queue("Fs(RU)DDD"));
    EXPECT_EQ(1, solved());
    EXPECT_EQ(7, macorder);
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_EQ((codes{6, 0, 6, 0, 2}), queue("2(s(RU)F)D"));
}

TEST_F(Parser, TheOrderOfAMacroLeavesItsColoursAlone) {
    apply("LF");
    initundo();
    parsing = 1;
    needsredraw = 0;
    const codes before = colors();
    EXPECT_EQ(105, calcorder("RU"));
    EXPECT_EQ(105, macorder);
    EXPECT_EQ(before, colors());
    EXPECT_EQ(messages{"inform: order = 105"}, shell.messages);
    EXPECT_EQ(1, shell.linechanges);
    EXPECT_EQ(1, needsredraw);
    EXPECT_EQ(1, parsing);
}

// A turn that lands while the message is up lands on the cube that is shown, and stays.
TEST_F(Parser, AnOrderIsToldOfTheCubeThatIsThereAgain) {
    apply("LF");
    const codes before = colors();
    applyturn(6);
    const codes after = colors();
    applyturn(7);
    parsing = 1;
    codes seen;
    shell.whilemessage = [&seen] {
        seen = colors();
        EXPECT_EQ(1, needsredraw);
        EXPECT_EQ(1, parsing);
        land("R");
    };
    needsredraw = 0;
    EXPECT_EQ(105, calcorder("RU"));
    EXPECT_EQ(messages{"inform: order = 105"}, shell.messages);
    EXPECT_EQ(before, seen);
    EXPECT_EQ(after, colors());
    EXPECT_EQ(6, undobuf[undoptr - 1]);
}

// Another order that is found while the message is up does not change the answer of the first.
TEST_F(Parser, AnOrderIsItsOwnWhateverHappensBehindItsMessage) {
    shell.whilemessage = [] {
        shell.whilemessage = nullptr;
        EXPECT_EQ(4, calcorder("U"));
    };
    EXPECT_EQ(105, calcorder("RU"));
}

TEST_F(Parser, AnOrderRestoresTheColoursOnly) {
    apply("LF");
    initundo();
    calcorder("RU");
    EXPECT_EQ(210, undoptr);
    EXPECT_EQ(0, solved());
    EXPECT_TRUE(std::is_sorted(cubefaces, cubefaces + placecount)); // those of a solved cube
}

TEST_F(Parser, AnOrderThatIsNoneIsTheLast) {
    calcorder("RU");
    EXPECT_EQ(105, calcorder("R*"));
    EXPECT_EQ(105, calcorder("2(R"));
    EXPECT_EQ(4, calcorder("[R]2(U)2(U)*?"));
    EXPECT_EQ(0, calcorder("xR"));
    EXPECT_EQ(4, calcorder("R)U"));
}

// Landing

TEST_F(Parser, APendingTurnLandsOnce) {
    recordstart();
    startturn(12);
    sparsestring("*F", 2);
    EXPECT_EQ(1, solved());
    doparsestring();
    EXPECT_EQ(codes{12}, held());
    EXPECT_EQ("*F", shell.line);
    EXPECT_EQ(1, turnlanded);
    EXPECT_EQ(0, saveparselen);
    doparsestring();
    EXPECT_EQ(1, undoptr);
}

TEST_F(Parser, ATurnLandsWhateverTheMode) {
    queue("UF");
    parsing = 1;
    sparsestring("R", 1);
    doparsestring();
    EXPECT_EQ(codes{6}, held());
    EXPECT_EQ((codes{0, 8}), queued());
    EXPECT_EQ(1, parsing);
}

TEST_F(Parser, WithoutATurnInProgressNoneHasLanded) {
    sparsestring("R", 1);
    doparsestring();
    EXPECT_EQ(0, turnlanded);
    EXPECT_EQ(0, solved());
    startturn(6);
    doparsestring(); // nothing waits
    EXPECT_EQ(0, turnlanded);
}

TEST_F(Parser, OnlyTwoCharactersWait) {
    sparsestring("*FRU", 4);
    EXPECT_STREQ("*F", saveparse);
    EXPECT_EQ(2, saveparselen);
    sparsestring("R", 1);
    EXPECT_STREQ("R", saveparse);
    sparsestring("U", 0);
    doparsestring();
    EXPECT_EQ(1, solved());
}

TEST_F(Parser, BehindTheOverflowAlertTheTurnIsNotDrawnAgain) {
    recordstart();
    for (int i = 0; i < recordlimit; i++) {
        record("U");
    }
    startturn(6);
    int landed = -1;
    shell.whilemessage = [&landed] {
        landed = turnlanded;
        doparsestring();
    };
    sparsestring("R", 1);
    doparsestring();
    EXPECT_EQ(1, landed);
    EXPECT_EQ(1, undoptr);
}

} // namespace
