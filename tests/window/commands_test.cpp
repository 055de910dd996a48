// SPDX-License-Identifier: MIT
//
// Commands of the menus and buttons: speed, rear view, scramble, reset, and the ways to leave.
#include "viewpoints.h"
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

namespace {

class Commands : public windowtest {
  protected:
    // How long one turn takes.
    double turntime() {
        const double start = now();
        vexel.pushbutton("Rcw");
        applyturn(6);
        EXPECT_TRUE(showsmodel(60));
        return now() - start;
    }

    void expectend() {
        const std::optional<int> status = vexel.child().waitexit(30);
        ASSERT_TRUE(status.has_value()) << "still runs";
        EXPECT_EQ(*status, 0) << vexel.output();
        EXPECT_EQ(vexel.output(), "");
    }
};

} // namespace

TEST_F(Commands, AtSpeedOneTheFirstTurnLandsToo) {
    vexel.setspeed(1);
    vexel.pushbutton("Ucw");
    applyturn(0);
    EXPECT_TRUE(showsmodel());
    vexel.pushbutton("Ucw");
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Commands, ALargerSpeedIsSlower) {
    vexel.setspeed(5);
    const double quick = turntime();
    vexel.setspeed(999);
    EXPECT_GT(turntime(), 2 * quick);
}

TEST_F(Commands, ASpeedThatIsNoneChangesNothing) {
    vexel.setspeed(1);
    for (const char* answer : {"0", "1000", "abc", "-5", ""}) {
        SCOPED_TRACE(answer);
        vexel.choose("Set Cube Speed");
        vexel.answer(std::string(answer));
        EXPECT_LT(turntime(), 5);
    }
    vexel.choose("Set Cube Speed");
    vexel.waitdialog();
    screen.type("999");
    vexel.answer(XK_Escape);
    EXPECT_LT(turntime(), 5);
}

TEST_F(Commands, TheRearCubeIsHiddenAndShown) {
    vexel.setspeed(1);
    const viewpoint rear = lookat(31); // middle of R
    const auto at = [&rear](const picture& view) {
        return view.at(static_cast<int>(rear.x), static_cast<int>(rear.y));
    };
    ASSERT_TRUE(showsmodel());
    const rgb shown = at(vexel.view_picture());
    vexel.choose("Show Rear Cube");
    EXPECT_TRUE(waitfor(10, [&] { return at(vexel.view_picture()) == rgb{128, 128, 128}; }));
    vexel.pushbutton("Fcw");
    applyturn(8);
    EXPECT_TRUE(showsmodel(30, false));
    vexel.choose("Show Rear Cube");
    EXPECT_TRUE(showsmodel());
    EXPECT_EQ(at(vexel.view_picture()), shown);
}

TEST_F(Commands, TheScramblesOfARunAreAlwaysTheSame) {
    vexel.setspeed(1);
    vexel.pushbutton("Jumble Cube");
    jumblecube();
    EXPECT_TRUE(showsmodel());
    vexel.pushbutton("Rcw");
    applyturn(6);
    EXPECT_TRUE(showsmodel());
    vexel.pushbutton("Jumble Cube");
    jumblecube();
    EXPECT_TRUE(showsmodel());
}

TEST_F(Commands, ResetSolvesTheCube) {
    vexel.setspeed(1);
    for (int way = 0; way < 3; way++) {
        SCOPED_TRACE(way);
        vexel.pushbutton("Jumble Cube");
        jumblecube();
        ASSERT_TRUE(showsmodel());
        if (way == 0) {
            vexel.pushbutton("Reset Cube");
        } else if (way == 1) {
            vexel.choose("Reset Cube");
        } else {
            screen.press('r', ctrl_key);
        }
        initcubies();
        ASSERT_TRUE(showsmodel());
    }
}

TEST_F(Commands, TheMenuQuits) {
    vexel.choose("Quit");
    expectend();
}

TEST_F(Commands, CtrlAndQQuitInTheMiddleOfATurn) {
    vexel.pushbutton("Rcw");
    screen.press('q', ctrl_key);
    expectend();
}

TEST_F(Commands, ClosingTheWindowQuits) {
    screen.close(vexel.window());
    expectend();
}

TEST_F(Commands, AltAndQDoNotQuit) {
    vexel.setspeed(1);
    vexel.altletter('q');
    ASSERT_TRUE(vexel.waitquiet());
    vexel.pushbutton("Ucw");
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Commands, EscapeDoesNotQuit) {
    vexel.setspeed(1);
    screen.press(XK_Escape);
    ASSERT_TRUE(vexel.waitquiet());
    vexel.pushbutton("Ucw");
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}
