// SPDX-License-Identifier: MIT
//
// coloring: names, places and colours of the collector's buttons, selection, entries and verdicts.
#include "input/coloring.h"
#include "model/turns.h"
#include "nullshell.h"
#include "solver/cubecheck.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using namespace collector;

namespace {

class Coloring : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        initcubies();
        std::strcpy(colortable, "WGRBOY");
        setrgbfacecolors();
        init();
        currentface = 0;
    }

    static std::string colors() { return {std::begin(cubecolors), std::end(cubecolors)}; }

    static std::string verdict() {
        std::string text;
        judge(text);
        return text;
    }

    static void dotwist() {
        for (int code : {0, 6, 12, 19}) {
            applyturn(code);
        }
    }
};

TEST_F(Coloring, ButtonsAreNamedByFaceAndNumber) {
    for (unsigned place = 0; place < placecount; place++) {
        const std::string name = {faces[place / 9], static_cast<char>('1' + place % 9)};
        EXPECT_EQ(name, butnames[place].text);
    }
    EXPECT_STREQ("U1", butnames.front().text);
    EXPECT_STREQ("D9", butnames.back().text);
}

struct spot_row {
    int place, x, y;
};

TEST_F(Coloring, FaceletsLieAsAnUnfoldedCube) {
    constexpr spot_row rows[] = {
        {0,  135, 35 }, // the corners of each face
        {8,  215, 115},
        {9,  10,  160},
        {17, 90,  240},
        {18, 135, 160},
        {26, 215, 240},
        {27, 260, 160},
        {35, 340, 240},
        {36, 385, 160},
        {44, 465, 240},
        {45, 135, 285},
        {53, 215, 365},
        {5,  215, 75 },
        {7,  175, 115},
    };
    for (const spot_row& row : rows) {
        SCOPED_TRACE(row.place);
        EXPECT_EQ(row.x, faceletspot(row.place).x);
        EXPECT_EQ(row.y, faceletspot(row.place).y);
    }
    EXPECT_EQ(260, colorspot(0).x);
    EXPECT_EQ(460, colorspot(5).x);
    EXPECT_EQ(420, colorspot(3).y);
}

TEST_F(Coloring, NoTwoButtonsOverlap) {
    std::vector<spot> spots;
    for (int place = 0; place < placecount; place++) {
        spots.push_back(faceletspot(place));
    }
    for (int face = 0; face < cubefacecount; face++) {
        spots.push_back(colorspot(face));
    }
    for (std::size_t i = 0; i < spots.size(); i++) {
        for (std::size_t j = 0; j < i; j++) {
            const int apart =
                std::max(std::abs(spots[i].x - spots[j].x), std::abs(spots[i].y - spots[j].y));
            EXPECT_GE(apart, buttonsize) << i << " and " << j;
        }
    }
}

TEST_F(Coloring, FractionsAreCutDownToBytes) {
    EXPECT_EQ(0xffffff00U, rgb(1, 1, 1));
    EXPECT_EQ(0xff7f0000U, rgb(1, 0.5, 0));
    EXPECT_EQ(0x07070700U, rgb(0.03, 0.03, 0.03));
    EXPECT_EQ(namedblack, rgb(0, 0, 0));
}

struct color_row {
    char letter;
    unsigned color;
    bool white;
};

TEST_F(Coloring, EveryLetterHasItsColourAndLabel) {
    constexpr color_row rows[validcolorcount] = {
        {'W', 0xffffff00, false},
        {'G', 0x00ff0000, false},
        {'R', 0xff000000, false},
        {'B', 0x0000ff00, true },
        {'Y', 0xffff0000, false},
        {'O', 0xff7f0000, false},
        {'K', 0x07070700, true },
        {'S', 0xe5e5e500, false},
        {'V', 0xcc00cc00, false},
        {'D', 0xe5990000, false},
        {'P', 0xff7f7f00, false},
        {'C', 0x00ffff00, false},
        {'X', 0x99999900, false},
    };
    for (int i = 0; i < validcolorcount; i++) {
        SCOPED_TRACE(rows[i].letter);
        EXPECT_EQ(validcolors[i], rows[i].letter);
        EXPECT_EQ(rows[i].color, allcolors[i]);
        EXPECT_EQ(rows[i].white, whitelabel(allcolors[i]));
    }
}

