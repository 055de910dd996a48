// SPDX-License-Identifier: MIT
//
// Solving, undoing, recording and the mathematics, as a person asks for them.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

namespace {

class Solve : public windowtest {
  protected:
    explicit Solve(const xserver_settings& settings = {}) : windowtest(settings) {
        vexel.setspeed(1);
    }

    windowid panel() const {
        for (const windowid window : screen.windows()) {
            if (window != vexel.window() && screen.place(window).w == 230) {
                return window;
            }
        }
        return 0;
    }

    // How many lines of text the wait panel shows: rows with dark pixels, parted by rows without.
    // 0 for one that is not painted, and where there is none.
    int panellines() const {
        const rectangle r = screen.place(panel());
        if (r.w != 230) {
            return 0;
        }
        const picture seen = screen.screenshot({r.x + 5, r.y + 5, r.w - 10, r.h - 10});
        int lines = 0;
        bool ink = false;
        for (int y = 0; y < seen.h(); y++) {
            const bool dark = seen.part({0, y, seen.w(), 1}).count({0, 0, 0}) > 0;
            lines += dark && !ink ? 1 : 0;
            ink = dark;
        }
        return seen.commonest() == rgb{0, 0, 0} ? 0 : lines;
    }

    // Both texts come to the screen: the tables' has one line, the search's two. The search goes on
    // until it is interrupted.
    void expectpanels() {
        vexel.pushbutton("Jumble Cube");
        jumblecube();
        ASSERT_TRUE(showsmodel());
        vexel.choose("Very Long Solve");
        vexel.pushbutton("Solve Cube");
        EXPECT_TRUE(waitfor(20, [this] { return panellines() == 1; }));
        EXPECT_TRUE(waitfor(40, [this] { return panellines() == 2; }));
        EXPECT_TRUE(vexel.child().running());
        vexel.keeppicture("search-panel");
        screen.hold(alt_key);
        screen.key(XK_q, true);
        EXPECT_TRUE(waitfor(60, [this] { return panel() == 0; }));
        screen.key(XK_q, false);
        screen.release(alt_key);
    }

    // Whether a box that wants an answer is open; the wait panel, 230 pixels wide, wants none.
    bool boxopen() const {
        for (const windowid window : screen.windows()) {
            if (window != vexel.window() && screen.place(window).w > 230) {
                screen.focus(window);
                return true;
            }
        }
        return false;
    }

    // Asks for a solution and closes the box that tells of it; the line then has the keyboard.
    void solve() {
        vexel.pushbutton("Solve Cube");
        ASSERT_TRUE(waitfor(60, [this] { return boxopen(); }));
        screen.press(XK_Return);
        ASSERT_TRUE(vexel.waitnodialog());
        vexel.front();
    }

    // The model as a solution leaves it: each face in the colour of its centre.
    static void solvemodel() {
        for (int place = 0; place < placecount; place++) {
            cubecolors[place] = cubecolors[place / 9 * 9 + 4];
        }
    }

    void undo() { screen.press('z', ctrl_key); }
};

class SolveUnderManager : public Solve {
  protected:
    SolveUnderManager() : Solve({.windowmanager = true}) {}
};

} // namespace

TEST_F(Solve, BothWaitPanelsArePainted) {
    expectpanels();
}

TEST_F(SolveUnderManager, BothWaitPanelsArePainted) {
    expectpanels();
}

TEST_F(Solve, TheFirstScrambleIsSolvedAndTheAnswerPlayed) {
    vexel.pushbutton("Jumble Cube");
    jumblecube();
    ASSERT_TRUE(showsmodel());
    solve();
    EXPECT_TRUE(showsmodel()); // nothing was turned yet
    screen.press(XK_Return);
    solvemodel();
    EXPECT_TRUE(showsmodel(60));
}

TEST_F(Solve, ItCanBeAskedTwiceInARowAndDuringATurn) {
    vexel.setspeed(200);
    vexel.pushbutton("Rcw");
    solve();
    applyturn(6);
    EXPECT_TRUE(showsmodel());
    solve();
    screen.press(XK_Return);
    initcubies();
    EXPECT_TRUE(showsmodel());
}

TEST_F(Solve, ASolvedCubeIsMetWithSilence) {
    vexel.pushbutton("Solve Cube");
    vexel.waitquiet();
    EXPECT_FALSE(boxopen());
    vexel.pushbutton("Ucw");
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}

