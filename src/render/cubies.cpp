// SPDX-License-Identifier: MIT
#include "render/cubies.h"

#include "render/projection.h"

#include <cassert>

namespace {

// Keep the rows of the table short.
constexpr auto X = xface;
constexpr auto Y = yface;
constexpr auto Z = zface;

} // namespace

// ORDER DRAWN. A row is a cubie: the number of its squares, and for each its emitter with x, y, z
// and key.
// clang-format off
constexpr cubie_row cubie_table[cubiecount] = {
    {1, {{Z, -1, -1,  3, 22}}}, // F
    {1, {{Z, -1, -1, -3, 40}}}, // B
    {1, {{X,  3, -1, -1, 31}}}, // R
    {1, {{X, -3, -1, -1, 13}}}, // L
    {1, {{Y, -1,  3, -1,  4}}}, // U
    {1, {{Y, -1, -3, -1, 49}}}, // D
    {3, {{X, -3,  1,  1, 11}, {Y, -3,  3,  1,  6}, {Z, -3,  1,  3, 18}}}, // UFL
    {3, {{X,  3,  1,  1, 27}, {Y,  1,  3,  1,  8}, {Z,  1,  1,  3, 20}}}, // UFR
    {3, {{X, -3,  1, -3,  9}, {Y, -3,  3, -3,  0}, {Z, -3,  1, -3, 38}}}, // UBL
    {3, {{X,  3,  1, -3, 29}, {Y,  1,  3, -3,  2}, {Z,  1,  1, -3, 36}}}, // UBR
    {3, {{X,  3, -3,  1, 33}, {Y,  1, -3,  1, 47}, {Z,  1, -3,  3, 26}}}, // DFR
    {3, {{X, -3, -3,  1, 17}, {Y, -3, -3,  1, 45}, {Z, -3, -3,  3, 24}}}, // DFL
    {3, {{X, -3, -3, -3, 15}, {Y, -3, -3, -3, 51}, {Z, -3, -3, -3, 44}}}, // DBL
    {3, {{X,  3, -3, -3, 35}, {Y,  1, -3, -3, 53}, {Z,  1, -3, -3, 42}}}, // DBR
    {4, {{Y, -1,  3,  1,  7}, {Z, -1,  1,  3, 19}, {X, -1,  1,  1, -1}, {X,  1,  1,  1, -1}}}, // UF
    {4, {{Y, -1,  3, -3,  1}, {Z, -1,  1, -3, 37}, {X, -1,  1, -3, -1}, {X,  1,  1, -3, -1}}}, // UB
    {4, {{X,  3,  1, -1, 28}, {Y,  1,  3, -1,  5}, {Z,  1,  1,  1, -1}, {Z,  1,  1, -1, -1}}}, // UR
    {4, {{X, -3,  1, -1, 10}, {Y, -3,  3, -1,  3}, {Z, -3,  1,  1, -1}, {Z, -3,  1, -1, -1}}}, // UL
    {4, {{X,  3, -1,  1, 30}, {Z,  1, -1,  3, 23}, {Y,  1,  1,  1, -1}, {Y,  1, -1,  1, -1}}}, // RF
    {4, {{X, -3, -1,  1, 14}, {Z, -3, -1,  3, 21}, {Y, -3,  1,  1, -1}, {Y, -3, -1,  1, -1}}}, // LF
    {4, {{X,  3, -1, -3, 32}, {Z,  1, -1, -3, 39}, {Y,  1, -1, -3, -1}, {Y,  1,  1, -3, -1}}}, // RB
    {4, {{X, -3, -1, -3, 12}, {Z, -3, -1, -3, 41}, {Y, -3,  1, -3, -1}, {Y, -3, -1, -3, -1}}}, // LB
    {4, {{Y, -1, -3,  1, 46}, {Z, -1, -3,  3, 25}, {X, -1, -3,  1, -1}, {X,  1, -3,  1, -1}}}, // DF
    {4, {{Y, -1, -3, -3, 52}, {Z, -1, -3, -3, 43}, {X, -1, -3, -3, -1}, {X,  1, -3, -3, -1}}}, // DB
    {4, {{X,  3, -3, -1, 34}, {Y,  1, -3, -1, 50}, {Z,  1, -3, -1, -1}, {Z,  1, -3,  1, -1}}}, // DR
    {4, {{X, -3, -3, -1, 16}, {Y, -3, -3, -1, 48}, {Z, -3, -3,  1, -1}, {Z, -3, -3, -1, -1}}}, // DL
};