TEST_F(Coloring, ColoursFollowTheColourTable) {
    std::strcpy(colortable, "KSVDPC");
    init();
    for (int face = 0; face < cubefacecount; face++) {
        EXPECT_EQ(colortable[face], collector::facenames[face][0]);
        EXPECT_EQ('\0', collector::facenames[face][1]);
    }
    EXPECT_EQ(0x07070700U, flcubecolors[0]);
    EXPECT_EQ(0x00ffff00U, flcubecolors[5]);
}

TEST_F(Coloring, AStrangeLetterIsShownAsAQuestion) {
    std::strcpy(colortable, "@GRBOY");
    init();
    EXPECT_STREQ("?", collector::facenames[0]);
    EXPECT_EQ(0x7f7f7f00U, flcubecolors[0]);
    EXPECT_EQ(-1, colorofkey('@'));
    EXPECT_EQ(1, colorofkey('g'));
}

TEST_F(Coloring, KeysChooseColoursInEitherCase) {
    for (int face = 0; face < cubefacecount; face++) {
        EXPECT_EQ(face, colorofkey("WGRBOY"[face]));
        EXPECT_EQ(face, colorofkey("wgrboy"[face]));
    }
    constexpr int otherkeys[] = {0, ' ', 'k', 'K', 'x', '1', 0xff08, 0xff1b, 0xffe9};
    for (int key : otherkeys) {
        EXPECT_EQ(-1, colorofkey(key)) << key;
    }
}

TEST_F(Coloring, TheSelectionGoesRound) {
    selectprevious();
    EXPECT_EQ(53, currentface);
    selectnext();
    EXPECT_EQ(0, currentface);
    for (int i = 0; i < placecount; i++) {
        EXPECT_EQ(i, currentface);
        selectnext();
    }
    EXPECT_EQ(0, currentface);
}

TEST_F(Coloring, FlipRotatesACornerTowardsTheSelectedFacelet) {
    cubecolors[8] = 1;
    cubecolors[27] = 2;
    cubecolors[20] = 5;
    flip(27);
    EXPECT_EQ(5, cubecolors[27]);
    EXPECT_EQ(1, cubecolors[20]);
    EXPECT_EQ(2, cubecolors[8]);
}

TEST_F(Coloring, FlipThreeTimesOrTwiceRestoresThePiece) {
    dotwist();
    const std::string before = colors();
    int corners = 0;
    int edges = 0;
    for (int place = 0; place < placecount; place++) {
        int times = 0;
        do {
            flip(place);
            times++;
        } while (colors() != before && times < 4);
        corners += times == 3 ? 1 : 0;
        edges += times == 2 ? 1 : 0;
        EXPECT_TRUE(times < 4 && (times == 1) == (place % 9 == 4)) << place;
    }
    EXPECT_EQ(24, corners);
    EXPECT_EQ(24, edges);
}

TEST_F(Coloring, FlipStaysWithinOnePiece) {
    for (const auto& corner : cornerplaces) {
        initcubies();
        flip(corner[0]);
        for (int place = 0; place < placecount; place++) {
            const bool ofit = std::count(corner, corner + 3, place) != 0;
            EXPECT_EQ(ofit, cubecolors[place] != place / 9) << corner[0] << ", " << place;
        }
    }
    for (const auto& edge : edgeplaces) {
        initcubies();
        flip(edge[1]);
        for (int place = 0; place < placecount; place++) {
            const bool ofit = std::count(edge, edge + 2, place) != 0;
            EXPECT_EQ(ofit, cubecolors[place] != place / 9) << edge[0] << ", " << place;
        }
    }
}

