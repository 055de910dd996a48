// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "nullgl.h"
#include "render/cubies.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/rendertest.h"
#include "render/view.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <set>
#include <vector>

namespace {

constexpr float unitsquare[4][3] = {
    {0, 0, 0},
    {0, 1, 0},
    {1, 1, 0},
    {1, 0, 0}
};

void adddepth(float depth) {
    addface(-1, unitsquare);
    facelist[facelistcount - 1]->depth = depth;
}

void fill() {
    while (facelistcount < facelimit) {
        addface(-1, unitsquare);
    }
}

class Projection : public rendertest {};

TEST_F(Projection, ListHas400Records) {
    const std::set<listface*> distinct(facelist, facelist + facelimit);
    EXPECT_EQ(distinct.size(), 400U);
    EXPECT_EQ(distinct.count(nullptr), 0U);
}

TEST_F(Projection, SecondInitGivesTheSameRecords) {
    const std::set<listface*> before(facelist, facelist + facelimit);
    initdrawface();
    EXPECT_EQ(before, std::set<listface*>(facelist, facelist + facelimit));
}

TEST_F(Projection, RecordBeyondTheLastIsAnAssertion) {
    fill();
    EXPECT_DEATH(addface(-1, unitsquare), "facelistcount");
}

TEST_F(Projection, FartherComesFirst) {
    adddepth(0.5F);
    adddepth(0.25F);
    EXPECT_EQ(compdepth(&facelist[0], &facelist[1]), -1);
    EXPECT_EQ(compdepth(&facelist[1], &facelist[0]), 1);
}

TEST_F(Projection, EqualDepthsCompareAsZero) {
    adddepth(0.5F);
    adddepth(0.5F);
    EXPECT_EQ(compdepth(&facelist[0], &facelist[1]), 0);
    adddepth(0.0F);
    adddepth(-0.0F);
    EXPECT_EQ(compdepth(&facelist[2], &facelist[3]), 0);
}

TEST_F(Projection, DepthThatIsNoNumberComparesAsZero) {
    adddepth(std::numeric_limits<float>::quiet_NaN());
    adddepth(0.5F);
    EXPECT_EQ(compdepth(&facelist[0], &facelist[1]), 0);
    EXPECT_EQ(compdepth(&facelist[1], &facelist[0]), 0);
    EXPECT_EQ(compdepth(&facelist[0], &facelist[0]), 0);
}

TEST_F(Projection, PointIsDividedByItsW) {
    const float m[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    std::copy(m, m + 16, glmat);
    float p[3] = {1, 2, 3};
    xformvect(p);
    EXPECT_FLOAT_EQ(p[0], (1 + 10 + 27 + 13) / (4 + 16 + 36 + 16.0F));
    EXPECT_FLOAT_EQ(p[1], (2 + 12 + 30 + 14) / (4 + 16 + 36 + 16.0F));
    EXPECT_FLOAT_EQ(p[2], (3 + 14 + 33 + 15) / (4 + 16 + 36 + 16.0F));
}

TEST_F(Projection, AgreesWithTheDoublePrecisionTwin) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> within(-3, 3);
    setupeye(viewsize, viewsize);
    setupcube();
    getmatrix();
    for (int i = 0; i < 1000; i++) {
        const float p[3] = {within(random), within(random), within(random)};
        expectseenasbytwin(p);
    }
}

// Depth in device coordinates of a point at distance d: (f + n) / (f - n) - 2fn / ((f - n) d).
TEST_F(Projection, DepthIsThatOfTheUntransformedCenter) {
    setupeye(viewsize, viewsize);
    getmatrix();
    const float corners[4][3] = {
        {-3, -3, -9},
        {3,  -3, -9},
        {3,  3,  15},
        {-3, 3,  15}
    };
    addface(5, corners); // tilted: its centre is at z = 3, 29 units from the eye
    EXPECT_NEAR(facelist[0]->depth, 84.0 / 76 - 640.0 / 76 / 29, 1e-6);
    EXPECT_NE(facelist[0]->corner[0][2], facelist[0]->depth);
}

TEST_F(Projection, DepthGrowsAwayFromTheViewer) {
    setupeye(viewsize, viewsize);
    getmatrix();
    zface(0, 0, -3, -1);
    zface(0, 0, 3, -1);
    EXPECT_GT(facelist[0]->depth, facelist[2]->depth);
    EXPECT_LT(facelist[1]->depth, 1);
    EXPECT_GT(facelist[3]->depth, -1);
}

TEST_F(Projection, LaterMatrixDoesNotMoveARecord) {
    xface(3, -1, -1, 31);
    const listface before = *facelist[1];
    Rotatef(30, 1, 1, 0);
    Translatef(5, 5, 5);
    getmatrix();
    xface(3, -1, -1, 31);
    EXPECT_TRUE(
        std::equal(&before.corner[0][0], &before.corner[0][0] + 12, &facelist[1]->corner[0][0]));
    EXPECT_EQ(before.depth, facelist[1]->depth);
    EXPECT_NE(before.corner[0][0], facelist[3]->corner[0][0]);
}

TEST_F(Projection, GetmatrixReadsTheCurrentMatrix) {
    Translatef(2, 3, 4);
    EXPECT_EQ(glmat[12], 0);
    getmatrix();
    EXPECT_EQ(glmat[12], 2);
    EXPECT_EQ(glmat[13], 3);
    EXPECT_EQ(glmat[14], 4);
}

TEST_F(Projection, PaintsFromTheFarthestToTheNearest) {
    std::mt19937 random(2);
    for (int n : {0, 1, 2, 3, 17, 156, 312, 400}) {
        SCOPED_TRACE(n);
        facelistcount = 0;
        paintedcount = 0;
        for (int i = 0; i < n; i++) {
            adddepth(static_cast<float>(random() % 200)); // with equal ones among them
        }
        std::multiset<listface*> before(facelist, facelist + n);
        nongldisplay();
        EXPECT_EQ(paintedcount, n);
        EXPECT_EQ(before, std::multiset<listface*>(facelist, facelist + n));
        for (int i = 1; i < n; i++) {
            EXPECT_GE(facelist[i - 1]->depth, facelist[i]->depth);
            EXPECT_LE(compdepth(&facelist[i - 1], &facelist[i]), 0);
        }
    }
}

// Any order of records and numbers: those that are no numbers first, then from far to near.
TEST_F(Projection, DepthsThatAreNoNumbersArePaintedFirst) {
    std::mt19937 random(3);
    for (int i = 0; i < facelimit; i++) {
        adddepth(random() % 3 == 0 ? std::numeric_limits<float>::quiet_NaN()
                                   : static_cast<float>(random() % 100));
    }
    nongldisplay();
    EXPECT_EQ(paintedcount, facelimit);
    EXPECT_EQ(std::set<listface*>(facelist, facelist + facelimit).size(), 400U);
    const auto strange = [](const listface* face) { return std::isnan(face->depth); };
    EXPECT_TRUE(std::is_partitioned(facelist, facelist + facelimit, strange));
    EXPECT_TRUE(std::is_sorted(
        std::find_if_not(facelist, facelist + facelimit, strange), facelist + facelimit,
        [](const listface* a, const listface* b) { return a->depth > b->depth; }));
}

TEST_F(Projection, InfiniteDepthsStandAtTheEnds) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const float depth : {-infinity, 1.0F, infinity, -3e38F, 3e38F}) {
        adddepth(depth);
    }
    nongldisplay();
    EXPECT_EQ(facelist[0]->depth, infinity);
    EXPECT_EQ(facelist[4]->depth, -infinity);
}

