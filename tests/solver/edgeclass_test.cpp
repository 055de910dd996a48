// SPDX-License-Identifier: MIT
#include "solver/edgeclass.h"
#include "solver/pruning.h"
#include "solver/twisttables.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <utility>

namespace {

class EdgeClass : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        twist_tables_init();
        transformation_tables_init();
        a_eflip_eloc_dist_init(eflip_eloc_dist_table, eflip_eloc_dist_ptrs);
        edge_classes_init();
    }
};

int edges_after(int t, int x) {
    return twist_on_eflip_ptrs[t][x / a_eloc_size] * a_eloc_size +
           twist_on_eloc_ptrs[t][x % a_eloc_size];
}

} // namespace

TEST_F(EdgeClass, TheClassesPartTheEdges) {
    int total = 0;
    for (int c = 0; c < edge_class_count; c++) {
        total += symmetry_count / std::popcount(edge_class_stabilizer[c]);
    }
    EXPECT_EQ(total, a_edges_size);
    const auto before = [](int a, int b) {
        return std::pair(eflip_eloc_dist_table[a], a) < std::pair(eflip_eloc_dist_table[b], b);
    };
    EXPECT_TRUE(std::is_sorted(std::begin(edge_class_edges), std::end(edge_class_edges), before));
    EXPECT_EQ(edge_class_edges[0], a_eloc_goal);
}

TEST_F(EdgeClass, EveryValueIsClassifiedToItsRepresentative) {
    for (int x = 0; x < a_edges_size; x += 3) {
        const classified_edges step = classify_edges(x);
        ASSERT_EQ(symmetry_on_edges(step.symmetry, x), edge_class_edges[step.edge_class]);
        ASSERT_EQ(step.distance, eflip_eloc_dist_table[x]);
    }
}

TEST_F(EdgeClass, StepsLeadToTheImageOfTheTurnedRepresentative) {
    for (int c = 0; c < edge_class_count; c++) {
        for (int t = 0; t < a_twist_count; t++) {
            const classified_edges step = edge_class_steps[c].after(t);
            const int after = edges_after(t, edge_class_edges[c]);
            ASSERT_EQ(symmetry_on_edges(step.symmetry, after), edge_class_edges[step.edge_class]);
            ASSERT_EQ(step.distance, eflip_eloc_dist_table[after]);
        }
    }
}

TEST_F(EdgeClass, TheMoveTableTurnedRoundIsTheMoveTable) {
    for (int x = 0; x < a_corner_size; x++) {
        for (int t = 0; t < a_twist_count; t++) {
            ASSERT_EQ(a_corner_steps[x].after[t], twist_on_corner_ptrs[t][x]);
        }
    }
}
