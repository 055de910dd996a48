// SPDX-License-Identifier: MIT
//
// phase1: the three coordinates by which stage 1 sees the cube, and their move tables.
//
// Stage 1 brings every corner and edge into its good orientation and the four edges of the middle
// slice into the slice. It needs to know of a cube only
//   a_corner  0..2186  the twists of corners 0..6 in base 3, corner 0 lowest; corner 7 follows
//   a_eflip   0..2047  the flips of edges 0..10 in base 2, edge 0 lowest; edge 11 follows
//   a_eloc    0..494   which four positions hold slice edges: eloc_unconv of their 12-bit mask
// The goal is 0, 0, 494.
//
// State     the tables below: filled by the init functions, constant afterwards.
// Units     positions in ORDER CUBIE: edges UF UR UB UL DF DR DB DL FR FL BR BL, the last four
//           being the middle slice; corners UFR URB UBL ULF DRF DFL DLB DBR. Orientation 0..1 of an
//           edge, 0..2 of a corner. Unpacked forms hold one int a position.
// Range     nothing is checked: indices and orientations must be good.
// Callers   phase2, symmetry, edgeclass, pruning, search; transformation_tables_init the inits.
#pragma once

#include "solver/twists.h"

constexpr int a_corner_size = 2187; // 3^7
constexpr int a_eflip_size = 2048;  // 2^11
constexpr int a_eloc_size = 495;    // 12 choose 4
constexpr int a_eloc_goal = 494;    // slice edges at 8..11

// Coordinates; pairs of inverses

void a_corner_unpack(int index, int* twists); // twists[0..7]
int a_corner_pack(const int* twists);
void a_eflip_unpack(int index, int* flips); // flips[0..11]
int a_eflip_pack(const int* flips);
void a_eloc_unpack(int index, int* flags); // flags[0..11]: 1 where a slice edge stands
int a_eloc_pack(const int* flags);

constexpr int edge_mask_count = 4096;
extern int eloc_conv[a_eloc_size];       // index -> mask, edge 0 = bit 0
extern int eloc_unconv[edge_mask_count]; // mask -> index; 0 for a mask without just four bits

// Numbers the sets of four of some positions in lexicographic order: conv[index] is the mask of a
// set, unconv[mask] its index. More than size of them is a fatal error with that message.
void number_foursets(int positions, int size, int* conv, int* unconv, const char* too_many);

void a_eloc_conv_init(int* conv, int* unconv); // of 0..11

// The six faces: which positions a clockwise quarter twist cycles (four_cycle: each place takes
// from the next), and whether orientations change. ORDER FLUBRD.
struct face_cycle_row {
    int corners[4]; // corners 1 and 3 of the list gain two thirds of a turn, 0 and 2 one third
    bool twists;    // if this is set
    int edges[4];   // all four flip
    bool flips;     // if this is set
};

extern const face_cycle_row face_cycles[twist_face_count];

void adjust_corner(int* twists, int a, int b, int c, int d); // gains 1, 2, 1, 2 modulo 3
void adjust_eflip(int* flips, int a, int b, int c, int d);   // flips all four

// One clockwise quarter twist: the coordinate of the cube after it.

int a_twist_f_on_corner(int index);
int a_twist_l_on_corner(int index);
int a_twist_u_on_corner(int index);
int a_twist_b_on_corner(int index);
int a_twist_r_on_corner(int index);
int a_twist_d_on_corner(int index);

int a_twist_f_on_eflip(int index);
int a_twist_l_on_eflip(int index);
int a_twist_u_on_eflip(int index);
int a_twist_b_on_eflip(int index);
int a_twist_r_on_eflip(int index);
int a_twist_d_on_eflip(int index);

int a_twist_f_on_eloc(int index);
int a_twist_l_on_eloc(int index);
int a_twist_u_on_eloc(int index);
int a_twist_b_on_eloc(int index);
int a_twist_r_on_eloc(int index);
int a_twist_d_on_eloc(int index);

// Move tables: ptrs[t][x] is the coordinate after stage-1 twist t. 18 rows, ORDER TWIST.

extern int twist_on_corner_table[a_twist_count * a_corner_size]; // 157 kB
extern int twist_on_eflip_table[a_twist_count * a_eflip_size];   // 147 kB
extern int twist_on_eloc_table[a_twist_count * a_eloc_size];     //  36 kB
extern int* twist_on_corner_ptrs[a_twist_count];
extern int* twist_on_eflip_ptrs[a_twist_count];
extern int* twist_on_eloc_ptrs[a_twist_count];

void a_twist_on_corner_init(int* table, int** ptrs);
void a_twist_on_eflip_init(int* table, int** ptrs);
void a_twist_on_eloc_init(int* table, int** ptrs); // builds the conversion tables first

// Rows of half and inverse twists from those of the quarter twists: row 3f + 1 is row 3f twice, row
// 3f + 2 three times. ptrs must be set.
template <typename entry> void complete_twist_rows(entry* const* ptrs, int size) {
    for (int quarter = 0; quarter < a_twist_count; quarter += 3) {
        for (int x = 0; x < size; x++) {
            const entry half = ptrs[quarter][ptrs[quarter][x]];
            ptrs[quarter + 1][x] = half;
            ptrs[quarter + 2][x] = ptrs[quarter][half];
        }
    }
}

// Points ptrs[0..rows-1] at the rows of a table.
template <typename entry> void point_rows(entry* table, entry** ptrs, int rows, int size) {
    for (int row = 0; row < rows; row++) {
        ptrs[row] = table + row * size;
    }
}
