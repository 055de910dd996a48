// SPDX-License-Identifier: MIT
#include "model/modeltest.h"

namespace {

class Undo : public ModelTest {
  protected:
    // What the driver and the view do: the turn in progress lands and ends.
    // The turn in progress lands.
    static void land() { ModelTest::land(turn_table[turnmode].notation); }
};

TEST_F(Undo, EightHundredAndOneTurnsLeave301) {
    for (int i = 0; i < 800; i++) {
        undosave(i % 24);
    }
    EXPECT_EQ(800, undoptr);
    undosave(800 % 24);
    ASSERT_EQ(301, undoptr);
    for (int i = 0; i < 301; i++) {
        EXPECT_EQ((500 + i) % 24, undobuf[i]) << i;
    }
}

TEST_F(Undo, AFurther500UndosEmptyWhatIsLeft) {
    for (int i = 0; i < 801; i++) {
        undosave(i % 24);
    }
    for (int i = 0; i < 500; i++) {
        undo();
        ASSERT_EQ(i < 301, turnmode != noturn) << i;
        if (turnmode != noturn) {
            land();
        }
        ASSERT_EQ(i < 301 ? 300 - i : 0, undoptr) << i;
    }
}

TEST_F(Undo, TheSecondThousandIsForgottenLikeTheFirst) {
    for (int i = 0; i < 1301; i++) {
        undosave(i % 24);
    }
    EXPECT_EQ(301, undoptr);
    EXPECT_EQ(1300 % 24, undobuf[300]);
    EXPECT_EQ(1000 % 24, undobuf[0]);
}

TEST_F(Undo, TurnsComeBackInvertedLastFirst) {
    apply("UFR");
    EXPECT_EQ((codes{0, 8, 6}), held());
    for (int inverse : {7, 9, 1}) {
        undo();
        EXPECT_EQ(inverse, turnmode);
        land();
    }
    EXPECT_EQ(1, solved());
    EXPECT_EQ(0, undoptr);
}

TEST_F(Undo, EveryCodeIsTakenBackByItsInverse) {
    for (int code = 0; code < turncount; code++) {
        initcubies();
        moveface(3);
        moveslice(1);
        const codes before = places();
        apply(turn_table[code].notation);
        undo();
        EXPECT_EQ(inversemove[code], turnmode);
        land();
        EXPECT_EQ(before, places()) << code;
        EXPECT_EQ(0, undoptr);
    }
}

TEST_F(Undo, AnEmptyBufferUndoesNothing) {
    undo();
    EXPECT_EQ(noturn, turnmode);
    undosave(4);
    EXPECT_EQ(1, undoptr); // no flag was left behind
}

TEST_F(Undo, AnUndoStartsATurnThatHasNotLanded) {
    apply("U");
    turnlanded = 1;
    undo();
    EXPECT_EQ(0, turnlanded);
}

TEST_F(Undo, ASecondUndoStoresTheInverseTurn) {
    apply("UF");
    undo();
    undo();
    EXPECT_EQ(9, turnmode);
    EXPECT_EQ(1, undoptr);
    land();
    EXPECT_EQ((codes{0, 9}), held());
}

TEST_F(Undo, ResettingForgetsTurnsAndAnUndoUnderWay) {
    apply("UF");
    undo();
    redomax = 7;
    initundo();
    EXPECT_EQ(0, undoptr);
    EXPECT_EQ(-1, redomax);
    undosave(3);
    EXPECT_EQ(1, undoptr);
}

TEST_F(Undo, ThereIsNoRedo) {
    apply("UF");
    undo();
    land();
    redo();
    EXPECT_EQ(noturn, turnmode);
    EXPECT_EQ(1, undoptr);
}

TEST_F(Undo, QueuedTurnsAreNotStoredBeforeTheyLand) {
    parsing = 1;
    EXPECT_EQ(2, parsestring("UF", 2));
    EXPECT_EQ(0, undoptr);
}

// Series

// A series beside the codes that it stands for, written out.
struct long_series {
    undo_series series;
    codes written;

    void add(int code) {
        addturn(series, code);
        written.push_back(code);
    }

    void add(const long_series& more, int times) {
        addseries(series, more.series, times);
        for (int i = 0; i < times; i++) {
            written.insert(written.end(), more.written.begin(), more.written.end());
        }
    }
};

long_series turnsofall(int count) {
    long_series some;
    for (int i = 0; i < count; i++) {
        some.add(i % turncount);
    }
    return some;
}

// The buffer holds before turns, with an undo under way or without.
void expectsamebuffer(const long_series& some, int before, bool underway) {
    const auto prepare = [&] {
        initundo();
        for (int i = 0; i < before; i++) {
            undosave(23);
        }
        if (underway) {
            undo();
        }
    };
    prepare();
    for (int code : some.written) {
        undosave(code);
    }
    const codes expected(undobuf, undobuf + undoptr);
    prepare();
    undosaveseries(some.series);
    EXPECT_EQ(expected, codes(undobuf, undobuf + undoptr))
        << some.written.size() << " turns after " << before;
}

TEST_F(Undo, ASeriesLeavesTheBufferOfItsTurns) {
    for (int length : {0, 1, 499, 500, 799, 800, 801, 802, 1299, 1300, 1301, 1800, 1801, 5000}) {
        for (int before : {0, 1, 300, 799, 800}) {
            expectsamebuffer(turnsofall(length), before, false);
            expectsamebuffer(turnsofall(length), before, true);
        }
    }
}

TEST_F(Undo, ASeriesOfSeriesLeavesTheBufferOfItsTurns) {
    for (int length : {1, 7, 650, 1301}) {
        for (int times : {0, 1, 2, 3, 115, 186}) {
            long_series whole = turnsofall(5);
            whole.add(turnsofall(length), times);
            whole.add(9);
            expectsamebuffer(whole, 40, false);
            expectsamebuffer(whole, 40, true);
        }
    }
}

// However long what it stands for is: this is what keeps a nested macro from filling the memory.
TEST_F(Undo, ASeriesKeepsNoMoreThanTheBufferCanTell) {
    undo_series series;
    for (int i = 0; i < 3000; i++) {
        addturn(series, 6);
        ASSERT_LE(series.codes.size(), 1300U);
    }
    for (int times : {1, 2, 1000000, 2147483647}) {
        undo_series outer = series;
        addseries(outer, series, times);
        EXPECT_LE(outer.codes.size(), 1300U);
        EXPECT_GT(outer.codes.size(), 800U);
    }
}

} // namespace