// Also when the frame before was painted in another order: the records of a frame begin anew.
TEST_F(Projection, EquallyDeepFacesArePaintedAsTheyWereEmitted) {
    for (const int n : {2, 17, 156, 400}) {
        SCOPED_TRACE(n);
        facelistcount = 0;
        for (int i = 0; i < n; i++) {
            adddepth(static_cast<float>(i)); // painted backwards
        }
        nongldisplay();
        facelistcount = 0;
        paintedcount = 0;
        for (int i = 0; i < n; i++) {
            adddepth(0.5F);
            facelist[i]->corner[0][0] = static_cast<float>(i);
        }
        nongldisplay();
        for (int i = 0; i < n; i++) {
            ASSERT_EQ(paintedlist[i].x[0], static_cast<float>(i));
        }
    }
}

void expectsquare(const painted& p, const painted& wanted) {
    EXPECT_TRUE(p.r == wanted.r && p.g == wanted.g && p.b == wanted.b);
    for (int i = 0; i < 4; i++) {
        EXPECT_FLOAT_EQ(p.x[i], wanted.x[i]);
        EXPECT_FLOAT_EQ(p.y[i], wanted.y[i]);
    }
}

TEST_F(Projection, PaintsTheCornersInTheirOrderAndColor) {
    zface(-1, -1, 3, 22); // the backing is nearer to nobody: the identity looks along +z
    nongldisplay();
    ASSERT_EQ(paintedcount, 2);
    const painted& sticker = paintedlist[0].r == 1 ? paintedlist[0] : paintedlist[1];
    expectsquare(sticker,
                 {
                     1, 0, 0, {-0.92F, -0.92F, 0.92F, 0.92F },
                        {-0.92F, 0.92F,  0.92F, -0.92F}
    });
}

TEST_F(Projection, PaintingPutsTheMatrixBack) {
    Translatef(1, 2, 3);
    zface(-1, -1, 3, 22);
    nongldisplay();
    EXPECT_EQ(matrixdepth, 0);
    EXPECT_EQ(currentmatrix[12], 1);
}

TEST_F(Projection, PaintingAgainPaintsTheSame) {
    setupeye(viewsize, viewsize);
    setupcube();
    getmatrix();
    for (int i = 0; i < cubiecount; i++) {
        drawcubie(static_cast<cubie>(i));
    }
    nongldisplay();
    nongldisplay();
    ASSERT_EQ(paintedcount, 312);
    for (int i = 0; i < 156; i++) {
        EXPECT_EQ(paintedlist[i].x[0], paintedlist[i + 156].x[0]);
        EXPECT_EQ(paintedlist[i].y[0], paintedlist[i + 156].y[0]);
        EXPECT_EQ(paintedlist[i].r, paintedlist[i + 156].r);
    }
}

// Seen from the front a sticker is painted over its backing, seen from behind under it.
TEST_F(Projection, StickerLiesOverItsBackingOnTheViewersSideOnly) {
    setupeye(viewsize, viewsize);
    getmatrix();
    zface(-1, -1, 3, 22);
    nongldisplay();
    EXPECT_EQ(paintedat(0, 0)->r, 1);
    facelistcount = 0;
    zface(-1, -1, -3, 40);
    nongldisplay();
    EXPECT_EQ(paintedat(0, 0)->r, 0);
}

} // namespace
