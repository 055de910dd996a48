// SPDX-License-Identifier: MIT
//
// The macro line: playing, applying, stepping, and what it refuses.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

namespace {

class Macro : public windowtest {
  protected:
    Macro() { vexel.setspeed(1); }

    // The read-out of the macro's length once the line holds text.
    picture readout(const std::string& text) const {
        vexel.typemacro(text);
        vexel.waitquiet();
        return vexel.part(lengthplace);
    }

    // Where the text of the line stands, right of a cursor at its start.
    static rectangle linetext() {
        const rectangle r = macroplace;
        return {r.x + 8, r.y + 3, r.w - 12, r.h - 6};
    }

    // How many turns of macro, one letter each, the screen shows to have landed; -1 for none such.
    int landed(const std::string& macro) const {
        for (int count = 0; count <= static_cast<int>(macro.size()); count++) {
            initcubies();
            domacro(macro.substr(0, count));
            if (vexel.shows(cubecolors)) {
                return count;
            }
        }
        return -1;
    }
};

} // namespace

TEST_F(Macro, EnterPlaysIt) {
    vexel.playmacro("RUf*L>B2(Db)");
    domacro("RUf*L>B2(Db)");
    EXPECT_TRUE(showsmodel());
    EXPECT_EQ(vexel.dialog(), 0UL);
}

TEST_F(Macro, ShiftAndEnterPlayItsInverse) {
    vexel.playmacro("RUf*L>B2(Db)", shift_key);
    domacro("2(Bd)>F*RFur");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macro, IsAppliedAtOnceInThreeWays) {
    vexel.setspeed(999); // an animated turn would take seconds
    vexel.typemacro("RUf*L");
    vexel.pushbutton("Apply Macro");
    domacro("RUf*L");
    EXPECT_TRUE(showsmodel());
    vexel.choose("Apply Macro");
    domacro("RUf*L");
    EXPECT_TRUE(showsmodel());
    screen.press('a', ctrl_key);
    domacro("RUf*L");
    EXPECT_TRUE(showsmodel());
    vexel.pushbutton("Apply Macro", shift_key);
    domacro("*RFur");
    EXPECT_TRUE(showsmodel());
}

// The key takes the cursor to the start, too.
TEST_F(Macro, CtrlAWithTheKeyboardInTheLineAppliesOnceAndEdits) {
    vexel.setspeed(999);
    vexel.typemacro("R*U");
    screen.press('a', ctrl_key);
    domacro("R*U");
    ASSERT_TRUE(showsmodel());
    vexel.setspeed(1);
    vexel.click(macroplace.x + macroplace.w - 8, macroplace.y + 9);
    for (int i = 0; i < 2; ++i) { // the second time the cursor has no way to go
        screen.press('a', ctrl_key);
        domacro("R*U");
        ASSERT_TRUE(showsmodel());
    }
    screen.type("F\n");
    domacro("FR*U");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macro, BehindABoxAMacroWaitsAndTheProgramSleeps) {
    vexel.setspeed(150);
    vexel.playmacro("RUFLBD");
    ASSERT_TRUE(waitfor(10, [this] { return !vexel.shows(cubecolors); })); // it turns
    vexel.choose("About Vexel");
    vexel.waitdialog();
    EXPECT_TRUE(waitfor(10, [this] { return vexel.child().isquiet(0.5); }));
    vexel.answer(XK_Return);
    domacro("RUFLBD");
    EXPECT_TRUE(showsmodel(60));
}

TEST_F(Macro, ArrowKeysStepForwardsAndBackwards) {
    vexel.typemacro("U*FR");

    const struct {
        unsigned long key;
        const char* turn;
    } steps[] = {
        {XK_Right, "U" },
        {XK_Right, "*F"},
        {XK_Left,  "*B"},
        {XK_Right, "*F"},
        {XK_Right, "R" },
        {XK_Left,  "r" },
        {XK_Right, "R" },
        {XK_Right, "U" }, // round from the end to the start
        {XK_Left,  "u" },
    };

    for (const auto& [key, text] : steps) {
        SCOPED_TRACE(text);
        domacro(text);
        vexel.holdkey(key, cubecolors);
    }
    screen.press(XK_Left); // at the start there is no step back
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macro, SteppingOverAnXShowsTheSolvedCube) {
    for (const char* macro : {"R", "*U"}) {
        domacro(macro);
        vexel.playmacro(macro);
        ASSERT_TRUE(showsmodel());
        vexel.typemacro("x");
        initcubies();
        vexel.holdkey(XK_Right, cubecolors);
    }
}

TEST_F(Macro, ATurnLandsAfterAStepBackOverASlice) {
    vexel.typemacro("*F");
    domacro("*F");
    vexel.holdkey(XK_Right, cubecolors);
    domacro("*B");
    vexel.holdkey(XK_Left, cubecolors);
    vexel.pushbutton("Rcw");
    domacro("R");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macro, AMalformedOneIsRefused) {
    for (const char* text : {"R U", "(RU)", "2(RU", "R)", "Rx", "*"}) {
        SCOPED_TRACE(text);
        vexel.playmacro(text);
        vexel.answer(XK_Return);
        vexel.pushbutton("Apply Macro");
        vexel.answer(XK_Escape);
        ASSERT_TRUE(vexel.waitquiet());
        EXPECT_TRUE(showsmodel());
    }
}

