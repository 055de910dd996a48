// SPDX-License-Identifier: MIT
//
// movewriting: sequences of turns (movetext.h) written in the notations that they are read from.
//
// State     none.
// Limits    time is linear in the length of what is read and written.
// Callers   forms, properties, vexel-macro, vexel-solve.
#pragma once

#include "tools/movetext.h"

#include <cstddef>
#include <string>

// The macro, or the one that takes it back. A group of one round loses its brackets; what does
// nothing, such as a lost count, is not written.
std::string macrotext(const move_text& moves, bool inverse);

// The moves as in books, with one blank between. A face and the slice with it are a wide turn.
std::string bookmoves(const move_text& moves);

// The macro with its groups written out; false if it had more than limit turns.
[[nodiscard]] bool expandedmacro(const move_text& moves, std::size_t limit, std::string& to);
