// SPDX-License-Identifier: MIT
//
// What a box leaves as it was: the event that it was opened by, and the picture behind it.
#include "app/driver.h"
#include "app/interlude.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "model/cube.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl.H>
#include <X11/keysym.h>

#include <cstring>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace {

class Interlude : public testing::Test {
  protected:
    void SetUp() override { openwindow(); }

    void TearDown() override { Fl::e_state = 0; }
};

const struct {
    const char* name;
    void (*open)();
} boxes[] = {
    {"information", [] { displaystring("text"); }        },
    {"alert",       [] { showalert("text"); }            },
    {"yes or no",   [] { askyesno("text"); }             },
    {"line",        [] { askline("text", "preset"); }    },
    {"file",        [] { askfile("text", "*", nullptr); }},
};

double processseconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void leavebox() {
    screen().press(XK_Escape);
}

void turnandtell() {
    applyturn(0);
    needsredraw = 1;
    showalert("text");
}

// Whether the view is another one behind the box that the command opens.
bool showsbehind(void (*command)()) {
    const picture before = screen().screenshot(viewonscreen());
    bool seen = false;
    withdialog(command, [&] {
        for (int i = 0; i < 20; i++) {
            Fl::wait(0.01);
        }
        const picture behind = screen().screenshot(viewonscreen());
        seen = !(behind.part({60, 100, 100, 200}) == before.part({60, 100, 100, 200}));
        leavebox();
    });
    return seen;
}

} // namespace

TEST_F(Interlude, AfterABoxTheEventIsTheOneThatOpenedIt) {
    for (const auto& box : boxes) {
        SCOPED_TRACE(box.name);
        char text[] = "\1z";
        Fl::e_number = FL_KEYDOWN;
        Fl::e_keysym = 'a';
        Fl::e_state = FL_CTRL | FL_SHIFT;
        Fl::e_text = text;
        Fl::e_length = 1;
        withdialog(box.open, leavebox);
        EXPECT_EQ(Fl::event(), FL_KEYDOWN);
        EXPECT_EQ(Fl::event_key(), 'a');
        EXPECT_EQ(Fl::event_state(), FL_CTRL | FL_SHIFT);
        EXPECT_EQ(std::string(Fl::event_text()), "\1");
        EXPECT_EQ(Fl::event_length(), 1);
    }
}

TEST_F(Interlude, ATextOutlivesTheBufferItCameIn) {
    char text[] = "first";
    Fl::e_text = text;
    Fl::e_length = 5;
    {
        const keptevent outer;
        std::strcpy(text, "other");
        {
            const keptevent inner;
            std::strcpy(text, "third");
        }
        EXPECT_STREQ(Fl::event_text(), "other");
    }
    EXPECT_STREQ(Fl::event_text(), "first");
}

TEST_F(Interlude, BehindABoxATurnStaysAtItsFrameAndTheProgramSleeps) {
    TURNTIME = 60;
    for (const auto& box : boxes) {
        SCOPED_TRACE(box.name);
        initcubies();
        startturn(6);
        ttime = 9;
        queuemacro("FU");
        double used = 1;
        int frame = -1;
        withdialog(box.open, [&] {
            frame = ttime;
            const double before = processseconds();
            const double end = now() + 0.5;
            while (now() < end) {
                Fl::wait(0.5);
            }
            used = processseconds() - before;
            EXPECT_EQ(ttime, frame);
            EXPECT_EQ(turnmode, 6);
            leavebox();
        });
        EXPECT_LT(used, 0.1);
        settle();
        EXPECT_EQ(colours(), coloursafter("RFU"));
    }
}

TEST_F(Interlude, TheDriverComesBackAsItWas) {
    settle();
    withdialog(
        [] {
            const interlude outer;
            showalert("text");
            EXPECT_EQ(Fl::has_idle(IdleFunc, nullptr), 0); // the outer one still stands
        },
        leavebox);
    EXPECT_NE(Fl::has_idle(IdleFunc, nullptr), 0);
    Fl::remove_idle(IdleFunc, nullptr);
    withdialog([] { showalert("text"); }, leavebox);
    EXPECT_EQ(Fl::has_idle(IdleFunc, nullptr), 0);
    EXPECT_EQ(Fl::has_timeout(timeoutfunc, nullptr), 0);
}

TEST_F(Interlude, WhatTheCommandDidShowsBehindTheBox) {
    settle();
    EXPECT_TRUE(showsbehind(turnandtell));
}

// A menu calls its command before the driver's watch has seen it closed.
TEST_F(Interlude, WhatACommandOfAMenuDidShowsBehindTheBox) {
    settle();
    EXPECT_TRUE(showsbehind([] {
        restdriver();
        turnandtell();
        wakedriver();
    }));
    EXPECT_NE(Fl::has_idle(IdleFunc, nullptr), 0);
}
