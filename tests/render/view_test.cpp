// SPDX-License-Identifier: MIT
#include "model/turns.h"
#include "nullgl.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/rendertest.h"
#include "render/view.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

class View : public rendertest {};

struct click_row {
    const char* where;
    float fx, fy;
    int plain, alt, ctrl, both;
};

constexpr click_row clicks[] = {
    {"left",                     0.25F,  0.5F,   4,  14, 19, 7 },
    {"left, corner",             0.161F, 0.321F, 4,  14, 19, 7 },
    {"left, other corner",       0.349F, 0.619F, 4,  14, 19, 7 },
    {"front",                    0.6F,   0.4F,   8,  12, 22, 11},
    {"front, corner",            0.351F, 0.181F, 8,  12, 22, 11},
    {"front, other corner",      0.869F, 0.619F, 8,  12, 22, 11},
    {"up",                       0.5F,   0.8F,   0,  16, 20, 3 },
    {"up, corner",               0.351F, 0.701F, 0,  16, 20, 3 },
    {"up, other corner",         0.699F, 0.899F, 0,  16, 20, 3 },
    {"between left and front",   0.35F,  0.5F,   -1, -1, -1, -1},
    {"left of left",             0.16F,  0.5F,   -1, -1, -1, -1},
    {"below left",               0.25F,  0.32F,  -1, -1, -1, -1},
    {"above left",               0.25F,  0.62F,  -1, -1, -1, -1},
    {"right of front",           0.87F,  0.4F,   -1, -1, -1, -1},
    {"below front",              0.6F,   0.18F,  -1, -1, -1, -1},
    {"above front",              0.6F,   0.62F,  -1, -1, -1, -1},
    {"between front and up",     0.5F,   0.66F,  -1, -1, -1, -1},
    {"left of up",               0.35F,  0.8F,   -1, -1, -1, -1},
    {"right of up",              0.7F,   0.8F,   -1, -1, -1, -1},
    {"below up",                 0.5F,   0.7F,   -1, -1, -1, -1},
    {"above up",                 0.5F,   0.9F,   -1, -1, -1, -1},
    {"under left, beside front", 0.25F,  0.25F,  -1, -1, -1, -1},
    {"outside",                  -0.5F,  1.5F,   -1, -1, -1, -1},
};

TEST_F(View, ClickTurnsTheFaceOfItsRegion) {
    for (const click_row& row : clicks) {
        SCOPED_TRACE(row.where);
        EXPECT_EQ(clickturn(row.fx, row.fy, false, false), row.plain);
        EXPECT_EQ(clickturn(row.fx, row.fy, false, true), row.alt);
        EXPECT_EQ(clickturn(row.fx, row.fy, true, false), row.ctrl);
        EXPECT_EQ(clickturn(row.fx, row.fy, true, true), row.both);
    }
}

TEST_F(View, ClickThatIsNoNumberTurnsNothing) {
    EXPECT_EQ(clickturn(NAN, 0.5F, false, false), -1);
    EXPECT_EQ(clickturn(0.25F, NAN, false, false), -1);
}

TEST_F(View, ClickOnAMiddleStickerTurnsItsFace) {
    constexpr int middle[3] = {4, 13, 22};
    constexpr int codes[3] = {0, 4, 8};
    for (int i = 0; i < 3; i++) {
        const viewpoint at = lookat(middle[i]);
        const float fx = static_cast<float>(at.x / viewsize);
        const float fy = static_cast<float>(1 - at.y / viewsize);
        EXPECT_EQ(clickturn(fx, fy, false, false), codes[i]);
    }
}

TEST_F(View, EyeFillsTheWholeWidgetAndDropsTheOldMatrix) {
    Translatef(9, 9, 9);
    setupeye(300, 200);
    EXPECT_EQ(viewport[0], 0);
    EXPECT_EQ(viewport[1], 0);
    EXPECT_EQ(viewport[2], 300);
    EXPECT_EQ(viewport[3], 200);
    float p[3] = {1, 2, 0};
    getmatrix();
    xformvect(p);
    EXPECT_FLOAT_EQ(p[0], 4 * 1 / 32.0F);
    EXPECT_FLOAT_EQ(p[1], 4 * 2 / 32.0F);
}

TEST_F(View, NearPlaneIsAt4AndFarPlaneAt80) {
    setupeye(viewsize, viewsize);
    getmatrix();
    float nearest[3] = {0, 0, 28};
    float farthest[3] = {0, 0, -48};
    xformvect(nearest);
    xformvect(farthest);
    EXPECT_NEAR(nearest[2], -1, 1e-5);
    EXPECT_NEAR(farthest[2], 1, 1e-5);
}

TEST_F(View, CornersOfTheCubeAreSeenWhereTheTwinSeesThem) {
    setupeye(viewsize, viewsize);
    setupcube();
    getmatrix();
    for (int corner = 0; corner < 8; corner++) {
        const float p[3] = {(corner & 1) != 0 ? 3.0F : -3.0F, (corner & 2) != 0 ? 3.0F : -3.0F,
                            (corner & 4) != 0 ? 3.0F : -3.0F};
        expectseenasbytwin(p);
    }
}

TEST_F(View, StandardViewIsTheStillViewToTheLastDigit) {
    setupeye(viewsize, viewsize);
    setupcube();
    float m[4][4];
    standardview(m);
    EXPECT_TRUE(std::equal(currentmatrix, currentmatrix + 16, &m[0][0]));
}

// The matrix that the demo should have after it has turned by x and y degrees.
void spunmatrix(float x, float y, float* m) {
    LoadIdentity();
    Rotatef(25, 1, 0, 0);
    Rotatef(25, 0, 1, 0);
    Rotatef(x, 1, 0, 0);
    Rotatef(y, 0, 1, 0);
    Scalef(1.5F, 1.5F, 1.5F);
    readmatrix(m);
}

void expectspun(float x, float y) {
    float wanted[16];
    spunmatrix(x, y, wanted);
    LoadIdentity();
    setupcube();
    for (int i = 0; i < 16; i++) {
        EXPECT_NEAR(currentmatrix[i], wanted[i], 2e-5) << i;
    }
}

TEST_F(View, DemoSpinsBy24And51DegreesOverTheFramesOfATurn) {
    TURNTIME = 10;
    demomode = 1;
    expectspun(0, 0); // each frame shows the angles before it adds to them
    expectspun(2.4F, 5.16F);
    expectspun(4.8F, 10.32F);
    TURNTIME = 100;
    expectspun(7.2F, 15.48F);
    expectspun(7.44F, 15.996F);
}

TEST_F(View, FirstFrameAfterADemoIsTheStandardView) {
    TURNTIME = 10;
    demomode = 1;
    setupcube();
    setupcube();
    demomode = 0;
    expectspun(0, 0);
    demomode = 1;
    expectspun(0, 0); // and the next demo starts from there
    expectspun(2.4F, 5.16F);
}

TEST_F(View, LongDemoStaysFinite) {
    TURNTIME = 1;
    demomode = 1;
    for (int i = 0; i < 100000; i++) {
        LoadIdentity();
        setupcube();
    }
    EXPECT_TRUE(std::all_of(currentmatrix, currentmatrix + 16,
                            [](float v) { return std::abs(v) < 1.51F; }));
}

} // namespace
