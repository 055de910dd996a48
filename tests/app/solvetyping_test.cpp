// SPDX-License-Identifier: MIT
//
// What is typed while the first solve of a process builds its tables, in a process of its own.
#include "app/dispatch.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "model/cube.h"
#include "model/parser.h"

#include <FL/Fl.H>
#include <FL/Fl_Window.H>
#include <X11/keysym.h>

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

std::set<std::string> linesseen; // while the tables were built
bool typed = false;

// Each time the toolkit's loop goes round.
void typeandlook(void*) {
    if (messagewindow == nullptr || messagewindow->shown() == 0 ||
        std::string(smessage).find("Initializing") == std::string::npos) {
        return;
    }
    if (!typed) {
        typed = true;
        screen().focus(screen().windows().front());
        screen().type("UU");
        screen().press(XK_BackSpace);
        screen().press(XK_Right);
        screen().press('v', ctrl_key);
    }
    linesseen.insert(inp->value());
}

} // namespace

TEST(Solvecube, TheLineTakesNothingWhileTheTablesAreBuilt) {
    openwindow();
    parsestring("RUFB", 4);
    inp->value("FF");
    inp->take_focus();
    Fl::add_check(typeandlook, nullptr);
    withdialog([] { b_cb(nullptr, 108); }, [] { screen().press(XK_Return); });
    Fl::remove_check(typeandlook, nullptr);
    EXPECT_TRUE(typed);
    EXPECT_EQ(linesseen, std::set<std::string>{"FF"});
    parsestring(inp->value(), inp->size());
    EXPECT_EQ(solved(), 1);
    settle();
    EXPECT_EQ(solved(), 1); // no step was queued
    screen().focus(screen().windows().front());
    const int length = inp->size();
    screen().type("u"); // it takes text again
    const double end = now() + 10;
    while (inp->size() == length && now() < end) {
        Fl::wait(0.05);
    }
    EXPECT_EQ(inp->size(), length + 1);
}
