// SPDX-License-Identifier: MIT
#include "solver/near2.h"

#include "shell.h"
#include "solver/numberset.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <vector>

namespace {

// Room by half the radius; some 14 bits a member and more.
constexpr int log_words[] = {6, 6, 6, 8, 10, 13, 15, 18};

// State

std::uint64_t words[words_of(log_words)];

// A state as the representative of its cornerperm sees it.
struct state {
    std::uint16_t corner_class, edgeperm;
    std::uint8_t midperm;
};

using layer = std::vector<state>;

std::uint32_t number_of(state x) {
    return (std::uint32_t{x.corner_class} * b_midperm_size + x.midperm) * b_edgeperm_size +
           x.edgeperm;
}

// Calls visit for each state to which one of the twists of a cost leads. The symmetries of a
// representative make several out of one.
template <typename visitor> void for_each_next(state x, int cost, visitor visit) {
    const b_steps& corners = b_corner_steps[classes_of_cornerperm.representatives[x.corner_class]];
    const b_steps& edges = b_edge_steps[x.edgeperm];
    for (int t = 0; t < b_twist_count; t++) {
        if (b_metric_length[t] != cost) {
            continue;
        }
        const classified to = classes_of_cornerperm.of[corners.after[t]];
        const int edgeperm = symmetry_on_edgeperm[edges.after[t]][to.symmetry];
        const int midperm = symmetry_on_midperm[twist_on_midperm_ptrs[t][x.midperm]][to.symmetry];
        for (unsigned rest = classes_of_cornerperm.stabilizer[to.number]; rest != 0;
             rest &= rest - 1) {
            const int s = std::countr_zero(rest);
            visit(state{to.number, symmetry_on_edgeperm[edgeperm][s],
                        symmetry_on_midperm[midperm][s]});
        }
    }
}

// Enters a state at a distance, or nearer, into the sieves that are not filled yet.
void enter(state x, int distance, int radius) {
    for (int half = std::max(near2_radius / 2 + 1, (distance + 1) / 2); half <= radius / 2;
         half++) {
        sieve_add(near2_sieves[static_cast<std::size_t>(half)], number_of(x));
    }
}

// The states within near2_greatest that are not within near2_ordinary, from the last two layers
// within. false when interrupted.
bool fill_greatest(const layer& two_before, const layer& one_before) {
    constexpr std::size_t states_a_question = 1 << 14;
    sieve_filler filler(near2_sieves[near2_greatest / 2]);
    const auto enter_14 = [&](state x) { filler.add(number_of(x)); };
    const auto enter_13 = [&](state x) {
        filler.add(number_of(x));
        for_each_next(x, 1, enter_14);
    };
    for (std::size_t i = 0; i < one_before.size(); i++) {
        if (i % states_a_question == 0 && alt_q() != 0) {
            return false;
        }
        for_each_next(one_before[i], 1, enter_13);
        for_each_next(one_before[i], 2, enter_14);
    }
    for (const state x : two_before) {
        for_each_next(x, 2, enter_13);
    }
    return true;
}

} // namespace

constinit b_steps b_corner_steps[cornerperm_size] = {};
constinit b_steps b_edge_steps[b_edgeperm_size] = {};

constinit const std::array<sieve, near2_greatest / 2 + 1> near2_sieves =
    sieves_in(words, log_words);

constinit int near2_radius = -2;

void near2_tables_init() {
    if (b_corner_steps[0].after[0] != 0) {
        return;
    }
    symmetry_perm_tables_init();
    for (int t = 0; t < b_twist_count; t++) {
        for (int x = 0; x < cornerperm_size; x++) {
            b_corner_steps[x].after[t] = b_twist_on_cornerperm_ptrs[t][x];
            b_edge_steps[x].after[t] = twist_on_edgeperm_ptrs[t][x];
        }
    }
}

bool near2_extend(int radius) {
    assert(radius == near2_ordinary || radius == near2_greatest);
    assert(metric == quarter_turn_metric); // twists cost 1 or 2, and radii go by parity
    if (radius <= near2_radius) {
        return true;
    }
    // 1. Layers of states not met before, from the solved cube outwards.
    constexpr int log_members = 18; // twice as many as lie within near2_ordinary
    number_set seen(log_members);
    layer layers[near2_ordinary + 1];
    for (int d = 0; d <= near2_ordinary; d++) {
        const auto visit = [&](state x) {
            if (seen.insert(number_of(x))) {
                layers[d].push_back(x);
                enter(x, d, radius);
            }
        };
        if (d == 0) {
            visit({0, 0, 0});
        }
        for (int cost = 1; cost <= 2 && cost <= d; cost++) {
            for (const state x : layers[d - cost]) {
                for_each_next(x, cost, visit);
            }
        }
    }
    // 2. The last two are not walked from again, so that a state may come more than once.
    if (radius > near2_ordinary && !fill_greatest(layers[11], layers[12])) {
        return false;
    }
    near2_radius = radius;
    return true;
}
