// SPDX-License-Identifier: MIT
//
// cubies: where every sticker lies in space, and the 26 visible cubies made of squares.
//
// State     none: the functions append squares to the face list (projection.h).
// Units     model space, right-handed, one cell = 2 units, cell borders at -3, -1, 1, 3:
//
//                y (U)                       -3   -1    1    3
//                |                            |----|----|----|
//                |                              L         R     along x
//                +---- x (R)                    D         U     along y
//               /                               B         F     along z
//              z (F), to the viewer
//
// Faces     place p = 9 * face + 3 * row + column lies on its face's plane, and its 2 x 2 cell
//           begins, at its lowest corner, at
//             U  0.. 8  y =  3  x = -3 + 2 column  z = -3 + 2 row
//             L  9..17  x = -3  y =  1 - 2 row     z = -3 + 2 column
//             F 18..26  z =  3  x = -3 + 2 column  y =  1 - 2 row
//             R 27..35  x =  3  y =  1 - 2 row     z =  1 - 2 column
//             B 36..44  z = -3  x =  1 - 2 column  y =  1 - 2 row
//             D 45..53  y = -3  x = -3 + 2 column  z =  1 - 2 row
// Callers   animation.
// Order     the caller sets the transform and calls getmatrix before it draws.
#pragma once

// The squares. Each call appends two records: a black backing that fills the cell, and over it the
// sticker, 0.08 smaller on each side, which leaves the black border, and 0.005 farther from the
// cube's centre, which lets the depth sort put it before the backing or behind it. key is the
// place 0..53 whose colour it has, or -1 for black.

void xface(int x, int y, int z, int key); // in the plane x, from y to y + 2 and z to z + 2
void yface(int x, int y, int z, int key); // in the plane y, from x to x + 2 and z to z + 2
void zface(int x, int y, int z, int key); // in the plane z, from x to x + 2 and y to y + 2

// The cubies. ORDER DRAWN: the order of the enumerators is that of cubie_table.
// clang-format off
enum class cubie {
    F, B, R, L, U, D,                               // centres, 2 records each
    UFL, UFR, UBL, UBR, DFR, DFL, DBL, DBR,         // corners, 6 records each
    UF, UB, UR, UL, RF, LF, RB, LB, DF, DB, DR, DL, // edges, 8 records each
    count
};
// clang-format on

constexpr int cubiecount = static_cast<int>(cubie::count);
constexpr int squarelimit = 4; // squares of a cubie at most

struct square_row {
    void (*emit)(int x, int y, int z, int key); // xface, yface or zface
    int x, y, z, key;                           // its arguments
};

struct cubie_row {
    int squares;                    // 1 centre, 3 corner, 4 edge
    square_row square[squarelimit]; // in the order in which they are emitted
};

extern const cubie_row cubie_table[cubiecount]; // ORDER DRAWN

void drawcubie(cubie c); // emits the squares of c, other than count, in its home position

// The same by name. An edge also has two black squares on its inner sides, which close the gap
// that opens when a layer turns.

void drawF();
void drawB();
void drawR();
void drawL();
void drawU();
void drawD();
void drawUFL();
void drawUFR();
void drawUBL();
void drawUBR();
void drawDFR();
void drawDFL();
void drawDBL();
void drawDBR();
void drawUF();
void drawUB();
void drawUR();
void drawUL();
void drawRF();
void drawLF();
void drawRB();
void drawLB();
void drawDF();
void drawDB();
void drawDR();
void drawDL();
