// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "nullgl.h"
#include "render/animation.h"
#include "render/cubies.h"
#include "render/projection.h"
#include "viewpoints.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

// The identity keeps the records in model space.
class Cubies : public testing::Test {
  protected:
    void SetUp() override {
        initcubies();
        initnullgl();
        initdrawface();
        facelistcount = 0;
        getmatrix();
    }
};

void expectcorners(const listface* face, const float (&wanted)[4][3]) {
    for (int i = 0; i < 4; i++) {
        for (int axis = 0; axis < 3; axis++) {
            EXPECT_FLOAT_EQ(face->corner[i][axis], wanted[i][axis]) << i << " " << axis;
        }
    }
}

modelpoint centerof(const listface* face) {
    modelpoint c = {0, 0, 0};
    for (const auto& corner : face->corner) {
        c.x += corner[0] / 4;
        c.y += corner[1] / 4;
        c.z += corner[2] / 4;
    }
    return c;
}

struct named_cubie {
    const char* name;
    void (*draw)();
    cubie id;
};

constexpr named_cubie named[] = {
    {"F",   drawF,   cubie::F  },
    {"B",   drawB,   cubie::B  },
    {"R",   drawR,   cubie::R  },
    {"L",   drawL,   cubie::L  },
    {"U",   drawU,   cubie::U  },
    {"D",   drawD,   cubie::D  },
    {"UFL", drawUFL, cubie::UFL},
    {"UFR", drawUFR, cubie::UFR},
    {"UBL", drawUBL, cubie::UBL},
    {"UBR", drawUBR, cubie::UBR},
    {"DFR", drawDFR, cubie::DFR},
    {"DFL", drawDFL, cubie::DFL},
    {"DBL", drawDBL, cubie::DBL},
    {"DBR", drawDBR, cubie::DBR},
    {"UF",  drawUF,  cubie::UF },
    {"UB",  drawUB,  cubie::UB },
    {"UR",  drawUR,  cubie::UR },
    {"UL",  drawUL,  cubie::UL },
    {"RF",  drawRF,  cubie::RF },
    {"LF",  drawLF,  cubie::LF },
    {"RB",  drawRB,  cubie::RB },
    {"LB",  drawLB,  cubie::LB },
    {"DF",  drawDF,  cubie::DF },
    {"DB",  drawDB,  cubie::DB },
    {"DR",  drawDR,  cubie::DR },
    {"DL",  drawDL,  cubie::DL },
};

std::string sortedletters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return std::toupper(c); });
    std::sort(text.begin(), text.end());
    return text;
}

// The centre of the cell of a cubie, from the letters of its name.
modelpoint cellof(const std::string& name) {
    const auto side = [&](char plus, char minus) {
        return 2.0 * static_cast<double>(std::count(name.begin(), name.end(), plus) -
                                         std::count(name.begin(), name.end(), minus));
    };
    return {side('R', 'L'), side('U', 'D'), side('F', 'B')};
}

