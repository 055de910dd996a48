// SPDX-License-Identifier: MIT
#include "model/modeltest.h"
#include "model/slowcube.h"

#include <cctype>

namespace {

class Turns : public ModelTest {
  protected:
    void SetUp() override {
        ModelTest::SetUp();
        moveface(3); // so that a turn of the whole cube shows in the colours too
        moveslice(0);
    }
};

TEST_F(Turns, CodesAreNumberedAsDesigned) {
    const char* const notations[turncount] = {"U",  "u",  "D",  "d",  "L",  "l",  "R",  "r",
                                              "F",  "f",  "B",  "b",  "*F", "*B", "*L", "*R",
                                              "*U", "*D", ">R", ">L", ">U", ">D", ">F", ">B"};
    for (int code = 0; code < turncount; code++) {
        EXPECT_STREQ(notations[code], turn_table[code].notation) << code;
    }
}

TEST_F(Turns, EachCodeTurnsAsItsNotationSays) {
    for (int code = 0; code < turncount; code++) {
        slow_cube slow = modelcube();
        applyturn(code);
        ASSERT_TRUE(slowturn(slow, turn_table[code].notation));
        EXPECT_TRUE(slow == modelcube()) << code;
    }
}

TEST_F(Turns, FourEqualTurnsRestoreTheCube) {
    const slow_cube before = modelcube();
    for (int code = 0; code < turncount; code++) {
        for (int quarter = 1; quarter <= 4; quarter++) {
            applyturn(code);
            EXPECT_EQ(quarter == 4, before == modelcube()) << code;
        }
    }
}

TEST_F(Turns, TheCodeWithItsLowestBitFlippedTakesATurnBack) {
    const slow_cube before = modelcube();
    for (int code = 0; code < turncount; code++) {
        applyturn(code);
        applyturn(code ^ 1);
        EXPECT_TRUE(before == modelcube()) << code;
        EXPECT_EQ(code ^ 1, inversemove[code]);
    }
}

TEST_F(Turns, OnlyWholeTurnsKeepTheCubeSolved) {
    for (int code = 0; code < turncount; code++) {
        initcubies();
        applyturn(code);
        EXPECT_EQ(turn_table[code].kind == cube_turn ? 1 : 0, solved()) << code;
    }
}

TEST_F(Turns, FaceCodesGoInPairsOfTheMoveList) {
    EXPECT_STREQ("UDLRFB", movelist);
    for (int code = 0; code < 12; code++) {
        EXPECT_EQ(movelist[code / 2], toupper(turn_table[code].notation[0])) << code;
    }
}

TEST_F(Turns, OtherCodesDoNothing) {
    const slow_cube before = modelcube();
    for (int code : {-1, 24, 100, -1000}) {
        applyturn(code);
    }
    EXPECT_TRUE(before == modelcube());
}

// The queue

TEST_F(Turns, QueuedTurnsAreEndedByTheMark) {
    EXPECT_EQ(1, queueturn(6));
    EXPECT_EQ(1, queueturn(23));
    EXPECT_EQ(6, turns[0]);
    EXPECT_EQ(23, turns[1]);
    EXPECT_EQ(noturn, turns[2]);
    EXPECT_EQ(2, turnptr);
    EXPECT_EQ(0, turn);
}

TEST_F(Turns, TheQueueHolds999Turns) {
    for (int i = 0; i < 999; i++) {
        ASSERT_EQ(1, queueturn(i % turncount)) << i;
    }
    EXPECT_EQ(0, queueturn(5));
    EXPECT_EQ(999, turnptr);
    EXPECT_EQ(998 % turncount, turns[998]);
    EXPECT_EQ(noturn, turns[999]);
}

TEST_F(Turns, OnlyTurnCodesAreQueuedOrStarted) {
    for (int code : {-2, 24}) {
        EXPECT_DEATH(queueturn(code), "isturn");
        EXPECT_DEATH(startturn(code), "isturn");
    }
    EXPECT_DEATH(queueturn(noturn), "isturn");
}

TEST_F(Turns, ClearingDropsTheQueueButNotTheTurnInProgress) {
    queueturn(3);
    queueturn(4);
    turn = 1;
    startturn(9);
    ttime = 17;
    turnlanded = 1;
    clearqueue();
    EXPECT_EQ(0, turn);
    EXPECT_EQ(0, turnptr);
    EXPECT_EQ(noturn, turns[0]);
    EXPECT_EQ(9, turnmode);
    EXPECT_EQ(17, ttime);
    EXPECT_EQ(1, turnlanded);
}

// The turn in progress

TEST_F(Turns, AStartedTurnHasNotLandedAndInheritsTheFrame) {
    ttime = 42;
    turnlanded = 1;
    startturn(20);
    EXPECT_EQ(20, turnmode);
    EXPECT_EQ(0, turnlanded);
    EXPECT_EQ(42, ttime);
    startturn(noturn);
    EXPECT_EQ(noturn, turnmode);
}

} // namespace
