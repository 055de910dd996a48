// SPDX-License-Identifier: MIT
//
// near1: which states of stage 1 lie within so many quarter turns of the subgroup.
//
// Nine tenths of what a search with the tables of pruning visits has 7 or 8 quarter turns left and
// leads nowhere. But the states that few quarter turns bring into the subgroup are few: 2.3 million
// of the 2.2 billion need up to 7, 20 million up to 8, 159 million up to 9, and up to symmetry a
// sixteenth of that. They are enumerated from the goal outwards, one sieve a length.
//
// A state belongs to a length if a sequence of just that length leads into the subgroup, no face
// following itself, with a last twist that comes from outside. Most states near the goal have none
// of the lengths just above their distance. And as the face that was turned last must not come
// next, the sieves of short lengths have one entry for each face that may have been.
//
// State     the sieves, zeros at first, and the length up to which they are filled.
// Memory    5 MB up to length 8, 8 MB more for 9; pages that are not written cost nothing.
// Units     a state is an edge class (edgeclass.h) and an a_corner as its representative sees it;
//           a face, ORDER FLUBRD, is seen likewise.
// Callers   search; solver fills the first sieves.
// Order     near1_extend after edge_classes_init.
#pragma once

#include "solver/edgeclass.h"
#include "solver/sieve.h"

constexpr int near1_initial = 6;  // length that pays for any search
constexpr int near1_ordinary = 8; // length that pays for the search of any but the nearest cubes
constexpr int near1_greatest = 9; // largest length there is room for
constexpr int near1_by_face = 6;  // up to this the sieves know the last face

extern const std::array<sieve, near1_greatest + 1> near1_sieves; // by length
extern int near1_length;                                         // filled up to this; -1 at first

// Fills the sieves up to a length, from near1_initial on; does nothing if they are. 6 takes 1 ms, 8
// takes 0.05 s, 9 takes 0.5 s.
void near1_extend(int length);

// A state as a number, with the last face where the length asks for it.
inline std::uint64_t near1_number(int edge_class, int corner, int face, int length) {
    const auto state = static_cast<std::uint64_t>(edge_class * a_corner_size + corner);
    return length > near1_by_face ? state
                                  : state * twist_face_count + static_cast<std::uint64_t>(face);
}
