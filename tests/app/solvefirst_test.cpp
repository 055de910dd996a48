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

#include <FL/Fl_Window.H>
#include <X11/keysym.h>

#include <gtest/gtest.h>

TEST(Solvecube, InterruptedWhileItBuildsItsTablesItGoesOnTheNextTime) {
    openwindow();
    parsestring("RUFBLDrufbld", 12);
    inp->value("FF");
    screen().key(XK_Alt_L, true);
    screen().key(XK_q, true);
    solvecube();
    screen().key(XK_q, false);
    screen().key(XK_Alt_L, false);
    EXPECT_STREQ(inp->value(), "FF");
    ASSERT_NE(messagewindow, nullptr);
    EXPECT_STREQ(smessage, "Initializing solver ...\n");
    EXPECT_EQ(messagewindow->shown(), 0);
    withdialog(solvecube, [] { screen().press(XK_Return); });
    parsestring(inp->value(), inp->size());
    EXPECT_EQ(solved(), 1);
}
