// SPDX-License-Identifier: MIT
#include "nullshell.h"
#include "solver/cornerclass.h"
#include "solver/pruning.h"
#include "solver/solver.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
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

corner_bound bound_of(int cornerperm, int corner) {
    const classified_corners view = classify_corners(cornerperm);
    return corner_bound_of(view.corner_class, symmetry_on_corner[corner][view.symmetry]);
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

struct state {
    int perm, corner;

    state after(int t) const {
        return {a_twist_on_cornerperm_ptrs[t][perm], twist_on_corner_ptrs[t][corner]};
    }
};

state somewhere() {
    return {below(cornerperm_size), below(a_corner_size)};
}

// From an end of stage 1 that so many random twists of stage 2 solve, so many quarter turns back.
state before_the_end(int stage2_twists, int quarter_turns) {
    state x = {0, 0};
    for (int i = 0; i < stage2_twists; i++) {
        x.perm = b_twist_on_cornerperm_ptrs[below(b_twist_count)][x.perm];
    }
    for (int i = 0; i < quarter_turns; i++) {
        x = x.after(below(6) * 3 + below(2) * 2);
    }
    return x;
}

// The distance, told that of the states near the solved one: 255 for others.
int distance_from(const std::vector<std::uint8_t>& distances, state x, int steps) {
    int least = distances[static_cast<std::size_t>(x.perm) * a_corner_size +
                          static_cast<std::size_t>(x.corner)];
    for (int t = 0; t < a_twist_count && steps > 0; t += t % 3 == 0 ? 2 : 1) {
        least = std::min(least, 1 + distance_from(distances, x.after(t), steps - 1));
    }
    return least;
}

// The shortest ending behind just so many quarter turns, none after its own face.
int shortest_ending(state x, int left, int last_face) {
    if (left == 0) {
        return x.corner == 0 ? cornerperm_dist_table[x.perm] : 255;
    }
    int least = 255;
    for (int t = 0; t < a_twist_count; t++) {
        const int cost = t % 3 == 1 ? 2 : 1;
        if (t / 3 != last_face && cost <= left) {
            least = std::min(least, shortest_ending(x.after(t), left - cost, t / 3));
        }
    }
    return least;
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

TEST_F(CornerClass, DistancesAreThoseOfAPlainSearchInPairs) {
    const std::vector<std::uint8_t> near = corner_distances(8);
    int met[13] = {};
    for (int i = 0; i < 30000; i++) {
        const state x = i % 4 == 0 ? before_the_end(0, 1 + i % 13) : somewhere();
        const bool even = cornerperm_dist_table[x.perm] % 2 == 0;
        const int distance = std::min(distance_from(near, x, 2), even ? 12 : 11);
        EXPECT_EQ(distance % 2 == 0, even);
        const int told = distance < 8 ? 0 : distance / 2 * 2;
        ASSERT_EQ(bound_of(x.perm, x.corner).distance, told) << x.perm << ' ' << x.corner;
        met[distance]++;
    }
    for (int distance = 1; distance <= 12; distance++) {
        EXPECT_GT(met[distance], 0) << distance;
    }
}

TEST_F(CornerClass, EndingsAreThoseOfAPlainSearchAsFarAsTheCodesTell) {
    bool met[std::size(corner_bounds)] = {};
    for (int i = 0; i < 4000; i++) {
        const state x = i % 2 == 0 ? before_the_end(i / 2 % 14, corner_ending_length) : somewhere();
        const corner_bound told = bound_of(x.perm, x.corner);
        const int ending = shortest_ending(x, corner_ending_length, -1);
        int expected = 0;
        for (const corner_bound& code : corner_bounds) {
            if (code.distance == told.distance && code.ending <= ending) {
                expected = std::max(expected, code.ending);
            }
        }
        ASSERT_EQ(told.ending, expected) << x.perm << ' ' << x.corner << ": " << ending;
        const classified_corners view = classify_corners(x.perm);
        met[corner_code(view.corner_class, symmetry_on_corner[x.corner][view.symmetry])] = true;
    }
    EXPECT_EQ(std::count(std::begin(met), std::end(met), false), 0);
}

TEST_F(CornerClass, NoBoundIsMoreThanTheTurnsThatWereMade) {
    for (int walk = 0; walk < 300000; walk++) {
        state x = {0, 0};
        for (int length = 1; length <= corner_reach + 2; length++) {
            x = x.after(below(6) * 3 + below(2) * 2);
            ASSERT_LE(bound_of(x.perm, x.corner).distance, length);
        }
    }
}
