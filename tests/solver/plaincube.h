// SPDX-License-Identifier: MIT
//
// plaincube: a cube as its twenty cubies, their names, and what a twist makes of it.
//
// What a twist does is not taken from lists of cycles but from the names of the cubies: a face turn
// replaces letters by letters, and where a cubie goes and how it comes to lie there can be read off
// the name that results.
//
// State     none.
// Units     edges 0..11 and corners 0..7 in the order of the names; twists 0..17 are 3 * face + k,
//           faces in the order F L U B R D, of k + 1 quarter turns.
// Callers   the plain solver, the tests of the solver.
#pragma once

#include <string>

namespace plain {

struct cube {
    int edge[12], flip[12];  // cubie and flip at each position
    int corner[8], twist[8]; // cubie and twist at each position
};

cube solvedcube();
bool parse(const std::string& text, cube& out); // twenty good names; else false
std::string listing(const cube& c);             // the twenty names, each followed by a blank
cube turned(const cube& c, int twist);          // after a twist
int parity(const int* p, int n);                // of n different numbers: 1 if odd
bool solvable(const cube& c);                   // of cubies that are there once each

} // namespace plain
