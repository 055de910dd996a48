// SPDX-License-Identifier: MIT
#include "solver/near1.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <vector>

namespace {

// Room for each radius: about 32 bits a member, 13 for the last.
constexpr int log_words[] = {6, 6, 6, 6, 9, 11, 13, 16, 19, 21};

constexpr int words_before(int radius) {
    int words = 0;
    for (int r = 0; r < radius; r++)
        words += 1 << log_words[r];
    return words;
}

// State

std::uint64_t words[words_before(near1_greatest + 1)];

struct state {
    std::uint16_t edge_class, corner;
};

// The states of the layers that are done, each once: a hash table with linear probing.
class state_set {
  public:
    explicit state_set(int log_size)
        : shift(32 - log_size), entries(std::size_t{1} << log_size, none) {}

    // false if it is there already
    bool insert(state x) {
        const auto number = static_cast<std::uint32_t>(near1_number(x.edge_class, x.corner));
        std::size_t i = number * 0x9E3779B9u >> shift;
        while (entries[i] != none && entries[i] != number)
            i = (i + 1) % entries.size();
        const bool fresh = entries[i] == none;
        entries[i] = number;
        return fresh;
    }

  private:
    static constexpr std::uint32_t none = 0xFFFFFFFF;
    int shift;
    std::vector<std::uint32_t> entries;
};

state after(state x, int t) {
    const class_step step = edge_class_steps[x.edge_class][t];
    const int corner = a_corner_steps[x.corner].after[t];
    return {step.edge_class, symmetry_on_corner[corner][step.symmetry]};
}

// Calls visit for a state and for what the symmetries of its class make of it.
template <typename visitor> void for_each_image(state x, visitor visit) {
    for (unsigned rest = edge_class_stabilizer[x.edge_class]; rest != 0; rest &= rest - 1)
        visit(state{x.edge_class, symmetry_on_corner[x.corner][std::countr_zero(rest)]});
}

// Calls visit for all neighbours of a layer's states. A half turn is two quarter turns.
template <typename visitor>
void for_each_neighbour(const std::vector<state>& layer, visitor visit) {
    for (const state x : layer)
        for (int quarter = 0; quarter < a_twist_count; quarter += 3) {
            for_each_image(after(x, quarter), visit);
            for_each_image(after(x, quarter + 2), visit);
        }
}

// Enters a state into the sieves of a distance and more that are not filled yet.
void enter(state x, int distance, int radius) {
    for (int r = std::max(distance, near1_radius + 1); r <= radius; r++)
        sieve_add(near1_sieves[r], near1_number(x.edge_class, x.corner));
}

} // namespace

constexpr sieve near1_sieves[] = {
    {words + words_before(0), log_words[0]},
    {words + words_before(1), log_words[1]},
    {words + words_before(2), log_words[2]},
    {words + words_before(3), log_words[3]},
    {words + words_before(4), log_words[4]},
    {words + words_before(5), log_words[5]},
    {words + words_before(6), log_words[6]},
    {words + words_before(7), log_words[7]},
    {words + words_before(8), log_words[8]},
    {words + words_before(9), log_words[9]},
};

constinit int near1_radius = -1;

void near1_extend(int radius) {
    assert(radius <= near1_greatest);
    if (radius <= near1_radius)
        return;
    state_set seen(radius <= 8 ? 18 : 21); // holds the layers before the last
    std::vector<state> layer = {
        {classify_edges(a_eloc_goal).edge_class, 0}
    };
    seen.insert(layer[0]);
    enter(layer[0], 0, radius);
    for (int distance = 1; distance < radius; distance++) {
        std::vector<state> next;
        for_each_neighbour(layer, [&](state x) {
            if (seen.insert(x)) {
                next.push_back(x);
                enter(x, distance, radius);
            }
        });
        layer.swap(next);
    }
    // The last layer is not walked from, so that its states may come more than once.
    for_each_neighbour(layer, [&](state x) { enter(x, radius, radius); });
    near1_radius = radius;
}
