// SPDX-License-Identifier: MIT
#include "app/demo.h"
#include "app/dispatch.h"
#include "app/driver.h"
#include "app/latinkey.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/menu.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "app/userdata.h"
#include "macros/library.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/animation.h"
#include "render/view.h"

#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Menu_Item.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Window.H>
#include <FL/x.H>
#include <X11/keysym.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

class Dispatch : public testing::Test {
  protected:
    void SetUp() override {
        openwindow();
        recordstop();
        out->value("0");
        inp->clear_changed();
        settryhardmenu();
        TURNTIME = 3;
        Fl::e_state = 0;
    }

    void TearDown() override { Fl::e_state = 0; }
};

bool marked(long cmd) {
    for (const Fl_Menu_Item& item : menutable) {
        if (item.text != nullptr && item.argument() == cmd) {
            return item.value() != 0;
        }
    }
    ADD_FAILURE() << "no menu entry " << cmd;
    return false;
}

void turnandsettle(int code) {
    b_cb(nullptr, code);
    settle();
}

std::string net() {
    return {reinterpret_cast<const char*>(cubecolors), placecount};
}

constexpr long quit = 105;

std::vector<long> allcommands() {
    std::vector<long> all;
    for (long cmd = 0; cmd < turncount; cmd++) {
        all.push_back(cmd);
    }
    for (long cmd = 100; cmd < 130; cmd++) {
        all.push_back(cmd);
    }
    return all;
}

// All that a command may change, but for what it asks and tells.
std::string everything() {
    std::string all = net() + inp->value() + "/" + out->value() + "/" + recbut->label() + "/" +
                      bsave->label() + "/" + demo->label();
    for (const int number : {turnmode, turns[0], undoptr, undoing, recording, facecount,
                             issavedcube, showrear, tryhard, demomode, demorunning, TURNTIME,
                             maccount, showmac[0], Fl::modal() != nullptr ? 1 : 0}) {
        all += " " + std::to_string(number);
    }
    return all;
}

void leavecollector() {
    if (Fl::modal() != nullptr) {
        Fl::modal()->do_callback();
    }
}

} // namespace

TEST_F(Dispatch, NumbersWithoutACommandOnlyAskForARedraw) {
    const std::string before = net();
    for (const long cmd :
         {24L, 50L, 99L, 103L, 110L, 130L, 1000L, -1L, -100L, LONG_MAX, LONG_MIN}) {
        SCOPED_TRACE(cmd);
        needsredraw = 0;
        b_cb(nullptr, cmd);
        EXPECT_EQ(needsredraw, 1);
        EXPECT_EQ(turnmode, noturn);
        EXPECT_EQ(net(), before);
    }
}

TEST_F(Dispatch, ATurnCodeStartsThatTurnAndItsInverseWithShift) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(code);
        b_cb(nullptr, code);
        EXPECT_EQ(turnmode, code);
        Fl::e_state = FL_SHIFT;
        b_cb(nullptr, code);
        EXPECT_EQ(turnmode, code ^ 1);
        Fl::e_state = 0;
    }
}

TEST_F(Dispatch, LettersTurnTheirFacesAndOtherKeysDoNothing) {
    constexpr struct {
        int key, code;
    } cases[] = {
        {'u', 0     },
        {'d', 2     },
        {'l', 4     },
        {'r', 6     },
        {'f', 8     },
        {'b', 10    },
        {'q', noturn},
        {'U', noturn},
        {0,   noturn},
    };

    for (const auto& row : cases) {
        startturn(noturn);
        interpretkey(row.key);
        EXPECT_EQ(turnmode, row.code) << row.key;
    }
}

TEST_F(Dispatch, TheChordIsEitherAltKeyWithQ) {
    for (const unsigned long alt : {XK_Alt_L, XK_Alt_R}) {
        screen().key(alt, true);
        EXPECT_EQ(alt_q(), 0);
        screen().key(XK_q, true);
        EXPECT_EQ(alt_q(), 1);
        screen().key(alt, false);
        EXPECT_EQ(alt_q(), 0);
        screen().key(XK_q, false);
    }
}

