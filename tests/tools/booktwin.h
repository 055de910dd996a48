// SPDX-License-Identifier: MIT
//
// booktwin: the forms once more, slowly and in the plainest way: moves as in books done one by one
// on the cube of geometry (model/slowcube.h), and facelets by a list of places.
//
// Callers   tests, which hold src/tools against it.
#pragma once

#include "model/slowcube.h"

#include <random>
#include <string>

// Does well-formed moves, groups and all, on the cube.
void bookturns(slow_cube& cube, const std::string& moves);

std::string bookfacelets(const slow_cube& cube);

using chance = std::mt19937_64;

int below(chance& from, int count); // 0..count - 1, as good as even

std::string randommacro(chance& from, int symbols); // pairs and nested groups among them
std::string randommoves(chance& from, int number);  // wide turns and nested groups among them

// Moves as the tools write them, none of which could be drawn together with its neighbour.
std::string plainmoves(chance& from, int number);
