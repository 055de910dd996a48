// SPDX-License-Identifier: MIT
//
// The interfaces of the solver by themselves, in a program in which nothing was built before.
#include "nullshell.h"
#include "solver/pruning.h"
#include "solver/samples.h"
#include "solver/search.h"
#include "solver/solver.h"
#include "solver/twisttables.h"

#include <gtest/gtest.h>

namespace {

// The first rows of the golden file that have an answer.
std::vector<golden_row> some_rows() {
    std::vector<golden_row> rows;
    for (const golden_row& row : goldenrows(GOLDEN "/solver14.txt")) {
        if (!row.answer.empty() && rows.size() < 20) {
            rows.push_back(row);
        }
    }
    return rows;
}

// Without initializesolve.
void build_described_tables() {
    twist_tables_init();
    transformation_tables_init();
    prune_tables_init();
}

} // namespace

// Death tests run before the others.
TEST(AloneDeathTest, NoCubeIsSolvedBeforeTheTablesAreBuilt) {
    const std::string text = some_rows()[0].listing;
    EXPECT_DEATH((void)my_user_enters_cube(text.c_str()), "described_tables_are_built");
}

TEST(Alone, SolvesAfterTheTablesThatAreDescribed) {
    build_described_tables();
    setsearchdepth(14);
    for (const golden_row& row : some_rows()) {
        EXPECT_STREQ(my_user_enters_cube(row.listing.c_str()), row.answer.c_str());
    }
}

TEST(Alone, TheJunctionCompletesAStackByItself) {
    build_described_tables();
    ASSERT_STREQ(
        my_user_enters_cube(plain::listing(afterletters(plain::solvedcube(), "FRUU")).c_str()),
        "UUrf");
    // R brings this one into the subgroup, from where U is left.
    ASSERT_STREQ(
        my_user_enters_cube(plain::listing(afterletters(plain::solvedcube(), "ur")).c_str()), "RU");
    a_node stack[stack_size] = {};
    stack[0].remaining = 1;
    stack[1].twist = 12; // R
    shortest_solution = unreached + 1;
    stage2_allotment = 179;
    outputstring[0] = '\0';
    stage2_solve(stack);
    EXPECT_STREQ(outputstring, "RU");
    EXPECT_EQ(shortest_solution, 2);
    EXPECT_EQ(stage2_allotment, -1);
}
