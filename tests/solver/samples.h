// SPDX-License-Identifier: MIT
//
// samples: what the solver's tests share: cubes to solve, golden answers.
//
// State     none.
#pragma once

#include "solver/plainsolver.h"

#include <random>
#include <string>
#include <vector>

plain::cube randomcube(std::mt19937& random);    // any solvable cube
plain::cube randomsubcube(std::mt19937& random); // one of the subgroup of stage 2
plain::cube afterletters(const plain::cube& start, const std::string& macro); // face letters only

struct golden_row {
    std::string listing, answer;
};

// The rows of a golden file: a listing, a tab, an answer. Lines that start with "#" are skipped.
std::vector<golden_row> goldenrows(const std::string& path);
