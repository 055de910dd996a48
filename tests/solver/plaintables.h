// SPDX-License-Identifier: MIT
//
// plaintables: what the plain solver looks up: the twists and which may follow which, where each
// takes a coordinate, how one stage's coordinates become the other's, and the distances.
//
// State     all that is not const, filled by the two functions, constant afterwards; about 17 MB.
// Order     buildmovetables, builddistances, anything else.
// Callers   plainsolver.
#pragma once

#include "solver/plaincoordinates.h"

#include <array>
#include <cstdint>
#include <vector>

namespace plain {

void buildmovetables(); // and what leads from one stage to the other
void builddistances();

// Twists

using twistlist = std::vector<int>;

extern const char* const texts[18];
extern const twistlist stage1, stage2; // the twists of each, in the order of trying
extern const int lengths[18];          // 2 for half turns

// What may follow: rows face F L U B R D, columns the state before, 0 for forbidden. States: 1 at
// the start, 2..7 after that face, 8 after F B, 9 after R L, 10 after U D.
extern const int follow[6][11];

// Move tables, [twist][value]

template <typename entry> using table = std::array<std::vector<entry>, 18>;

extern table<int> move_corner, move_eflip, move_eloc, move_midperm;
extern table<std::uint16_t> move_cornerperm, move_slice, move_edgeperm;

// From the slices of stage 1 to the permutations of stage 2

constexpr int impossible = 54321; // stands where there is none
constexpr int half_size = 1680;   // where four edges of the layers are among the eight places

extern std::vector<int> slice_to_half, slice_to_mid;
extern std::vector<std::uint16_t> halves_to_edgeperm; // [half_size * even half + odd half]

// Distances, [columns * row + column]

extern std::vector<std::uint8_t> corner_eflip, corner_eloc, eflip_eloc;
extern std::vector<std::uint8_t> cornerperm_alone, mid_corner, mid_edge;

} // namespace plain
