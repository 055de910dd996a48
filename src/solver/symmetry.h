// SPDX-License-Identifier: MIT
//
// symmetry: the sixteen symmetries of the cube that keep the U-D axis, and the classes into which
// they sort what stage 1 sees of the edges.
//
// A cube seen in a mirror, or with another face in front, is as far from the subgroup as before. So
// what is known of one cube is known of sixteen: a_eflip and a_eloc together take 1,013,760 values
// but fall into 64,430 classes, and a state of stage 1 is, up to a symmetry, a class and an
// a_corner. The search walks over such pairs and remembers by which symmetry the real cube differs.
//
// State     the tables below: filled by symmetry_tables_init, constant afterwards; 5 MB.
// Units     a symmetry 0..15 is q + 4 * h + 8 * m: first q quarter turns of the cube about U-D (F
//           to L), then h half turns about F-B, then m mirrorings that exchange L and R. 0 changes
//           nothing. a_edges = a_eloc_size * a_eflip + a_eloc.
// Callers   near1, search.
// Order     symmetry_tables_init after the move tables of phase1.
#pragma once

#include "solver/phase1.h"

#include <cstddef>
#include <cstdint>

constexpr int symmetry_count = 16;
constexpr int a_edges_size = a_eflip_size * a_eloc_size;
constexpr int edge_class_count = 64430;

// What a symmetry makes of a thing

extern std::uint8_t symmetry_on_twist[symmetry_count][a_twist_count];     // of a twist
extern std::uint8_t symmetry_on_symmetry[symmetry_count][symmetry_count]; // [b][a]: first a, then b
extern std::uint16_t symmetry_on_corner[a_corner_size][symmetry_count];   // of an a_corner; 70 kB
int symmetry_on_edges(int symmetry, int a_edges);

// Classes. The representative of a class is its least a_edges; classes are numbered in that order.

extern int edge_class_edges[edge_class_count];                // the representative
extern std::uint16_t edge_class_stabilizer[edge_class_count]; // symmetries that keep it, bit by bit

// A representative after a twist: which class that is, and which symmetry takes it to the
// representative there.
struct class_step {
    std::uint16_t edge_class;
    std::uint8_t symmetry;
    std::uint8_t distance; // of that class from the goal, by the eflip_eloc distances
};

// A row holds all the children of a state within two cache lines. 4.6 MB.
extern class_step edge_class_steps[edge_class_count][a_twist_count]; // ORDER TWIST

// Move table of a_corner turned round: one cache line a value. 140 kB.
struct alignas(64) corner_steps {
    std::uint16_t after[a_twist_count]; // ORDER TWIST
};

extern corner_steps a_corner_steps[a_corner_size];

// The class of a_edges, and a symmetry that takes it to the representative.
class_step classify_edges(int a_edges);

void symmetry_tables_init();