// Where no key types the letter, the one that it is written on counts, or the one at its place.
TEST_F(Dispatch, ALetterIsHeldByItsKeyInAnotherAlphabet) {
    const auto typesq = [] {
        pass(); // in which the toolkit hears of the layout
        return XKeysymToKeycode(fl_display, XK_q) != 0;
    };
    for (const char letter : {'q', 'z', 'm'}) {
        SCOPED_TRACE(letter);
        const unsigned char code = screen().place(letter);
        screen().setlayout("ru");
        ASSERT_TRUE(waitfor(10, [&] { return !typesq(); }));
        EXPECT_FALSE(letterheld(letter));
        screen().holdkey(code, true);
        EXPECT_TRUE(letterheld(letter));
        EXPECT_FALSE(letterheld('x'));
        screen().holdkey(code, false);
        EXPECT_FALSE(letterheld(letter));
        screen().setlayout("us");
        ASSERT_TRUE(waitfor(10, typesq));
    }
}

// A toolkit that has no number for a key tells 0.
TEST_F(Dispatch, AKeyWithoutANumberIsTheLetterOfItsPlace) {
    const XEvent* before = fl_xevent;
    XEvent event = {};
    event.type = KeyPress;
    event.xkey.keycode = screen().place('r');
    fl_xevent = &event;
    EXPECT_EQ(latinkey(0), 'r');
    EXPECT_EQ(latinkey(0x6ca), 'r'); // a Cyrillic letter
    EXPECT_EQ(latinkey('u'), 'u');
    EXPECT_EQ(latinkey(FL_F + 1), FL_F + 1);
    event.xkey.keycode = screen().place('5'); // no letter is there
    EXPECT_EQ(latinkey(0), 0);
    event.type = KeyRelease;
    event.xkey.keycode = screen().place('r');
    EXPECT_EQ(latinkey(0), 0);
    fl_xevent = nullptr;
    EXPECT_EQ(latinkey(0), 0);
    fl_xevent = before;
}

TEST_F(Dispatch, NoCommandRunsWhileTheInterruptChordIsHeld) {
    turnandsettle(6);
    inp->value("F");
    showmac[0] = 1;
    const std::string before = everything();
    static bool held = false;
    std::atexit([] { held ? std::_Exit(1) : void(); }); // a Quit that gets through is a failure
    held = true;
    screen().key(XK_Alt_L, true);
    screen().key(XK_q, true);
    for (const long cmd : allcommands()) {
        SCOPED_TRACE(cmd);
        needsredraw = 0;
        EXPECT_EQ(boxesof([cmd] { b_cb(nullptr, cmd); }), 0);
        EXPECT_EQ(needsredraw, 1);
        EXPECT_EQ(everything(), before);
    }
    screen().key(XK_Alt_L, false);
    screen().key(XK_q, false);
    held = false;
    showmac[0] = 0;
}

TEST_F(Dispatch, AMarkThatTheToolkitTurnedIsPutBackWhenTheCommandDidNotRun) {
    for (Fl_Menu_Item& item : menutable) {
        if (item.text != nullptr && item.argument() == 113) {
            item.clear(); // as the toolkit does when the entry is chosen
        }
    }
    screen().key(XK_Alt_L, true);
    screen().key(XK_q, true);
    menucallback(nullptr, userdata(113));
    screen().key(XK_q, false);
    screen().key(XK_Alt_L, false);
    EXPECT_TRUE(marked(113));
}

TEST_F(Dispatch, ShowRearCubeTogglesTheRearView) {
    menucallback(nullptr, userdata(113));
    EXPECT_EQ(showrear, 0);
    EXPECT_FALSE(marked(113));
    menucallback(nullptr, userdata(113));
    EXPECT_EQ(showrear, 1);
    EXPECT_TRUE(marked(113));
}

TEST_F(Dispatch, TheLongSolvesExcludeEachOther) {
    constexpr struct {
        long cmd;
        int tryhard;
    } steps[] = {
        {120, 1},
        {120, 0},
        {121, 2},
        {121, 0},
        {120, 1},
        {121, 2},
        {120, 0},
        {121, 2},
    };

    for (const auto& step : steps) {
        b_cb(nullptr, step.cmd);
        EXPECT_EQ(tryhard, step.tryhard);
        EXPECT_EQ(marked(120), tryhard == 1);
        EXPECT_EQ(marked(121), tryhard == 2);
    }
}

TEST_F(Dispatch, ResetEmptiesTheUndoBufferAndStopsARecording) {
    turnandsettle(6);
    b_cb(nullptr, 116);
    b_cb(nullptr, 100);
    EXPECT_EQ(solved(), 1);
    EXPECT_EQ(undoptr, 0);
    EXPECT_EQ(recording, 0);
    EXPECT_STREQ(recbut->label(), "Record On");
}