// The same rows by name.
void drawF()   { drawcubie(cubie::F); }
void drawB()   { drawcubie(cubie::B); }
void drawR()   { drawcubie(cubie::R); }
void drawL()   { drawcubie(cubie::L); }
void drawU()   { drawcubie(cubie::U); }
void drawD()   { drawcubie(cubie::D); }
void drawUFL() { drawcubie(cubie::UFL); }
void drawUFR() { drawcubie(cubie::UFR); }
void drawUBL() { drawcubie(cubie::UBL); }
void drawUBR() { drawcubie(cubie::UBR); }
void drawDFR() { drawcubie(cubie::DFR); }
void drawDFL() { drawcubie(cubie::DFL); }
void drawDBL() { drawcubie(cubie::DBL); }
void drawDBR() { drawcubie(cubie::DBR); }
void drawUF()  { drawcubie(cubie::UF); }
void drawUB()  { drawcubie(cubie::UB); }
void drawUR()  { drawcubie(cubie::UR); }
void drawUL()  { drawcubie(cubie::UL); }
void drawRF()  { drawcubie(cubie::RF); }
void drawLF()  { drawcubie(cubie::LF); }
void drawRB()  { drawcubie(cubie::RB); }
void drawLB()  { drawcubie(cubie::LB); }
void drawDF()  { drawcubie(cubie::DF); }
void drawDB()  { drawcubie(cubie::DB); }
void drawDR()  { drawcubie(cubie::DR); }
void drawDL()  { drawcubie(cubie::DL); }

// clang-format on

namespace {

constexpr float cellsize = 2;
constexpr float border = 0.08F; // black on each side of a sticker
constexpr float lift = 0.005F;  // of the sticker off its plane, outwards

// Proof of the table: all 54 places and two black squares for each edge.
constexpr bool eachplaceonce() {
    bool seen[54] = {};
    int black = 0;
    for (const cubie_row& row : cubie_table) {
        for (int i = 0; i < row.squares; i++) {
            const int key = row.square[i].key;
            if (key == -1) {
                black++;
            } else if (seen[key]) {
                return false;
            } else {
                seen[key] = true;
            }
        }
    }
    for (const bool place : seen) {
        if (!place) {
            return false;
        }
    }
    return black == 24; // two for each of the twelve edges
}

static_assert(eachplaceonce());

// The two squares of a face differ in their plane and their size only.
struct square {
    float plane;
    float a0, a1, b0, b1; // from and to along the two axes of the plane, in the order x, y, z
};

// The black square that fills the cell with its lowest corner at (a, b) in the plane.
square backing(int plane, int a, int b) {
    const float p = static_cast<float>(plane);
    const float a0 = static_cast<float>(a);
    const float b0 = static_cast<float>(b);
    return {p, a0, a0 + cellsize, b0, b0 + cellsize};
}

// Lifted towards the outside of the cube: away from the origin, on whichever side the plane lies.
square sticker(const square& s) {
    return {s.plane + (s.plane < 0 ? -lift : lift), s.a0 + border, s.a1 - border, s.b0 + border,
            s.b1 - border};
}

// The polygon is filled whichever way round it goes; the order of corners is that of the design.
// Each goes round its square from the lowest corner on. addz starts along y, as addx does.
void addx(int key, const square& s) {
    const float corners[4][3] = {
        {s.plane, s.a0, s.b0},
        {s.plane, s.a1, s.b0},
        {s.plane, s.a1, s.b1},
        {s.plane, s.a0, s.b1}
    };
    addface(key, corners);
}

void addy(int key, const square& s) {
    const float corners[4][3] = {
        {s.a0, s.plane, s.b0},
        {s.a1, s.plane, s.b0},
        {s.a1, s.plane, s.b1},
        {s.a0, s.plane, s.b1}
    };
    addface(key, corners);
}

void addz(int key, const square& s) {
    const float corners[4][3] = {
        {s.a0, s.b0, s.plane},
        {s.a0, s.b1, s.plane},
        {s.a1, s.b1, s.plane},
        {s.a1, s.b0, s.plane}
    };
    addface(key, corners);
}

} // namespace

void xface(int x, int y, int z, int key) {
    const square back = backing(x, y, z);
    addx(-1, back);
    addx(key, sticker(back));
}

void yface(int x, int y, int z, int key) {
    const square back = backing(y, x, z);
    addy(-1, back);
    addy(key, sticker(back));
}

void zface(int x, int y, int z, int key) {
    const square back = backing(z, x, y);
    addz(-1, back);
    addz(key, sticker(back));
}

void drawcubie(cubie c) {
    assert(c >= cubie::F && c < cubie::count);
    const cubie_row& row = cubie_table[static_cast<int>(c)];
    for (int i = 0; i < row.squares; i++) {
        const square_row& s = row.square[i];
        s.emit(s.x, s.y, s.z, s.key);
    }
}
