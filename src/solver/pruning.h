// SPDX-License-Identifier: MIT
//
// pruning: six tables that tell how many quarter turns a cube is at least from a stage's goal.
//
// State     the tables below: filled by the init functions, constant afterwards.
// Units     an entry is the exact least cost, in the metric in force, of bringing that coordinate
//           or pair of coordinates to the goal; rows outer, columns inner.
// Callers   search reads them; solver fills them one a step, in the order below.
// Order     after transformation_tables_init. Each init may run alone and again.
#pragma once

#include "solver/phase2.h"

#include <cstdint>

// In a table being filled: not reached yet. Above every length a search may try.
constexpr int unreached = 181;

// Stage 1. The goal is [0][0], [0][494], [0][494].

extern std::uint8_t corner_eflip_dist_table[a_corner_size * a_eflip_size]; // 4.48 MB
extern std::uint8_t corner_eloc_dist_table[a_corner_size * a_eloc_size];   // 1.08 MB
extern std::uint8_t eflip_eloc_dist_table[a_eflip_size * a_eloc_size];     // 1.01 MB
extern std::uint8_t* corner_eflip_dist_ptrs[a_corner_size];                // [a_corner][a_eflip]
extern std::uint8_t* corner_eloc_dist_ptrs[a_corner_size];                 // [a_corner][a_eloc]
extern std::uint8_t* eflip_eloc_dist_ptrs[a_eflip_size];                   // [a_eflip][a_eloc]

void a_corner_eflip_dist_init(std::uint8_t* table, std::uint8_t** ptrs);
void a_corner_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs);
void a_eflip_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs);

// Stage 2. The goal is [0], [0][0], [0][0].

extern int cornerperm_dist_table[cornerperm_size];                               // 161 kB
extern std::uint8_t mid_cornerperm_dist_table[b_midperm_size * cornerperm_size]; // 0.97 MB
extern std::uint8_t mid_edgeperm_dist_table[b_midperm_size * b_edgeperm_size];   // 0.97 MB
extern std::uint8_t* mid_cornerperm_dist_ptrs[b_midperm_size]; // [b_midperm][cornerperm]
extern std::uint8_t* mid_edgeperm_dist_ptrs[b_midperm_size];   // [b_midperm][b_edgeperm]

void b_cornerperm_dist_init(int* table);
void b_mid_cornerperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs);
void b_mid_edgeperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs);

void prune_tables_init(); // all six
