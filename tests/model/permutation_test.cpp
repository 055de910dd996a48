// SPDX-License-Identifier: MIT
#include "model/modeltest.h"
#include "model/permutation.h"
#include "model/slowcube.h"
#include "solver/cubecheck.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace {

class Permutation : public ModelTest {
  protected:
    static std::string report() {
        shell.messages.clear();
        dumpcubeperm();
        EXPECT_EQ(1U, shell.messages.size());
        return shell.messages.back();
    }
};

std::mt19937 numbers(3);

std::string drawturns(const std::vector<std::string>& notations) {
    std::string macro;
    for (int i = 0; i < 40; i++) {
        macro += notations[numbers() % notations.size()];
    }
    return macro;
}

const std::vector<std::string> faceturns = {"U", "d", "L", "r", "F", "b", "R", "u"};
const std::vector<std::string> allturns = {"U", "d", "L", "r", "F", "*B", "*R", ">U", ">R", ">F"};

// Normalising

// Without turns of the centres the colours must lead to the very permutation that was turned.
TEST_F(Permutation, TheColoursGiveThePermutationBack) {
    for (int i = 0; i < 200; i++) {
        initcubies();
        apply(drawturns(faceturns));
        const slow_cube before = modelcube();
        std::fill(cubefaces, cubefaces + placecount, static_cast<unsigned char>(99));
        muckcube();
        EXPECT_TRUE(before == modelcube());
    }
}

// With turns of the centres: as if the centres had been at home all the time. Where a home lies
// relative to the centres is found by turning a solved cube until its centres agree.
TEST_F(Permutation, EverythingIsRelativeToTheCentres) {
    for (int i = 0; i < 200; i++) {
        initcubies();
        apply(drawturns(allturns));
        const slow_cube cube = modelcube();
        slow_cube turned = slowsolved();
        const auto agree = [&] {
            return turned.homes[4] == cube.homes[4] && turned.homes[22] == cube.homes[22];
        };
        while (!agree()) {
            slowturn(turned, numbers() % 2 == 0 ? ">U" : ">R");
        }
        muckcube();
        for (int p = 0; p < placecount; p++) {
            EXPECT_EQ(cube.homes[p], turned.homes[cubefaces[p]]);
            EXPECT_EQ(cubefaces[p] / 9, cubecolors[p]);
        }
        unmuckcube();
        EXPECT_TRUE(cube == modelcube());
    }
}

TEST_F(Permutation, TheTwoColourMapsAreInverse) {
    apply(">U>R");
    muckcube();
    for (int c = 0; c < 6; c++) {
        EXPECT_EQ(c, unmuck[muck[c]]);
        EXPECT_EQ(c, cubecolors[9 * c + 4]);
        EXPECT_EQ(9 * c + 4, cubefaces[9 * c + 4]);
    }
    xunmuckcube();
    EXPECT_EQ(unmuck[0], cubecolors[4]);
    xmuckcube();
    EXPECT_EQ(0, cubecolors[4]);
}

TEST_F(Permutation, AMirroredCornerIsTakenForTheCorner) {
    std::swap(cubecolors[8], cubecolors[20]);
    muckcube();
    EXPECT_EQ(20, cubefaces[8]);
    EXPECT_EQ(8, cubefaces[20]);
    EXPECT_EQ(27, cubefaces[27]);
}

TEST_F(Permutation, AnImpossibleCubieKeepsItsEntries) {
    cubecolors[7] = cubecolors[19]; // an edge of one colour
    cubefaces[7] = 33;
    muckcube();
    EXPECT_EQ(33, cubefaces[7]);
    EXPECT_EQ(19, cubefaces[19]);
}

// The tables, from those of the cube.
TEST_F(Permutation, TheTablesAreTheCubiesInAscendingPlaces) {
    std::vector<std::vector<int>> expected;
    std::vector<std::vector<int>> tabled;
    for (const auto& edge : edgeplaces) {
        expected.emplace_back(edge, edge + 2);
        std::sort(expected.back().begin(), expected.back().end());
    }
    for (const auto& corner : cornerplaces) {
        expected.emplace_back(corner, corner + 3);
        std::sort(expected.back().begin(), expected.back().end());
    }
    for (const auto& row : muckedgedata) {
        tabled.emplace_back(row, row + 2);
    }
    for (const auto& row : muckcornerdata) {
        tabled.emplace_back(row, row + 3);
    }
    std::sort(expected.begin(), expected.end());
    std::sort(tabled.begin(), tabled.end());
    EXPECT_EQ(expected, tabled);
}

