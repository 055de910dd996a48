// SPDX-License-Identifier: MIT
//
// near2: which states of stage 2 lie within so many quarter turns of the solved cube, and its move
// tables turned round.
//
// The distance tables of stage 2 each forget half of the edges or all corners, and cut late. But
// the ten twists make few cubes of few quarter turns: of 19.5 billion states 0.2 million lie within
// 10 and 1.9 million within 12. They are enumerated by walking all sequences of twists from the
// solved cube and kept in sieves. One serves two lengths: a state's distance is even or odd as the
// length that is left, so that within 12 means within 11 where 11 are left.
//
// State     the tables, zeros at first, and the radius up to which the sieves are filled.
// Memory    2.6 MB of move tables; sieves of 0.6 MB up to radius 10, 4 MB more for 12.
// Callers   search; solver fills the sieves up to 10.
// Order     near2_tables_init after the move tables of phase2, then near2_extend.
#pragma once

#include "solver/phase2.h"
#include "solver/sieve.h"

constexpr int near2_ordinary = 10; // radius that pays for any search
constexpr int near2_greatest = 12; // largest radius there is room for; radii are even

// Move tables turned round: all that can become of a value in half a cache line.
struct alignas(32) b_steps {
    std::uint16_t after[b_twist_count]; // ORDER STAGE2
};

extern b_steps b_corner_steps[cornerperm_size];
extern b_steps b_edge_steps[b_edgeperm_size];

void near2_tables_init();

extern const sieve near2_sieves[near2_greatest / 2 + 1]; // by half the radius
extern int near2_radius;                                 // filled up to this; -2 at first

// Fills the sieves up to a radius, even, up to near2_greatest; does nothing if they are. 10 takes
// 3 ms, 12 takes 40 ms.
void near2_extend(int radius);

inline std::uint64_t near2_number(int cornerperm, int edgeperm, int midperm) {
    return (static_cast<std::uint64_t>(cornerperm) * b_midperm_size +
            static_cast<std::uint64_t>(midperm)) *
               b_edgeperm_size +
           static_cast<std::uint64_t>(edgeperm);
}

// false if the state is certainly more than distance quarter turns from solved. distance is 0 or
// more, and even if and only if the state's distance is.
inline bool near2_within(int cornerperm, int edgeperm, int midperm, int distance) {
    return distance > near2_radius ||
           sieve_has(near2_sieves[(distance + 1) / 2], near2_number(cornerperm, edgeperm, midperm));
}
