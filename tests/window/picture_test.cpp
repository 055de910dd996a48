// SPDX-License-Identifier: MIT
//
// The picture holds: over undefined back buffers, other windows, other sizes and depths, and under
// a window manager.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

namespace {

class Picture : public windowtest {};

class PictureOverScribble : public windowtest {
  protected:
    PictureOverScribble() : windowtest({}, {.preload = VEXEL_SCRIBBLE}) {}
};

class PictureOf16Bits : public windowtest {
  protected:
    PictureOf16Bits() : windowtest({.depth = 16}) {}
};

class PictureUnderManager : public windowtest {
  protected:
    PictureUnderManager() : windowtest({.windowmanager = true}) {}
};

} // namespace

TEST_F(PictureOverScribble, IsTheFrameJustPainted) {
    ASSERT_TRUE(showsmodel());
    vexel.setspeed(1);
    ASSERT_TRUE(showsmodel());
    vexel.playmacro("RUf*L>B");
    domacro("RUf*L>B");
    ASSERT_TRUE(showsmodel());
    const picture still = vexel.view_picture();
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_EQ(vexel.view_picture(), still);
    const windowid cover = screen.cover(screen.place(vexel.view()));
    screen.uncover(cover);
    ASSERT_TRUE(showsmodel());
    EXPECT_EQ(vexel.view_picture(), still);
}

TEST_F(PictureOverScribble, IsNeverRubbishDuringATurn) {
    ASSERT_TRUE(showsmodel());
    vexel.pushbutton("Rcw");
    int rubbish = 0;
    waitfor(1, [&] {
        rubbish += vexel.view_picture().count({255, 0, 255}) > 0;
        return false;
    });
    EXPECT_EQ(rubbish, 0);
}

TEST_F(PictureOf16Bits, ShowsTheCube) {
    vexel.setspeed(1);
    vexel.pushbutton("Rcw");
    applyturn(6);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Picture, IsPaintedAgainWhereAWindowLayOverIt) {
    vexel.setspeed(1);
    const rectangle r = screen.place(vexel.view());
    const windowid cover = screen.cover({r.x + 30, r.y, r.w, r.h / 2});
    vexel.playmacro("RUfLdB");
    domacro("RUfLdB");
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_FALSE(vexel.shows(cubecolors)); // it is covered indeed
    screen.uncover(cover);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Picture, OutlivesAnyChangeOfTheWindowsSize) {
    vexel.setspeed(1);
    for (const auto& [w, h] : {
             std::pair(900, 600), {300, 200},
               {1,   1  },
               {735, 462}
    }) {
        screen.resize(vexel.window(), w, h);
        ASSERT_TRUE(vexel.waitquiet());
        ASSERT_TRUE(vexel.child().running());
    }
    vexel.pushbutton("Rcw");
    applyturn(6);
    EXPECT_TRUE(showsmodel());
}

TEST_F(PictureUnderManager, FollowsButtonsKeysClicksAndMacros) {
    ASSERT_TRUE(showsmodel());
    vexel.setspeed(1);
    vexel.pushbutton("LScw", shift_key);
    applyturn(15);
    ASSERT_TRUE(showsmodel());
    vexel.altletter('r');
    applyturn(6);
    ASSERT_TRUE(showsmodel());
    vexel.clickview(0.6, 0.4, ctrl_key);
    applyturn(22);
    ASSERT_TRUE(showsmodel());
    vexel.pushbutton("Jumble Cube");
    jumblecube();
    ASSERT_TRUE(showsmodel());
    vexel.playmacro("RUf*L>B");
    domacro("RUf*L>B");
    ASSERT_TRUE(showsmodel());
    vexel.playmacro("R)");
    vexel.answer(XK_Return);
    vexel.choose("Reset Cube");
    initcubies();
    EXPECT_TRUE(showsmodel());
}

TEST_F(PictureUnderManager, KeepsItsSize) {
    ASSERT_TRUE(showsmodel());
    screen.resize(vexel.window(), 900, 700);
    screen.resize(vexel.window(), 300, 200);
    ASSERT_TRUE(vexel.waitquiet());
    const rectangle r = screen.place(vexel.window());
    EXPECT_EQ(r.w, windowwidth);
    EXPECT_EQ(r.h, windowheight);
    EXPECT_TRUE(showsmodel());
}
