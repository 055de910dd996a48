// SPDX-License-Identifier: MIT
//
// symmetry: the sixteen symmetries of the cube that keep the U-D axis, what they make of every
// coordinate, and the classes into which they sort the values of one.
//
// A cube seen in a mirror, or with another face in front, is as far from the subgroup, or from
// solved, as before. So what is known of one cube is known of sixteen: a table may be reckoned for
// one value of each class, and a sieve need hold no more.
//
// State     the tables below: filled by the two init functions, constant afterwards; 1.7 MB.
// Units     a symmetry 0..15 is q + 4 * h + 8 * m: first q quarter turns of the cube about U-D (F
//           to L), then h half turns about F-B, then m mirrorings that exchange L and R. 0 changes
//           nothing. Sets of symmetries are masks, bit s for symmetry s.
// Range     nothing is checked: symmetries and values must be good.
// Callers   edgeclass, near1, near2, pruning, search.
// Order     the init functions after the move tables of phase1 and phase2.
#pragma once

#include "solver/phase2.h"

#include <cstddef>
#include <cstdint>
#include <vector>

constexpr int symmetry_count = 16;
constexpr unsigned all_symmetries = 0xFFFF;
constexpr unsigned even_symmetries = 0x5555; // those that keep the F-B axis, too

// Each does nothing when it has been done.
void symmetry_tables_init();      // what concerns stage 1
void symmetry_perm_tables_init(); // permutations as well

// What a symmetry makes of a thing

extern std::uint8_t inverse_symmetry[symmetry_count];
extern std::uint8_t symmetry_on_symmetry[symmetry_count][symmetry_count]; // [b][a]: first a, then b
extern std::uint8_t symmetry_on_twist[symmetry_count][a_twist_count];     // ORDER TWIST
extern std::uint32_t symmetry_on_faces[symmetry_count][3][64];            // by symmetry_on_twists
extern std::uint16_t symmetry_on_corner[a_corner_size][symmetry_count];
extern std::uint16_t symmetry_on_eloc[a_eloc_size][symmetry_count];
extern std::uint16_t symmetry_on_edgeperm[b_edgeperm_size][symmetry_count]; // 1.3 MB
extern std::uint8_t symmetry_on_midperm[b_midperm_size][symmetry_count];

// Of a set of twists, a mask with bit t for twist t.
inline std::uint32_t symmetry_on_twists(int symmetry, std::uint32_t twists) {
    const auto& images = symmetry_on_faces[symmetry]; // of two faces each
    return images[0][twists & 63] | images[1][twists >> 6 & 63] | images[2][twists >> 12 & 63];
}

// Of an a_eflip, first as it is, then which flips change with that. Flipped or not is defined by
// the F and B faces; seen with L and R in their place, exactly the edges that stand in the slice
// but do not belong there, or the other way, change their name.
extern std::uint16_t symmetry_on_flips[symmetry_count][a_eflip_size];
extern std::uint16_t symmetry_toggles[symmetry_count][a_eloc_size]; // all 0 for even_symmetries

inline int symmetry_on_eflip(int symmetry, int eloc, int eflip) {
    return symmetry_on_flips[symmetry][eflip] ^ symmetry_toggles[symmetry][eloc];
}

// Classes of a coordinate, numbered in the order of their least values, the representatives.

struct classified {
    std::uint16_t number;  // of the class
    std::uint8_t symmetry; // takes the value to the representative
};

struct symmetry_classes {
    std::vector<int> representatives;      // by class
    std::vector<std::uint16_t> stabilizer; // by class: the symmetries that keep the representative
    std::vector<classified> of;            // by value
};

extern symmetry_classes classes_of_cornerperm; // 2768

inline classified class_of_cornerperm(int cornerperm) {
    return classes_of_cornerperm.of[static_cast<std::size_t>(cornerperm)];
}

// Sorts 0..size-1 into classes by some symmetries, a mask closed under products. image(s, x) is
// what symmetry s makes of x.
template <typename image_function>
symmetry_classes sort_into_classes(int size, unsigned symmetries, image_function image) {
    constexpr classified nowhere = {0, symmetry_count};
    symmetry_classes sorted;
    sorted.of.assign(static_cast<std::size_t>(size), nowhere);
    for (int x = 0; x < size; x++) {
        if (sorted.of[static_cast<std::size_t>(x)].symmetry != symmetry_count) {
            continue;
        }
        const auto number = static_cast<std::uint16_t>(sorted.representatives.size());
        unsigned keep = 0;
        for (int s = 0; s < symmetry_count; s++) {
            if (symmetries >> s & 1) {
                const int y = image(s, x);
                sorted.of[static_cast<std::size_t>(y)] = {number, inverse_symmetry[s]};
                keep |= static_cast<unsigned>(y == x) << s;
            }
        }
        sorted.representatives.push_back(x);
        sorted.stabilizer.push_back(static_cast<std::uint16_t>(keep));
    }
    return sorted;
}
