// SPDX-License-Identifier: MIT
#include "render/rendertables.h"

#include "render/animation.h"
#include "render/cubies.h"

#include <cmath>
#include <cstring>
#include <sstream>

// clang-format off

// Emitter, x, y, z and key of each square.
const table_cubie cubietable[tablecubies] = {
    {"F", drawF, 1, {{'z', -1, -1, 3, 22}}},
    {"B", drawB, 1, {{'z', -1, -1, -3, 40}}},
    {"R", drawR, 1, {{'x', 3, -1, -1, 31}}},
    {"L", drawL, 1, {{'x', -3, -1, -1, 13}}},
    {"U", drawU, 1, {{'y', -1, 3, -1, 4}}},
    {"D", drawD, 1, {{'y', -1, -3, -1, 49}}},
    {"UFL", drawUFL, 3, {{'x', -3, 1, 1, 11}, {'y', -3, 3, 1, 6}, {'z', -3, 1, 3, 18}}},
    {"UFR", drawUFR, 3, {{'x', 3, 1, 1, 27}, {'y', 1, 3, 1, 8}, {'z', 1, 1, 3, 20}}},
    {"UBL", drawUBL, 3, {{'x', -3, 1, -3, 9}, {'y', -3, 3, -3, 0}, {'z', -3, 1, -3, 38}}},
    {"UBR", drawUBR, 3, {{'x', 3, 1, -3, 29}, {'y', 1, 3, -3, 2}, {'z', 1, 1, -3, 36}}},
    {"DFR", drawDFR, 3, {{'x', 3, -3, 1, 33}, {'y', 1, -3, 1, 47}, {'z', 1, -3, 3, 26}}},
    {"DFL", drawDFL, 3, {{'x', -3, -3, 1, 17}, {'y', -3, -3, 1, 45}, {'z', -3, -3, 3, 24}}},
    {"DBL", drawDBL, 3, {{'x', -3, -3, -3, 15}, {'y', -3, -3, -3, 51}, {'z', -3, -3, -3, 44}}},
    {"DBR", drawDBR, 3, {{'x', 3, -3, -3, 35}, {'y', 1, -3, -3, 53}, {'z', 1, -3, -3, 42}}},
    {"UF", drawUF, 4, {{'y', -1, 3, 1, 7}, {'z', -1, 1, 3, 19},
     {'x', -1, 1, 1, -1}, {'x', 1, 1, 1, -1}}},
    {"UB", drawUB, 4, {{'y', -1, 3, -3, 1}, {'z', -1, 1, -3, 37},
     {'x', -1, 1, -3, -1}, {'x', 1, 1, -3, -1}}},
    {"UR", drawUR, 4, {{'x', 3, 1, -1, 28}, {'y', 1, 3, -1, 5},
     {'z', 1, 1, 1, -1}, {'z', 1, 1, -1, -1}}},
    {"UL", drawUL, 4, {{'x', -3, 1, -1, 10}, {'y', -3, 3, -1, 3},
     {'z', -3, 1, 1, -1}, {'z', -3, 1, -1, -1}}},
    {"RF", drawRF, 4, {{'x', 3, -1, 1, 30}, {'z', 1, -1, 3, 23},
     {'y', 1, 1, 1, -1}, {'y', 1, -1, 1, -1}}},
    {"LF", drawLF, 4, {{'x', -3, -1, 1, 14}, {'z', -3, -1, 3, 21},
     {'y', -3, 1, 1, -1}, {'y', -3, -1, 1, -1}}},
    {"RB", drawRB, 4, {{'x', 3, -1, -3, 32}, {'z', 1, -1, -3, 39},
     {'y', 1, -1, -3, -1}, {'y', 1, 1, -3, -1}}},
    {"LB", drawLB, 4, {{'x', -3, -1, -3, 12}, {'z', -3, -1, -3, 41},
     {'y', -3, 1, -3, -1}, {'y', -3, -1, -3, -1}}},
    {"DF", drawDF, 4, {{'y', -1, -3, 1, 46}, {'z', -1, -3, 3, 25},
     {'x', -1, -3, 1, -1}, {'x', 1, -3, 1, -1}}},
    {"DB", drawDB, 4, {{'y', -1, -3, -3, 52}, {'z', -1, -3, -3, 43},
     {'x', -1, -3, -3, -1}, {'x', 1, -3, -3, -1}}},
    {"DR", drawDR, 4, {{'x', 3, -3, -1, 34}, {'y', 1, -3, -1, 50},
     {'z', 1, -3, -1, -1}, {'z', 1, -3, 1, -1}}},
    {"DL", drawDL, 4, {{'x', -3, -3, -1, 16}, {'y', -3, -3, -1, 48},
     {'z', -3, -3, 1, -1}, {'z', -3, -3, -1, -1}}},
};

