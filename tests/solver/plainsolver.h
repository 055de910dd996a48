// SPDX-License-Identifier: MIT
//
// plainsolver: the solver once more, as plainly as it can be said. The production solver must give
// its answers letter by letter, and the bench measures against it.
//
// It shares nothing with src/solver: names and twists (plaincube), coordinates (plaincoordinates),
// tables (plaintables) and search are its own.
//
// State     the last solve below.
// Order     plain::build() before plain::solve.
#pragma once

#include "solver/plaincube.h"

#include <string>

namespace plain {

void build(); // fills all tables

// The shortest solution within the depth as text, "" for none.
std::string solve(const cube& c, int depth);

extern long long stage1nodes, stage2nodes; // visited by the last solve

} // namespace plain
