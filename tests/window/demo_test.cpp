// SPDX-License-Identifier: MIT
//
// The demo: what it plays, that it can be stopped at any moment, and every command while it runs.
#include "viewpoints.h"
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <functional>
#include <iterator>
#include <set>

namespace {

const std::string firstmadeup = "R*BLRFDl*FDrDBBfr*RUduL";

class Demo : public windowtest {
  protected:
    void SetUp() override {
        ASSERT_TRUE(showsmodel());
        startlabel = buttonlabel();
    }

    // The inside of the button, without the frame of the keyboard focus.
    picture buttonlabel() const {
        const rectangle r = findbutton("Start Demo").place;
        return vexel.part({r.x + 6, r.y + 5, r.w - 12, r.h - 10});
    }

    // What the button says.
    bool saysstart() const { return buttonlabel() == startlabel; }

    bool stopped() const {
        return waitfor(10, [this] { return saysstart(); });
    }

    bool started() const {
        return waitfor(10, [this] { return !saysstart(); });
    }

    void toggle() const { vexel.pushbutton("Start Demo"); }

    void start(const std::string& macro) {
        vexel.typemacro(macro);
        toggle();
        ASSERT_TRUE(started());
        ASSERT_TRUE(moves());
    }

    bool moves() const {
        const picture now = vexel.view_picture();
        return waitfor(10, [this, &now] { return !(vexel.view_picture() == now); });
    }

    // Whether it plays on, with all that was under way over.
    bool goeson() const {
        waitfor(0.6, [] { return false; });
        return !saysstart() && moves() && moves();
    }

    bool rests() const { return vexel.waitquiet(60); }

    // The states that the macro goes through, from the solved cube until it is solved again.
    static std::set<std::string> statesof(const std::string& macro) {
        std::set<std::string> states;
        initcubies();
        do {
            clearqueue();
            parsing = 1;
            parsestring(macro.c_str(), static_cast<int>(macro.size()));
            parsing = 0;
            states.insert(colors());
            for (int i = 0; i < turnptr; i++) {
                applyturn(turns[i]);
                states.insert(colors());
            }
        } while (solved() == 0);
        return states;
    }

    static std::string colors() { return {std::begin(cubecolors), std::end(cubecolors)}; }

    // The cube that the view shows; '?' for a colour that is none of the six.
    std::string seen() const {
        const picture view = vexel.view_picture();
        std::string all;
        for (int place = 0; place < placecount; place++) {
            const viewpoint point = lookat(place, view.w());
            const rgb is = view.at(static_cast<int>(point.x), static_cast<int>(point.y));
            char color = '?';
            for (int k = 0; k < cubefacecount; k++) {
                color = near(is, lettercolor("WGRBOY"[k])) ? static_cast<char>(k) : color;
            }
            all += color;
        }
        return all;
    }

    // The demo is over: the button says so, no box is open and the cube at rest is one of states.
    void hasended(const std::set<std::string>& states) {
        EXPECT_TRUE(stopped());
        // On a busy machine a slow turn may seem to be over.
        const bool good = waitfor(30, [&] { return rests() && states.contains(seen()); });
        EXPECT_TRUE(good) << vexel.keeppicture("demo-ended");
        EXPECT_EQ(0U, vexel.dialog());
    }

    // Leaves every box that a command has opened.
    void leavedialogs() {
        while (vexel.dialog() != 0) {
            const windowid box = vexel.waitdialog();
            if (screen.title(box) == "Set Cube Face Colors") {
                vexel.clickdialog(47, 437); // Finish
            } else {
                screen.press(XK_Escape);
            }
            ASSERT_TRUE(waitfor(20, [this, box] { return !screen.visible(box); }));
        }
        vexel.front();
    }

    picture startlabel;
};

} // namespace

TEST_F(Demo, AnEmptyLineGetsTheKnownMacro) {
    const std::set<std::string> states = statesof(firstmadeup);
    vexel.setspeed(5);
    vexel.typemacro("");
    const picture empty = vexel.part(macroplace);
    toggle();
    ASSERT_TRUE(started());
    ASSERT_TRUE(waitfor(10, [this, &empty] { return !(vexel.part(macroplace) == empty); }));
    waitfor(1, [] { return false; });
    toggle();
    hasended(states);
}

