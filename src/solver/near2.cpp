// SPDX-License-Identifier: MIT
#include "solver/near2.h"

#include <algorithm>
#include <cassert>

namespace {

// Room by half the radius; some 16 bits a member and more.
constexpr int log_words[] = {6, 6, 6, 10, 13, 16, 19};

constexpr int words_before(int half) {
    int words = 0;
    for (int h = 0; h < half; h++)
        words += 1 << log_words[h];
    return words;
}

// State

std::uint64_t words[words_before(near2_greatest / 2 + 1)];

struct state {
    int sequence, cornerperm, edgeperm, midperm;
};

// Enters a state into the sieves that are not filled yet, and all that is made of it by twists of
// up to radius in all. No sequence is walked in two spellings; states that are made by two come
// twice.
void enter_all(const state& x, int distance, int radius) {
    for (int half = std::max(near2_radius / 2 + 1, (distance + 1) / 2); half <= radius / 2; half++)
        sieve_add(near2_sieves[half], near2_number(x.cornerperm, x.edgeperm, x.midperm));
    for (int t = 0; t < b_twist_count; t++) {
        const int sequence = b_twist_list_ptrs[t][x.sequence];
        if (sequence == forbidden_state || distance + b_metric_length[t] > radius)
            continue;
        enter_all({sequence, b_corner_steps[x.cornerperm].after[t],
                   b_edge_steps[x.edgeperm].after[t], twist_on_midperm_ptrs[t][x.midperm]},
                  distance + b_metric_length[t], radius);
    }
}

} // namespace

constinit b_steps b_corner_steps[cornerperm_size] = {};
constinit b_steps b_edge_steps[b_edgeperm_size] = {};

constexpr sieve near2_sieves[] = {
    {words + words_before(0), log_words[0]},
    {words + words_before(1), log_words[1]},
    {words + words_before(2), log_words[2]},
    {words + words_before(3), log_words[3]},
    {words + words_before(4), log_words[4]},
    {words + words_before(5), log_words[5]},
    {words + words_before(6), log_words[6]},
};

constinit int near2_radius = -2;

void near2_tables_init() {
    for (int t = 0; t < b_twist_count; t++)
        for (int x = 0; x < cornerperm_size; x++) {
            b_corner_steps[x].after[t] = b_twist_on_cornerperm_ptrs[t][x];
            b_edge_steps[x].after[t] = twist_on_edgeperm_ptrs[t][x];
        }
}

void near2_extend(int radius) {
    assert(radius <= near2_greatest && radius % 2 == 0);
    if (radius <= near2_radius)
        return;
    enter_all({start_state, 0, 0, 0}, 0, radius);
    near2_radius = radius;
}
