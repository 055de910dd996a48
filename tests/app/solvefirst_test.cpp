// SPDX-License-Identifier: MIT
//
// The first solve of a process, in a process of its own: the tables are built only once.
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "app/solvecube.h"
#include "model/cube.h"
#include "model/parser.h"
#include "solver/solver.h"

#include <FL/Fl_Window.H>
#include <X11/keysym.h>

#include <gtest/gtest.h>

namespace {

constexpr int tablesteps = 11; // of initializesolve, the last one included

void holdchord(bool down) {
    screen().key(XK_Alt_L, down);
    screen().key(XK_q, down);
}

} // namespace

TEST(Solvecube, EachInterruptedSolveBuildsOneStepOfTheTablesAndTheNextGoesOn) {
    openwindow();
    parsestring("RUFBLDrufbld", 12);
    inp->value("FF");
    holdchord(true);
    for (int step = 1; step <= 6; step++) {
        solvecube();
        EXPECT_STREQ(inp->value(), "FF");
        ASSERT_NE(messagewindow, nullptr);
        EXPECT_STREQ(smessage, "Initializing solver ...\n");
        EXPECT_EQ(messagewindow->shown(), 0);
    }
    holdchord(false);
    int left = 1; // counts the one that says it is done
    while (initializesolve() == 0) {
        left++;
    }
    EXPECT_EQ(left, tablesteps - 6);
    withdialog(solvecube, [] { screen().press(XK_Return); });
    parsestring(inp->value(), inp->size());
    EXPECT_EQ(solved(), 1);
}