TEST_F(Macro, MoreThanTwoHundredTurnsAreAskedFor) {
    vexel.playmacro("100(RR)"); // 200: no question
    ASSERT_TRUE(showsmodel());
    EXPECT_EQ(vexel.dialog(), 0UL);
    vexel.playmacro("201(R)");
    vexel.answer(XK_Escape); // No
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_TRUE(showsmodel());
    vexel.playmacro("201(R)");
    vexel.answer(XK_Return); // Yes
    domacro("R");
    EXPECT_TRUE(showsmodel(60));
}

// A box that a key of the line opens is closed by another key, which is not the line's.
TEST_F(Macro, WhatClosesABoxIsNotTakenForTheLinesOwnKey) {
    for (const unsigned long key : {XK_Return, XK_space, XK_Escape}) {
        for (const char* text : {"s(RU)", "R)"}) { // an order is told, a mistake is told
            SCOPED_TRACE(std::string(text) + " " + std::to_string(key));
            initcubies();
            vexel.typemacro(text);
            screen.press(XK_Home); // where Ctrl+A takes the cursor
            ASSERT_TRUE(vexel.waitquiet());
            const picture line = vexel.part(linetext());
            screen.press('a', ctrl_key);
            vexel.answer(key);
            ASSERT_TRUE(vexel.waitquiet());
            EXPECT_EQ(vexel.dialog(), 0UL);
            EXPECT_EQ(vexel.part(linetext()), line);
            EXPECT_TRUE(showsmodel());
        }
    }
}

TEST_F(Macro, ShiftIsWhatItWasBeforeTheQuestion) {
    for (const int shift : {static_cast<int>(shift_key), 0}) {
        vexel.typemacro("201(R)");
        screen.press(XK_Return, shift);
        vexel.waitdialog();
        screen.press(XK_Return, shift_key - shift); // Yes
        ASSERT_TRUE(vexel.waitnodialog());
        domacro(shift != 0 ? "r" : "R");
        EXPECT_TRUE(showsmodel(60));
    }
}

TEST_F(Macro, NeverQueuesMoreThan999Turns) {
    vexel.playmacro("99999999999999999999(R)");
    vexel.answer(XK_Return);
    domacro("r"); // 999 = 4 * 249 + 3
    EXPECT_TRUE(showsmodel(60));
}

TEST_F(Macro, TheSingmasterFormIsConvertedAndStaysSo) {
    const picture four = readout("RuFF");
    vexel.playmacro("[R U' F2]");
    domacro("RuFF");
    ASSERT_TRUE(showsmodel());
    EXPECT_EQ(vexel.part(lengthplace), four);
    vexel.pushbutton("Apply Macro"); // what stands in the line now
    domacro("RuFF");
    EXPECT_TRUE(showsmodel());
    vexel.playmacro("[R U'"); // never closed
    vexel.answer(XK_Return);
}

TEST_F(Macro, TheReadOutFollowsTheLine) {
    const picture none = readout("");
    const picture four = readout("RURU");
    const picture wrong = readout("2R");
    EXPECT_NE(none, four);
    EXPECT_NE(wrong, four);
    EXPECT_EQ(readout("2(RU)"), four);
    EXPECT_EQ(readout("(R"), wrong);
    EXPECT_EQ(readout("*RUUU"), four);
    screen.press(XK_BackSpace);
    vexel.waitquiet();
    EXPECT_NE(vexel.part(lengthplace), four);
}

TEST_F(Macro, OneThatComesWhileAnotherPlaysIsPlayedWhole) {
    vexel.setspeed(150);
    vexel.playmacro("RUFRUF");
    ASSERT_TRUE(waitfor(10, [this] { return !vexel.shows(cubecolors); })); // it turns
    vexel.playmacro("LBD");
    ASSERT_TRUE(vexel.waitquiet(60));
    bool whole = false;
    for (int count = 1; count <= 6 && !whole; count++) {
        initcubies();
        domacro(std::string("RUFRUF").substr(0, count) + "LBD");
        whole = static_cast<bool>(vexel.shows(cubecolors));
    }
    EXPECT_TRUE(whole) << vexel.keeppicture("not-whole");
}

TEST_F(Macro, AltAndQStopItAndHoldCommandsOff) {
    const std::string macro = "RUFLBDRUFLBDRUFLBDRUFLBD";
    vexel.setspeed(100);
    vexel.playmacro(macro);
    ASSERT_TRUE(waitfor(30, [this] { return !vexel.shows(cubecolors); })); // it turns
    screen.key(XK_Alt_L, true);
    screen.key('q', true);
    ASSERT_TRUE(vexel.waitquiet());
    const int count = landed(macro);
    EXPECT_GE(count, 0);
    EXPECT_LT(count, 24);
    vexel.pushbutton("Reset Cube");
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_EQ(landed(macro), count);
    screen.key('q', false);
    screen.key(XK_Alt_L, false);
    vexel.pushbutton("Reset Cube");
    initcubies();
    EXPECT_TRUE(showsmodel());
}
