// SPDX-License-Identifier: MIT
#include "nullshell.h"
#include "solver/cornerclass.h"
#include "solver/pruning.h"
#include "solver/solver.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

std::mt19937 random_bits{4503};

int below(int n) {
    return static_cast<int>(random_bits() % static_cast<unsigned>(n));
}

struct CornerClass : testing::Test {
    static void SetUpTestSuite() {
        while (!initializesolve()) {
            continue;
        }
        resetshell();
        shell.interruptat = 5;
        filled_when_interrupted = corner_bounds_fill() || corner_bounds_filled;
        resetshell();
        filled_later = corner_bounds_fill() && corner_bounds_filled;
    }

    static inline bool filled_when_interrupted, filled_later;
};

int bound_of(int cornerperm, int corner) {
    const classified_corners view = classify_corners(cornerperm);
    return corner_bound(view.corner_class, symmetry_on_corner[corner][view.symmetry]);
}

// How many quarter turns each state of the whole corners is from solved, as far as greatest.
std::vector<std::uint8_t> corner_distances(int greatest) {
    std::vector<std::uint8_t> distance(std::size_t{cornerperm_size} * a_corner_size, 255);
    std::vector<std::uint32_t> layer = {0};
    distance[0] = 0;
    for (int d = 1; d <= greatest; d++) {
        std::vector<std::uint32_t> next;
        for (const std::uint32_t x : layer) {
            for (int t = 0; t < a_twist_count; t += t % 3 == 0 ? 2 : 1) {
                const std::uint32_t y =
                    a_twist_on_cornerperm_ptrs[t][x / a_corner_size] * a_corner_size +
                    static_cast<std::uint32_t>(twist_on_corner_ptrs[t][x % a_corner_size]);
                if (distance[y] == 255) {
                    distance[y] = static_cast<std::uint8_t>(d);
                    next.push_back(y);
                }
            }
        }
        layer = std::move(next);
    }
    return distance;
}

} // namespace

TEST_F(CornerClass, ACarriedClassIsThatOfTheTurnedPermutation) {
    for (int walk = 0; walk < 2000; walk++) {
        int cornerperm = below(cornerperm_size);
        classified_corners carried = classify_corners(cornerperm);
        for (int i = 0; i < 20; i++) {
            const int t = below(a_twist_count);
            cornerperm = a_twist_on_cornerperm_ptrs[t][cornerperm];
            carried = corners_after(carried, t);
            const classified_corners told = classify_corners(cornerperm);
            ASSERT_EQ(carried.corner_class, told.corner_class);
            ASSERT_EQ(carried.distance, cornerperm_dist_table[cornerperm]);
            ASSERT_EQ(classify_corners(corner_class_cornerperm(told.corner_class)).corner_class,
                      told.corner_class);
        }
    }
}

TEST_F(CornerClass, AnInterruptLeavesTheBoundsForLater) {
    EXPECT_FALSE(filled_when_interrupted);
    EXPECT_TRUE(filled_later);
}

TEST_F(CornerClass, BoundsAreTheDistancesOfAPlainSearch) {
    constexpr int greatest = 8;
    const std::vector<std::uint8_t> distance = corner_distances(greatest);
    for (int perm = 0; perm < cornerperm_size; perm += 7) {
        for (int corner = 0; corner < a_corner_size; corner++) {
            const int told = bound_of(perm, corner);
            const int known = distance[static_cast<std::size_t>(perm * a_corner_size + corner)];
            ASSERT_EQ(told <= greatest ? told : 255, known) << perm << ' ' << corner;
        }
    }
}

TEST_F(CornerClass, NoBoundIsMoreThanTheTurnsThatWereMade) {
    for (int walk = 0; walk < 300000; walk++) {
        int perm = 0;
        int corner = 0;
        for (int length = 1; length <= corner_reach + 2; length++) {
            const int t = below(6) * 3 + below(2) * 2;
            perm = a_twist_on_cornerperm_ptrs[t][perm];
            corner = twist_on_corner_ptrs[t][corner];
            ASSERT_LE(bound_of(perm, corner), length);
        }
    }
}
