// SPDX-License-Identifier: MIT
//
// collectorlayout: names and places of the collector's buttons. What is written where is seen in
// colorcollector_test.
#include "input/collectorlayout.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace collector {

namespace {

TEST(Collectorlayout, ButtonsAreNamedByFaceAndNumber) {
    for (unsigned place = 0; place < placecount; place++) {
        const std::string name = {"ULFRBD"[place / 9], static_cast<char>('1' + place % 9)};
        EXPECT_EQ(name, butnames[place].text);
    }
    EXPECT_STREQ("U1", butnames.front().text);
    EXPECT_STREQ("D9", butnames.back().text);
}

void expectarea(const area& is, int x, int y) {
    EXPECT_EQ(x, is.x);
    EXPECT_EQ(y, is.y);
    EXPECT_EQ(35, is.w);
    EXPECT_EQ(35, is.h);
}

TEST(Collectorlayout, FaceletsLieAsAnUnfoldedCube) {
    for (int row = 0; row < 3; row++) {
        for (int column = 0; column < 3; column++) {
            SCOPED_TRACE(3 * row + column);
            expectarea(faceletarea(3 * row + column), 135 + 40 * column, 35 + 40 * row);
            expectarea(faceletarea(45 + 3 * row + column), 135 + 40 * column, 285 + 40 * row);
        }
        for (int j = 0; j < 12; j++) { // L, F, R and B side by side
            SCOPED_TRACE(j);
            const int place = 9 * (1 + j / 3) + 3 * row + j % 3;
            expectarea(faceletarea(place), 10 + 40 * j + 5 * (j / 3), 160 + 40 * row);
        }
    }
}

TEST(Collectorlayout, ColoursLieInARowAtTheBottom) {
    for (int i = 0; i < cubefacecount; i++) {
        expectarea(colorarea(i), 260 + 40 * i, 420);
    }
}

bool apart(const area& a, const area& b) {
    return a.x + a.w <= b.x || b.x + b.w <= a.x || a.y + a.h <= b.y || b.y + b.h <= a.y;
}

TEST(Collectorlayout, NothingOverlapsOrLeavesTheDialog) {
    std::vector<area> all = {titlearea,      messagearea, colorhelparea,
                             selecthelparea, finisharea,  resetarea};
    all.push_back(fliparea);
    for (int place = 0; place < placecount; place++) {
        all.push_back(faceletarea(place));
    }
    for (int face = 0; face < cubefacecount; face++) {
        all.push_back(colorarea(face));
    }
    for (std::size_t i = 0; i < all.size(); i++) {
        EXPECT_TRUE(all[i].x >= 0 && all[i].x + all[i].w <= dialogwidth) << i;
        EXPECT_TRUE(all[i].y >= 0 && all[i].y + all[i].h <= dialogheight) << i;
        for (std::size_t j = 0; j < i; j++) {
            EXPECT_TRUE(apart(all[i], all[j])) << i << " and " << j;
        }
    }
}

TEST(Collectorlayout, PlaceOutsideTheCubeIsAnAssertion) {
    EXPECT_DEATH(static_cast<void>(faceletarea(54)), "place");
    EXPECT_DEATH(static_cast<void>(faceletarea(-1)), "place");
    EXPECT_DEATH(static_cast<void>(colorarea(6)), "face");
}

} // namespace

} // namespace collector
