// SPDX-License-Identifier: MIT
#include "model/modeltest.h"
#include "model/slowcube.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <numeric>

namespace {

class Cube : public ModelTest {};

// A cube on which every place of every array tells itself apart.
void numberplaces() {
    for (int p = 0; p < placecount; p++) {
        cubecolors[p] = static_cast<unsigned char>(100 + p);
        cubefaces[p] = static_cast<unsigned char>(p);
    }
}

const std::string faceletters = "ULFRBD";

// For every face: the model's turn against the rotation in space, both arrays.
void expectgeometry(void (*turn)(unsigned), const std::string& prefix) {
    for (unsigned f = 0; f < 6; f++) {
        numberplaces();
        slow_cube slow = modelcube();
        turn(f);
        ASSERT_TRUE(slowturn(slow, prefix + faceletters[f]));
        EXPECT_TRUE(slow == modelcube()) << prefix << faceletters[f];
    }
}

TEST_F(Cube, FaceTurnsAreTheRotationsInSpace) {
    expectgeometry(moveface, "");
}

TEST_F(Cube, SliceTurnsAreTheRotationsInSpace) {
    expectgeometry(moveslice, "*");
}

TEST_F(Cube, CubeTurnsAreTheRotationsInSpace) {
    expectgeometry(movecube, ">");
}

TEST_F(Cube, MoveCarriesFacelets) {
    move(3, 17, 25, 50);
    EXPECT_EQ(3, cubefaces[17]);
    EXPECT_EQ(17, cubefaces[25]);
    EXPECT_EQ(25, cubefaces[50]);
    EXPECT_EQ(50, cubefaces[3]);
    EXPECT_EQ(0, cubecolors[17]);
    EXPECT_EQ(5, cubecolors[3]);
    EXPECT_EQ(4, std::accumulate(cubefaces, cubefaces + 54, 0,
                                 [p = 0](int n, int home) mutable { return n + (home != p++); }));
}

TEST_F(Cube, CentresStayInFaceTurns) {
    for (unsigned f = 0; f < 6; f++) {
        moveface(f);
        for (int centre = 4; centre < placecount; centre += 9) {
            EXPECT_EQ(centre, cubefaces[centre]) << f;
        }
    }
}

TEST_F(Cube, FacesBeyondFiveDoNothing) {
    numberplaces();
    const slow_cube before = modelcube();
    for (unsigned f : {6U, 7U, 1000U, ~0U}) {
        moveface(f);
        moveslice(f);
        movecube(f);
    }
    EXPECT_TRUE(before == modelcube());
}

TEST_F(Cube, SolvedIsUniformFacesWhateverTheirColours) {
    EXPECT_EQ(1, solved());
    for (unsigned f = 0; f < 6; f++) {
        movecube(f);
        EXPECT_EQ(1, solved()) << f;
    }
    for (unsigned char& c : cubecolors) {
        c = 3;
    }
    EXPECT_EQ(1, solved());
}

TEST_F(Cube, OneOddFaceletIsNotSolved) {
    for (int p = 0; p < placecount; p++) {
        initcubies();
        cubecolors[p] = static_cast<unsigned char>((p / 9 + 1) % 6);
        EXPECT_EQ(0, solved()) << p;
    }
}

TEST_F(Cube, NotSolvedAfterAFaceOrASlice) {
    for (unsigned f = 0; f < 6; f++) {
        initcubies();
        moveface(f);
        EXPECT_EQ(0, solved()) << f;
        initcubies();
        moveslice(f);
        EXPECT_EQ(0, solved()) << f;
    }
}

TEST_F(Cube, InitialCubeHasEachFaceletAtHome) {
    numberplaces();
    initcubies();
    EXPECT_TRUE(slowsolved() == modelcube());
}

// Names

TEST_F(Cube, StringsAreTheDesignedOnes) {
    EXPECT_STREQ("ULFRBD", faces);
    EXPECT_STREQ("WGRBOY", color);
}

TEST_F(Cube, OppositeFacesShareNoSticker) {
    for (unsigned f = 0; f < 6; f++) {
        EXPECT_EQ(f, oppositeface[oppositeface[f]]);
        EXPECT_NE(f, oppositeface[f]);
    }
    EXPECT_EQ(5U, oppositeface[0]);
    EXPECT_EQ(3U, oppositeface[1]);
    EXPECT_EQ(4U, oppositeface[2]);
}

// The cubie that a place belongs to, as the set of faces that its name mentions.
std::string lettersof(std::string name) {
    for (char& c : name) {
        c = static_cast<char>(toupper(c));
    }
    std::sort(name.begin(), name.end());
    return name;
}

// A face turn changes a facelet just when it touches its cubie.
TEST_F(Cube, FaceNamesNameTheFacesThatMoveThePlace) {
    for (int p = 0; p < placecount; p++) {
        std::string moving;
        for (unsigned f = 0; f < 6; f++) {
            initcubies();
            moveface(f);
            if (cubefaces[p] != p || (p % 9 == 4 && p / 9 == static_cast<int>(f))) {
                moving += faceletters[f];
            }
        }
        std::sort(moving.begin(), moving.end());
        EXPECT_EQ(moving, lettersof(facenames[p])) << p;
        EXPECT_EQ(faceletters[p / 9], facenames[p][0]) << p;
        EXPECT_EQ(1, isupper(facenames[p][0]) != 0 ? 1 : 0) << p;
    }
}

TEST_F(Cube, FaceNamesAreTheDesignedOnes) {
    const char* const designed[placecount] = {
        "Ulb", "Ub", "Urb", "Ul", "U", "Ur", "Ulf", "Uf", "Urf", // U
        "Lub", "Lu", "Luf", "Lb", "L", "Lf", "Ldb", "Ld", "Ldf", // L
        "Ful", "Fu", "Fur", "Fl", "F", "Fr", "Fld", "Fd", "Frd", // F
        "Ruf", "Ru", "Rub", "Rf", "R", "Rb", "Rfd", "Rd", "Rbd", // R
        "Bru", "Bu", "Blu", "Br", "B", "Bl", "Brd", "Bd", "Bld", // B
        "Dlf", "Df", "Drf", "Dl", "D", "Dr", "Dlb", "Db", "Drb", // D
    };
    for (int p = 0; p < placecount; p++) {
        EXPECT_STREQ(designed[p], facenames[p]) << p;
    }
}

TEST_F(Cube, CubiePlacesLieOnTheFacesOfTheirNames) {
    for (int e = 0; e < edgecount; e++) {
        for (int i = 0; i < 2; i++) {
            const int p = edgeplaces[e][i];
            EXPECT_EQ(edgecubies[e][i], facenames[p][0]) << edgecubies[e];
            EXPECT_EQ(lettersof(edgecubies[e]), lettersof(facenames[p])) << edgecubies[e];
        }
    }
    for (int c = 0; c < cornercount; c++) {
        for (int i = 0; i < 3; i++) {
            const int p = cornerplaces[c][i];
            EXPECT_EQ(cornercubies[c][i], facenames[p][0]) << cornercubies[c];
            EXPECT_EQ(lettersof(cornercubies[c]), lettersof(facenames[p])) << cornercubies[c];
        }
    }
}

// Text forms

const char* const solvedlisting = "UF UR UB UL DF DR DB DL FR FL BR BL "
                                  "UFR URB UBL ULF DRF DFL DLB DBR ";

TEST_F(Cube, TheSolvedListingIsTheNames) {
    EXPECT_STREQ(solvedlisting, dumpcube());
    EXPECT_EQ(68U, std::string(dumpcube()).size());
    EXPECT_EQ(outpat, dumpcube());
    std::string names;
    for (const char* edge : edgecubies) {
        names += std::string(edge) + " ";
    }
    for (const char* corner : cornercubies) {
        names += std::string(corner) + " ";
    }
    EXPECT_EQ(names, dumpcube());
}

TEST_F(Cube, TheListingShowsTheCubiesThatMoved) {
    moveface(0);
    EXPECT_STREQ("UR UB UL UF DF DR DB DL FR FL BR BL "
                 "URB UBL ULF UFR DRF DFL DLB DBR ",
                 dumpcube());
}

TEST_F(Cube, TheListingShowsColoursSoAWholeTurnChangesIt) {
    movecube(0);
    EXPECT_STREQ("UR UB UL UF DR DB DL DF RB RF LB LF "
                 "URB UBL ULF UFR DBR DRF DFL DLB ",
                 dumpcube());
}

TEST_F(Cube, EntriesAreAppended) {
    dumpcube();
    out2(0, 53);
    out3(9, 18, 27);
    EXPECT_EQ(std::string(solvedlisting) + "UD LFR ", outpat);
}

TEST_F(Cube, AFullListingTakesNoMore) {
    const auto fill = [] {
        for (int i = 0; i < 100; i++) {
            out2(0, 1);
        }
    };
    EXPECT_DEATH(fill(), "outpatsize");
    EXPECT_DEATH(out2(0, 54), "placecount");
    EXPECT_DEATH(out3(-1, 0, 0), "place");
}

TEST_F(Cube, TheNetIsPrintedInColourLetters) {
    moveface(0);
    testing::internal::CaptureStdout();
    drawcube();
    EXPECT_EQ("       W W W \n"
              "       W W W \n"
              "       W W W \n"
              "\n"
              "R R R  B B B  O O O  G G G \n"
              "G G G  R R R  B B B  O O O \n"
              "G G G  R R R  B B B  O O O \n"
              "\n"
              "       Y Y Y \n"
              "       Y Y Y \n"
              "       Y Y Y \n",
              testing::internal::GetCapturedStdout());
}

// Every place shows at its own spot: a letter of its own would do, colours are only six.
TEST_F(Cube, TheNetShowsEachPlaceAtItsSpot) {
    for (int p = 0; p < placecount; p++) {
        std::fill(cubecolors, cubecolors + 54, static_cast<unsigned char>(0));
        cubecolors[p] = 5;
        testing::internal::CaptureStdout();
        drawcube();
        const std::string net = testing::internal::GetCapturedStdout();
        const int row = p % 9 / 3;
        const int line = p < 9 ? row : p < 45 ? 4 + row : 8 + row;
        const int left = p < 9 || p >= 45 ? 7 : (p / 9 - 1) * 7;
        size_t start = 0;
        for (int l = 0; l < line; l++) {
            start = net.find('\n', start) + 1;
        }
        EXPECT_EQ('Y', net[start + static_cast<size_t>(left + p % 3 * 2)]) << p;
        EXPECT_EQ(1, std::count(net.begin(), net.end(), 'Y')) << p;
    }
}

// Scrambles

// The C library promises that a run which never seeds draws as after srand(1).
TEST_F(Cube, TheFirstScrambleOfARunTakes213Passes) {
    srand(1);
    for (int draws = 1 + 3 * 213; draws > 0; draws--) {
        rand();
    }
    const int next = rand();
    srand(1);
    jumblecube();
    EXPECT_EQ(next, rand());
}

// The same draws on the slow cube, from solved whatever the cube was before.
TEST_F(Cube, AScrambleIsRandomTurnsFromSolved) {
    for (unsigned seed = 1; seed <= 40; seed++) {
        srand(seed);
        const int passes = rand() % 200 + 30;
        slow_cube slow = slowsolved();
        for (int i = 0; i < passes; i++) {
            slowturn(slow, std::string(1, faceletters[rand() % 6]));
            slowturn(slow, std::string(">") + faceletters[rand() % 6]);
            slowturn(slow, std::string("*") + faceletters[rand() % 6]);
        }
        numberplaces();
        srand(seed);
        jumblecube();
        EXPECT_TRUE(slow == modelcube()) << seed;
    }
}

} // namespace
