// SPDX-License-Identifier: MIT
//
// cubecheck: the solver's input text, and whether it describes a cube that turns can reach.
//
// State     errorstring, and the one buffer behind it that holds a composed message.
// Units     edge positions 0..11 and corner positions 0..7, ORDER CUBIE; orientation 0..1 and 0..2.
// Input     twenty names separated by blanks, twelve edges then eight corners in ORDER CUBIE. Each
//           tells the cubie at that position by the faces its stickers belong to, read in the order
//           of the position's own faces. The solved cube is the position names themselves.
// Callers   solver, the colour collector, the permutation report, vexel-solve.
// Order     nothing to set up.
#pragma once

constexpr int edge_count = 12;
constexpr int corner_count = 8;

// The accepted names

// ORDER CUBIE: name i is cubie i mod 12, flipped i / 12 times.
extern const char* const edge_cubie_string[2 * edge_count];

// ORDER CUBIE: name i is cubie i mod 8, twisted i / 8 times.
extern const char* const corner_cubie_string[3 * corner_count];

// The cube in the solver's words

struct cube_struc {
    int edges[edge_count];         // at each position, the index of its name in edge_cubie_string
    int edges_flipped[edge_count]; // the same names read from the other side; by check_cube
    int corners[3 * corner_count]; // indices in corner_cubie_string; from 8 on read from the two
                                   // other sides, by check_cube
    int a_corner;                  // the coordinates, by process_cube (search.h)
    int a_eflip;
    int a_eloc;
    int cornerperm;
    int sliceedge[3];  // slice edges, even and odd edges of the U and D layers
    int corner_parity; // parity of the corner permutation, 0 even, 1 odd; by check_cube
};

// Reading

// The names as cut out of a text: at most 3 characters for an edge, 4 for a corner. A longer word
// is cut and goes on as the next name, so that it is never taken for a good one.
struct cubie_names {
    char edge[edge_count][4];
    char corner[corner_count][5];
};

// Cuts the first twenty names out of text; names that are not there come out empty. What follows
// the twentieth is not read.
void read_cubies(const char* text, cubie_names& names);

// Looks the names up and writes cube.edges and cube.corners[0..7]. Returns 20 when all are proper,
// else the index of the first improper one, 0..11 an edge, 12..19 a corner; that entry is then -1
// and those after it are not written.
[[nodiscard]] int parse_cubies(const cubie_names& names, cube_struc& cube);

// Judging

// What the last failed check has to say: null while none has failed. A check that succeeds leaves
// it alone. The text is good until the next failing check; it is no format.
extern const char* errorstring;

const char* geterrorstring(); // errorstring

// 1 if no sequence of turns makes the cube whose edges and corners[0..7] are given, with
// errorstring naming a cure (of several, that of the last failed test); else 0. Completes
// edges_flipped, corners and, unless a cubie is there twice, corner_parity.
[[nodiscard]] int check_cube(cube_struc& cube);

// 1 if text describes a cube that can be solved; else 0 with errorstring set.
[[nodiscard]] int sanitycheckcube(const char* text);