TEST_F(Dispatch, UndoPlaysTheInverseTurnsBackwards) {
    for (const int code : {0, 8, 6}) {
        turnandsettle(code);
    }
    for (const int code : {7, 9, 1}) {
        b_cb(nullptr, 102);
        EXPECT_EQ(turnmode, code);
        settle();
    }
    EXPECT_EQ(solved(), 1);
    EXPECT_EQ(undoptr, 0);
}

// Reset forgets the module's half of the undo under way; the shell's waits for the turn to land.
TEST_F(Dispatch, AResetInTheMiddleOfAnUndoLetsTheTurnLandUnrecorded) {
    turnandsettle(0);
    b_cb(nullptr, 102);
    b_cb(nullptr, 100);
    EXPECT_EQ(undoing, 1);
    b_cb(nullptr, 116);
    settle();
    EXPECT_EQ(undoing, 0);
    EXPECT_STREQ(inp->value(), "");
    ASSERT_EQ(undoptr, 1);
    EXPECT_EQ(undobuf[0], 1);
}

TEST_F(Dispatch, ARecordingGoesIntoTheMacroLine) {
    inp->value("RU");
    b_cb(nullptr, 116);
    EXPECT_STREQ(inp->value(), "");
    EXPECT_STREQ(out->value(), "");
    EXPECT_NE(inp->changed(), 0);
    EXPECT_STREQ(recbut->label(), "Record Off");
    turnandsettle(0);
    out->clear_changed();
    turnandsettle(12);
    EXPECT_NE(out->changed(), 0);
    EXPECT_STREQ(inp->value(), "U*F");
    EXPECT_STREQ(out->value(), "2");
    b_cb(nullptr, 102);
    settle();
    EXPECT_STREQ(inp->value(), "U*"); // NOT-BUGS.md, one character an undo
    turnandsettle(6);
    EXPECT_STREQ(inp->value(), "U*R");
    b_cb(nullptr, 116);
    EXPECT_STREQ(recbut->label(), "Record On");
    turnandsettle(6);
    EXPECT_STREQ(inp->value(), "U*R");
}

TEST_F(Dispatch, SaveAndRestoreTakeTurnsAndRelabelTheButton) {
    turnandsettle(6);
    const std::string kept = net();
    b_cb(nullptr, 117);
    EXPECT_STREQ(bsave->label(), "Restore Cube");
    turnandsettle(0);
    b_cb(nullptr, 117);
    EXPECT_STREQ(bsave->label(), "Save Cube");
    EXPECT_EQ(net(), kept);
    EXPECT_EQ(undoptr, 2);
}

TEST_F(Dispatch, TheseCommandsEndARecordingAndNoOther) {
    constexpr long ending[] = {100, 101, 104, 106, 108, 111, 112, 114, 116};
    for (const long cmd : allcommands()) {
        if (cmd == quit) {
            continue;
        }
        SCOPED_TRACE(cmd);
        inp->value("");
        initcubies();
        recordstart();
        inp->value("RU");
        boxesof([cmd] { b_cb(nullptr, cmd); });
        const bool ends = std::ranges::count(ending, cmd) != 0;
        EXPECT_EQ(recording, ends ? 0 : 1);
        EXPECT_STREQ(recbut->label(), ends ? "Record On" : "Record Off");
        leavecollector();
        stopdemo();
        settle();
    }
}

TEST_F(Dispatch, StoppingADemoAndASecondSolveLeaveARecordingAlone) {
    inp->value("RU");
    b_cb(nullptr, 111);
    recordstart();
    b_cb(nullptr, 111);
    EXPECT_EQ(recording, 1);
    solvingcube = 1;
    b_cb(nullptr, 108);
    solvingcube = 0;
    EXPECT_EQ(recording, 1);
    settle();
}

TEST_F(Dispatch, ACommandThatEndsTheDemoLeavesARecordingAlone) {
    for (const long cmd : {100L, 101L, 104L, 106L, 112L}) {
        SCOPED_TRACE(cmd);
        inp->value("RU");
        b_cb(nullptr, 111);
        recordstart();
        b_cb(nullptr, cmd);
        EXPECT_EQ(demomode, 0);
        EXPECT_EQ(recording, 1);
        settle();
    }
}

