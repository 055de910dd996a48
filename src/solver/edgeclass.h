// SPDX-License-Identifier: MIT
//
// edgeclass: stage 1's view of the edges up to symmetry.
//
// a_eflip and a_eloc together take 1,013,760 values, which the sixteen symmetries sort into 64,430
// classes. A state of stage 1 is, up to a symmetry, a class and an a_corner; the search walks over
// such pairs and remembers by which symmetry the real cube differs.
//
// State     the tables below: filled by edge_classes_init, constant afterwards; 4.7 MB.
// Units     a_edges = a_eloc_size * a_eflip + a_eloc. The representative of a class is its least
//           a_edges. Classes are numbered by their distance from the goal, and in that order where
//           it is the same: the goal is 0, and the near ones lie close together in memory.
// Callers   near1, search.
// Order     edge_classes_init after symmetry_tables_init and the distances of eflip_eloc.
#pragma once

#include "solver/symmetry.h"

constexpr int a_edges_size = a_eflip_size * a_eloc_size;
constexpr int edge_class_count = 64430;

extern int edge_class_edges[edge_class_count];                // the representative
extern std::uint16_t edge_class_stabilizer[edge_class_count]; // symmetries that keep it, bit by bit

// What becomes of some edges: their class, a symmetry that takes them to the representative, and
// the distance of the class from the goal, by the eflip_eloc distances.
struct classified_edges {
    std::uint16_t edge_class;
    std::uint8_t symmetry, distance;
};

// A representative after each twist, in one cache line. 4.1 MB.
struct alignas(64) edge_class_row {
    std::uint16_t edge_class[a_twist_count]; // ORDER TWIST
    std::uint8_t rest[a_twist_count];        // symmetry + 16 * distance

    classified_edges after(int t) const {
        return {edge_class[t], static_cast<std::uint8_t>(rest[t] % symmetry_count),
                static_cast<std::uint8_t>(rest[t] / symmetry_count)};
    }
};

extern edge_class_row edge_class_steps[edge_class_count];

// Move table of a_corner turned round: one cache line a value. 140 kB.
struct alignas(64) corner_steps {
    std::uint16_t after[a_twist_count]; // ORDER TWIST
};

extern corner_steps a_corner_steps[a_corner_size];

int symmetry_on_edges(int symmetry, int a_edges);

// The class of a_edges, a symmetry that takes it to the representative, and the distance.
classified_edges classify_edges(int a_edges);

void edge_classes_init(); // does nothing when it is done
