// SPDX-License-Identifier: MIT
//
// near1: which twists lead from a state of stage 1 into the subgroup, in just so many turns.
//
// Nine tenths of what a search with the tables of pruning visits has 7 or 8 quarter turns left and
// leads nowhere. But the states that few quarter turns bring into the subgroup are few: 2.3 million
// of the 2.2 billion need up to 7, 20 million up to 8, 159 million up to 9, and up to symmetry a
// sixteenth of that. They are enumerated from the goal outwards, length by length.
//
// A state belongs to a length if a sequence of just that length leads into the subgroup, no face
// following itself, with a last twist that comes from outside. Most states near the goal have none
// of the lengths just above their distance. For the lengths up to 8 its leads are kept, the set of
// the first twists of those sequences: a search looks up where it stands, and goes where that says.
// Of length 9 one bit a state says whether it belongs to it.
//
// State     the tables, zeros at first, and the length up to which they are filled.
// Memory    10.3 MB up to length 8, 17.6 MB more for 9; pages that are not written cost nothing.
// Units     a state is an edge class (edgeclass.h) and an a_corner as its representative sees it;
//           twists are seen likewise. A set of twists is a mask, bit t for twist t.
// Exactness nothing here says "perhaps": members are told from all others by their full number.
// Callers   search; solver fills the first lengths.
// Order     near1_extend after edge_classes_init.
#pragma once

#include "solver/edgeclass.h"

constexpr int near1_initial = 6;  // length that pays for any search
constexpr int near1_ordinary = 8; // length that pays for the search of any but the nearest cubes
constexpr int near1_greatest = 9; // largest length there is room for

extern int near1_length; // filled up to this; -1 at first

// Fills the tables up to a length, from near1_initial on; does nothing if they are. 6 takes 1 ms, 8
// takes 0.02 s, 9 takes 0.1 s. Asks for Alt+Q now and then, but for 6: false if it was pressed, and
// the length stays as it was.
[[nodiscard]] bool near1_extend(int length);

// A state as a number. The goal is 0.
inline std::uint32_t near1_number(unsigned edge_class, unsigned corner) {
    return edge_class * a_corner_size + corner;
}

// The leads of the states of one length: a hash table of buckets. A cell holds 18 bits of leads,
// and above them a tag, the lowest 14 bits of a number's hash. The hash is a permutation of the
// numbers within key_mask, and its highest bits are the bucket; a member that finds it full goes
// into the next. Tag and bucket overlap by some bits, which tell how far it went: while that is
// less than the table's reach, the bucket where it lies and the tag make the full number.
struct lead_table {
    std::uint32_t* cells;
    std::uint32_t key_mask; // of key_bits ones
    int shift;              // from hash to bucket
    int log_buckets;
};

constexpr int lead_bits = a_twist_count;
constexpr std::uint32_t lead_mask = (1u << lead_bits) - 1;
constexpr int bucket_size = 8; // half a cache line. Cells are filled from the first on

extern const lead_table
    near1_leads[near1_ordinary + 1]; // by length; 0 is the goal itself, not kept

inline std::uint32_t lead_hash(const lead_table& table, std::uint32_t number) {
    return (number * 0x9E3779B1u) & table.key_mask; // 2^32 over the golden ratio
}

// The bucket where a number lies, or began to look for room.
inline const std::uint32_t* lead_bucket(const lead_table& table, std::uint32_t hash) {
    return table.cells + std::size_t{hash >> table.shift} * bucket_size;
}

// The leads of the number with that hash, which is that of a class within the table's length, or
// any in the greatest table. 0 if it is no member.
inline std::uint32_t lead_find(const std::uint32_t* bucket, std::uint32_t hash) {
    const std::uint32_t tag = hash & (~0u >> lead_bits);
    for (;; bucket += bucket_size) {
        std::uint32_t found = 0;
        for (int i = 0; i < bucket_size; i++) {
            found |= bucket[i] >> lead_bits == tag ? bucket[i] : 0;
        }
        // One branch, not two: few buckets are full, and each of two would be mispredicted.
        const bool missing = found == 0, full = bucket[bucket_size - 1] != 0;
        if (!(missing & full)) {
            return found & lead_mask;
        }
    }
}

// States that belong to length 9: bit number % 64 of word number / 64.
extern std::uint64_t near1_greatest_bits[];

inline bool near1_greatest_has(std::uint32_t number) {
    return (near1_greatest_bits[number / 64] >> (number % 64) & 1) != 0;
}
