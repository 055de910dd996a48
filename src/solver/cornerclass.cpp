// SPDX-License-Identifier: MIT
#include "solver/cornerclass.h"

#include "shell.h"
#include "solver/pruning.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <iterator>

namespace {

constexpr int beyond = corner_reach + 1;

// The a_corners of a class that are at a distance, and of those the number.
int row_at(int corner_class, int distance, int (&found)[a_corner_size]) {
    constexpr std::uint64_t ones = 0x1111111111111111;
    int count = 0;
    for (int begin = 0; begin < a_corner_size; begin += 16) {
        // Where four bits are equal these are zero, and the highest of the difference to one less.
        const std::uint64_t unequal =
            corner_bounds[corner_class][begin / 16] ^ ones * static_cast<unsigned>(distance);
        if (((unequal - ones) & ~unequal & ones * 8) == 0) {
            continue;
        }
        for (int y = begin; y < begin + 16 && y < a_corner_size; y++) {
            found[count] = y;
            count += corner_bound(corner_class, y) == distance ? 1 : 0;
        }
    }
    return count;
}

// Writes a distance, and tells if the state had none before.
bool enter(int corner_class, int corner, int distance) {
    std::uint64_t& word = corner_bounds[corner_class][corner / 16];
    const int shift = corner % 16 * 4;
    const bool fresh = (word >> shift & 15) == beyond;
    if (fresh) {
        word ^= static_cast<std::uint64_t>(beyond ^ distance) << shift;
    }
    return fresh;
}

// A representative that looks the same from elsewhere is as far from there.
int complete_row(int corner_class, int distance, int (&found)[a_corner_size], int count) {
    const unsigned others =
        classes_of_cornerperm.stabilizer[static_cast<std::size_t>(corner_class)] & ~1u;
    for (int i = 0; i < count; i++) {
        for (unsigned rest = others; rest != 0; rest &= rest - 1) {
            const int y = symmetry_on_corner[found[i]][std::countr_zero(rest)];
            if (enter(corner_class, y, distance)) {
                found[count++] = y;
            }
        }
    }
    return count;
}

// From the states of a class at a distance to all a quarter turn away.
void walk_row(int corner_class, int distance) {
    int found[a_corner_size];
    const int count =
        complete_row(corner_class, distance, found, row_at(corner_class, distance, found));
    for (int t = 0; t < a_twist_count && count > 0 && distance < corner_reach; t++) {
        if (a_metric_length[t] != 1) {
            continue;
        }
        const classified_corners to = corner_class_steps[corner_class][t];
        for (int i = 0; i < count; i++) {
            const int y = symmetry_on_corner[a_corner_steps[found[i]].after[t]][to.symmetry];
            enter(to.corner_class, y, distance + 1);
        }
    }
}

} // namespace

constinit bool corner_bounds_filled = false;
constinit std::uint64_t corner_bounds[corner_class_count][(a_corner_size + 15) / 16] = {};

bool corner_bounds_fill() {
    if (corner_bounds_filled) {
        return true;
    }
    for (auto& row : corner_bounds) {
        std::fill(std::begin(row), std::end(row), 0x1111111111111111u * beyond);
    }
    enter(0, 0, 0);
    for (int distance = 0; distance <= corner_reach; distance++) {
        if (alt_q() != 0) {
            return false;
        }
        for (int c = 0; c < corner_class_count; c++) {
            walk_row(c, distance);
        }
    }
    corner_bounds_filled = true;
    return true;
}

constinit classified_corners corner_class_steps[corner_class_count][a_twist_count] = {};

classified_corners classify_corners(int cornerperm) {
    const classified place = classes_of_cornerperm.of[static_cast<std::size_t>(cornerperm)];
    return {place.number, place.symmetry,
            static_cast<std::uint8_t>(cornerperm_dist_table[cornerperm])};
}

void corner_classes_init() {
    if (corner_class_steps[0][0].distance != 0) {
        return;
    }
    symmetry_perm_tables_init();
    assert(metric == quarter_turn_metric);
    assert(classes_of_cornerperm.representatives.size() == corner_class_count);
    for (std::size_t c = 0; c < corner_class_count; c++) {
        for (int t = 0; t < a_twist_count; t++) {
            corner_class_steps[c][t] = classify_corners(
                a_twist_on_cornerperm_ptrs[t][classes_of_cornerperm.representatives[c]]);
        }
    }
}
