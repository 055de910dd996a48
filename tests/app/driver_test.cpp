// SPDX-License-Identifier: MIT
#include "app/driver.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/cube_box.h"
#include "shell.h"

#include <FL/Fl.H>
#include <X11/keysym.h>

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

class Driver : public testing::Test {
  protected:
    void SetUp() override { openwindow(); }
};

// The colours of a solved cube after a macro.
std::string coloursafter(const char* macro) {
    unsigned char savedcolors[54];
    std::memcpy(savedcolors, cubecolors, sizeof savedcolors);
    initcubies();
    parsing = 0;
    parsestring(macro, static_cast<int>(std::strlen(macro)));
    std::string colours(reinterpret_cast<const char*>(cubecolors), 54);
    std::memcpy(cubecolors, savedcolors, sizeof savedcolors);
    return colours;
}

std::string colours() {
    return {reinterpret_cast<const char*>(cubecolors), 54};
}

// Answers a question for a line of text, in place of the text that it offers.
void replaceline(const std::string& answer) {
    screen().press(XK_Home);
    screen().press(XK_k, ctrl_key);
    screen().type(answer + "\n");
}

void queuemacro(const char* macro) {
    parsing = 1;
    parsestring(macro, static_cast<int>(std::strlen(macro)));
    parsing = 0;
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
    for (int i = 0; i < 3; ++i) {
        cube->redraw();
        Fl::flush();
    }
    passestoend();
    EXPECT_EQ(colours(), coloursafter("R"));
}

TEST_F(Driver, ATurnLandsWhenTheSpeedIsSetToItsVeryFrame) {
    TURNTIME = 100;
    startturn(6);
    for (int i = 0; i < 4; ++i) {
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
    needsredraw = 1;
    pass();
    EXPECT_EQ(needsredraw, 0);
    EXPECT_EQ(Fl::has_idle(IdleFunc, nullptr), 0);
    EXPECT_NE(Fl::has_timeout(timeoutfunc, nullptr), 0);
    const double start = now();
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
    for (int i = 0; i < 5; ++i) {
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

TEST_F(Driver, StepsForwardTokenByTokenAndWraps) {
    constexpr struct {
        int code, position;
    } steps[] = {
        {0,  1},
        {12, 3},
        {6,  4},
        {0,  1},
    };

    inp->value("U*FR");
    for (const auto& step : steps) {
        singlestepmacro();
        EXPECT_EQ(turns[0], step.code);
        EXPECT_EQ(turns[1], noturn);
        EXPECT_EQ(singlestepptr, step.position);
        EXPECT_EQ(inp->position(), step.position);
        EXPECT_EQ(parsing, 0);
    }
    clearqueue();
}

TEST_F(Driver, StepsBackwardAndStopsAtTheStart) {
    inp->value("U*FR");
    singlestepptr = 4;
    revsinglestepmacro();
    EXPECT_EQ(turns[0], 7);
    EXPECT_EQ(singlestepptr, 3);
    EXPECT_EQ(parsing, 0);
    revsinglestepmacro();
    EXPECT_EQ(turns[0], 13);
    EXPECT_EQ(singlestepptr, 1);
    EXPECT_EQ(inp->position(), 1);
    EXPECT_EQ(parsing, 1); // NOT-BUGS.md, "A step back over a slice leaves the parser queueing"
    revsinglestepmacro();
    EXPECT_EQ(turns[0], 1);
    EXPECT_EQ(singlestepptr, 0);
    EXPECT_EQ(parsing, 0);
    clearqueue();
    revsinglestepmacro();
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(singlestepptr, 0);
}

TEST_F(Driver, ATurnLandsOnTheCubeAfterAStepBackOverASlice) {
    TURNTIME = 3;
    inp->value("*F");
    singlestepptr = 2;
    revsinglestepmacro();
    settle();
    EXPECT_EQ(colours(), coloursafter("*B"));
}

TEST_F(Driver, StepsStayInsideATextThatWasShortened) {
    inp->value("RUF");
    singlestepptr = 3;
    inp->value("B");
    revsinglestepmacro();
    EXPECT_EQ(turns[0], 11);
    EXPECT_EQ(singlestepptr, 0);
    inp->value("R*");
    singlestepptr = 1;
    singlestepmacro();
    EXPECT_EQ(singlestepptr, 2);
    EXPECT_EQ(turns[0], noturn);
    inp->value("");
    singlestepmacro();
    EXPECT_EQ(singlestepptr, 0);
    EXPECT_EQ(turns[0], noturn);
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

TEST_F(Driver, ApplyingAMacroChangesTheCubeAtOnceAndIsUndoable) {
    inp->value("2(RU)*F");
    inp->clear_changed();
    applymacro();
    EXPECT_NE(inp->changed(), 0);
    EXPECT_EQ(undoptr, 5);
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(colours(), coloursafter("2(RU)*F"));
}

TEST_F(Driver, ApplyingTheSingmasterFormAppliesTheConvertedText) {
    inp->value("[R U' F2]");
    applymacro();
    EXPECT_STREQ(inp->value(), "RuFF");
    EXPECT_EQ(colours(), coloursafter("RuFF"));
}

TEST_F(Driver, AMalformedMacroIsRefusedAndChangesNothing) {
    inp->value("R U");
    withdialog(applymacro, [] { screen().press(XK_Return); });
    EXPECT_EQ(colours(), coloursafter(""));
    EXPECT_STREQ(inp->value(), "R U");
    EXPECT_FALSE([] {
        bool good = false;
        withdialog([&] { good = checkedmacro().has_value(); }, [] { screen().press(XK_Return); });
        return good;
    }());
}
