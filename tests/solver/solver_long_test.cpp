// SPDX-License-Identifier: MIT
#include "nullshell.h"
#include "solver/samples.h"
#include "solver/solver.h"

#include <gtest/gtest.h>

namespace {

class SolverLong : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        while (!initializesolve()) {
            continue;
        }
        plain::build();
    }

    void compare(int cubes, int depth, plain::cube (*make)(std::mt19937&)) {
        resetshell();
        setsearchdepth(depth);
        for (int i = 0; i < cubes; i++) {
            const plain::cube c = make(random);
            const std::string expected = plain::solve(c, depth);
            const char* const found = my_user_enters_cube(plain::listing(c).c_str());
            ASSERT_NE(found, nullptr);
            ASSERT_STREQ(found, expected.empty() ? "error" : expected.c_str()) << plain::listing(c);
        }
    }

    std::mt19937 random{20240601};
};

void expect_twin_agrees(const char* file, int depth) {
    for (const golden_row& row : goldenrows(std::string(GOLDEN "/") + file)) {
        plain::cube c{};
        ASSERT_TRUE(plain::parse(row.listing, c));
        EXPECT_EQ(plain::solve(c, depth), row.answer) << row.listing;
    }
}

} // namespace

TEST_F(SolverLong, GoldenAnswersAreThoseOfTheTwin) {
    expect_twin_agrees("solver14.txt", 14);
    expect_twin_agrees("solver15.txt", 15);
    expect_twin_agrees("solver16.txt", 16);
}

TEST_F(SolverLong, AThousandCubesAtDepth14) {
    compare(1000, 14, randomcube);
}

TEST_F(SolverLong, AHundredCubesAtDepth15) {
    compare(100, 15, randomcube);
}

TEST_F(SolverLong, FiveCubesAtDepth16) {
    compare(5, 16, randomcube);
}

TEST_F(SolverLong, AHundredCubesOfTheSubgroupAtDepth12) {
    compare(100, 12, randomsubcube);
}

TEST_F(SolverLong, TenCubesOfTheSubgroupAtDepth14) {
    compare(10, 14, randomsubcube);
}
