// SPDX-License-Identifier: MIT
#include "solver/pruning.h"

#include <algorithm>

namespace {

// The layered fill, over states 0..rows*columns-1 and one stage's twists. image(x, t) is the state
// after twist t.
template <typename entry, typename image_function>
void fill_distances(entry* table, int size, int goal, const int* lengths, int twists,
                    image_function image) {
    // 1. Nothing is reached.
    std::fill(table, table + size, entry{unreached});
    // 2. How many layers a twist can span.
    const int maxlen = *std::max_element(lengths, lengths + twists);
    // 3, 4. Layers, from the goal outwards.
    table[goal] = 0;
    for (int d = 1, changed = 1; changed != 0; d++) {
        changed = 0;
        for (int x = 0; x < size; x++) {
            if (table[x] < d - maxlen || table[x] >= d)
                continue;
            for (int t = 0; t < twists; t++) {
                if (table[x] + lengths[t] != d)
                    continue;
                const int y = image(x, t);
                if (table[y] > d) {
                    table[y] = static_cast<entry>(d);
                    changed++;
                }
            }
        }
    }
}

// The same for a pair of coordinates, each with its move table.
template <typename row_entry, typename column_entry>
void fill_pair_distances(std::uint8_t* table, std::uint8_t** ptrs, int rows, int columns, int goal,
                         const int* lengths, int twists, row_entry* const* row_moves,
                         column_entry* const* column_moves) {
    point_rows(table, ptrs, rows, columns);
    fill_distances(table, rows * columns, goal, lengths, twists, [=](int x, int t) {
        return row_moves[t][x / columns] * columns + column_moves[t][x % columns];
    });
}

} // namespace

constinit std::uint8_t corner_eflip_dist_table[a_corner_size * a_eflip_size] = {};
constinit std::uint8_t corner_eloc_dist_table[a_corner_size * a_eloc_size] = {};
constinit std::uint8_t eflip_eloc_dist_table[a_eflip_size * a_eloc_size] = {};
constinit std::uint8_t* corner_eflip_dist_ptrs[a_corner_size] = {};
constinit std::uint8_t* corner_eloc_dist_ptrs[a_corner_size] = {};
constinit std::uint8_t* eflip_eloc_dist_ptrs[a_eflip_size] = {};

constinit int cornerperm_dist_table[cornerperm_size] = {};
constinit std::uint8_t mid_cornerperm_dist_table[b_midperm_size * cornerperm_size] = {};
constinit std::uint8_t mid_edgeperm_dist_table[b_midperm_size * b_edgeperm_size] = {};
constinit std::uint8_t* mid_cornerperm_dist_ptrs[b_midperm_size] = {};
constinit std::uint8_t* mid_edgeperm_dist_ptrs[b_midperm_size] = {};

void a_corner_eflip_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_pair_distances(table, ptrs, a_corner_size, a_eflip_size, 0, a_metric_length, a_twist_count,
                        twist_on_corner_ptrs, twist_on_eflip_ptrs);
}

void a_corner_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_pair_distances(table, ptrs, a_corner_size, a_eloc_size, a_eloc_goal, a_metric_length,
                        a_twist_count, twist_on_corner_ptrs, twist_on_eloc_ptrs);
}

void a_eflip_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_pair_distances(table, ptrs, a_eflip_size, a_eloc_size, a_eloc_goal, a_metric_length,
                        a_twist_count, twist_on_eflip_ptrs, twist_on_eloc_ptrs);
}

void b_cornerperm_dist_init(int* table) {
    fill_distances(table, cornerperm_size, 0, b_metric_length, b_twist_count,
                   [](int x, int t) { return b_twist_on_cornerperm_ptrs[t][x]; });
}

void b_mid_cornerperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_pair_distances(table, ptrs, b_midperm_size, cornerperm_size, 0, b_metric_length,
                        b_twist_count, twist_on_midperm_ptrs, b_twist_on_cornerperm_ptrs);
}

void b_mid_edgeperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_pair_distances(table, ptrs, b_midperm_size, b_edgeperm_size, 0, b_metric_length,
                        b_twist_count, twist_on_midperm_ptrs, twist_on_edgeperm_ptrs);
}

void prune_tables_init() {
    a_corner_eflip_dist_init(corner_eflip_dist_table, corner_eflip_dist_ptrs);
    a_corner_eloc_dist_init(corner_eloc_dist_table, corner_eloc_dist_ptrs);
    a_eflip_eloc_dist_init(eflip_eloc_dist_table, eflip_eloc_dist_ptrs);
    b_cornerperm_dist_init(cornerperm_dist_table);
    b_mid_cornerperm_dist_init(mid_cornerperm_dist_table, mid_cornerperm_dist_ptrs);
    b_mid_edgeperm_dist_init(mid_edgeperm_dist_table, mid_edgeperm_dist_ptrs);
}
