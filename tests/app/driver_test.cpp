// SPDX-License-Identifier: MIT
#include "app/driver.h"
#include "app/mainwindow.h"
#include "app/rig.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/cube_box.h"
#include "shell.h"

#include <FL/Fl.H>
#include <X11/keysym.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace {

class Driver : public testing::Test {
  protected:
    void SetUp() override { openwindow(); }
};

// Answers a question for a line of text, in place of the text that it offers.
void replaceline(const std::string& answer) {
    screen().emptyline();
    screen().type(answer + "\n");
}

} // namespace

TEST_F(Driver, FirstTurnTakesAsManyPassesAsFramesAndLaterOnesOneMore) {
    TURNTIME = 7;
    startturn(6);
    EXPECT_EQ(passestoend(), 7);
    startturn(6);
    EXPECT_EQ(passestoend(), 8);
    EXPECT_EQ(colours(), coloursafter("RR"));
}

TEST_F(Driver, TakingAQueuedTurnIsAPassOfItsOwn) {
    TURNTIME = 4;
    queuemacro("F");
    pass();
    EXPECT_EQ(turnmode, 8);
    EXPECT_EQ(ttime, 0);
    EXPECT_EQ(turn, 0);
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(needsredraw, 1);
    EXPECT_EQ(passestoend(), 4);
}

TEST_F(Driver, EveryTurnLandsAtSpeedOne) {
    TURNTIME = 1;
    startturn(0);
    EXPECT_EQ(passestoend(), 1);
    EXPECT_EQ(colours(), coloursafter("U"));
    startturn(8);
    EXPECT_EQ(passestoend(), 2);
    EXPECT_EQ(colours(), coloursafter("UF"));
    queuemacro("3(R*U>F)");
    settle();
    EXPECT_EQ(colours(), coloursafter("UF3(R*U>F)"));
}

TEST_F(Driver, ATurnWhoseLastFrameWasPaintedTwiceLandsOnce) {
    TURNTIME = 5;
    startturn(6);
    while (ttime != TURNTIME - 1) {
        pass();
    }
    for (int i = 0; i < 3; i++) {
        cube->redraw();
        Fl::flush();
    }
    passestoend();
    EXPECT_EQ(colours(), coloursafter("R"));
}

TEST_F(Driver, ATurnLandsWhenTheSpeedIsSetToItsVeryFrame) {
    TURNTIME = 100;
    startturn(6);
    for (int i = 0; i < 4; i++) {
        pass();
    }
    Fl::flush(); // frame 4, under the old speed
    ASSERT_EQ(ttime, 4);
    TURNTIME = 5;
    passestoend();
    EXPECT_EQ(colours(), coloursafter("R"));
}

TEST_F(Driver, FinishturnLandsATurnAtOnceAndKeepsTheQueue) {
    queuemacro("FU");
    pass();
    pass();
    ASSERT_EQ(turnmode, 8);
    finishturn();
    EXPECT_EQ(turnmode, noturn);
    EXPECT_EQ(ttime, -1);
    EXPECT_EQ(colours(), coloursafter("F"));
    finishturn();
    EXPECT_EQ(colours(), coloursafter("F"));
    TURNTIME = 3;
    settle();
    EXPECT_EQ(colours(), coloursafter("FU"));
}

TEST_F(Driver, AQuietPassGivesWayToATimerOfATenthOfASecond) {
    const double start = now();
    needsredraw = 1;
    pass();
    EXPECT_EQ(needsredraw, 0);
    EXPECT_EQ(Fl::has_idle(IdleFunc, nullptr), 0);
    EXPECT_NE(Fl::has_timeout(timeoutfunc, nullptr), 0);
    needsredraw = 1;
    while (needsredraw != 0) { // until the timer has brought the driver back
        Fl::wait(1);
    }
    EXPECT_GE(now() - start, 0.09);
}

TEST_F(Driver, AMacroEnteredInTheMiddleOfAnotherIsPlayedWhole) {
    TURNTIME = 3;
    queuemacro("RRRRRR");
    while (turn != 3) {
        pass();
    }
    ASSERT_NE(turnmode, noturn); // the third turn is on its way and will land
    queuemacro("FUB");
    EXPECT_EQ(turn, 0);
    settle();
    EXPECT_EQ(colours(), coloursafter("RRRFUB"));
}

