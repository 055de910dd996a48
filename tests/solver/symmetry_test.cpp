// SPDX-License-Identifier: MIT
#include "solver/pruning.h"
#include "solver/symmetry.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>

namespace {

class Symmetry : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        options_init(user_options);
        twist_lengths_init(&a_metric_length, &b_metric_length);
        is_stage2_twist_init(is_stage2_twist);
        twist_sequences_init(twist_list_table, a_twist_list_ptrs, b_twist_list_ptrs);
        transformation_tables_init();
        a_eflip_eloc_dist_init(eflip_eloc_dist_table, eflip_eloc_dist_ptrs);
        symmetry_tables_init();
    }
};

int edges_after(int t, int x) {
    return twist_on_eflip_ptrs[t][x / a_eloc_size] * a_eloc_size +
           twist_on_eloc_ptrs[t][x % a_eloc_size];
}

} // namespace

// With this and the goal's being kept, no distance from the goal can change under a symmetry.
TEST_F(Symmetry, TurningAndThenSeeingIsSeeingAndThenTurningTheImage) {
    for (int s = 0; s < symmetry_count; s++)
        for (int t = 0; t < a_twist_count; t++) {
            const int image = symmetry_on_twist[s][t];
            for (int x = 0; x < a_corner_size; x++)
                ASSERT_EQ(symmetry_on_corner[twist_on_corner_ptrs[t][x]][s],
                          twist_on_corner_ptrs[image][symmetry_on_corner[x][s]]);
            for (int x = s; x < a_edges_size; x += 11)
                ASSERT_EQ(symmetry_on_edges(s, edges_after(t, x)),
                          edges_after(image, symmetry_on_edges(s, x)));
        }
}

TEST_F(Symmetry, TheGoalIsKept) {
    for (int s = 0; s < symmetry_count; s++) {
        EXPECT_EQ(symmetry_on_corner[0][s], 0);
        EXPECT_EQ(symmetry_on_edges(s, a_eloc_goal), a_eloc_goal);
    }
}

TEST_F(Symmetry, ProductsActOneAfterTheOther) {
    for (int a = 0; a < symmetry_count; a++)
        for (int b = 0; b < symmetry_count; b++) {
            const int product = symmetry_on_symmetry[b][a];
            for (int x = 0; x < a_corner_size; x += 5)
                ASSERT_EQ(symmetry_on_corner[x][product],
                          symmetry_on_corner[symmetry_on_corner[x][a]][b]);
            for (int x = 1; x < a_edges_size; x += 4999)
                ASSERT_EQ(symmetry_on_edges(product, x),
                          symmetry_on_edges(b, symmetry_on_edges(a, x)));
        }
}

TEST_F(Symmetry, TheClassesPartTheEdges) {
    int total = 0;
    for (int c = 0; c < edge_class_count; c++)
        total += symmetry_count / std::popcount(edge_class_stabilizer[c]);
    EXPECT_EQ(total, a_edges_size);
    EXPECT_TRUE(std::is_sorted(std::begin(edge_class_edges), std::end(edge_class_edges)));
}

TEST_F(Symmetry, EveryValueIsClassifiedToItsRepresentative) {
    for (int x = 0; x < a_edges_size; x += 3) {
        const class_step step = classify_edges(x);
        ASSERT_EQ(symmetry_on_edges(step.symmetry, x), edge_class_edges[step.edge_class]);
    }
}

TEST_F(Symmetry, StepsLeadToTheImageOfTheTurnedRepresentative) {
    for (int c = 0; c < edge_class_count; c++)
        for (int t = 0; t < a_twist_count; t++) {
            const class_step step = edge_class_steps[c][t];
            const int after = edges_after(t, edge_class_edges[c]);
            ASSERT_EQ(symmetry_on_edges(step.symmetry, after), edge_class_edges[step.edge_class]);
            ASSERT_EQ(step.distance, eflip_eloc_dist_table[after]);
        }
}
