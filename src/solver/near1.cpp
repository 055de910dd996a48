// SPDX-License-Identifier: MIT
#include "solver/near1.h"

#include "solver/numberset.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <utility>
#include <vector>

namespace {

// Room for each length: 20 bits an entry and more, 7 for the last.
constexpr int log_words[] = {6, 6, 6, 8, 10, 12, 15, 16, 19, 20};

// State

std::uint64_t words[words_of(log_words)];

// A state, and the face that a sequence from there turns first.
struct start {
    std::uint16_t edge_class, corner;
    std::uint8_t face;
};

using layer = std::vector<start>; // of one length

std::uint32_t start_number(start x) {
    return static_cast<std::uint32_t>(near1_number(x.edge_class, x.corner, x.face, 0));
}

// Calls visit for each start from which one twist of the cost leads to x. The symmetries of a class
// make several out of one.
template <typename visitor> void for_each_before(start x, int cost, visitor visit) {
    for (int t = cost - 1; t < a_twist_count; t += t % 3 == 0 ? 2 : cost == 1 ? 1 : 3) {
        if (t / 3 == x.face)
            continue;
        const class_step step = edge_class_steps[x.edge_class][t];
        const int corner = symmetry_on_corner[a_corner_steps[x.corner].after[t]][step.symmetry];
        const int twist = symmetry_on_twist[step.symmetry][t];
        for (unsigned rest = edge_class_stabilizer[step.edge_class]; rest != 0; rest &= rest - 1) {
            const int s = std::countr_zero(rest);
            visit(start{step.edge_class, symmetry_on_corner[corner][s],
                        static_cast<std::uint8_t>(symmetry_on_twist[s][twist] / 3)});
        }
    }
}

// Enters the state of a start into the sieve of its length, which the filler fills.
void enter(sieve_filler& filler, start x, int length) {
    if (length > near1_by_face) {
        filler.add(near1_number(x.edge_class, x.corner, 0, length));
        return;
    }
    for (int last = 0; last < twist_face_count; last++)
        if (last != x.face)
            filler.add(near1_number(x.edge_class, x.corner, last, length));
}

// The starts of a length from those of the two lengths before.
layer next_layer(const layer& one_less, const layer& two_less, int length) {
    layer found;
    number_set seen(length < 6 ? 12 : length == 6 ? 17 : 20);
    sieve_filler filler(near1_sieves[length]);
    const auto visit = [&](start x) {
        if (seen.insert(start_number(x))) {
            found.push_back(x);
            enter(filler, x, length);
        }
    };
    for (const start x : one_less)
        for_each_before(x, 1, visit);
    for (const start x : two_less)
        for_each_before(x, 2, visit);
    return found;
}

} // namespace

constinit const std::array<sieve, near1_greatest + 1> near1_sieves = sieves_in(words, log_words);

constinit int near1_length = -1;

void near1_extend(int length) {
    assert(length >= near1_initial && length <= near1_greatest);
    if (length <= near1_length)
        return;
    const int last = std::min(length, near1_ordinary);
    // 1. Length 0: in the subgroup, by a twist of one of the faces that lead there from outside.
    const start goal = {classify_edges(a_eloc_goal).edge_class, 0, 0};
    for (const int face : {0, 1, 3, 4})
        sieve_add(near1_sieves[0], near1_number(goal.edge_class, goal.corner, face, 0));
    // 2. Length 1: those quarter turns back; up and down are not among them.
    layer one_less, two_less;
    sieve_filler first_filler(near1_sieves[1]);
    for (const int not_this : {2, 5})
        for_each_before({goal.edge_class, goal.corner, static_cast<std::uint8_t>(not_this)}, 1,
                        [&](start x) {
                            if (x.edge_class != goal.edge_class) {
                                one_less.push_back(x);
                                enter(first_filler, x, 1);
                            }
                        });
    // 3. The lengths that are kept.
    for (int n = 2; n < last; n++) {
        layer next = next_layer(one_less, two_less, n);
        two_less = std::move(one_less);
        one_less = std::move(next);
    }
    // 4. The greater ones are not walked from again, so that a state may come more than once.
    sieve_filler last_filler(near1_sieves[last]);
    sieve_filler greatest_filler(near1_sieves[near1_greatest]);
    const auto enter_greatest = [&](start x) { enter(greatest_filler, x, near1_greatest); };
    const auto enter_last = [&](start x) {
        enter(last_filler, x, last);
        if (length > last)
            for_each_before(x, 1, enter_greatest);
    };
    for (const start x : one_less) {
        for_each_before(x, 1, enter_last);
        if (length > last)
            for_each_before(x, 2, enter_greatest);
    }
    for (const start x : two_less)
        for_each_before(x, 2, enter_last);
    near1_length = length;
}
