// SPDX-License-Identifier: MIT
//
// plaincoordinates: the numbers by which the two stages of the plain solver know a cube. Each comes
// as a pair: get, what it is of a cube, and set, a cube that has it.
//
// State     none.
// Callers   plaintables, plainsolver.
#pragma once

#include "solver/plaincube.h"

#include <vector>

namespace plain {

// Ranks in lexicographic order, a pair of inverses

int rankof(const int* p, int n);
void unrank(int rank, int* p, int n);

// The sets of four of n positions, in lexicographic order
struct foursets {
    int positions;
    std::vector<int> masks, indices; // index -> mask, mask -> index

    explicit foursets(int n);
};

extern const foursets of12, of8;

// Where the edges first, first + step, ... (four of them) are among the positions, and in which
// order; -1 if not all four are there. 495 or 70 places times 24 orders.
int get_four(const cube& c, int first, int step, const foursets& sets);

// A cube that has them there; its other edges are -1.
cube set_four(int x, int first, int step, const foursets& sets);

// Of stage 1

constexpr int corner_size = 2187; // 3^7: the last twist follows from the others
constexpr int eflip_size = 2048;  // 2^11: so does the last flip
constexpr int eloc_size = 495;    // 12 over 4: where the slice edges are
constexpr int slice_size = 11880; // and in which order

int get_corner(const cube& c);
cube set_corner(int x);
int get_eflip(const cube& c);
cube set_eflip(int x);
int get_slice(const cube& c);
cube set_slice(int x);
int get_eloc(const cube& c); // set_slice is its inverse as well

// Of stage 2

constexpr int cornerperm_size = 40320; // 8!
constexpr int edgeperm_size = 40320;   // of the eight edges of the layers
constexpr int midperm_size = 24;       // of the four of the slice

int get_cornerperm(const cube& c);
cube set_cornerperm(int x);
int get_edgeperm(const cube& c);
cube set_edgeperm(int x);
int get_midperm(const cube& c);
cube set_midperm(int x);

} // namespace plain
