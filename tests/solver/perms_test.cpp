// SPDX-License-Identifier: MIT
#include "solver/perms.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <numeric>

TEST(Perms, TheIdentityRanksFirstAndItsReversalLast) {
    int factorial = 1;
    for (int n = 1; n <= 8; n++) {
        factorial *= n;
        int p[8];
        std::iota(p, p + n, 0);
        EXPECT_EQ(perm_n_pack(n, p), 0);
        std::reverse(p, p + n);
        EXPECT_EQ(perm_n_pack(n, p), factorial - 1);
    }
}

TEST(Perms, RanksFollowTheLexicographicOrder) {
    int p[] = {0, 1, 2, 3, 4, 5, 6, 7};
    int rank = 0;
    do {
        int unpacked[8];
        perm_n_unpack(8, rank, unpacked);
        ASSERT_TRUE(std::equal(p, p + 8, unpacked)) << rank;
        ASSERT_EQ(perm_n_pack(8, p), rank++);
    } while (std::next_permutation(p, p + 8));
    EXPECT_EQ(rank, 40320);
}

TEST(Perms, TheCheckRejectsWhatIsNoPermutation) {
    int p[24];
    std::iota(p, p + 24, 0);
    EXPECT_EQ(check_perm_n(24, p), 0);
    for (const int bad : {-1, 24, 3}) {
        p[7] = bad;
        EXPECT_EQ(check_perm_n(24, p), 1) << bad;
    }
}

TEST(Perms, AnExchangeChangesTheParity) {
    EXPECT_EQ(parity_of_perm_n(0, nullptr), 0);
    int p[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    EXPECT_EQ(parity_of_perm_n(1, p), 0);
    for (int i = 0; i < 11; i++) {
        two_cycle(p, i, 11);
        EXPECT_EQ(parity_of_perm_n(12, p), (i + 1) % 2);
    }
}

TEST(Perms, CyclesTakeFromTheNextPosition) {
    int p[] = {10, 11, 12, 13};
    three_cycle(p, 0, 2, 3);
    EXPECT_TRUE(std::ranges::equal(p, std::to_array({12, 11, 13, 10})));
    four_cycle(p, 3, 1, 0, 2);
    EXPECT_TRUE(std::ranges::equal(p, std::to_array({13, 12, 10, 11})));
}

TEST(Perms, AConjugateMovesWhatTheOtherNames) {
    const int p[] = {1, 2, 0, 3};
    const int q[] = {3, 0, 2, 1};
    int out[4];
    conjugate_perm_n(4, p, q, out);
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(out[q[i]], q[p[i]]);
    }
    EXPECT_EQ(check_perm_n(4, out), 0);
}