// Names

TEST_F(Permutation, NamesAreCompared) {
    EXPECT_EQ(1, sameedge("UF", "UF"));
    EXPECT_EQ(2, sameedge("UF", "FU"));
    EXPECT_EQ(0, sameedge("UF", "UR"));
    EXPECT_EQ(0, sameedge("UF", "RU"));
    EXPECT_EQ(1, samecorner("UFR", "UFR"));
    EXPECT_EQ(2, samecorner("UFR", "RUF"));
    EXPECT_EQ(3, samecorner("UFR", "FRU"));
    EXPECT_EQ(0, samecorner("UFR", "URF"));
    EXPECT_EQ(0, samecorner("UFR", "UFL"));
    EXPECT_STREQ("UF", flipedge(0, "UF"));
    EXPECT_STREQ("FU", flipedge(1, "UF"));
}

// All texts of that length in three letters.
std::vector<std::string> names(size_t length) {
    std::vector<std::string> all = {""};
    while (all.front().size() < length) {
        std::vector<std::string> longer;
        for (const std::string& name : all) {
            for (char letter : {'U', 'F', 'R'}) {
                longer.push_back(name + letter);
            }
        }
        all = longer;
    }
    return all;
}

// One letter in common, or two, is not enough for any answer.
TEST_F(Permutation, NamesAreTheSameOnlyInAllTheirLetters) {
    for (const std::string& a : names(2)) {
        for (const std::string& b : names(2)) {
            const std::string reversed(a.rbegin(), a.rend());
            EXPECT_EQ(b == a ? 1 : b == reversed ? 2 : 0, sameedge(a.c_str(), b.c_str())) << a + b;
        }
    }
    for (const std::string& a : names(3)) {
        const std::string last = a.substr(2) + a.substr(0, 2); // the last letter comes first
        const std::string first = a.substr(1) + a.substr(0, 1);
        for (const std::string& b : names(3)) {
            EXPECT_EQ(b == a       ? 1
                      : b == last  ? 2
                      : b == first ? 3
                                   : 0,
                      samecorner(a.c_str(), b.c_str()))
                << a + b;
        }
    }
}

// The report

TEST_F(Permutation, TheSolvedCubeReportsOne) {
    EXPECT_EQ("alert: Current cube permutation:\n1\nCycle structure: \n\nFace Permutation:\n1",
              report());
}

const char* const after_u = "alert: Current cube permutation:\n"
                            "(UR UF UL UB)(URB UFR ULF UBL)\n"
                            "Cycle structure: 2(4) \n"
                            "\n"
                            "Face Permutation:\n"
                            "(Urb Urf Ulf Ulb)(Ur Uf Ul Ub)(Bru Ruf Ful Lub)(Bu Ru Fu Lu)\n"
                            "(Blu Rub Fur Luf)\n"
                            "Cycle Structure: 5(4) ";

TEST_F(Permutation, AfterUThereAreTwoFourCycles) {
    apply("U");
    EXPECT_EQ(after_u, report());
}

// Cycles of several lengths, in the order in which their first places come.
TEST_F(Permutation, AfterRUEveryLengthIsCounted) {
    apply("RU");
    EXPECT_EQ("alert: Current cube permutation:\n"
              "(FR UF UL UB UR BR DR)(UFR)(UBL URB DBR DRF ULF)\n"
              "Cycle structure: 1(1) 1(5) 1(7) \n"
              "\n"
              "Face Permutation:\n"
              "(Urb Brd Drf Luf Blu Rub Rbd Rfd Ful Lub Bru Drb Frd Ulf Ulb)\n"
              "(Ur Br Dr Fr Uf Ul Ub)(Ruf Fur Urf)(Bu Ru Rb Rd Rf Fu Lu)\n"
              "\n"
              "Cycle Structure: 1(3) 2(7) 1(15) ",
              report());
}