TEST_F(Coloring, ATwistedCornerGivesTheTwistMessage) {
    flip(8);
    EXPECT_EQ("Invalid Cube:\nTwist any corner cubie clockwise to make a valid configuration.",
              verdict());
    flip(8);
    EXPECT_EQ("Invalid Cube:\nTwist any corner cubie counterclockwise to make a valid "
              "configuration.",
              verdict());
    flip(8);
    EXPECT_EQ("Valid Cube!", verdict());
}

TEST_F(Coloring, AFlippedEdgeGivesTheFlipMessage) {
    flip(7);
    EXPECT_EQ("Invalid Cube:\nFlip any edge cubie to make a valid configuration.", verdict());
}

TEST_F(Coloring, TwoSwappedEdgesGiveTheSwapMessage) {
    std::swap(cubecolors[19], cubecolors[28]); // UF and UR
    EXPECT_EQ("Invalid Cube:\nSwap any two edge cubies or any two corner cubies to make a valid "
              "configuration.",
              verdict());
}

TEST_F(Coloring, ADoubleOrImpossibleCubieIsNamed) {
    cubecolors[28] = 2; // UR becomes a second UF
    EXPECT_EQ("Invalid Cube:\nDuplicate edge cubie.", verdict());
    cubecolors[28] = 0;
    EXPECT_EQ("Invalid Cube:\nImproper edge cubie:  UU.", verdict());
    initcubies();
    for (int i = 0; i < 3; i++) {
        cubecolors[cornerplaces[1][i]] = cubecolors[cornerplaces[0][i]];
    }
    EXPECT_EQ("Invalid Cube:\nDuplicate corner cubie.", verdict());
    cubecolors[29] = 0;
    EXPECT_EQ("Invalid Cube:\nImproper corner cubie: UUR.", verdict());
}

TEST_F(Coloring, EveryTurnedCubeIsLegal) {
    for (int code = 0; code < 12; code++) {
        applyturn(code);
        EXPECT_EQ("Valid Cube!", verdict());
    }
}

TEST_F(Coloring, TheVerdictDoesNotLookAtTheCentres) {
    applyturn(20); // the whole cube about U: an odd permutation of the edges
    EXPECT_NE("Valid Cube!", verdict());
    EXPECT_EQ(1, finish());
    EXPECT_EQ(0, sanitycheckcube(dumpcube()));
}

TEST_F(Coloring, FinishLeavesALegalCubeAsItIs) {
    dotwist();
    const std::string before = colors();
    const std::string homes = {std::begin(cubefaces), std::end(cubefaces)};
    EXPECT_EQ(1, finish());
    EXPECT_EQ(before, colors());
    EXPECT_EQ(homes, std::string(std::begin(cubefaces), std::end(cubefaces)));
}

TEST_F(Coloring, ARefusedFinishLeavesTheCubeRecoloured) {
    applyturn(20);
    flip(7);
    EXPECT_EQ(0, finish());
    EXPECT_STREQ("Flip any edge cubie to make a valid configuration.", geterrorstring());
    for (int face = 0; face < cubefacecount; face++) {
        EXPECT_EQ(face, cubecolors[9 * face + 4]);
    }
    EXPECT_EQ("Invalid Cube:\nFlip any edge cubie to make a valid configuration.", verdict());
    flip(7);
    EXPECT_EQ("Valid Cube!", verdict());
}

TEST_F(Coloring, FinishSurvivesCentresOfOneColour) {
    for (int color = 0; color < cubefacecount; color++) {
        for (unsigned char& place : cubecolors) {
            place = static_cast<unsigned char>(color);
        }
        EXPECT_EQ(0, finish());
        EXPECT_LT(*std::max_element(std::begin(cubecolors), std::end(cubecolors)), 6);
    }
}

} // namespace
