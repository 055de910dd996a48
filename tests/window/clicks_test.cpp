// SPDX-License-Identifier: MIT
//
// Clicks on the view: three regions, eight combinations of the modifier keys, and their bounds.
#include "window/windowtest.h"

namespace {

class Clicks : public windowtest {
  protected:
    Clicks() { vexel.setspeed(1); }
};

constexpr struct {
    const char* name;
    double fx, fy;
    int codes[4]; // ORDER TURN: plain, Alt, Ctrl, Ctrl and Alt
} regions[] = {
    {"left",  0.25, 0.45, {4, 14, 19, 7} },
    {"front", 0.60, 0.40, {8, 12, 22, 11}},
    {"up",    0.50, 0.80, {0, 16, 20, 3} },
};

// Positions in the view as the toolkit tells them; the bounds are reckoned from (2, 24). None of
// them falls on a pixel in a view of 436, so each is pinned by the pixels beside it.
constexpr struct {
    const char* name;
    int x, y;
    int code; // -1 for none
} edges[] = {
    {"left of the left face",          71,  250, -1},
    {"first column of the left face",  72,  250, 4 },
    {"last column of the left face",   154, 250, 4 },
    {"first column of the front face", 155, 250, 8 },
    {"last column of the front face",  381, 250, 8 },
    {"right of the front face",        382, 250, -1},
    {"above the front face",           250, 189, -1},
    {"first row of the front face",    250, 190, 8 },
    {"last row of the front face",     250, 381, 8 },
    {"below the front face",           250, 382, -1},
    {"above the left face",            100, 189, -1},
    {"first row of the left face",     100, 190, 4 },
    {"last row of the left face",      100, 320, 4 },
    {"below the left face",            100, 321, -1},
    {"left of the up face",            154, 100, -1},
    {"first column of the up face",    155, 100, 0 },
    {"last column of the up face",     307, 100, 0 },
    {"right of the up face",           308, 100, -1},
    {"above the up face",              200, 67,  -1},
    {"first row of the up face",       200, 68,  0 },
    {"last row of the up face",        200, 154, 0 },
    {"below the up face",              200, 155, -1},
    {"on the rear view",               385, 50,  -1},
    {"top left corner",                0,   0,   -1},
    {"bottom right corner",            435, 435, -1},
};

} // namespace

TEST_F(Clicks, RegionsTurnUnderEveryCombinationOfModifiers) {
    domacro("RUfLdB");
    vexel.playmacro("RUfLdB");
    ASSERT_TRUE(showsmodel());
    for (const auto& [name, fx, fy, codes] : regions) {
        for (int combination = 0; combination < 8; combination++) {
            const int keys = (combination & 1) * alt_key + (combination >> 1 & 1) * ctrl_key;
            const int shift = (combination >> 2 & 1) * shift_key;
            SCOPED_TRACE(std::string(name) + " " + std::to_string(combination));
            vexel.clickview(fx, fy, keys | shift);
            const int code = codes[combination & 3];
            applyturn(shift != 0 ? inversemove[code] : code);
            ASSERT_TRUE(showsmodel());
        }
    }
}

// Window managers that keep Alt with a click for themselves leave this.
TEST_F(Clicks, SuperCountsAsAlt) {
    for (const auto& [name, fx, fy, codes] : regions) {
        SCOPED_TRACE(name);
        for (const int more : {0, static_cast<int>(ctrl_key), static_cast<int>(shift_key)}) {
            vexel.clickview(fx, fy, super_key | more);
            const int code = codes[more == ctrl_key ? 3 : 1];
            applyturn(more == shift_key ? inversemove[code] : code);
            ASSERT_TRUE(showsmodel());
        }
    }
}

TEST_F(Clicks, BoundsLieBetweenThesePixels) {
    for (const auto& [name, x, y, code] : edges) {
        SCOPED_TRACE(name);
        vexel.clickpixel(x, y);
        if (code >= 0) {
            applyturn(code);
        } else {
            ASSERT_TRUE(vexel.waitquiet());
        }
        ASSERT_TRUE(showsmodel());
    }
}

TEST_F(Clicks, EveryMouseButtonTurnsAtThePress) {
    const rectangle r = screen.place(vexel.view());
    for (int number : {1, 2, 3}) {
        SCOPED_TRACE(number);
        screen.movemouse(r.x + 250, r.y + 300);
        screen.button(number, true);
        applyturn(8);
        EXPECT_TRUE(showsmodel()); // while it is still down
        screen.movemouse(r.x + 100, r.y + 250);
        screen.button(number, false);
        ASSERT_TRUE(vexel.waitquiet());
        EXPECT_TRUE(showsmodel());
    }
}
