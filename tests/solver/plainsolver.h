// SPDX-License-Identifier: MIT
//
// plainsolver: the solver once more, as plainly as it can be said. The production solver must give
// its answers letter by letter, and the bench measures against it.
//
// It shares nothing with src/solver: names, twists, coordinates, tables and search are its own.
// What a twist does is not taken from lists of cycles but from the names of the cubies: a face turn
// replaces letters by letters, and where a cubie goes and how it comes to lie there can be read off
// the name that results.
//
// State     its own tables, about 17 MB, and the last solve below.
// Order     plain::build() before anything else but plain::parse.
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
cube turned(const cube& c, int twist);          // after stage-1 twist 0..17
bool solvable(const cube& c);                   // of cubies that are there once each

void build();           // fills all tables
void buildmovetables(); // the two halves of it
void builddistances();

// The shortest solution within the depth as text, "" for none.
std::string solve(const cube& c, int depth);

extern long long stage1nodes, stage2nodes; // visited by the last solve

} // namespace plain
