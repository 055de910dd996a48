// SPDX-License-Identifier: MIT
#include "solver/pruning.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

// The twists that a fill needs: all but half turns that cost just as much as the two quarter turns
// of the same face before them in the list.
std::vector<int> needed_twists(const int* lengths, const int* const* faces, int twists) {
    std::vector<int> needed;
    for (int t = 0; t < twists; t++)
        if (t == 0 || faces[t] != faces[t - 1] || lengths[t] != 2 * lengths[t - 1])
            needed.push_back(t);
    return needed;
}

// The layered fill of a pair table. A layer is walked from once, row by row, so that what a twist
// writes to lies in one row; the last layers, which most states belong to, are walked back from.
template <typename entry, typename row_entry, typename column_entry> class layered_fill {
  public:
    layered_fill(entry* cells, int row_count, int column_count, const int* twist_lengths,
                 const std::vector<int>& twist_list, row_entry* const* moves_of_rows,
                 column_entry* const* moves_of_columns)
        : table(cells), rows(row_count), columns(column_count), lengths(twist_lengths),
          twists(twist_list), row_moves(moves_of_rows), column_moves(moves_of_columns),
          frontier(static_cast<std::size_t>(column_count)) {}

    void run(int goal) {
        // 1. Nothing is reached.
        std::fill(table, table + rows * columns, entry{unreached});
        // 2. How many layers a twist can span.
        int maxlen = 0;
        for (const int t : twists)
            maxlen = std::max(maxlen, lengths[t]);
        // 3, 4. Layers, from the goal outwards, until nothing changes or nothing is left.
        table[goal] = 0;
        left = rows * columns - 1;
        for (int d = 1, idle = 0; idle < maxlen && left > 0; d++) {
            const int before = left;
            if (left > rows * columns / 2)
                for (int length = 1; length <= maxlen && length <= d; length++)
                    walk_from(d - length, length);
            else
                walk_back(d);
            idle = left == before ? idle + 1 : 0;
        }
    }

  private:
    // All twists of a length from all states of a layer.
    void walk_from(int layer, int length) {
        const auto reached = static_cast<entry>(layer + length);
        for (int row = 0; row < rows; row++) {
            const entry* const cells = table + row * columns;
            if (sizeof(entry) == 1 && std::memchr(cells, layer, frontier.size()) == nullptr)
                continue;
            int found = 0;
            for (int column = 0; column < columns; column++) {
                frontier[static_cast<std::size_t>(found)] = column;
                found += cells[column] == layer;
            }
            for (const int t : twists)
                if (found > 0 && lengths[t] == length)
                    write(table + row_moves[t][row] * columns, column_moves[t], found, reached);
        }
    }

    // When few are left it is quicker to ask each of them for a neighbour in the right layer. The
    // twists' inverses are among the twists.
    void walk_back(int d) {
        for (int row = 0; row < rows; row++)
            for (int column = 0; column < columns; column++) {
                entry& cell = table[row * columns + column];
                if (cell == unreached && has_neighbour(row, column, d)) {
                    cell = static_cast<entry>(d);
                    left--;
                }
            }
    }

    bool has_neighbour(int row, int column, int d) const {
        for (const int t : twists)
            if (table[row_moves[t][row] * columns + column_moves[t][column]] == d - lengths[t])
                return true;
        return false;
    }

    void write(entry* to, const column_entry* moves, int found, entry reached) {
        int fresh = 0;
        for (int i = 0; i < found; i++) {
            entry& cell = to[moves[frontier[static_cast<std::size_t>(i)]]];
            fresh += cell == unreached;
            cell = std::min(cell, reached);
        }
        left -= fresh;
    }

    entry* table;
    int rows, columns;
    const int* lengths;
    std::vector<int> twists;
    row_entry* const* row_moves;
    column_entry* const* column_moves;
    std::vector<int> frontier; // columns of the layer in one row
    int left = 0;              // cells not reached
};

template <typename row_entry, typename column_entry>
void fill_stage1(std::uint8_t* table, std::uint8_t** ptrs, int rows, int columns, int goal,
                 row_entry* const* row_moves, column_entry* const* column_moves) {
    point_rows(table, ptrs, rows, columns);
    layered_fill(table, rows, columns, a_metric_length,
                 needed_twists(a_metric_length, a_twist_list_ptrs, a_twist_count), row_moves,
                 column_moves)
        .run(goal);
}

template <typename entry, typename row_entry>
void fill_stage2(entry* table, int rows, row_entry* const* row_moves,
                 std::uint16_t* const* column_moves) {
    layered_fill(table, rows, cornerperm_size, b_metric_length,
                 needed_twists(b_metric_length, b_twist_list_ptrs, b_twist_count), row_moves,
                 column_moves)
        .run(0);
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
    fill_stage1(table, ptrs, a_corner_size, a_eflip_size, 0, twist_on_corner_ptrs,
                twist_on_eflip_ptrs);
}

void a_corner_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_stage1(table, ptrs, a_corner_size, a_eloc_size, a_eloc_goal, twist_on_corner_ptrs,
                twist_on_eloc_ptrs);
}

void a_eflip_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    fill_stage1(table, ptrs, a_eflip_size, a_eloc_size, a_eloc_goal, twist_on_eflip_ptrs,
                twist_on_eloc_ptrs);
}

void b_cornerperm_dist_init(int* table) {
    // One row, which no twist leaves.
    constexpr int stay = 0;
    const int* no_rows[b_twist_count];
    std::fill(no_rows, no_rows + b_twist_count, &stay);
    fill_stage2(table, 1, no_rows, b_twist_on_cornerperm_ptrs);
}

void b_mid_cornerperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    point_rows(table, ptrs, b_midperm_size, cornerperm_size);
    fill_stage2(table, b_midperm_size, twist_on_midperm_ptrs, b_twist_on_cornerperm_ptrs);
}

void b_mid_edgeperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    point_rows(table, ptrs, b_midperm_size, b_edgeperm_size);
    fill_stage2(table, b_midperm_size, twist_on_midperm_ptrs, twist_on_edgeperm_ptrs);
}

void prune_tables_init() {
    a_corner_eflip_dist_init(corner_eflip_dist_table, corner_eflip_dist_ptrs);
    a_corner_eloc_dist_init(corner_eloc_dist_table, corner_eloc_dist_ptrs);
    a_eflip_eloc_dist_init(eflip_eloc_dist_table, eflip_eloc_dist_ptrs);
    b_cornerperm_dist_init(cornerperm_dist_table);
    b_mid_cornerperm_dist_init(mid_cornerperm_dist_table, mid_cornerperm_dist_ptrs);
    b_mid_edgeperm_dist_init(mid_edgeperm_dist_table, mid_edgeperm_dist_ptrs);
}
