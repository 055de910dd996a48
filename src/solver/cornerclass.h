// SPDX-License-Identifier: MIT
//
// cornerclass: the permutation of the corners up to symmetry.
//
// The sixteen symmetries sort the 40,320 permutations into 2768 classes. Stage 1 carries a
// permutation as its class and the symmetry that takes it to the representative: a step is one
// look-up in a table that stays in the cache.
//
// State     the table below: filled by corner_classes_init, constant afterwards; 0.2 MB.
// Callers   search.
// Order     corner_classes_init after the distances of cornerperm.
#pragma once

#include "solver/edgeclass.h"
#include "solver/symmetry.h"

constexpr int corner_class_count = 2768;

// What becomes of some corners: the class of their permutation, a symmetry that takes it to the
// representative, and the distance of the class, by the cornerperm distances.
struct classified_corners {
    std::uint16_t corner_class;
    std::uint8_t symmetry, distance;
};

// The representatives after each twist
extern classified_corners corner_class_steps[corner_class_count][a_twist_count]; // ORDER TWIST

// Any permutation after a twist.
inline classified_corners corners_after(classified_corners from, int twist) {
    classified_corners to =
        corner_class_steps[from.corner_class][symmetry_on_twist[from.symmetry][twist]];
    to.symmetry = symmetry_on_symmetry[to.symmetry][from.symmetry];
    return to;
}

// The representative of a class.
inline int corner_class_cornerperm(int corner_class) {
    return classes_of_cornerperm.representatives[static_cast<std::size_t>(corner_class)];
}

classified_corners classify_corners(int cornerperm);

void corner_classes_init(); // does nothing when it is done

// The whole corners: how many quarter turns of any face they are at least from solved. Four bits a
// state, up to symmetry: a class and an a_corner as its representative sees it. 3 MB.

constexpr int corner_reach = 10; // greatest distance that is told; one more stands for all beyond

extern bool corner_bounds_filled;
extern std::uint64_t corner_bounds[corner_class_count][(a_corner_size + 15) / 16];

// Fills them; does nothing if they are. 0.03 s. false when Alt+Q interrupted.
[[nodiscard]] bool corner_bounds_fill();

inline int corner_bound(int corner_class, int corner) {
    return static_cast<int>(corner_bounds[corner_class][corner / 16] >> corner % 16 * 4 & 15);
}
