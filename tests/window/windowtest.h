// SPDX-License-Identifier: MIT
//
// windowtest: what the window tests share: a program on a screen, and the model beside it.
//
// Callers   the GoogleTest programs of this folder.
// Order     the model starts solved in each test, its random generator as in a fresh process.
#pragma once

#include "model/cube.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "window/layout.h"
#include "window/program.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

// The program of a test, on a screen of its own, fast enough not to be waited for.
class windowtest : public testing::Test {
  protected:
    explicit windowtest(const xserver_settings& screensettings = {},
                        const program_settings& programsettings = {})
        : screen(screensettings), vexel(screen, programsettings) {
        initmodel();
    }

    static void initmodel() {
        resetmodel();
        std::srand(1); // what a generator that was never seeded does
    }

    // Turns the model as a macro does.
    static void domacro(const std::string& macro) {
        parsing = 0;
        parsestring(macro.c_str(), static_cast<int>(macro.size()));
    }

    // Whether the screen comes to show the model's cube.
    testing::AssertionResult showsmodel(double seconds = 30, bool rear = true) const {
        const verdict seen = vexel.waitforcube(cubecolors, seconds, rear);
        return seen ? testing::AssertionSuccess() : testing::AssertionFailure() << seen.why;
    }

    // Each of the 24 turn buttons turns as it says. Wants a cube on which no two turns look alike.
    void expectbuttonsturn() {
        for (const button_place& button : buttonplaces) {
            if (button.turn >= 0) {
                SCOPED_TRACE(button.label);
                vexel.pushbutton(button.label);
                applyturn(button.turn);
                ASSERT_TRUE(showsmodel());
            }
        }
    }

    xserver screen;
    program vexel;
};
