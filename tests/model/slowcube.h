// SPDX-License-Identifier: MIT
//
// slowcube: the cube once more, by geometry instead of cycles. Each sticker has a spot in space and
// faces a direction; a turn rotates the stickers of a layer and looks up where they came to lie.
//
// Axes      x to R, y to U, z to F; a cubie's coordinates are -1, 0, 1.
// Callers   tests, which hold the model against it.
#pragma once

#include <array>
#include <string>

struct slow_cube {
    std::array<int, 54> colors; // as cubecolors
    std::array<int, 54> homes;  // as cubefaces
};

slow_cube slowsolved();
bool slowuniform(const slow_cube& cube); // each face of one colour

// Turns by a notation of one or two characters: "U", "u", "*F", ">R". False for any other text.
bool slowturn(slow_cube& cube, const std::string& notation);

int slowcode(const std::string& notation); // its turn code, or -1

// The model's cube, and the other way round.
slow_cube modelcube();
void setmodelcube(const slow_cube& cube);

inline bool operator==(const slow_cube& a, const slow_cube& b) {
    return a.colors == b.colors && a.homes == b.homes;
}
