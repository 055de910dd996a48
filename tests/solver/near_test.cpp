// SPDX-License-Identifier: MIT
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/solver.h"

#include <gtest/gtest.h>
#include <random>

namespace {

class Near : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        while (!initializesolve())
            continue;
        near1_extend(near1_ordinary);
    }

    std::mt19937 random{4501};

    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
};

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

} // namespace

// Sequences back from the subgroup, the first of them a quarter turn out of it.
TEST_F(Near, NoSequenceThatReachesTheSubgroupIsLost) {
    for (int i = 0; i < 300000; i++) {
        constexpr int out[] = {0, 2, 3, 5, 9, 11, 12, 14};
        place x;
        int t = out[below(8)];
        x.turn(t);
        int length = 1;
        while (length < near1_ordinary) {
            for (int last = 0; last < twist_face_count; last++)
                ASSERT_TRUE(last == t / 3 || near1_has(x.corner, x.edges, last, length)) << length;
            int next = below(a_twist_count);
            while (next / 3 == t / 3 || length + a_metric_length[next] > near1_ordinary)
                next = below(a_twist_count);
            t = next;
            x.turn(t);
            length += a_metric_length[t];
        }
        ASSERT_TRUE(near1_has(x.corner, x.edges, (t / 3 + 1) % 6, length));
    }
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

TEST_F(Near, NoSequenceThatSolvesIsLost) {
    for (int i = 0; i < 100000; i++) {
        place x;
        for (int length = 0; length <= near2_ordinary;) {
            ASSERT_TRUE(near2_within(x.cornerperm, x.perm, x.mid, length));
            const int t = below(b_twist_count);
            x.turn_in_subgroup(t);
            length += b_metric_length[t];
        }
    }
}

TEST_F(Near, FewStrangersPassTheStage2Sieves) {
    constexpr int tries = 200000;
    for (int length = 0; length <= near2_ordinary; length++) {
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