// A cube of the subgroup has its first answer at once and is searched for many seconds.
TEST_F(Solve, TheInterruptEndsALongSearchWithAnAnswerThatSolves) {
    const std::string macro = "FFULLDDRRUBBUULLdFFURRdLLUFF";
    vexel.typemacro(macro);
    vexel.pushbutton("Apply Macro");
    domacro(macro);
    ASSERT_TRUE(showsmodel());
    vexel.choose("Very Long Solve");
    vexel.pushbutton("Solve Cube");
    ASSERT_TRUE(waitfor(60, [this] { return panellines() == 2; }));
    waitfor(0.5, [] { return false; });
    ASSERT_FALSE(boxopen()) << "the search is over before it is interrupted";
    const double before = vexel.child().cpuseconds();
    screen.hold(alt_key);
    screen.key(XK_q, true);
    ASSERT_TRUE(waitfor(60, [this] { return boxopen(); }));
    EXPECT_LT(vexel.child().cpuseconds() - before, 3); // alone it would take longer
    screen.key(XK_q, false);
    screen.release(alt_key);
    EXPECT_TRUE(showsmodel()); // nothing was turned
    screen.press(XK_Return);
    ASSERT_TRUE(vexel.waitnodialog());
    screen.press(XK_Return);
    solvemodel();
    EXPECT_TRUE(showsmodel(60));
}

TEST_F(Solve, ASolveAfterAnInterruptedOneWorks) {
    vexel.pushbutton("Jumble Cube");
    jumblecube();
    ASSERT_TRUE(showsmodel());
    screen.hold(alt_key);
    vexel.pushbutton("Solve Cube");
    ASSERT_TRUE(waitfor(20, [this] { return panel() != 0; }));
    screen.key(XK_q, true); // while the tables are built
    ASSERT_TRUE(waitfor(30, [this] { return panel() == 0; }));
    screen.key(XK_q, false);
    screen.release(alt_key);
    ASSERT_TRUE(vexel.waitquiet());
    solve();
    EXPECT_TRUE(showsmodel());
    screen.press(XK_Return);
    solvemodel();
    EXPECT_TRUE(showsmodel(60));
}

TEST_F(Solve, AMacroIsUndoneTurnByTurn) {
    vexel.playmacro("RU*F>Rb");
    domacro("RU*F>Rb");
    ASSERT_TRUE(showsmodel());
    vexel.clickview(0.05, 0.05); // no region: the view, or nobody, has the keyboard
    for (const char* inverse : {"B", ">L", "*B", "u", "r"}) {
        vexel.choose("Undo");
        domacro(inverse);
        EXPECT_TRUE(showsmodel()) << inverse;
    }
    EXPECT_EQ(solved(), 1);
}

TEST_F(Solve, CtrlZUndoesWithTheViewFocused) {
    vexel.pushbutton("Fcw");
    applyturn(8);
    ASSERT_TRUE(showsmodel());
    undo();
    applyturn(9);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Solve, ARecordingIsPlayedBack) {
    vexel.pushbutton("Record On");
    for (const char* label : {"Rcw", "UScw", "FCcw", "Lccw"}) {
        vexel.pushbutton(label);
        domacro(label[0] == 'R' ? "R" : label[0] == 'U' ? "*U" : label[0] == 'F' ? ">F" : "l");
        ASSERT_TRUE(showsmodel()) << label;
    }
    vexel.pushbutton("Record On"); // says "Record Off" now
    vexel.pushbutton("Reset Cube");
    initcubies();
    ASSERT_TRUE(showsmodel());
    vexel.click(600, 324); // into the macro line
    screen.press(XK_Return);
    domacro("R*U>Fl");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Solve, OrderAndPermutationAreToldAndTheCubeStays) {
    vexel.pushbutton("Ucw");
    applyturn(0);
    ASSERT_TRUE(showsmodel());
    vexel.typemacro("RU");
    vexel.pushbutton("Macro Order");
    vexel.answer(XK_Return);
    EXPECT_TRUE(showsmodel());
    vexel.choose("Display Permutation");
    vexel.answer(XK_Return);
    EXPECT_TRUE(showsmodel());
}

// What the view paints while the box stands, left of the box, is the cube as it was before.
TEST_F(Solve, BehindAnOrderTheCubeIsTheOneThatIsThere) {
    vexel.pushbutton("Ucw");
    applyturn(0);
    ASSERT_TRUE(showsmodel());
    vexel.typemacro("RU");
    ASSERT_TRUE(vexel.waitquiet());
    const rectangle part = {20, 60, 140, 360};
    const picture before = vexel.part(part);
    const rectangle window = screen.place(vexel.window());
    vexel.pushbutton("Macro Order");
    ASSERT_NE(0UL, vexel.waitdialog());
    screen.uncover(screen.cover({window.x + part.x, window.y + part.y, part.w, part.h}));
    EXPECT_TRUE(waitfor(20, [&] { return vexel.part(part) == before; }));
    screen.press(XK_Return);
    ASSERT_TRUE(vexel.waitnodialog());
    EXPECT_TRUE(showsmodel());
}

TEST_F(Solve, OneCubeIsSavedAndRestored) {
    domacro("RF");
    vexel.playmacro("RF");
    ASSERT_TRUE(showsmodel());
    vexel.pushbutton("Save Cube");
    vexel.pushbutton("Reset Cube");
    vexel.pushbutton("Save Cube"); // says "Restore Cube" now
    EXPECT_TRUE(showsmodel());
}
