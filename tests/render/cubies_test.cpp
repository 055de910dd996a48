// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "render/animation.h"
#include "render/cubies.h"
#include "render/projection.h"
#include "render/rendertables.h"
#include "render/rendertest.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

class Cubies : public rendertest {};

void expectcorners(const listface* face, const float (&wanted)[4][3]) {
    for (int i = 0; i < 4; i++) {
        for (int axis = 0; axis < 3; axis++) {
            EXPECT_FLOAT_EQ(face->corner[i][axis], wanted[i][axis]) << i << " " << axis;
        }
    }
}

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

// The two records of a square: its backing and its sticker, where the table has it.
void expectsquare(int first, const table_square& square) {
    const modelpoint on = squarecenter(square);
    EXPECT_EQ(facelist[first]->key, -1);
    EXPECT_EQ(facelist[first + 1]->key, square.key);
    EXPECT_LT(distance(centerof(facelist[first]), on), 1e-6);
    EXPECT_NEAR(distance(centerof(facelist[first + 1]), on), 0.005, 1e-6);
}

TEST_F(Cubies, EachEmitsItsSquaresInTheirOrder) {
    for (const table_cubie& row : cubietable) {
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        row.draw();
        ASSERT_EQ(facelistcount, 2 * row.squares);
        for (int i = 0; i < row.squares; i++) {
            expectsquare(2 * i, row.square[i]);
        }
    }
}

TEST_F(Cubies, CenterCornerAndEdgeHaveTwoSixAndEightRecords) {
    constexpr int records[] = {2, 8, 6}; // by the length of the name
    for (const table_cubie& row : cubietable) {
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        row.draw();
        EXPECT_EQ(facelistcount, records[std::string(row.name).size() - 1]);
    }
}

TEST_F(Cubies, EachHasThePlacesOfTheFacesInItsName) {
    for (const table_cubie& row : cubietable) {
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

// Enumerators and names stand in one order.
TEST_F(Cubies, NameAndEnumeratorAreTheSameCubie) {
    for (int id = 0; id < cubiecount; id++) {
        const table_cubie& row = cubietable[id];
        SCOPED_TRACE(row.name);
        facelistcount = 0;
        drawcubie(static_cast<cubie>(id));
        ASSERT_EQ(facelistcount, 2 * row.squares);
        for (int i = 0; i < row.squares; i++) {
            expectsquare(2 * i, row.square[i]);
        }
    }
}

TEST_F(Cubies, AllSquaresLieOnTheirCubiesCell) {
    for (const table_cubie& row : cubietable) {
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
    for (const table_cubie& row : cubietable) {
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
