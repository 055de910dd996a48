// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "solver/cubecheck.h"
#include "tools/drawing.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr int cubes = 100'000;

// For the sum of squares over expectations with so many degrees of freedom: the value that chance
// passes once in 10,000,000 times (Wilson and Hilferty's approximation). The seeds are fixed, so
// that these tests either always pass or always fail.
double mostlikely(int degrees) {
    const double part = 2.0 / (9 * degrees);
    return degrees * std::pow(1 - part + 5.2 * std::sqrt(part), 3);
}

double chisquare(const std::vector<int>& counts, double expected) {
    double sum = 0;
    for (const int count : counts) {
        sum += (count - expected) * (count - expected) / expected;
    }
    return sum;
}

class Drawing : public testing::Test {
  protected:
    // The record of the next cube; the check completes it.
    cube_struc draw() {
        cube_struc cube;
        cubie_names names;
        read_cubies(drawcubies(from).c_str(), names);
        EXPECT_EQ(edge_count + corner_count, parse_cubies(names, cube));
        EXPECT_EQ(0, check_cube(cube)) << geterrorstring();
        return cube;
    }

    lot from{20};
};

TEST_F(Drawing, EachCubieIsEverywhereAlikeInEachWay) {
    std::vector<std::vector<int>> edges(edge_count, std::vector<int>(2 * edge_count));
    std::vector<std::vector<int>> corners(corner_count, std::vector<int>(3 * corner_count));
    for (int i = 0; i < cubes; i++) {
        const cube_struc cube = draw();
        for (std::size_t p = 0; p < edge_count; p++) {
            edges[p][static_cast<std::size_t>(cube.edges[p])]++;
        }
        for (std::size_t p = 0; p < corner_count; p++) {
            corners[p][static_cast<std::size_t>(cube.corners[p])]++;
        }
    }
    for (const auto& position : edges) {
        EXPECT_LT(chisquare(position, cubes / 24.0), mostlikely(23));
    }
    for (const auto& position : corners) {
        EXPECT_LT(chisquare(position, cubes / 24.0), mostlikely(23));
    }
}

// Two positions at a time: a shuffle that favours some orders shows here at the latest.
TEST_F(Drawing, NeighboursAreIndependent) {
    std::vector<int> edges(12 * 12);
    std::vector<int> lastedges(12 * 12);
    std::vector<int> corners(8 * 8);
    std::vector<int> twists(27);
    std::vector<int> flips(1 << 12);
    for (int i = 0; i < cubes; i++) {
        const cube_struc cube = draw();
        edges[static_cast<std::size_t>(cube.edges[0] % 12 * 12 + cube.edges[1] % 12)]++;
        lastedges[static_cast<std::size_t>(cube.edges[10] % 12 * 12 + cube.edges[11] % 12)]++;
        corners[static_cast<std::size_t>(cube.corners[0] % 8 * 8 + cube.corners[7] % 8)]++;
        twists[static_cast<std::size_t>(cube.corners[0] / 8 * 9 + cube.corners[1] / 8 * 3 +
                                        cube.corners[7] / 8)]++;
        int bits = 0;
        for (const int edge : cube.edges) {
            bits = 2 * bits + edge / 12;
        }
        flips[static_cast<std::size_t>(bits)]++;
    }
    const auto usedof = [](const std::vector<int>& counts) {
        std::vector<int> used;
        std::copy_if(counts.begin(), counts.end(), std::back_inserter(used),
                     [](int count) { return count != 0; });
        return used;
    };
    ASSERT_EQ(132U, usedof(edges).size());
    EXPECT_LT(chisquare(usedof(edges), cubes / 132.0), mostlikely(131));
    ASSERT_EQ(132U, usedof(lastedges).size());
    EXPECT_LT(chisquare(usedof(lastedges), cubes / 132.0), mostlikely(131));
    ASSERT_EQ(56U, usedof(corners).size());
    EXPECT_LT(chisquare(usedof(corners), cubes / 56.0), mostlikely(55));
    EXPECT_LT(chisquare(twists, cubes / 27.0), mostlikely(26));
    ASSERT_EQ(2048U, usedof(flips).size()) << "an even number of flips";
    EXPECT_LT(chisquare(usedof(flips), cubes / 2048.0), mostlikely(2047));
}

TEST_F(Drawing, BothParitiesComeAlike) {
    int odd = 0;
    for (int i = 0; i < cubes; i++) {
        odd += draw().corner_parity;
    }
    EXPECT_LT(chisquare({odd, cubes - odd}, cubes / 2.0), mostlikely(1));
}

TEST_F(Drawing, NumbersAreEvenAlsoNextToTheLargest) {
    std::vector<int> counts(7);
    for (int i = 0; i < cubes; i++) {
        counts[drawnumber(from, 7)]++;
    }
    EXPECT_LT(chisquare(counts, cubes / 7.0), mostlikely(6));
    // Without drawing again the lower half would come twice as often.
    const std::uint64_t most = 3ULL << 62;
    std::vector<int> thirds(3);
    for (int i = 0; i < cubes; i++) {
        thirds[drawnumber(from, most) / (1ULL << 62)]++;
    }
    EXPECT_LT(chisquare(thirds, cubes / 3.0), mostlikely(2));
    EXPECT_EQ(0U, drawnumber(from, 1));
}

// Golden, so that a seed means the same cubes for good.
TEST_F(Drawing, ASeedDrawsTheSameCubesEverywhere) {
    lot one(1);
    EXPECT_EQ("LU DR RB FD DB BU LD BL LF FU UR RF BDL DRF BRD URB RUF LDF UBL FUL",
              drawcubies(one));
    EXPECT_EQ("FR RU FD RB BL BU RD FU DL FL LU BD BDL FDR LFU LDF URB FRU BLU DBR",
              drawcubies(one));
}

} // namespace
