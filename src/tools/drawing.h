// SPDX-License-Identifier: MIT
//
// drawing: cubes drawn by lot, each that turning can reach as likely as any other.
//
// State     a lot is the caller's. The same seed draws the same cubes on every machine: the
//           generator is the library's, defined to the bit, and what is made of its numbers is done
//           here, for the library's distributions differ from one library to the next.
// Callers   vexel-macro; vexel-solve, for a cube to warm up on.
#pragma once

#include <cstdint>
#include <random>
#include <string>

using lot = std::mt19937_64;

// A number from 0 to count - 1, each as likely as the others; count is 1 or more.
std::uint64_t drawnumber(lot& from, std::uint64_t count);

// The twenty names of a cube's cubies, as in solver/cubecheck.h.
std::string drawcubies(lot& from);
