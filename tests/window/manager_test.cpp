// SPDX-License-Identifier: MIT
//
// Under a window manager that does its job: the window goes out of sight and comes back, the
// manager ends and starts. The program lives until its window is closed.
#include "window/layout.h"
#include "window/windowtest.h"

#include <functional>

namespace {

class Manager : public windowtest {
  protected:
    explicit Manager(bool managed = true) : windowtest({.windowmanager = managed}) {}

    // Whether the view comes to be in sight; a manager may have it fly in from outside the screen.
    bool waitvisible(bool shown) const {
        return waitfor(10, [&] {
            const rectangle v = screen.place(vexel.view());
            const bool inside = v.x >= 0 && v.y >= 0 && v.x + v.w <= screenwidth &&
                                v.y < screenheight - windowheight;
            return (screen.visible(vexel.view()) && inside) == shown;
        });
    }

    // Does something to the program while it is out of sight, by each of the ways to hide it.
    void hiddeneachway(const std::function<void()>& meanwhile) {
        screen.minimise(vexel.window());
        ASSERT_TRUE(waitvisible(false));
        meanwhile();
        screen.activate(vexel.window());
        ASSERT_TRUE(waitvisible(true));
        screen.godesktop(1);
        ASSERT_TRUE(waitvisible(false));
        meanwhile();
        screen.godesktop(0);
        ASSERT_TRUE(waitvisible(true));
    }

    bool waitpainted() const {
        return waitfor(10, [this] {
            const picture seen = vexel.view_picture(); // as much of it as is on the screen
            return seen.w() > 1 && seen.h() > 1 && near(seen.at(1, 1), {128, 128, 128});
        });
    }

    // Whether the picture changes without an event.
    bool moves() const {
        const picture before = vexel.view_picture();
        return waitfor(10, [&] { return !(vexel.view_picture() == before); });
    }

    bool rests() {
        return waitfor(10, [this] { return vexel.child().isquiet(0.3); });
    }

    // That nothing is lost: the cube is the model's and turns as before.
    void expectwell(const char* button, int turn) {
        ASSERT_TRUE(vexel.child().running()) << vexel.output();
        EXPECT_TRUE(showsmodel());
        vexel.front();
        vexel.pushbutton(button);
        applyturn(turn);
        EXPECT_TRUE(showsmodel());
    }
};

class ManagerThatComesLate : public Manager {
  protected:
    ManagerThatComesLate() : Manager(false) {}
};

} // namespace

TEST_F(Manager, AWindowThatWasOutOfSightShowsTheSameCube) {
    vexel.setspeed(1);
    expectwell("Rcw", 6);
    hiddeneachway([] {});
    expectwell("Ucw", 0);
    screen.rollup(vexel.window(), true);
    ASSERT_TRUE(rests());
    screen.rollup(vexel.window(), false);
    ASSERT_TRUE(waitvisible(true));
    expectwell("Fcw", 8);
}

TEST_F(Manager, ATurnGoesOnWhereItWasOutOfSight) {
    vexel.setspeed(999);
    vexel.pushbutton("Rcw");
    applyturn(6);
    screen.minimise(vexel.window());
    ASSERT_TRUE(waitvisible(false));
    EXPECT_TRUE(rests());
    screen.activate(vexel.window());
    ASSERT_TRUE(waitvisible(true));
    ASSERT_TRUE(waitpainted());
    EXPECT_FALSE(vexel.shows(cubecolors)); // the turn is not over yet
    EXPECT_TRUE(showsmodel());
}

TEST_F(Manager, AMacroGoesOnWhereItWasOutOfSight) {
    vexel.setspeed(100);
    vexel.playmacro("RUf*L>BDlUbRF");
    domacro("RUf*L>BDlUbRF");
    hiddeneachway([this] { EXPECT_TRUE(rests()); });
    EXPECT_TRUE(showsmodel());
}

TEST_F(Manager, ADemoGoesOnAndRestsOutOfSight) {
    vexel.setspeed(20);
    vexel.pushbutton("Start Demo");
    ASSERT_TRUE(moves());
    hiddeneachway([this] { EXPECT_TRUE(rests()); });
    EXPECT_TRUE(moves());
    vexel.front();
    vexel.pushbutton("Start Demo");
    EXPECT_TRUE(rests());
    vexel.pushbutton("Reset Cube");
    expectwell("Rcw", 6);
}

TEST_F(Manager, ThatEndsAndStartsAgainTakesNothingAlong) {
    vexel.setspeed(1);
    expectwell("Rcw", 6);
    for (int i = 0; i < 2; i++) {
        screen.endmanager();
        expectwell("Ucw", 0);
        screen.startmanager();
        expectwell("Fcw", 8);
    }
}

TEST_F(ManagerThatComesLate, FindsTheProgramAndLeavesIt) {
    vexel.setspeed(1);
    expectwell("Rcw", 6);
    screen.startmanager();
    expectwell("Ucw", 0);
    hiddeneachway([] {});
    expectwell("Fcw", 8);
}

TEST_F(Manager, TheCloseButtonEndsTheProgramWithStatusZero) {
    ASSERT_TRUE(showsmodel());
    screen.close(vexel.window());
    EXPECT_EQ(vexel.child().waitexit(30), std::optional<int>(0));
}

TEST_F(Manager, ClosingAMinimisedWindowEndsTheProgramToo) {
    ASSERT_TRUE(showsmodel());
    screen.minimise(vexel.window());
    ASSERT_TRUE(waitvisible(false));
    screen.close(vexel.window());
    EXPECT_EQ(vexel.child().waitexit(30), std::optional<int>(0));
}
