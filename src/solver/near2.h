// SPDX-License-Identifier: MIT
//
// near2: which states of stage 2 lie within so many quarter turns of the solved cube, and its move
// tables turned round.
//
// The distance tables of stage 2 each forget half of the edges or all corners, and cut late. But
// the ten twists make few cubes of few quarter turns: of 19.5 billion states 0.2 million lie within
// 10, 1.9 million within 12, some 19 million within 14, and up to symmetry a sixteenth of that.
// They are enumerated from the solved cube outwards and kept in sieves. One serves two lengths: a
// state's distance is even or odd as the length that is left, so that within 12 means within 11
// where 11 are left.
//
// State     the tables, zeros at first, and the radius up to which the sieves are filled.
// Memory    2.8 MB of move tables and images; sieves of 0.4 MB up to radius 12, 2 MB more for 14.
// Units     a state is seen by the symmetry that takes its cornerperm to the representative.
// Callers   search; solver fills the sieves up to 12.
// Order     near2_tables_init after symmetry_perm_tables_init, then near2_extend.
#pragma once

#include "solver/sieve.h"
#include "solver/symmetry.h"

constexpr int near2_ordinary = 12; // radius that pays for any search
constexpr int near2_greatest = 14; // largest radius there is room for; radii are even

// Move tables turned round: all that can become of a value in half a cache line.
struct alignas(32) b_steps {
    std::uint16_t after[b_twist_count]; // ORDER STAGE2
};

extern b_steps b_corner_steps[cornerperm_size];
extern b_steps b_edge_steps[b_edgeperm_size];

void near2_tables_init(); // does nothing when it is done

extern const std::array<sieve, near2_greatest / 2 + 1> near2_sieves; // by half the radius
extern int near2_radius; // filled up to this; -2 at first

// Fills the sieves up to a radius, near2_ordinary or near2_greatest; does nothing if they are. 12
// takes 10 ms, 14 takes 0.1 s and asks for Alt+Q now and then: false if it was pressed, and the
// radius stays as it was.
[[nodiscard]] bool near2_extend(int radius);

// A state as a number, the same for all that the symmetries make of it: below 2^32. Where a
// representative is kept by several symmetries a state has several numbers, and all are members.
inline std::uint32_t near2_number(classified corners, int edgeperm, int midperm) {
    return (std::uint32_t{corners.number} * b_midperm_size +
            symmetry_on_midperm[midperm][corners.symmetry]) *
               b_edgeperm_size +
           symmetry_on_edgeperm[edgeperm][corners.symmetry];
}

// false if the state is certainly more than distance quarter turns from solved. distance is 0 or
// more, and even if and only if the state's distance is.
inline bool near2_within(classified corners, int edgeperm, int midperm, int distance) {
    return distance > near2_radius ||
           sieve_has(near2_sieves[static_cast<std::size_t>(distance + 1) / 2],
                     near2_number(corners, edgeperm, midperm));
}
