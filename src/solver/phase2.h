// SPDX-License-Identifier: MIT
//
// phase2: the permutation coordinates by which stage 2 sees the cube, the auxiliary coordinates
// that carry the edges through stage 1, their move tables, and the tables of the junction.
//
//   cornerperm    0..40319  which corner stands at each of corners 0..7; followed in both stages
//   b_edgeperm    0..40319  which of edges 0..7 stands at each of positions 0..7
//   b_midperm     0..23     which slice edge (0..3 = FR FL BR BL) stands at positions 8..11
//   sliceedge     0..11879  where four labelled edges stand among positions 0..11, and in which
//                           order: a_eloc + 495 * rank of the labels in order of position
//   halfedgeloc   0..69     which four of positions 0..7 hold marked edges
//   halfedgeperm  0..1679   sliceedge over positions 0..7 alone: halfedgeloc + 70 * rank
//
// b_edgeperm and b_midperm mean nothing until the edges are in their layers. So three sliceedges
// are followed through stage 1 and turned into them at the junction by look-up:
//   sliceedge[0]  labels 1..4 on FR FL BR BL   ->  b_midperm
//   sliceedge[1]  labels 1..4 on UF UB DF DB   ->  even half of b_edgeperm
//   sliceedge[2]  labels 1..4 on UR UL DR DL   ->  odd half
//
// State     the tables below: filled by the init functions, constant afterwards.
// Units     positions in ORDER CUBIE, permutations ranked by perm_n_pack. An unpacked sliceedge or
//           halfedgeperm holds at each position the label 1..4 of the edge there, 0 for no mark.
// Range     nothing is checked: indices must be good.
// Callers   pruning, search, solver.
// Order     transformation_tables_init after the four init functions of twists.
#pragma once

#include "solver/phase1.h"

#include <cstdint>

constexpr int cornerperm_size = 40320;
constexpr int b_edgeperm_size = 40320;
constexpr int b_midperm_size = 24;
constexpr int sliceedge_size = 11880;
constexpr int halfedgeloc_size = 70;
constexpr int halfedgeperm_size = 1680;

// What a conversion table says of a combination that cannot be in the subgroup. No search reads it.
constexpr int impossible = 54321;

// Coordinates; pairs of inverses

void sliceedge_unpack(int index, int* labels); // labels[0..11]; needs the conversion tables
int sliceedge_pack(const int* labels);
void halfedgeperm_unpack(int index, int* labels); // labels[0..7]
int halfedgeperm_pack(const int* labels);

constexpr int half_mask_count = 256;
extern int halfedgeloc_conv[halfedgeloc_size];  // index -> mask, position 0 = bit 0
extern int halfedgeloc_unconv[half_mask_count]; // mask -> index; 0 for one without just four bits

void halfedgeloc_conv_init(int* conv, int* unconv); // lexicographic, as a_eloc_conv_init

// Move tables: ptrs[t][x] is the coordinate after twist t.

extern std::uint16_t twist_on_cornerperm_table[a_twist_count * cornerperm_size]; // 1.45 MB
extern std::uint16_t twist_on_edgeperm_table[b_twist_count * b_edgeperm_size];   // 0.81 MB
extern int twist_on_midperm_table[b_twist_count * b_midperm_size];               // 960 B
extern std::uint16_t twist_on_sliceedge_table[a_twist_count * sliceedge_size];   // 0.43 MB
extern std::uint16_t* a_twist_on_cornerperm_ptrs[a_twist_count];                 // ORDER TWIST
extern std::uint16_t* b_twist_on_cornerperm_ptrs[b_twist_count]; // ORDER STAGE2: the same rows
extern std::uint16_t* twist_on_edgeperm_ptrs[b_twist_count];     // ORDER STAGE2
extern int* twist_on_midperm_ptrs[b_twist_count];                // ORDER STAGE2
extern std::uint16_t* twist_on_sliceedge_ptrs[a_twist_count];    // ORDER TWIST

void twist_on_cornerperm_init(std::uint16_t* table, std::uint16_t** a_ptrs, std::uint16_t** b_ptrs);
void b_twist_on_edgeperm_init(std::uint16_t* table, std::uint16_t** ptrs);
void b_twist_on_midperm_init(int* table, int** ptrs);
void twist_on_sliceedge_init(std::uint16_t* table, std::uint16_t** ptrs); // after the eloc table

// Junction tables

extern int sliceedge_to_halfedgeperm[sliceedge_size]; // impossible if an edge stands at 8..11
extern int sliceedge_to_midperm[sliceedge_size];      // impossible if an edge stands at 0..7

// [even half][odd half]: b_edgeperm of both, impossible if they overlap. 5.6 MB.
extern std::uint16_t half_to_edgeperm_table[halfedgeperm_size * halfedgeperm_size];
extern std::uint16_t* half_to_edgeperm_ptrs[halfedgeperm_size];

// Joins two unpacked halfedgeperms, the even and the odd one, into the permutation out[0..7].
// Returns 1 if a position is marked in both, else 0; one marked in neither is a fatal error.
[[nodiscard]] int combine_halfedgeperm(const int* first, const int* second, int* out);

void sliceedge_to_halfedgeperm_init(int* table);
void half_to_edgeperm_init(std::uint16_t* table, std::uint16_t** ptrs);
void sliceedge_to_midperm_init(int* table);

// All tables of phase1 and phase2, in order.
void transformation_tables_init();

// Deliberate: NOT-BUGS.md, "edge_transform_tables_init is for nobody yet"
void edge_transform_tables_init(); // the last four steps of it alone
