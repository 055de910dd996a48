// SPDX-License-Identifier: MIT
//
// near1: which states of stage 1 lie within so many quarter turns of the subgroup.
//
// Nine tenths of what a search with the tables of pruning visits has 7 or 8 quarter turns left and
// leads nowhere. But the states from which few quarter turns do suffice are few: 2.3 million of the
// 2.2 billion within 7, 20 million within 8, 159 million within 9, and up to symmetry a sixteenth
// of that. They are enumerated from the goal outwards and kept in one sieve a radius.
//
// State     the sieves, zeros at first, and the radius up to which they are filled.
// Memory    4.6 MB up to radius 8, 16 MB more for 9; pages that are not written cost nothing.
// Units     a state is an edge class (symmetry.h) and an a_corner as its representative sees it.
// Callers   search; solver fills the sieves up to 8.
// Order     near1_extend after symmetry_tables_init.
#pragma once

#include "solver/sieve.h"
#include "solver/symmetry.h"

constexpr int near1_ordinary = 8; // radius that pays for any search
constexpr int near1_greatest = 9; // largest radius there is room for

extern const sieve near1_sieves[near1_greatest + 1]; // by radius
extern int near1_radius;                             // filled up to this; -1 at first

// Fills the sieves up to a radius, 0..near1_greatest; does nothing if they are. 8 takes 0.02 s, 9
// takes 0.25 s.
void near1_extend(int radius);

// A state as a number.
inline std::uint64_t near1_number(int edge_class, int corner) {
    return static_cast<std::uint64_t>(edge_class * a_corner_size + corner);
}

// false if the state is certainly more than distance quarter turns from the subgroup. distance is
// 0 or more.
inline bool near1_within(int edge_class, int corner, int distance) {
    return distance > near1_radius ||
           sieve_has(near1_sieves[distance], near1_number(edge_class, corner));
}
