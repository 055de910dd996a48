// SPDX-License-Identifier: MIT
//
// Solving, undoing, recording and the mathematics, as a person asks for them.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

namespace {

class Solve : public windowtest {
  protected:
    Solve() { vexel.setspeed(1); }

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

} // namespace

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

TEST_F(Solve, TheInterruptNeverHarmsAndALaterSolveWorks) {
    vexel.pushbutton("Jumble Cube");
    jumblecube();
    ASSERT_TRUE(showsmodel());
    vexel.choose("Very Long Solve");
    vexel.pushbutton("Solve Cube");
    screen.hold(alt_key);
    screen.key(XK_q, true);
    waitfor(2, [this] { return boxopen(); });
    screen.key(XK_q, false);
    screen.release(alt_key);
    vexel.waitquiet();
    if (boxopen()) {
        screen.press(XK_Return);
        ASSERT_TRUE(vexel.waitnodialog());
    }
    vexel.choose("Very Long Solve");
    solve();
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

TEST_F(Solve, OneCubeIsSavedAndRestored) {
    domacro("RF");
    vexel.playmacro("RF");
    ASSERT_TRUE(showsmodel());
    vexel.pushbutton("Save Cube");
    vexel.pushbutton("Reset Cube");
    vexel.pushbutton("Save Cube"); // says "Restore Cube" now
    EXPECT_TRUE(showsmodel());
}
