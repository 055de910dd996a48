// SPDX-License-Identifier: MIT
//
// standardview: its matrix. That it is the one of the view, to the last digit, is held by view_test
// and over the real OpenGL by cube_box_test. This program links no OpenGL and no twin of it.
#include "render/standardview.h"
#include "viewpoints.h"

#include <gtest/gtest.h>

namespace {

TEST(Standardview, CornersOfTheCubeAreSeenWhereTheTwinSeesThem) {
    float m[4][4];
    standardview(m);
    for (int corner = 0; corner < 8; corner++) {
        const float x = (corner & 1) != 0 ? 3.0F : -3.0F;
        const float y = (corner & 2) != 0 ? 3.0F : -3.0F;
        const float z = (corner & 4) != 0 ? 3.0F : -3.0F;
        const auto row = [&](int r) { return m[0][r] * x + m[1][r] * y + m[2][r] * z + m[3][r]; };
        const viewpixel wanted = project({x, y, z}, false, 2);
        EXPECT_NEAR(row(0) / row(3) + 1, wanted.x, 1e-6);
        EXPECT_NEAR(1 - row(1) / row(3), wanted.y, 1e-6);
    }
}

// A point 4 in front of the eye lies on the near plane, one 80 in front of it on the far plane. The
// line of sight goes through the cube's centre.
TEST(Standardview, DepthGoesFromTheNearToTheFarPlane) {
    float m[4][4];
    standardview(m);
    EXPECT_NEAR(m[3][3], 32, 1e-5); // the distance of the centre
    EXPECT_NEAR(m[3][2] / m[3][3], 84.0 / 76 - 640.0 / 76 / 32, 1e-6);
    EXPECT_NEAR(m[3][0], 0, 1e-6);
    EXPECT_NEAR(m[3][1], 0, 1e-6);
}

TEST(Standardview, StepsOfTheEyeAndOfTheTiltComeInThisOrder) {
    EXPECT_EQ(viewsteps[eyesteps - 1].move, viewmove::shift);
    EXPECT_EQ(viewsteps[eyesteps].move, viewmove::tilt);
    EXPECT_EQ(viewsteps[eyesteps + tiltsteps - 1].move, viewmove::tilt);
    EXPECT_EQ(viewsteps[eyesteps + tiltsteps].move, viewmove::enlargement);
}

} // namespace
