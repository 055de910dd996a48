// SPDX-License-Identifier: MIT
#include "solver/perms.h"
#include "solver/phase2.h"
#include "solver/samples.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

class Phase2 : public testing::Test {
  protected:
    static void SetUpTestSuite() { transformation_tables_init(); }
};

constexpr int marked[3][4] = {
    {8, 9, 10, 11},
    {0, 2, 4,  6 },
    {1, 3, 5,  7 }
};

int slice_of(const plain::cube& c, const int (&edges)[4]) {
    int labels[12];
    for (int i = 0; i < 12; i++) {
        const int* const found = std::find(edges, edges + 4, c.edge[i]);
        labels[i] = found == edges + 4 ? 0 : static_cast<int>(found - edges) + 1;
    }
    return sliceedge_pack(labels);
}

int midperm_of(const plain::cube& c) {
    int p[4];
    for (int i = 0; i < 4; i++) {
        p[i] = c.edge[8 + i] - 8;
    }
    return perm_n_pack(4, p);
}

} // namespace

TEST_F(Phase2, PackAndUnpackAreInverseOverTheWholeRange) {
    int labels[12];
    for (int x = 0; x < sliceedge_size; x++) {
        sliceedge_unpack(x, labels);
        ASSERT_EQ(sliceedge_pack(labels), x);
    }
    for (int x = 0; x < halfedgeperm_size; x++) {
        halfedgeperm_unpack(x, labels);
        ASSERT_EQ(halfedgeperm_pack(labels), x);
    }
    EXPECT_EQ(halfedgeloc_conv[0], 0x0F);
    EXPECT_EQ(halfedgeloc_conv[1], 0x17);
    EXPECT_EQ(halfedgeloc_conv[4], 0x87);
    EXPECT_EQ(halfedgeloc_conv[5], 0x1B);
    EXPECT_EQ(halfedgeloc_conv[69], 0xF0);
    EXPECT_EQ(halfedgeloc_unconv[0x1F], 0);
}

TEST_F(Phase2, CornerMovesAreThoseOfTheTwinsCube) {
    for (int x = 0; x < cornerperm_size; x++) {
        plain::cube c = plain::solvedcube();
        perm_n_unpack(8, x, c.corner);
        for (int t = 0; t < a_twist_count; t++) {
            ASSERT_EQ(a_twist_on_cornerperm_ptrs[t][x], perm_n_pack(8, plain::turned(c, t).corner));
        }
    }
    for (int t = 0; t < b_twist_count; t++) {
        EXPECT_EQ(b_twist_on_cornerperm_ptrs[t], a_twist_on_cornerperm_ptrs[b_to_a_twist[t]]);
    }
}

TEST_F(Phase2, LayerEdgeMovesAreThoseOfTheTwinsCube) {
    for (int x = 0; x < b_edgeperm_size; x++) {
        plain::cube c = plain::solvedcube();
        perm_n_unpack(8, x, c.edge);
        for (int t = 0; t < b_twist_count; t++) {
            ASSERT_EQ(twist_on_edgeperm_ptrs[t][x],
                      perm_n_pack(8, plain::turned(c, b_to_a_twist[t]).edge));
        }
    }
}

TEST_F(Phase2, SliceEdgeMovesAreThoseOfTheTwinsCube) {
    for (int x = 0; x < b_midperm_size; x++) {
        plain::cube c = plain::solvedcube();
        perm_n_unpack(4, x, c.edge + 8);
        for (int i = 8; i < 12; i++) {
            c.edge[i] += 8;
        }
        for (int t = 0; t < b_twist_count; t++) {
            ASSERT_EQ(twist_on_midperm_ptrs[t][x], midperm_of(plain::turned(c, b_to_a_twist[t])));
        }
    }
    for (int x = 0; x < sliceedge_size; x++) {
        int labels[12];
        sliceedge_unpack(x, labels);
        plain::cube c = plain::solvedcube();
        for (int i = 0, other = 0; i < 12; i++) {
            c.edge[i] = labels[i] != 0 ? 7 + labels[i] : other++;
        }
        for (int t = 0; t < a_twist_count; t++) {
            ASSERT_EQ(twist_on_sliceedge_ptrs[t][x], slice_of(plain::turned(c, t), marked[0]));
        }
    }
}

