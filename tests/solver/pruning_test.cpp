// SPDX-License-Identifier: MIT
#include "solver/pruning.h"
#include "solver/twisttables.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

class Pruning : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        twist_tables_init();
        transformation_tables_init();
        prune_tables_init();
    }
};

// A pair table, its goal and how a twist changes a pair.
struct table_row {
    const char* name;
    const std::uint8_t* cells;
    int rows, columns, goal, twists;
    int (*row_move)(int t, int x);
    int (*column_move)(int t, int x);
    const std::vector<int> histogram; // how many states at distance 0, 1, 2, ...
};

int move_corner(int t, int x) {
    return twist_on_corner_ptrs[t][x];
}

int move_eflip(int t, int x) {
    return twist_on_eflip_ptrs[t][x];
}

int move_eloc(int t, int x) {
    return twist_on_eloc_ptrs[t][x];
}

int move_mid(int t, int x) {
    return twist_on_midperm_ptrs[t][x];
}

int move_cornerperm(int t, int x) {
    return b_twist_on_cornerperm_ptrs[t][x];
}

int move_edgeperm(int t, int x) {
    return twist_on_edgeperm_ptrs[t][x];
}

// The histograms are those of the plain fill that looks at every state for every layer.
// clang-format off
const table_row tables[] = {
    {"corner_eflip", corner_eflip_dist_table,
     a_corner_size, a_eflip_size, 0, 18, move_corner, move_eflip,
     {1, 4, 34, 300, 2556, 21276, 168539, 1038210, 2562320, 683124, 2612}},
    {"corner_eloc", corner_eloc_dist_table,
     a_corner_size, a_eloc_size, 494, 18, move_corner, move_eloc,
     {1, 4, 34, 306, 2352, 16040, 91872, 336982, 490442, 141302, 3224, 6}},
    {"eflip_eloc", eflip_eloc_dist_table,
     a_eflip_size, a_eloc_size, 494, 18, move_eflip, move_eloc,
     {1, 4, 34, 296, 2276, 17520, 112797, 453554, 417752, 9524, 2}},
    {"mid_cornerperm", mid_cornerperm_dist_table,
     b_midperm_size, cornerperm_size, 0, 10, move_mid, move_cornerperm,
     {1, 4, 10, 36, 123, 344, 980, 2648, 6131, 13372, 24892, 37716,
      58249, 83984, 97550, 125480, 127584, 114256, 121408, 75056, 46848, 30944, 64}},
    {"mid_edgeperm", mid_edgeperm_dist_table,
     b_midperm_size, b_edgeperm_size, 0, 10, move_mid, move_edgeperm,
     {1, 4, 10, 36, 123, 368, 1176, 3680, 10039, 27236,
      63466, 127060, 204793, 236520, 179704, 79130, 24240, 9518, 288, 288}},
};

// clang-format on

int image(const table_row& table, int t, int x) {
    return table.row_move(t, x / table.columns) * table.columns +
           table.column_move(t, x % table.columns);
}

int cost(const table_row& table, int t) {
    return table.twists == a_twist_count ? a_metric_length[t] : b_metric_length[t];
}

// Walks outwards from the goal, quarter turns before half turns, with a queue for each distance.
std::vector<std::uint8_t> searched(const table_row& table) {
    std::vector<std::uint8_t> distance(static_cast<std::size_t>(table.rows * table.columns), 255);
    std::vector<std::vector<int>> waiting(40);
    waiting[0].push_back(table.goal);
    for (std::size_t d = 0; d + 2 < waiting.size(); d++) {
        for (const int x : waiting[d]) {
            if (distance[x] != 255) {
                continue;
            }
            distance[x] = static_cast<std::uint8_t>(d);
            for (int t = 0; t < table.twists; t++) {
                if (const int y = image(table, t, x); distance[y] == 255) {
                    waiting[d + static_cast<std::size_t>(cost(table, t))].push_back(y);
                }
            }
        }
    }
    return distance;
}

int least_with_any_slice(int cornerperm) {
    int least = unreached;
    for (const auto* row : mid_cornerperm_dist_ptrs) {
        least = std::min<int>(least, row[cornerperm]);
    }
    return least;
}

} // namespace

TEST_F(Pruning, DistancesAreThoseOfAnIndependentSearch) {
    for (const table_row& table : tables) {
        SCOPED_TRACE(table.name);
        const auto expected = searched(table);
        EXPECT_TRUE(std::equal(expected.begin(), expected.end(), table.cells));
    }
}

TEST_F(Pruning, HistogramsAreTheKnownOnes) {
    for (const table_row& table : tables) {
        SCOPED_TRACE(table.name);
        std::vector<int> found(table.histogram.size());
        for (int x = 0; x < table.rows * table.columns; x++) {
            ASSERT_LT(table.cells[x], found.size());
            found[table.cells[x]]++;
        }
        EXPECT_EQ(found, table.histogram);
    }
}

TEST_F(Pruning, NoTwistChangesADistanceByMoreThanItCosts) {
    for (const table_row& table : tables) {
        for (int x = 0; x < table.rows * table.columns; x++) {
            for (int t = 0; t < table.twists; t++) {
                ASSERT_LE(table.cells[image(table, t, x)], table.cells[x] + cost(table, t))
                    << table.name << ' ' << x << ' ' << t;
            }
        }
    }
}

TEST_F(Pruning, OnlyTheGoalIsAtDistanceZero) {
    for (const table_row& table : tables) {
        EXPECT_EQ(table.cells[table.goal], 0) << table.name;
        EXPECT_EQ(std::count(table.cells, table.cells + table.rows * table.columns, 0), 1);
    }
}

TEST_F(Pruning, CornersAloneAreAsFarAsWithTheNearestSlice) {
    for (int x = 0; x < cornerperm_size; x++) {
        ASSERT_EQ(cornerperm_dist_table[x], least_with_any_slice(x));
    }
}

TEST_F(Pruning, NoCubeIsFartherThanTheLeastDepthSetting) {
    EXPECT_LT(
        *std::max_element(std::begin(corner_eflip_dist_table), std::end(corner_eflip_dist_table)),
        14);
    EXPECT_LT(
        *std::max_element(std::begin(corner_eloc_dist_table), std::end(corner_eloc_dist_table)),
        14);
    EXPECT_LT(*std::max_element(std::begin(eflip_eloc_dist_table), std::end(eflip_eloc_dist_table)),
              14);
}

TEST_F(Pruning, InTheOtherMetricAHalfTurnIsOneStep) {
    twist_tables_init(face_turn_metric);
    prune_tables_init();
    for (const table_row& table : tables) {
        SCOPED_TRACE(table.name);
        for (int t = 0; t < table.twists; t++) {
            const int after = image(table, t, table.goal);
            EXPECT_EQ(table.cells[after], after == table.goal ? 0 : 1);
        }
        const auto expected = searched(table);
        EXPECT_TRUE(std::equal(expected.begin(), expected.end(), table.cells));
    }
    for (int x = 0; x < cornerperm_size; x++) {
        ASSERT_EQ(cornerperm_dist_table[x], least_with_any_slice(x));
    }
    twist_tables_init();
    prune_tables_init();
}
