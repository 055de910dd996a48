// SPDX-License-Identifier: MIT
//
// rendertables: the design's tables of cubies and turns, written down a second time.
//
// Purpose   what src/render draws is compared with these, square by square. They are texts and rows
//           of their own, so that a slip in the program's tables cannot hide here too.
// Callers   render tests.
#pragma once

#include "viewpoints.h"

#include <string>
#include <vector>

struct table_square {
    char axis; // 'x', 'y' or 'z': the plane of the square is across it
    int x, y, z, key;
};

struct table_cubie {
    const char* name;
    void (*draw)();
    int squares;
    table_square square[4];
};

constexpr int tablecubies = 26;
extern const table_cubie cubietable[tablecubies]; // in the order of enum class cubie

struct table_turn {
    const char* notation;
    void (*draw)();
    int sign; // of the angle; positive is counter-clockwise seen from the axis' tip
    char axis;
    const char* still; // names of cubies, in the order in which they are drawn
    const char* moving;
};

constexpr int tableturns = 18;
extern const table_turn turntable[tableturns]; // by turn code

// The order of all cubies in the still cube and in a turn of the whole cube.
extern const char* const wholecube;

struct table_whole {
    const char* notation;
    int code, sign;
    char axis;
};

extern const table_whole wholetable[6]; // by face, ULFRBD

// The squares of the cubies named in names, in that order.
std::vector<table_square> squaresof(const std::string& names);

// The centre of a square on its plane.
modelpoint squarecenter(const table_square& square);

// p turned about an axis, counter-clockwise seen from its tip.
modelpoint turnedabout(modelpoint p, char axis, double degrees);