TEST_F(Phase2, TheJunctionFindsThePermutationsOfAnyCubeOfTheSubgroup) {
    std::mt19937 random(4301);
    for (int i = 0; i < 2000; i++) {
        const plain::cube c = i == 0 ? plain::solvedcube() : randomsubcube(random);
        EXPECT_EQ(sliceedge_to_midperm[slice_of(c, marked[0])], midperm_of(c));
        const int even = sliceedge_to_halfedgeperm[slice_of(c, marked[1])];
        const int odd = sliceedge_to_halfedgeperm[slice_of(c, marked[2])];
        EXPECT_EQ(half_to_edgeperm_ptrs[even][odd], perm_n_pack(8, c.edge));
    }
}

TEST_F(Phase2, ImpossibleCombinationsAreMarked) {
    EXPECT_EQ(std::count(sliceedge_to_midperm, std::end(sliceedge_to_midperm), impossible),
              sliceedge_size - b_midperm_size);
    EXPECT_EQ(
        std::count(sliceedge_to_halfedgeperm, std::end(sliceedge_to_halfedgeperm), impossible),
        sliceedge_size - halfedgeperm_size);
    for (int h = 0; h < halfedgeperm_size; h++) {
        ASSERT_EQ(std::count(half_to_edgeperm_ptrs[h], half_to_edgeperm_ptrs[h] + halfedgeperm_size,
                             impossible),
                  halfedgeperm_size - 24);
    }
    const int one[8] = {1, 2, 3, 4, 0, 0, 0, 0};
    const int other[8] = {0, 0, 0, 1, 2, 3, 4, 0};
    int out[8];
    EXPECT_EQ(combine_halfedgeperm(one, other, out), 1);
    // An overlap is found behind a gap, too.
    const int gap[8] = {0, 1, 2, 3, 4, 0, 0, 0};
    const int half[8] = {0, 0, 0, 0, 1, 2, 3, 4};
    EXPECT_EQ(combine_halfedgeperm(gap, half, out), 1);
}

TEST_F(Phase2, HalvesThatLeaveAGapEndTheProgram) {
    const int one[8] = {1, 2, 3, 0, 0, 0, 0, 0};
    const int other[8] = {0, 0, 0, 0, 1, 2, 3, 4};
    int out[8];
    EXPECT_EXIT((void)combine_halfedgeperm(one, other, out), testing::ExitedWithCode(1), "^$");
}

TEST_F(Phase2, TheEdgeTablesAreBuiltAloneAlike) {
    const auto kept = [](const auto& table) {
        return std::vector(std::begin(table), std::end(table));
    };
    const auto slices = kept(twist_on_sliceedge_table);
    const auto halves = kept(sliceedge_to_halfedgeperm);
    const auto edges = kept(half_to_edgeperm_table);
    const auto mids = kept(sliceedge_to_midperm);
    std::fill(std::begin(twist_on_sliceedge_table), std::end(twist_on_sliceedge_table),
              std::uint16_t{0});
    std::fill(std::begin(sliceedge_to_halfedgeperm), std::end(sliceedge_to_halfedgeperm), 0);
    std::fill(std::begin(half_to_edgeperm_table), std::end(half_to_edgeperm_table),
              std::uint16_t{0});
    std::fill(std::begin(sliceedge_to_midperm), std::end(sliceedge_to_midperm), 0);
    edge_transform_tables_init();
    EXPECT_EQ(kept(twist_on_sliceedge_table), slices);
    EXPECT_EQ(kept(sliceedge_to_halfedgeperm), halves);
    EXPECT_EQ(kept(half_to_edgeperm_table), edges);
    EXPECT_EQ(kept(sliceedge_to_midperm), mids);
}
