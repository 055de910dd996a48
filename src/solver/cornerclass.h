// SPDX-License-Identifier: MIT
//
// cornerclass: the permutation of the corners up to symmetry.
//
// The sixteen symmetries sort the 40,320 permutations into 2768 classes. Stage 1 carries a
// permutation as its class and the symmetry that takes it to the representative: a step is one
// look-up in a table that stays in the cache.
//
// State     the tables below, constant once filled: the steps by corner_classes_init, 0.2 MB; the
//           codes of the whole corners by corner_bounds_fill, 3 MB.
// Callers   search, growth.
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

// The whole corners, up to symmetry: a class and an a_corner as its representative sees it. Four
// bits a state tell two bounds. 3 MB.

constexpr int corner_reach = 11;        // greatest distance that may turn out to be too short
constexpr int corner_ending_length = 4; // quarter turns of stage 1
constexpr int corner_ending_reach = 10; // greatest number of quarter turns of stage 2, likewise

struct corner_bound {
    // Quarter turns of any face from solved, at least. The true number may be one more, as it is
    // even if and only if the permutation is.
    int distance;
    // If just corner_ending_length quarter turns are left of stage 1: at least so many of stage 2
    // follow, likewise.
    int ending;
};

extern const corner_bound corner_bounds[16];

extern bool corner_bounds_filled;
extern std::uint64_t corner_codes[corner_class_count][(a_corner_size + 15) / 16];

// Fills them; does nothing if they are. 0.07 s. false when Alt+Q interrupted.
[[nodiscard]] bool corner_bounds_fill();

inline unsigned corner_code(int corner_class, int corner) {
    return static_cast<unsigned>(corner_codes[corner_class][corner / 16] >> corner % 16 * 4 & 15);
}

inline const corner_bound& corner_bound_of(int corner_class, int corner) {
    return corner_bounds[corner_code(corner_class, corner)];
}

// The whole corners, as the representative of their permutation's class sees them.
struct whole_corners {
    std::uint16_t corner_class, corner;

    const corner_bound& bound() const { return corner_bound_of(corner_class, corner); }

    // After a twist that the representative sees so.
    whole_corners after(int seen) const {
        const classified_corners to = corner_class_steps[corner_class][seen];
        return {to.corner_class,
                symmetry_on_corner[a_corner_steps[corner].after[seen]][to.symmetry]};
    }

    void prefetch() const { __builtin_prefetch(&corner_codes[corner_class][corner / 16]); }
};
