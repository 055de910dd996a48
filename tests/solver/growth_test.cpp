// SPDX-License-Identifier: MIT
#include "nullshell.h"
#include "solver/cornerclass.h"
#include "solver/growth.h"
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/solver.h"

#include <gtest/gtest.h>

namespace {

class Growth : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        while (!initializesolve()) {
            continue;
        }
    }

    void SetUp() override {
        resetshell();
        near1_visits = near2_visits = corner_visits = 0;
    }

    void TearDown() override { resetshell(); }
};

} // namespace

// One after the other, as tables only grow.
TEST_F(Growth, EachTableIsFilledWhenItPays) {
    EXPECT_EQ(near1_length, near1_initial);
    EXPECT_EQ(near2_radius, near2_ordinary);
    ASSERT_TRUE(grow_tables(near1_ordinary));
    EXPECT_EQ(near1_length, near1_initial);
    ASSERT_TRUE(grow_tables(near1_ordinary + 1));
    EXPECT_EQ(near1_length, near1_ordinary);

    constexpr int visits_at_14 = 9 * 9 * 9 * 9 * 9; // so many are to be expected
    near1_visits = near1_patience - visits_at_14;
    ASSERT_TRUE(grow_tables(14));
    EXPECT_EQ(near1_length, near1_ordinary);
    near1_visits++;
    shell.interruptat = shell.polls + 1;
    EXPECT_FALSE(grow_tables(14));
    EXPECT_EQ(near1_length, near1_ordinary);
    resetshell();
    ASSERT_TRUE(grow_tables(14));
    EXPECT_EQ(near1_length, near1_greatest);

    near2_visits = near2_patience;
    ASSERT_TRUE(grow_tables(14));
    EXPECT_EQ(near2_radius, near2_ordinary);
    near2_visits++;
    shell.interruptat = shell.polls + 1;
    EXPECT_FALSE(grow_tables(14));
    EXPECT_EQ(near2_radius, near2_ordinary);
    resetshell();
    ASSERT_TRUE(grow_tables(14));
    EXPECT_EQ(near2_radius, near2_greatest);

    corner_visits = corner_patience;
    ASSERT_TRUE(grow_tables(14));
    EXPECT_FALSE(corner_bounds_filled);
    corner_visits++;
    ASSERT_TRUE(grow_tables(14));
    EXPECT_TRUE(corner_bounds_filled);
}
