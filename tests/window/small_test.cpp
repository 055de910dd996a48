// SPDX-License-Identifier: MIT
//
// Screens that are smaller than the window was laid out for.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <algorithm>

namespace {

class SmallScreen : public windowtest {
  protected:
    explicit SmallScreen(int width = 640, int height = 480)
        : windowtest({.windowmanager = true, .width = width, .height = height}) {}

    // Each of the 24 turn buttons and each region of the view turns what it says.
    void expecteverycontrol() {
        vexel.setspeed(1);
        expectbuttonsturn();
        vexel.clickview(0.6, 0.4);
        applyturn(8);
        ASSERT_TRUE(showsmodel());
        vexel.playmacro("RUf");
        domacro("RUf");
        ASSERT_TRUE(showsmodel());
        vexel.pushbutton("Reset Cube");
        initcubies();
        ASSERT_TRUE(showsmodel());
    }

    // A message with a long word in it lies on the screen, button and all.
    void expectlongname(int width, int height) {
        vexel.choose("Dump Macro File");
        vexel.waitdialog();
        screen.type(std::string(1003, 'W') + "\n");
        ASSERT_TRUE(waitfor(20, [this] {
            return vexel.dialog() != 0 &&
                   screen.title(vexel.dialog()).find("Save") == std::string::npos;
        }));
        const rectangle r = screen.place(vexel.waitdialog());
        SCOPED_TRACE(vexel.keeppicture("long-name"));
        EXPECT_GE(r.x, 0);
        EXPECT_GE(r.y, 0);
        EXPECT_LE(r.x + r.w, width);
        EXPECT_LE(r.y + r.h, height);
        screen.press(XK_Return);
        EXPECT_TRUE(vexel.waitnodialog());
    }

    // The rows of the legend, the lowest thing in the window, are written inside of it.
    void expectlegend() const {
        const picture legend = vexel.part(
            {legendplace.x + 4, legendplace.y + 40, legendplace.w - 8, legendplace.h - 44});
        EXPECT_LT(legend.count(legend.commonest()), legend.w() * legend.h());
    }
};

class NetbookScreen : public SmallScreen {
  protected:
    NetbookScreen() : SmallScreen(1024, 600) {}
};

} // namespace

TEST_F(SmallScreen, HoldsTheWholeWindowAndEveryControlWorks) {
    const rectangle r = screen.place(vexel.window());
    EXPECT_GE(r.x, 0);
    EXPECT_GE(r.y, 0);
    EXPECT_LE(r.x + r.w, 640);
    EXPECT_LE(r.y + r.h, 480);
    EXPECT_GT(r.w, 600); // no smaller than need be
    expecteverycontrol();
    expectlegend();
}

TEST_F(NetbookScreen, ShowsTheWindowInFull) {
    const rectangle r = screen.place(vexel.window());
    EXPECT_EQ(r.w, windowwidth);
    EXPECT_EQ(r.h, windowheight);
    EXPECT_LE(r.x + r.w, 1024);
    EXPECT_LE(r.y + r.h, 600);
}

TEST_F(SmallScreen, ALongNameInAMessageFits) {
    expectlongname(640, 480);
}

TEST_F(NetbookScreen, ALongNameInAMessageFits) {
    expectlongname(1024, 600);
}

TEST_F(SmallScreen, EveryDialogFitsAndCloses) {
    vexel.pushbutton("Jumble Cube"); // for a long report
    ASSERT_TRUE(vexel.waitquiet());
    for (const char* entry : {"Display Permutation", "Set Cube Colors", "About Vexel",
                              "Load Macro File", "Dump Macro File", "Set Cube Speed"}) {
        SCOPED_TRACE(entry);
        vexel.choose(entry);
        const rectangle r = screen.place(vexel.waitdialog());
        EXPECT_GE(r.x, 0);
        EXPECT_GE(r.y, 0);
        EXPECT_LE(r.x + r.w, 640);
        EXPECT_LE(r.y + r.h, 480);
        screen.press(XK_Escape);
        ASSERT_TRUE(vexel.waitnodialog());
    }
}

// Without a manager nobody keeps the window at its least size.
TEST(SmallWindow, ShrinksAndGrowsWithAllThatIsInIt) {
    xserver screen;
    const program vexel(screen);
    initcubies();
    for (const auto& [w, h] : {
             std::pair(600, 462), {735, 300},
               {500, 400},
               {735, 462}
    }) {
        SCOPED_TRACE(testing::Message() << w << " x " << h);
        screen.resize(vexel.window(), w, h);
        const int side = static_cast<int>(436 * std::min({1.0, w / 735.0, h / 462.0}));
        EXPECT_TRUE(waitfor(10, [&] { return screen.place(vexel.view()).w == side; }));
        EXPECT_EQ(screen.place(vexel.view()).h, side);
        const verdict seen = vexel.waitforcube(cubecolors);
        EXPECT_TRUE(seen.good) << seen.why;
    }
}
