// SPDX-License-Identifier: MIT
//
// Every button and key that turns the cube, with and without Shift.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

namespace {

class Turns : public windowtest {};

constexpr struct {
    char letter;
    int code;
} letterkeys[] = {
    {'u', 0 },
    {'d', 2 },
    {'l', 4 },
    {'r', 6 },
    {'f', 8 },
    {'b', 10},
};

} // namespace

TEST_F(Turns, EachButtonTurnsOnceAtTheStandardSpeed) {
    ASSERT_TRUE(showsmodel());
    vexel.pushbutton("Rcw");
    applyturn(6);
    EXPECT_TRUE(showsmodel());
    vexel.pushbutton("LScw", shift_key);
    applyturn(15);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Turns, EachButtonTurnsAsItSays) {
    vexel.setspeed(1);
    domacro("RUfLdB"); // a cube on which no two turns look alike
    vexel.playmacro("RUfLdB");
    ASSERT_TRUE(showsmodel());
    expectbuttonsturn();
}

TEST_F(Turns, ShiftInvertsEachButton) {
    vexel.setspeed(1);
    domacro("RUfLdB");
    vexel.playmacro("RUfLdB");
    ASSERT_TRUE(showsmodel());
    for (const button_place& button : buttonplaces) {
        if (button.turn >= 0) {
            SCOPED_TRACE(button.label);
            vexel.pushbutton(button.label, shift_key);
            applyturn(inversemove[button.turn]);
            ASSERT_TRUE(showsmodel());
        }
    }
}

TEST_F(Turns, AltLetterTurnsAFaceInTheViewAndInTheMacroLine) {
    vexel.setspeed(1);
    for (bool inline_ : {false, true}) {
        if (inline_) {
            vexel.typemacro("");
        }
        for (const auto& [letter, code] : letterkeys) {
            for (int shift : {0, static_cast<int>(shift_key)}) {
                SCOPED_TRACE(std::string(inline_ ? "line " : "view ") + letter +
                             (shift != 0 ? " inverse" : ""));
                vexel.altletter(letter, shift);
                applyturn(shift != 0 ? inversemove[code] : code);
                ASSERT_TRUE(showsmodel());
            }
        }
        vexel.altletter('u');
        applyturn(0);
        ASSERT_TRUE(showsmodel());
    }
}

TEST_F(Turns, OtherKeysTurnNothing) {
    vexel.setspeed(1);
    vexel.altletter('x');
    screen.press('u'); // without Alt
    screen.press('f');
    vexel.pushbutton("Ucw"); // the proof that the keys before have been seen to
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}