TEST_F(Demo, TheMacroOfTheLineIsPlayedFromTheSolvedCube) {
    const std::set<std::string> states = statesof("R*Fu2(FL)");
    vexel.setspeed(4);
    vexel.playmacro("BBDlU");
    ASSERT_TRUE(rests());
    start("R*Fu2(FL)");
    waitfor(0.5, [] { return false; });
    toggle();
    hasended(states);
}

TEST_F(Demo, StartsAndStopsAtAnyMomentOfATurn) {
    const std::string macro = "RUf*L";
    const std::set<std::string> states = statesof(macro);
    vexel.setspeed(23);
    start(macro);
    toggle();
    hasended(states);
    for (int i = 0; i < 50; i++) {
        SCOPED_TRACE(i);
        toggle();
        waitfor(0.011 * i, [] { return false; });
        toggle();
        if (i % 5 != 4) {
            continue; // straight on, with the turn still under way
        }
        hasended(states);
        if (HasFailure()) {
            return;
        }
    }
}

TEST_F(Demo, AMacroWithoutATurnCanBeStopped) {
    for (const char* macro : {"22", "x", "3(", "s(", "2()"}) {
        SCOPED_TRACE(macro);
        vexel.typemacro(macro);
        toggle();
        ASSERT_TRUE(started());
        waitfor(0.2, [] { return false; });
        toggle();
        hasended({colors()});
    }
    vexel.pushbutton("Rcw");
    applyturn(6);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Demo, ALongMacroIsCutAtATurn) {
    std::string macro;
    for (int i = 0; i < 99; i++) {
        macro += "*R";
    }
    const std::set<std::string> states = statesof(macro);
    vexel.setspeed(1);
    vexel.pastemacro(macro + "*BF>Lu");
    toggle();
    ASSERT_TRUE(started());
    waitfor(3, [] { return false; });
    toggle();
    hasended(states);
}

// The first turn of the demo is slow: it is under way when the button is pressed, and the demo is
// over before the button's turn has landed. So that turn is all that is left.
TEST_F(Demo, ATurnButtonTakesTheTurnOver) {
    vexel.setspeed(600);
    for (const auto& [button, code] :
         {std::pair("Ucw", 0), std::pair("LScw", 14), std::pair("DCcw", 21)}) {
        SCOPED_TRACE(button);
        start("R");
        vexel.pushbutton(button);
        waitfor(0.2, [] { return false; });
        EXPECT_FALSE(saysstart()); // it goes on
        toggle();
        initcubies();
        applyturn(code);
        hasended({colors()});
    }
}

// What the macro line says does not matter to the demo: its turns go on after the button's.
TEST_F(Demo, AfterATurnByHandItPlaysOn) {
    vexel.setspeed(10);
    start("R");
    vexel.pushbutton("Ucw");
    std::set<std::string> states;
    initcubies();
    for (int before = 0; before < 4; before++) {
        applyturn(0);
        for (int after = 0; after < 4; after++) {
            applyturn(6);
            states.insert(colors());
        }
        applyturn(1);
        applyturn(6);
    }
    EXPECT_TRUE(goeson());
    toggle();
    hasended(states);
}

TEST_F(Demo, AGuardedCommandEndsItAndDoesNothingElse) {
    const std::string macro = "RUf*L";
    const std::set<std::string> states = statesof(macro);

    const struct {
        const char* name;
        std::function<void()> act;
    } rows[] = {
        {"Reset Cube",     [this] { vexel.pushbutton("Reset Cube"); } },
        {"Ctrl+R",         [this] { screen.press('r', ctrl_key); }    },
        {"Macro Order",    [this] { vexel.pushbutton("Macro Order"); }},
        {"Undo",           [this] { vexel.choose("Undo"); }           },
        {"Define Macro",   [this] { vexel.choose("Define Macro"); }   },
        {"Apply Macro",    [this] { vexel.pushbutton("Apply Macro"); }},
        {"Set Cube Speed", [this] { vexel.choose("Set Cube Speed"); } },
        {"Jumble Cube",    [this] { vexel.pushbutton("Jumble Cube"); }},
    };

    vexel.setspeed(20);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        start(macro);
        row.act();
        hasended(states);
    }
}