TEST_F(Permutation, EdgesComeBeforeCornersAndLengthsAscend) {
    apply("RUFdlB");
    const std::string text = report();
    EXPECT_EQ("alert: Current cube permutation:\n"
              "(FL UF DB DR)(UB UR)(DF UL BL DL BR)(FR)(DRF UFR ULF DBR DFL DLB URB)(UBL)\n"
              "Cycle structure: 2(1) 1(2) 1(4) 1(5) 1(7) ",
              text.substr(0, text.find("\n\n")));
}

TEST_F(Permutation, AWholeTurnChangesNothing) {
    const std::string one = report();
    for (const char* macro : {">U", ">R", ">F", ">U>R>R>F"}) {
        initcubies();
        apply(macro);
        EXPECT_EQ(one, report()) << macro;
    }
    apply("U"); // of the face that is up now
    EXPECT_EQ(after_u, report());
}

TEST_F(Permutation, TheReportLeavesTheCubeAlone) {
    apply("RU*F>RLdb");
    const slow_cube before = modelcube();
    report();
    EXPECT_TRUE(before == modelcube());
}

// The first lines of a report, up to the facelets.
std::string cubies(const std::string& text) {
    return text.substr(0, text.find("\n\n"));
}

void flip(int edge) {
    std::swap(cubecolors[edgeplaces[edge][0]], cubecolors[edgeplaces[edge][1]]);
}

// Each colour goes one place on.
void twist(int corner) {
    const int* p = cornerplaces[corner];
    std::swap(cubecolors[p[0]], cubecolors[p[1]]);
    std::swap(cubecolors[p[0]], cubecolors[p[2]]);
}

TEST_F(Permutation, EdgesFlippedInPlaceAreBracketed) {
    flip(0);
    flip(9);
    EXPECT_EQ("alert: Current cube permutation:\n(UF)(FL)\nCycle structure: 2(1) ",
              cubies(report()));
    EXPECT_STREQ("(Fu Uf)(Fl Lf)\nCycle Structure: 2(2) ", [] {
        muckcube();
        return faceperm();
    }());
}

TEST_F(Permutation, TheSuperflipIsTwelveFlips) {
    for (int edge = 0; edge < edgecount; edge++) {
        flip(edge);
    }
    EXPECT_EQ("alert: Current cube permutation:\n"
              "(UF)(UR)(UB)(UL)(DF)(DR)(DB)(DL)(FR)(FL)(BR)(BL)\n"
              "Cycle structure: 12(1) \n"
              "\n"
              "Face Permutation:\n"
              "(Bu Ub)(Lu Ul)(Ru Ur)(Fu Uf)(Bl Lb)(Fl Lf)(Dl Ld)(Rf Fr)\n"
              "(Df Fd)(Br Rb)(Dr Rd)(Db Bd)\n"
              "Cycle Structure: 12(2) ",
              report());
}

// Entry and name compare as 2: the name forwards; as 3: backwards.
TEST_F(Permutation, CornersTwistedInPlaceTellTheirDirection) {
    twist(0);
    twist(5);
    twist(5);
    dumpcube();
    EXPECT_EQ("RUF", std::string(outpat + 36, 3));
    EXPECT_EQ("FLD", std::string(outpat + 56, 3));
    EXPECT_EQ(3, samecorner("RUF", "UFR"));
    EXPECT_EQ(2, samecorner("FLD", "DFL"));
    EXPECT_EQ("alert: Current cube permutation:\n(RFU)(DFL)\nCycle structure: 2(1) ",
              cubies(report()));
}

TEST_F(Permutation, FlipsInsideACycleAreNotShown) {
    apply("R");
    const std::string plain = cubies(report());
    flip(1); // two edges of the cycle
    flip(5);
    EXPECT_EQ(plain, cubies(report()));
}