TEST_F(Driver, ATurnThatLandsLeavesTheMacroQueuedMeanwhileAlone) {
    TURNTIME = 4;
    startturn(0);
    pass();
    queuemacro("FRB");
    settle();
    EXPECT_EQ(undoptr, 4);
    EXPECT_EQ(colours(), coloursafter("UFRB"));
}

TEST_F(Driver, ATurnStartedInTheMiddleOfAnotherTakesItsPlace) {
    TURNTIME = 6;
    startturn(0);
    pass();
    pass();
    startturn(8);
    EXPECT_EQ(passestoend(), 4);
    EXPECT_EQ(colours(), coloursafter("F"));
}

TEST_F(Driver, TheInterruptTakesTheTurnBackAndDropsTheQueue) {
    TURNTIME = 50;
    queuemacro("FRB");
    for (int i = 0; i < 5; i++) {
        pass();
    }
    screen().hold(alt_key);
    screen().key(XK_q, true);
    const int passes = passestoend();
    screen().key(XK_q, false);
    screen().release(alt_key);
    EXPECT_EQ(passes, 1);
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(turn, 0);
    EXPECT_EQ(ttime, -1);
    settle();
    EXPECT_EQ(colours(), coloursafter(""));
}

TEST_F(Driver, AcceptsASpeedFromOneTo999) {
    constexpr struct {
        const char* answer;
        int speed;
    } cases[] = {
        {"0",                    120},
        {"1000",                 120},
        {"abc",                  120},
        {"-5",                   120},
        {"99999999999999999999", 120},
        {"1",                    1  },
        {"999",                  999},
        {"12abc",                12 },
        {" 7",                   7  },
    };

    for (const auto& row : cases) {
        SCOPED_TRACE(row.answer);
        TURNTIME = 120;
        ttime = -1;
        withdialog(setspeed, [&] { replaceline(row.answer); });
        EXPECT_EQ(TURNTIME, row.speed);
        EXPECT_EQ(ttime, -1);
    }
}

TEST_F(Driver, ACancelledSpeedChangesNothing) {
    ttime = 130;
    withdialog(setspeed, [] { screen().press(XK_Escape); });
    EXPECT_EQ(TURNTIME, 120);
    EXPECT_EQ(ttime, 130);
    ttime = -1;
}

TEST_F(Driver, ATurnBeyondTheNewLengthGoesOnNearItsEnd) {
    ttime = 7;
    withdialog(setspeed, [] { replaceline("5"); });
    EXPECT_EQ(TURNTIME, 5);
    EXPECT_EQ(ttime, 3);
    ttime = -1;
}

// A menu that closes over the view has it painted before the first pass of the turn it started.
TEST_F(Driver, AFrameBeforeTheFirstPassIsTheStillCube) {
    settle();
    const picture still = exposedview();
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(code);
        startturn(code);
        ttime = -1;
        EXPECT_EQ(exposedview(), still);
        ttime = TURNTIME;
        EXPECT_EQ(exposedview(), still);
    }
    ttime = TURNTIME / 2;
    EXPECT_NE(exposedview(), still);
    startturn(noturn);
    ttime = -1;
}

TEST_F(Driver, ATurnAtTheNewSpeedOfOneIsStillUntilItLands) {
    settle();
    const picture still = exposedview();
    startturn(6);
    ttime = 7;
    withdialog(setspeed, [] { replaceline("1"); });
    EXPECT_EQ(ttime, -1);
    EXPECT_EQ(exposedview(), still);
    passestoend();
    EXPECT_EQ(colours(), coloursafter("R"));
}

TEST_F(Driver, ADelayWaitsAMillisecond) {
    settle();
    Fl::remove_idle(IdleFunc, nullptr);
    Fl::remove_timeout(timeoutfunc, nullptr);
    double shortest = 1;
    for (int i = 0; i < 50; i++) {
        const double start = now();
        delay();
        shortest = std::min(shortest, now() - start);
    }
    Fl::add_idle(IdleFunc, nullptr);
    EXPECT_LT(shortest, 0.005);
    double whole = 0;
    for (int i = 0; i < 3 && whole < 0.0005; i++) { // an event may come in and end one at once
        Fl::remove_idle(IdleFunc, nullptr);
        const double start = now();
        delay();
        whole = now() - start;
        Fl::add_idle(IdleFunc, nullptr);
    }
    EXPECT_GE(whole, 0.0005);
}