TEST_F(Demo, EveryOtherMenuEntryWorksDuringIt) {
    const struct {
        const char* entry;
        bool opens; // a box
    } rows[] = {
        {"Load Macro File",         true },
        {"Dump Macro File",         true },
        {"Display Permutation",     true },
        {"Print EPS File",          true },
        {"Input Cube",              true },
        {"Long Solve",              false},
        {"Very Long Solve",         false},
        {"Show Macro Gizmo",        true },
        {"Show Rear Cube",          false},
        {"Set Cube Colors",         true },
        {"Delete Macro",            true },
        {"Add Macro to Gizmo",      true },
        {"Delete Macro from Gizmo", true },
        {"Clear Macro Gizmo",       false},
        {"Delete All Macros",       false},
        {"About Vexel",             true },
    };

    vexel.setspeed(20);
    start("RUf*L");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.entry);
        vexel.choose(row.entry);
        if (row.opens) {
            vexel.waitdialog();
        }
        leavedialogs();
        EXPECT_TRUE(goeson());
    }
}

TEST_F(Demo, EveryOtherButtonWorksDuringIt) {
    vexel.setspeed(20);
    start("RUf*L");
    for (const button_place& button : buttonplaces) {
        const std::string label = button.label;
        if (button.turn >= 0 || label == "Save Cube" || label == "Record On") {
            SCOPED_TRACE(label);
            const rectangle r = button.place;
            const picture before = vexel.part({r.x + 6, r.y + 5, r.w - 12, r.h - 10});
            vexel.pushbutton(label);
            EXPECT_TRUE(goeson());
            const picture after = vexel.part({r.x + 6, r.y + 5, r.w - 12, r.h - 10});
            EXPECT_EQ(before == after, button.turn >= 0); // the others are relabelled
        }
    }
}

TEST_F(Demo, BehindABoxItWaitsAndTheProgramSleeps) {
    vexel.setspeed(60);
    start("RUf*L");
    for (const char* entry :
         {"About Vexel", "Delete Macro", "Set Cube Colors", "Load Macro File"}) {
        SCOPED_TRACE(entry);
        vexel.choose(entry);
        vexel.waitdialog();
        EXPECT_TRUE(waitfor(10, [this] { return vexel.child().isquiet(0.5); }));
        leavedialogs();
        EXPECT_TRUE(goeson());
    }
}

TEST_F(Demo, BehindAMenuItWaitsAndTheProgramSleeps) {
    vexel.setspeed(60);
    start("RUf*L");
    for (int i = 0; i < 5; i++) {
        const windowid menu = vexel.openmenu("Undo");
        EXPECT_TRUE(waitfor(10, [this] { return vexel.child().isquiet(0.5); }));
        screen.button(1, false);
        screen.press(XK_Escape);
        EXPECT_TRUE(waitfor(10, [&] { return !screen.visible(menu); }));
        EXPECT_TRUE(goeson());
    }
}

TEST_F(Demo, TheCubeCanBeSolvedDuringIt) {
    vexel.setspeed(20);
    start("RUf");
    vexel.pushbutton("Solve Cube");
    ASSERT_TRUE(waitfor(60, [this] { return vexel.dialog() != 0; }));
    const bool goeson = waitfor(60, [this] {
        leavedialogs(); // the wait panels pass by, the alert is answered
        return !waitfor(1, [this] { return vexel.dialog() != 0; }) && moves();
    });
    EXPECT_TRUE(goeson);
    EXPECT_TRUE(started());
}

TEST_F(Demo, TheFirstFrameAfterItIsTheStandardView) {
    vexel.setspeed(7);
    vexel.playmacro("RRRR");
    ASSERT_TRUE(rests());
    const picture before = vexel.view_picture();
    start("RUf");
    waitfor(0.4, [] { return false; });
    vexel.pushbutton("Reset Cube");
    ASSERT_TRUE(rests());
    vexel.pushbutton("Reset Cube");
    ASSERT_TRUE(showsmodel());
    EXPECT_TRUE(vexel.view_picture() == before);
}

TEST_F(Demo, QuitEndsTheProgramDuringIt) {
    start("RUf");
    screen.press('q', ctrl_key);
    EXPECT_EQ(0, vexel.child().waitexit(10));
}

TEST_F(Demo, TheWindowCanBeClosedDuringIt) {
    start("RUf");
    screen.close(vexel.window());
    EXPECT_EQ(0, vexel.child().waitexit(10));
}