// Three-cycles of edges each make two of facelets, of ten characters.
void cycleedges(int cycles) {
    for (int edge = 0; edge < 3 * cycles; edge++) {
        const int next = edge % 3 == 2 ? edge - 2 : edge + 1;
        for (int side = 0; side < 2; side++) {
            cubefaces[edgeplaces[edge][side]] = static_cast<unsigned char>(edgeplaces[next][side]);
        }
    }
}

TEST_F(Permutation, ALineOfFaceletsEndsAfterTheCycleThatPassesFifty) {
    cycleedges(4);
    const std::string text = faceperm();
    EXPECT_EQ(60U, text.find('\n'));
    EXPECT_EQ(81U, text.find("\nCycle Structure: 8(3) "));
}

// Cycles of 9 and six times 7 characters, and one more.
TEST_F(Permutation, FiftyOneCharactersAreALine) {
    for (int p : {0, 1, 5, 10, 14, 19, 23, 28}) {
        std::swap(cubefaces[p], cubefaces[p + 2]);
    }
    EXPECT_EQ(51U, std::string(faceperm()).find('\n'));
}

TEST_F(Permutation, AFullLastLineIsFollowedByAnEmptyOne) {
    cycleedges(3);
    const std::string text = faceperm();
    EXPECT_EQ(60U, text.find("\n\nCycle Structure: 6(3) "));
}

// Every cycle of a report, checked against the listing: the cubie named before is where the name
// after it is at home.
TEST_F(Permutation, CyclesSayWhereCubiesHaveGone) {
    for (int i = 0; i < 200; i++) {
        initcubies();
        apply(drawturns(faceturns));
        const std::string listing = dumpcube();
        const std::string text = report();
        const auto at = [&](const std::string& position) { // the cubie there
            const std::string all = "UF UR UB UL DF DR DB DL FR FL BR BL "
                                    "UFR URB UBL ULF DRF DFL DLB DBR ";
            std::string name = listing.substr(all.find(position + " "), position.size());
            std::sort(name.begin(), name.end());
            return name;
        };
        size_t moved = 0;
        size_t end = text.find("\nCycle structure");
        for (size_t open = text.find('('); open < end; open = text.find('(', open + 1)) {
            const std::string cycle = text.substr(open + 1, text.find(')', open) - open - 1);
            const size_t width = cycle.find(' ');
            for (size_t j = 0; width != std::string::npos && j < cycle.size(); j += width + 1) {
                std::string cubie = cycle.substr(j, width);
                const size_t next = j + width + 1;
                const std::string position =
                    next < cycle.size() ? cycle.substr(next, width) : cycle.substr(0, width);
                std::sort(cubie.begin(), cubie.end());
                EXPECT_EQ(cubie, at(position)) << text;
                moved++;
            }
        }
        size_t away = 0;
        for (const auto& edge : edgeplaces) {
            const int home = cubefaces[edge[0]];
            away += home != edge[0] && home != edge[1] ? 1 : 0;
        }
        for (const auto& corner : cornerplaces) {
            const int home = cubefaces[corner[0]];
            away += home != corner[0] && home != corner[1] && home != corner[2] ? 1 : 0;
        }
        EXPECT_EQ(away, moved);
    }
}

TEST_F(Permutation, AnInvalidColouringStaysNormalised) {
    apply(">U");
    flip(0);
    const codes before = colors();
    EXPECT_EQ("alert: Invalid cube coloring", report());
    for (int centre = 4; centre < placecount; centre += 9) {
        EXPECT_EQ(centre / 9, cubecolors[centre]);
    }
    EXPECT_NE(before, colors());
    unmuckcube();
    EXPECT_EQ(before, colors());
}

TEST_F(Permutation, CentresOfOneColourAreSurvived) {
    for (int p = 4; p < placecount; p += 9) {
        cubecolors[p] = 2;
    }
    EXPECT_EQ("alert: Invalid cube coloring", report());
}

TEST_F(Permutation, FaceletsThatAreNoPermutationAreStillWritten) {
    std::fill(cubefaces, cubefaces + placecount, static_cast<unsigned char>(4));
    EXPECT_STREQ("(Ulb)", std::string(faceperm()).substr(0, 5).c_str());
}

} // namespace
