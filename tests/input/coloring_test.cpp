// SPDX-License-Identifier: MIT
//
// coloring: the colours of the collector's buttons, selection, entries and verdicts.
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

namespace collector {

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

    static int finished() {
        std::string reason;
        return finish(reason);
    }

    static void dotwist() {
        for (int code : {0, 6, 12, 19}) {
            applyturn(code);
        }
    }
};

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
        EXPECT_EQ(colortable[face], facenames[face][0]);
        EXPECT_EQ('\0', facenames[face][1]);
    }
    EXPECT_EQ(0x07070700U, flcubecolors[0]);
    EXPECT_EQ(0x00ffff00U, flcubecolors[5]);
}

TEST_F(Coloring, AStrangeLetterIsShownAsAQuestion) {
    std::strcpy(colortable, "@GRBOY");
    init();
    EXPECT_STREQ("?", facenames[0]);
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

struct corner_row {
    const char* name;
    int a, b, c;
};

// Each corner's places in the order against which the colours go round.
constexpr corner_row corners[cornercount] = {
    {"UFR", 8,  27, 20},
    {"URB", 2,  36, 29},
    {"UBL", 0,  9,  38},
    {"ULF", 6,  18, 11},
    {"DRF", 26, 33, 47},
    {"DFL", 17, 24, 45},
    {"DLB", 15, 51, 44},
    {"DBR", 35, 42, 53},
};

constexpr int edges[edgecount][2] = {
    {1,  37},
    {3,  10},
    {5,  28},
    {7,  19},
    {12, 41},
    {14, 21},
    {23, 30},
    {32, 39},
    {16, 48},
    {25, 46},
    {34, 50},
    {43, 52}
};

// The solved cube with three other colours on one corner: flip at the first must leave b's, c's and
// a's on a, b and c, and nothing else changed.
void expectrotated(int a, int b, int c) {
    initcubies();
    cubecolors[a] = 10;
    cubecolors[b] = 11;
    cubecolors[c] = 12;
    EXPECT_TRUE(flip(a));
    EXPECT_EQ(11, cubecolors[a]) << a;
    EXPECT_EQ(12, cubecolors[b]) << a;
    EXPECT_EQ(10, cubecolors[c]) << a;
    for (int place = 0; place < placecount; place++) {
        EXPECT_TRUE(place == a || place == b || place == c || cubecolors[place] == place / 9);
    }
}

TEST_F(Coloring, FlipRotatesEachCornerTowardsTheSelectedFacelet) {
    for (const corner_row& row : corners) {
        SCOPED_TRACE(row.name);
        expectrotated(row.a, row.b, row.c);
        expectrotated(row.b, row.c, row.a);
        expectrotated(row.c, row.a, row.b);
    }
}

TEST_F(Coloring, FlipSwapsEachEdgeFromEitherSide) {
    for (const auto& edge : edges) {
        for (const int selected : edge) {
            initcubies();
            cubecolors[edge[0]] = 10;
            cubecolors[edge[1]] = 11;
            EXPECT_TRUE(flip(selected));
            EXPECT_EQ(11, cubecolors[edge[0]]) << selected;
            EXPECT_EQ(10, cubecolors[edge[1]]) << selected;
        }
    }
}

TEST_F(Coloring, FlipOnACentreChangesNothing) {
    dotwist();
    const std::string before = colors();
    for (int face = 0; face < cubefacecount; face++) {
        EXPECT_FALSE(flip(9 * face + 4));
        EXPECT_EQ(before, colors());
    }
}

TEST_F(Coloring, FlipThreeTimesOrTwiceRestoresThePiece) {
    dotwist();
    const std::string before = colors();
    int threes = 0;
    int twos = 0;
    for (int place = 0; place < placecount; place++) {
        int times = 0;
        do {
            flip(place);
            times++;
        } while (colors() != before && times < 4);
        threes += times == 3 ? 1 : 0;
        twos += times == 2 ? 1 : 0;
        EXPECT_TRUE(times < 4 && (times == 1) == (place % 9 == 4)) << place;
    }
    EXPECT_EQ(24, threes);
    EXPECT_EQ(24, twos);
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

// The verdict asks whether the centres differ, not which of them is where.
TEST_F(Coloring, TheVerdictDoesNotLookWhereTheCentresAre) {
    applyturn(20); // the whole cube about U: an odd permutation of the edges
    EXPECT_EQ("Invalid Cube:\nSwap any two edge cubies or any two corner cubies to make a valid "
              "configuration.",
              verdict());
    EXPECT_EQ(1, finished());
    EXPECT_EQ(0, sanitycheckcube(dumpcube()));
}

TEST_F(Coloring, TwoCentresOfOneColourAreTold) {
    for (int face = 0; face < cubefacecount; face++) {
        for (int other = 0; other < cubefacecount; other++) {
            initcubies();
            cubecolors[9 * face + 4] = static_cast<unsigned char>(other);
            EXPECT_EQ(face == other ? "Valid Cube!"
                                    : "Invalid Cube:\nTwo centers have the same color.",
                      verdict())
                << face << " as " << other;
        }
    }
}

// All other stickers are those of a legal cube, or one more thing is wrong: it is the centres that
// are told, and what was entered stays.
TEST_F(Coloring, FinishWithTwoCentresOfOneColourChangesNothing) {
    for (const int twisted : {0, 1}) {
        initcubies();
        dotwist();
        if (twisted == 1) {
            flip(8);
        }
        cubecolors[4] = cubecolors[49];
        const std::string before = colors();
        const std::string homes = {std::begin(cubefaces), std::end(cubefaces)};
        std::string reason;
        EXPECT_EQ(0, finish(reason));
        EXPECT_EQ("Two centers have the same color.", reason);
        EXPECT_EQ(before, colors());
        EXPECT_EQ(homes, std::string(std::begin(cubefaces), std::end(cubefaces)));
    }
}

TEST_F(Coloring, FinishLeavesALegalCubeAsItIs) {
    dotwist();
    const std::string before = colors();
    const std::string homes = {std::begin(cubefaces), std::end(cubefaces)};
    EXPECT_EQ(1, finished());
    EXPECT_EQ(before, colors());
    EXPECT_EQ(homes, std::string(std::begin(cubefaces), std::end(cubefaces)));
}

TEST_F(Coloring, ARefusedFinishLeavesTheCubeRecoloured) {
    applyturn(20);
    flip(7);
    std::string reason;
    EXPECT_EQ(0, finish(reason));
    EXPECT_EQ("Flip any edge cubie to make a valid configuration.", reason);
    for (int face = 0; face < cubefacecount; face++) {
        EXPECT_EQ(face, cubecolors[9 * face + 4]);
    }
    EXPECT_EQ("Invalid Cube:\nFlip any edge cubie to make a valid configuration.", verdict());
    flip(7);
    EXPECT_EQ("Valid Cube!", verdict());
}

} // namespace

} // namespace collector