double distance(modelpoint a, modelpoint b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

TEST_F(Cubies, FaceAcrossXHasItsBackingAndSticker) {
    xface(3, -1, 1, 30);
    ASSERT_EQ(facelistcount, 2);
    EXPECT_EQ(facelist[0]->key, -1);
    expectcorners(facelist[0], {
                                   {3, -1, 1},
                                   {3, 1,  1},
                                   {3, 1,  3},
                                   {3, -1, 3}
    });
    EXPECT_EQ(facelist[1]->key, 30);
    expectcorners(facelist[1], {
                                   {3.005F, -0.92F, 1.08F},
                                   {3.005F, 0.92F,  1.08F},
                                   {3.005F, 0.92F,  2.92F},
                                   {3.005F, -0.92F, 2.92F}
    });
}

TEST_F(Cubies, FaceAcrossYHasItsBackingAndSticker) {
    yface(-3, 3, 1, 6);
    ASSERT_EQ(facelistcount, 2);
    EXPECT_EQ(facelist[0]->key, -1);
    expectcorners(facelist[0], {
                                   {-3, 3, 1},
                                   {-1, 3, 1},
                                   {-1, 3, 3},
                                   {-3, 3, 3}
    });
    EXPECT_EQ(facelist[1]->key, 6);
    expectcorners(facelist[1], {
                                   {-2.92F, 3.005F, 1.08F},
                                   {-1.08F, 3.005F, 1.08F},
                                   {-1.08F, 3.005F, 2.92F},
                                   {-2.92F, 3.005F, 2.92F}
    });
}

TEST_F(Cubies, FaceAcrossZHasItsBackingAndSticker) {
    zface(1, -3, 3, 26);
    ASSERT_EQ(facelistcount, 2);
    EXPECT_EQ(facelist[0]->key, -1);
    expectcorners(facelist[0], {
                                   {1, -3, 3},
                                   {1, -1, 3},
                                   {3, -1, 3},
                                   {3, -3, 3}
    });
    EXPECT_EQ(facelist[1]->key, 26);
    expectcorners(facelist[1], {
                                   {1.08F, -2.92F, 3.005F},
                                   {1.08F, -1.08F, 3.005F},
                                   {2.92F, -1.08F, 3.005F},
                                   {2.92F, -2.92F, 3.005F}
    });
}

TEST_F(Cubies, StickerOfANegativePlaneIsLiftedTheOtherWay) {
    xface(-3, 0, 0, 13);
    yface(0, -1, 0, -1);
    zface(0, 0, -3, 40);
    EXPECT_FLOAT_EQ(facelist[1]->corner[0][0], -3.005F);
    EXPECT_FLOAT_EQ(facelist[3]->corner[0][1], -1.005F);
    EXPECT_FLOAT_EQ(facelist[5]->corner[0][2], -3.005F);
}

TEST_F(Cubies, CenterCornerAndEdgeHaveTwoSixAndEightRecords) {
    for (const named_cubie& row : named) {
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        row.draw();
        EXPECT_EQ(facelistcount, std::string(row.name).size() == 1   ? 2
                                 : std::string(row.name).size() == 2 ? 8
                                                                     : 6);
    }
}

TEST_F(Cubies, EachHasThePlacesOfTheFacesInItsName) {
    for (const named_cubie& row : named) {
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        row.draw();
        int stickers = 0;
        for (int i = 0; i < facelistcount; i++) {
            const int key = facelist[i]->key;
            if (key != -1) {
                stickers++;
                EXPECT_EQ(sortedletters(facenames[key]), sortedletters(row.name));
            }
        }
        EXPECT_EQ(stickers, static_cast<int>(std::string(row.name).size()));
    }
}

TEST_F(Cubies, NameAndEnumeratorAreTheSameCubie) {
    for (const named_cubie& row : named) {
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        drawcubie(row.id);
        const int firstkey = facelist[1]->key;
        facelistcount = 0;
        row.draw();
        EXPECT_EQ(facelist[1]->key, firstkey);
    }
}

TEST_F(Cubies, AllSquaresLieOnTheirCubiesCell) {
    for (const named_cubie& row : named) {
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        row.draw();
        for (int i = 0; i < facelistcount; i += 2) {
            EXPECT_NEAR(distance(centerof(facelist[i]), cellof(row.name)), 1, 1e-6);
        }
    }
}

// The squares of one cubie are different sides of its cell, and an edge's black ones face the
// corners beside it.
TEST_F(Cubies, EdgesCloseTheirTwoInnerSides) {
    for (const named_cubie& row : named) {
        if (std::string(row.name).size() != 2) {
            continue;
        }
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        row.draw();
        for (int i = 4; i < 8; i++) {
            EXPECT_EQ(facelist[i]->key, -1);
        }
        const modelpoint cell = cellof(row.name);
        const modelpoint a = centerof(facelist[4]);
        const modelpoint b = centerof(facelist[6]);
        EXPECT_NEAR(distance(a, b), 2, 1e-6); // opposite sides of the cell
        EXPECT_NEAR(cell.x * (a.x - cell.x) + cell.y * (a.y - cell.y) + cell.z * (a.z - cell.z), 0,
                    1e-6); // across the line from the cube's centre
    }
}

// That the sticker of key lies just outside its place, and its backing exactly on it.
void expectatplace(int key, const listface* backing, const listface* sticker) {
    SCOPED_TRACE(key);
    const modelpoint on = stickercenter(key);
    const modelpoint out = centerof(sticker);
    EXPECT_NEAR(distance(on, centerof(backing)), 0, 1e-6);
    EXPECT_NEAR(distance(on, out), 0.005, 1e-6);
    EXPECT_GT(std::hypot(out.x, out.y, out.z), std::hypot(on.x, on.y, on.z));
}

TEST_F(Cubies, WholeCubeHasEachPlaceOnceWhereItsFaceSaysIt) {
    drawcubegeneric();
    ASSERT_EQ(facelistcount, 156);
    std::multiset<int> places;
    for (int i = 0; i < facelistcount; i += 2) {
        const int key = facelist[i + 1]->key;
        if (key != -1) {
            places.insert(key);
            expectatplace(key, facelist[i], facelist[i + 1]);
        }
    }
    EXPECT_EQ(places.size(), 54U);
    EXPECT_EQ(std::set<int>(places.begin(), places.end()).size(), 54U);
}

TEST_F(Cubies, CountIsNoCubie) {
    EXPECT_DEATH(drawcubie(cubie::count), "cubie");
}

} // namespace
