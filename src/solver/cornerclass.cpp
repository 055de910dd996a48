// SPDX-License-Identifier: MIT
#include "solver/cornerclass.h"

#include "shell.h"
#include "solver/pruning.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <iterator>

namespace {

// While the distances are found a code is one of these.
constexpr int greatest_distance = 10;
constexpr int beyond = greatest_distance + 1;

// The a_corners of a class that are at a distance, and of those the number.
int row_at(int corner_class, int distance, int (&found)[a_corner_size]) {
    constexpr std::uint64_t ones = 0x1111111111111111;
    int count = 0;
    for (int begin = 0; begin < a_corner_size; begin += 16) {
        // Where four bits are equal these are zero, and the highest of the difference to one less.
        const std::uint64_t unequal =
            corner_codes[corner_class][begin / 16] ^ ones * static_cast<unsigned>(distance);
        if (((unequal - ones) & ~unequal & ones * 8) == 0) {
            continue;
        }
        for (int y = begin; y < begin + 16 && y < a_corner_size; y++) {
            found[count] = y;
            count += static_cast<int>(corner_code(corner_class, y)) == distance ? 1 : 0;
        }
    }
    return count;
}

// Writes a distance, and tells if the state had none before.
bool enter(int corner_class, int corner, int distance) {
    std::uint64_t& word = corner_codes[corner_class][corner / 16];
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
    for (int t = 0; t < a_twist_count && count > 0 && distance < greatest_distance; t++) {
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

// false when interrupted.
bool fill_distances() {
    for (auto& row : corner_codes) {
        std::fill(std::begin(row), std::end(row), 0x1111111111111111u * beyond);
    }
    enter(0, 0, 0);
    for (int distance = 0; distance <= greatest_distance; distance++) {
        if (alt_q() != 0) {
            return false;
        }
        for (int c = 0; c < corner_class_count; c++) {
            walk_row(c, distance);
        }
    }
    return true;
}

// The last code with the greatest distance that is not above one.
unsigned code_of_distance(int distance) {
    auto code = static_cast<unsigned>(std::size(corner_bounds)) - 1;
    while (corner_bounds[code].distance > distance) {
        code--;
    }
    return code;
}

// Turns distances into codes without a bound of the ending. Beyond the greatest distance an even
// permutation is two more away.
void code_distances() {
    for (int c = 0; c < corner_class_count; c++) {
        std::uint64_t codes[beyond + 1];
        for (int d = 0; d < beyond; d++) {
            codes[d] = code_of_distance(d);
        }
        const bool even = cornerperm_dist_table[corner_class_cornerperm(c)] % 2 == 0;
        codes[beyond] = code_of_distance(even ? greatest_distance + 2 : beyond);
        for (std::uint64_t& word : corner_codes[c]) {
            std::uint64_t coded = 0;
            for (int shift = 0; shift < 64; shift += 4) {
                coded |= codes[word >> shift & 15] << shift;
            }
            word = coded;
        }
    }
}

// An ending of so many quarter turns of stage 2 is known.
void enter_ending(int corner_class, int corner, int ending) {
    unsigned code = corner_code(corner_class, corner);
    const unsigned before = code;
    while (corner_bounds[code].ending > ending) {
        code--; // nearer endings stand before, and the first is as near as the distance allows
    }
    const int shift = corner % 16 * 4;
    corner_codes[corner_class][corner / 16] ^= std::uint64_t{before ^ code} << shift;
}

// Goes back from an end of stage 1, so many quarter turns, to where the ending is then known.
void walk_back(classified_corners corners, int corner, int state, int length, int ending) {
    if (length == 0) {
        const int seen = symmetry_on_corner[corner][corners.symmetry];
        for (unsigned rest = classes_of_cornerperm.stabilizer[corners.corner_class]; rest != 0;
             rest &= rest - 1) {
            enter_ending(corners.corner_class, symmetry_on_corner[seen][std::countr_zero(rest)],
                         ending);
        }
        return;
    }
    for (int t = 0; t < a_twist_count; t++) {
        const int next = a_twist_list_ptrs[t][state];
        if (next != forbidden_state && a_metric_length[t] <= length) {
            walk_back(corners_after(corners, t), a_corner_steps[corner].after[t], next,
                      length - a_metric_length[t], ending);
        }
    }
}

// false when interrupted.
bool fill_endings() {
    for (int c = 0; c < corner_class_count; c++) {
        const int cornerperm = corner_class_cornerperm(c);
        const int ending = cornerperm_dist_table[cornerperm];
        if (ending > corner_ending_reach) {
            continue;
        }
        if (alt_q() != 0) {
            return false;
        }
        walk_back(classify_corners(cornerperm), 0, start_state, corner_ending_length, ending);
    }
    return true;
}

} // namespace

// An ending is longer than the distance less corner_ending_length: so not all pairs exist.
constexpr corner_bound corner_bounds[16] = {
    {0,  0 },
    {0,  5 },
    {0,  7 },
    {0,  9 },
    {0,  11}, //
    {8,  4 },
    {8,  7 },
    {8,  9 },
    {8,  11}, //
    {10, 6 },
    {10, 7 },
    {10, 9 },
    {10, 11}, //
    {12, 8 },
    {12, 9 },
    {12, 11},
};

constinit bool corner_bounds_filled = false;
constinit std::uint64_t corner_codes[corner_class_count][(a_corner_size + 15) / 16] = {};

bool corner_bounds_fill() {
    if (corner_bounds_filled) {
        return true;
    }
    if (!fill_distances()) {
        return false;
    }
    code_distances();
    corner_bounds_filled = fill_endings();
    return corner_bounds_filled;
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
