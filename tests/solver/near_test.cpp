// SPDX-License-Identifier: MIT
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/solver.h"

#include <gtest/gtest.h>
#include <random>

namespace {

std::mt19937 random_bits{4501};

int below(int n) {
    return static_cast<int>(random_bits() % static_cast<unsigned>(n));
}

bool near1_has(int corner, int edges, int last_face, int length) {
    const class_step step = classify_edges(edges);
    const int seen = symmetry_on_twist[step.symmetry][3 * last_face] / 3;
    return sieve_has(
        near1_sieves[length],
        near1_number(step.edge_class, symmetry_on_corner[corner][step.symmetry], seen, length));
}

struct place {
    int corner = 0, edges = a_eloc_goal, mid = 0, perm = 0, cornerperm = 0;

    void turn(int t) {
        corner = twist_on_corner_ptrs[t][corner];
        edges = twist_on_eflip_ptrs[t][edges / a_eloc_size] * a_eloc_size +
                twist_on_eloc_ptrs[t][edges % a_eloc_size];
    }

    void turn_in_subgroup(int t) {
        mid = twist_on_midperm_ptrs[t][mid];
        perm = twist_on_edgeperm_ptrs[t][perm];
        cornerperm = b_twist_on_cornerperm_ptrs[t][cornerperm];
    }
};

// Walks random sequences back from the subgroup, the first twist of each a quarter turn out of it,
// and counts the places that the sieves up to a length do not have.
int lost_by_near1(int greatest) {
    int lost = 0;
    for (int i = 0; i < 200000; i++) {
        constexpr int out[] = {0, 2, 3, 5, 9, 11, 12, 14};
        place x;
        int t = out[below(8)];
        x.turn(t);
        for (int length = 1;; length += a_metric_length[t]) {
            for (int last = 0; last < twist_face_count; last++)
                lost += last != t / 3 && !near1_has(x.corner, x.edges, last, length);
            if (length == greatest)
                break;
            const int before = t;
            while (t / 3 == before / 3 || length + a_metric_length[t] > greatest)
                t = below(a_twist_count);
            x.turn(t);
        }
    }
    return lost;
}

int lost_by_near2(int greatest) {
    int lost = 0;
    for (int i = 0; i < 100000; i++) {
        place x;
        for (int length = 0; length <= greatest;) {
            lost += !near2_within(x.cornerperm, x.perm, x.mid, length);
            const int t = below(b_twist_count);
            x.turn_in_subgroup(t);
            length += b_metric_length[t];
        }
    }
    return lost;
}

struct Near : testing::Test {
    static void SetUpTestSuite() {
        while (!initializesolve())
            continue;
        lost_initially = lost_by_near1(near1_initial) + lost_by_near2(near2_ordinary);
        near1_extend(near1_ordinary);
        near2_extend(near2_greatest);
    }

    static inline int lost_initially;
};

} // namespace

TEST_F(Near, NoSequenceIsLostAtFirst) {
    EXPECT_EQ(lost_initially, 0);
}

TEST_F(Near, NoSequenceIsLostWhenTheSievesHaveGrown) {
    EXPECT_EQ(lost_by_near1(near1_ordinary), 0);
    EXPECT_EQ(lost_by_near2(near2_greatest), 0);
}

TEST_F(Near, FewStrangersPassTheStage1Sieves) {
    constexpr int tries = 200000;
    for (int length = 0; length <= near1_ordinary; length++) {
        int passed = 0;
        for (int i = 0; i < tries; i++)
            passed += near1_has(below(a_corner_size), below(a_edges_size), below(6), length);
        // One in a hundred is a member of the last, the next has an eighth of that.
        EXPECT_LT(passed, tries / 25) << length;
    }
}

TEST_F(Near, FewStrangersPassTheStage2Sieves) {
    constexpr int tries = 200000;
    for (int length = 0; length <= near2_greatest; length++) {
        int passed = 0;
        for (int i = 0; i < tries; i++)
            passed += near2_within(below(cornerperm_size), below(b_edgeperm_size),
                                   below(b_midperm_size), length);
        EXPECT_LT(passed, tries / 50) << length;
    }
}

TEST_F(Near, ALengthBeyondTheSievesPasses) {
    EXPECT_TRUE(near2_within(4711, 815, 3, near2_radius + 1));
}

TEST_F(Near, NoSequenceIsLostByTheGreatestSieve) {
    near1_extend(near1_greatest);
    EXPECT_EQ(lost_by_near1(near1_greatest), 0);
}