// Notation, function, sign and axis; cubies that stay; cubies that move.
const table_turn turntable[tableturns] = {
    {"U", drawUcw, -1, 'y',
     "F B D R L DFR DFL DBL DBR RF LF RB LB DF DB DR DL",
     "U UFL UFR UBL UBR UF UB UR UL"},
    {"u", drawUccw, 1, 'y',
     "F B D R L DFR DFL DBL DBR RF LF RB LB DF DB DR DL",
     "U UFL UFR UBL UBR UF UB UR UL"},
    {"D", drawDcw, 1, 'y',
     "F B U R L UFR UFL UBL UBR RF LF RB LB UF UB UR UL",
     "D DFL DFR DBL DBR DF DB DR DL"},
    {"d", drawDccw, -1, 'y',
     "F B U R L UFR UFL UBL UBR RF LF RB LB UF UB UR UL",
     "D DFL DFR DBL DBR DF DB DR DL"},
    {"L", drawLcw, 1, 'x',
     "F B U D R UFR UBR DFR DBR UF UB UR RF RB DF DB DR",
     "L UFL UBL DFL DBL UL LF LB DL"},
    {"l", drawLccw, -1, 'x',
     "F B U D R UFR UBR DFR DBR UF UB UR RF RB DF DB DR",
     "L UFL UBL DFL DBL UL LF LB DL"},
    {"R", drawRcw, -1, 'x',
     "F B U D L UFL UBL DFL DBL UF UB UL LF LB DF DB DL",
     "R UFR UBR DFR DBR UR RF RB DR"},
    {"r", drawRccw, 1, 'x',
     "F B U D L UFL UBL DFL DBL UF UB UL LF LB DF DB DL",
     "R UFR UBR DFR DBR UR RF RB DR"},
    {"F", drawFcw, -1, 'z',
     "B U D R L UBL UBR DBL DBR UB UR UL RB LB DB DR DL",
     "F UFL UFR DFR DFL UF LF RF DF"},
    {"f", drawFccw, 1, 'z',
     "B U D R L UBL UBR DBL DBR UB UR UL RB LB DB DR DL",
     "F UFL UFR DFR DFL UF LF RF DF"},
    {"B", drawBcw, 1, 'z',
     "F U D R L UFL UFR DFR DFL UF UR UL RF LF DF DR DL",
     "B UBL UBR DBL DBR UB RB LB DB"},
    {"b", drawBccw, -1, 'z',
     "F U D R L UFL UFR DFR DFL UF UR UL RF LF DF DR DL",
     "B UBL UBR DBL DBR UB RB LB DB"},
    {"*F", drawFScw, -1, 'z',
     "F B UFL UBL DFL DBL UF UB LF LB DF DB UFR UBR DFR DBR RF RB",
     "U D L R UL DL UR DR"},
    {"*B", drawBScw, 1, 'z',
     "F B UFL UBL DFL DBL UF UB LF LB DF DB UFR UBR DFR DBR RF RB",
     "U D L R UL DL UR DR"},
    {"*L", drawLScw, 1, 'x',
     "L R UFL UBL DFL DBL UL UR LF LB DL DR UFR UBR DFR DBR RF RB",
     "U D F B UF DF UB DB"},
    {"*R", drawRScw, -1, 'x',
     "L R UFL UBL DFL DBL UL UR LF LB DL DR RF RB UFR UBR DFR DBR",
     "U D F B UF DF UB DB"},
    {"*U", drawUScw, -1, 'y',
     "U D UFL UBL DFL DBL UL UR DL DR UF DF UB DB UFR UBR DFR DBR",
     "L R F B LF LB RF RB"},
    {"*D", drawDScw, 1, 'y',
     "U D UFL UBL DFL DBL UL UR DL DR UF DF UB DB UFR UBR DFR DBR",
     "L R F B LF LB RF RB"},
};

const char* const wholecube = "U D UFL UBL DFL DBL UL UR DL DR UF DF UB DB UFR UBR DFR DBR "
                              "L R F B LF LB RF RB";

const table_whole wholetable[6] = {
    {">U", 20, -1, 'y'},
    {">L", 19, +1, 'x'},
    {">F", 22, -1, 'z'},
    {">R", 18, -1, 'x'},
    {">B", 23, +1, 'z'},
    {">D", 21, +1, 'y'},
};

// clang-format on

std::vector<table_square> squaresof(const std::string& names) {
    std::vector<table_square> squares;
    std::istringstream stream(names);
    for (std::string name; stream >> name;) {
        for (const table_cubie& row : cubietable) {
            if (name == row.name) {
                squares.insert(squares.end(), row.square, row.square + row.squares);
            }
        }
    }
    return squares;
}

modelpoint squarecenter(const table_square& s) {
    return {s.x + (s.axis == 'x' ? 0.0 : 1.0), s.y + (s.axis == 'y' ? 0.0 : 1.0),
            s.z + (s.axis == 'z' ? 0.0 : 1.0)};
}

modelpoint turnedabout(modelpoint p, char axis, double degrees) {
    const double angle = degrees * std::acos(-1.0) / 180;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    switch (axis) {
    case 'x': return {p.x, c * p.y - s * p.z, s * p.y + c * p.z};
    case 'y': return {c * p.x + s * p.z, p.y, c * p.z - s * p.x};
    default: return {c * p.x - s * p.y, s * p.x + c * p.y, p.z};
    }
}
