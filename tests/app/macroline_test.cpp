// SPDX-License-Identifier: MIT
#include "app/driver.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/turns.h"
#include "model/undo.h"
#include "shell.h"

#include <FL/Fl.H>
#include <X11/keysym.h>

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

class Macroline : public testing::Test {
  protected:
    void SetUp() override {
        openwindow();
        Fl::e_state = 0;
    }

    void TearDown() override { Fl::e_state = 0; }
};

} // namespace

TEST_F(Macroline, StepsForwardTokenByTokenAndWraps) {
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

TEST_F(Macroline, StepsBackwardAndStopsAtTheStart) {
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

TEST_F(Macroline, ATurnLandsOnTheCubeAfterAStepBackOverASlice) {
    TURNTIME = 3;
    inp->value("*F");
    singlestepptr = 2;
    revsinglestepmacro();
    settle();
    EXPECT_EQ(colours(), coloursafter("*B"));
}

TEST_F(Macroline, StepsStayInsideATextThatWasShortened) {
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

TEST_F(Macroline, AnArrowThatIsHeldStepsOnceATurnIsOver) {
    TURNTIME = 50;
    for (const auto& [key, position] : {std::pair(XK_Right, 2), std::pair(XK_Left, 0)}) {
        inp->value("RU");
        singlestepptr = 1;
        startturn(8);
        screen().key(static_cast<unsigned long>(key), true);
        EXPECT_EQ(inp->handle(FL_KEYDOWN), 1);
        EXPECT_EQ(singlestepptr, 1);
        EXPECT_EQ(turns[turn], noturn);
        finishturn();
        EXPECT_EQ(inp->handle(FL_KEYDOWN), 1);
        EXPECT_EQ(singlestepptr, position);
        EXPECT_NE(turns[turn], noturn);
        screen().key(static_cast<unsigned long>(key), false);
        clearqueue();
    }
}

TEST_F(Macroline, ApplyingAMacroChangesTheCubeAtOnceAndIsUndoable) {
    inp->value("2(RU)*F");
    inp->clear_changed();
    applymacro();
    EXPECT_NE(inp->changed(), 0);
    EXPECT_EQ(undoptr, 5);
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(colours(), coloursafter("2(RU)*F"));
}

TEST_F(Macroline, ApplyingTheSingmasterFormAppliesTheConvertedText) {
    inp->value("[R U' F2]");
    applymacro();
    EXPECT_STREQ(inp->value(), "RuFF");
    EXPECT_EQ(colours(), coloursafter("RuFF"));
}

TEST_F(Macroline, AMalformedMacroIsRefusedAndChangesNothing) {
    inp->value("R U");
    withdialog(applymacro, [] { screen().press(XK_Return); });
    EXPECT_EQ(colours(), coloursafter(""));
    EXPECT_STREQ(inp->value(), "R U");
}

TEST_F(Macroline, EnterQueuesAMacroAndShiftEnterItsInverse) {
    inp->value("R2(FU)");
    inp_cb(inp, 0);
    EXPECT_EQ(turnptr, 5);
    EXPECT_EQ(turns[0], 6);
    EXPECT_EQ(parsing, 0);
    Fl::e_state = FL_SHIFT;
    inp_cb(inp, 0);
    constexpr int inverse[] = {1, 9, 1, 9, 7, noturn};
    EXPECT_EQ(std::memcmp(turns, inverse, sizeof inverse), 0);
    clearqueue();
}

TEST_F(Macroline, AMacroOfMoreThan200TurnsIsPlayedOnlyAfterAYes) {
    inp->value("200(R)");
    inp_cb(inp, 0);
    EXPECT_EQ(turnptr, 200);
    clearqueue();
    inp->value("201(R)");
    withdialog([] { inp_cb(inp, 0); }, [] { screen().press(XK_Escape); });
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(shownby([] { inp_cb(inp, 0); }), "Really?  Macro has 201 steps.");
    EXPECT_EQ(turnptr, 201);
    clearqueue();
}

TEST_F(Macroline, AMalformedMacroIsNotQueued) {
    inp->value("R)");
    withdialog([] { inp_cb(inp, 0); }, [] { screen().press(XK_Return); });
    EXPECT_EQ(turns[0], noturn);
    EXPECT_EQ(turnptr, 0);
}

TEST_F(Macroline, AParseEndsInDirectModeWhateverItsOwnWas) {
    for (const parse_mode mode : {direct, queued}) {
        for (const bool backwards : {false, true}) {
            parsing = queued;
            parsemacro("RU", 2, mode, backwards);
            EXPECT_EQ(parsing, direct);
            EXPECT_EQ(turns[0], mode == direct ? noturn : backwards ? 1 : 6);
            clearqueue();
        }
    }
    EXPECT_EQ(colours(), coloursafter(""));
}

TEST_F(Macroline, ShiftCountsAsItWasWhenEnterWasPressed) {
    inp->value("201(R)");
    Fl::e_state = FL_SHIFT;
    withdialog([] { inp_cb(inp, 0); }, [] { screen().press(XK_Return); }); // without Shift
    EXPECT_EQ(turnptr, 201);
    EXPECT_EQ(turns[0], 7);
    clearqueue();
    Fl::e_state = 0;
    withdialog([] { inp_cb(inp, 0); }, [] { screen().press(XK_Return, shift_key); });
    EXPECT_EQ(turns[0], 6);
    clearqueue();
}