TEST_F(Dispatch, AGuardedCommandEndsTheDemoAndDoesNothingElse) {
    for (const long cmd : {100L, 101L, 102L, 104L, 106L, 107L, 112L}) {
        SCOPED_TRACE(cmd);
        initcubies();
        turnandsettle(8); // something to undo and to reset
        inp->value("RU");
        b_cb(nullptr, 111);
        applyturn(0); // a turn of the demo has landed: the cube is not solved
        undosave(0);
        const std::string before = net();
        const int undoable = undoptr;
        EXPECT_EQ(boxesof([cmd] { b_cb(nullptr, cmd); }), 0);
        EXPECT_EQ(demomode, 0);
        EXPECT_STREQ(demo->label(), "Start Demo");
        EXPECT_EQ(turns[turn], noturn);
        EXPECT_EQ(net(), before);
        EXPECT_EQ(undoptr, undoable);
        EXPECT_EQ(turnmode, noturn);
        EXPECT_STREQ(inp->value(), "RU");
        settle();
    }
}

TEST_F(Dispatch, EveryOtherCommandDoesItsWorkDuringTheDemo) {
    constexpr int any = -1; // the cube that is solved depends on how far the demo has come

    const struct {
        long cmd;
        int boxes; // or any number
        std::function<bool()> done;
    } rows[] = {
        {109, 1,   [] { return true; }                             },
        {113, 0,   [] { return showrear == 0; }                    },
        {113, 0,   [] { return showrear == 1; }                    },
        {114, 0,   [] { return Fl::modal() != nullptr; }           },
        {115, 1,   [] { return true; }                             },
        {116, 0,   [] { return recording == 1; }                   },
        {117, 0,   [] { return issavedcube == 1; }                 },
        {117, 0,   [] { return issavedcube == 0; }                 },
        {118, 1,   [] { return true; }                             },
        {119, 1,   [] { return true; }                             },
        {120, 0,   [] { return tryhard == 1; }                     },
        {121, 0,   [] { return tryhard == 2; }                     },
        {121, 0,   [] { return tryhard == 0; }                     },
        {123, 1,   [] { return true; }                             },
        {124, 1,   [] { return true; }                             },
        {125, 1,   [] { return true; }                             },
        {126, 1,   [] { return true; }                             },
        {127, 0,   [] { return showmac[0] == 0; }                  },
        {128, 1,   [] { return true; }                             },
        {129, 1,   [] { return true; }                             },
        {108, any, [] { return std::string(inp->value()) != "RU"; }},
        {122, 0,   [] { return maccount == 0; }                    },
    };

    for (const auto& row : rows) {
        SCOPED_TRACE(row.cmd);
        inp->value("RU");
        showmac[0] = row.cmd == 127 ? 1 : 0;
        demomode = 0;
        b_cb(nullptr, 111);
        clearqueue();
        applyturn(8); // however far the demo comes meanwhile, there is something to solve
        const int boxes = boxesof([&] { b_cb(nullptr, row.cmd); });
        EXPECT_TRUE(row.boxes == any || row.boxes == boxes) << boxes;
        EXPECT_TRUE(row.done());
        EXPECT_EQ(demomode, 1);
        EXPECT_STREQ(demo->label(), "Stop Demo");
        leavecollector();
        stopdemo();
        settle();
    }
    for (int code = 0; code < turncount; code++) {
        b_cb(nullptr, 111);
        b_cb(nullptr, code);
        EXPECT_EQ(turnmode, code);
        EXPECT_EQ(demomode, 1);
        stopdemo();
    }
}

TEST_F(Dispatch, EnterEndsARecordingAlsoWithAMalformedMacro) {
    recordstart();
    inp_cb(inp, 0);
    EXPECT_EQ(recording, 0);
    clearqueue();
    recordstart();
    inp->value("R)");
    withdialog([] { inp_cb(inp, 0); }, [] { screen().press(XK_Return); });
    EXPECT_EQ(recording, 0);
}

TEST_F(Dispatch, OrderIsShownAndTheColoursStay) {
    turnandsettle(8);
    const std::string before = net();
    inp->value("RU");
    withdialog([] { b_cb(nullptr, 101); }, [] { screen().press(XK_Return); });
    EXPECT_EQ(macorder, 105);
    EXPECT_EQ(net(), before);
}

TEST_F(Dispatch, TheFirstJumbleOfARunTakes213Passes) {
    srand(1); // the state of a generator that nobody seeded
    b_cb(nullptr, 112);
    const std::string jumbled = net();
    srand(1);
    EXPECT_EQ(rand() % 200 + 30, 213);
    initcubies();
    for (int i = 0; i < 213; i++) {
        moveface(static_cast<unsigned>(rand() % 6));
        movecube(static_cast<unsigned>(rand() % 6));
        moveslice(static_cast<unsigned>(rand() % 6));
    }
    EXPECT_EQ(net(), jumbled);
}
