// SPDX-License-Identifier: MIT
#include "solver/edgeclass.h"

#include "solver/pruning.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <utility>

namespace {

// State

std::uint16_t class_by_least[edge_class_count]; // the classes in order of their representatives

// By value and not by twist, as the move table has it: a search tries all twists of one value.
void find_corner_steps() {
    for (int t = 0; t < a_twist_count; t++) {
        for (int x = 0; x < a_corner_size; x++) {
            a_corner_steps[x].after[t] = static_cast<std::uint16_t>(twist_on_corner_ptrs[t][x]);
        }
    }
}

// The classes in order of their distances, so that those near the goal lie close together; those of
// one distance by their numbers.
std::vector<std::uint16_t> order_classes(const symmetry_classes& classes) {
    std::vector<std::uint16_t> order(edge_class_count);
    std::iota(order.begin(), order.end(), std::uint16_t{0});
    const auto place = [&](std::uint16_t number) {
        const auto x = static_cast<std::size_t>(classes.representatives[number]);
        return std::pair(eflip_eloc_dist_table[x], number);
    };
    // Not by a stable sort: one library warns of what the other's needs.
    std::ranges::sort(order, {}, place);
    return order;
}

void find_class_steps(const std::vector<classified>& of) {
    for (int c = 0; c < edge_class_count; c++) {
        const int eflip = edge_class_edges[c] / a_eloc_size;
        const int eloc = edge_class_edges[c] % a_eloc_size;
        for (int t = 0; t < a_twist_count; t++) {
            const int x = twist_on_eflip_ptrs[t][eflip] * a_eloc_size + twist_on_eloc_ptrs[t][eloc];
            assert(eflip_eloc_dist_table[x] < 16); // it shares a byte with the symmetry
            edge_class_steps[c].edge_class[t] = class_by_least[of[x].number];
            edge_class_steps[c].rest[t] = static_cast<std::uint8_t>(
                of[x].symmetry + symmetry_count * eflip_eloc_dist_table[x]);
        }
    }
}

} // namespace

constinit int edge_class_edges[edge_class_count] = {};
constinit std::uint16_t edge_class_stabilizer[edge_class_count] = {};
constinit edge_class_row edge_class_steps[edge_class_count] = {};
constinit corner_steps a_corner_steps[a_corner_size] = {};

int symmetry_on_edges(int symmetry, int a_edges) {
    const int eloc = a_edges % a_eloc_size;
    return symmetry_on_eflip(symmetry, eloc, a_edges / a_eloc_size) * a_eloc_size +
           symmetry_on_eloc[eloc][symmetry];
}

// No table of all million values: the few that begin a search can wait for sixteen images and a
// bisection.
classified_edges classify_edges(int a_edges) {
    int least = a_edges;
    int symmetry = 0;
    for (int s = 1; s < symmetry_count; s++) {
        const int image = symmetry_on_edges(s, a_edges);
        if (image < least) {
            least = image;
            symmetry = s;
        }
    }
    const std::uint16_t* found =
        std::lower_bound(class_by_least, class_by_least + edge_class_count, least,
                         [](std::uint16_t c, int wanted) { return edge_class_edges[c] < wanted; });
    return {*found, static_cast<std::uint8_t>(symmetry), eflip_eloc_dist_table[a_edges]};
}

void edge_classes_init() {
    if (edge_class_edges[0] != 0) {
        return; // the goal, class 0, is a_eloc_goal and not 0
    }
    symmetry_tables_init();
    assert(metric == quarter_turn_metric);
    find_corner_steps();
    const symmetry_classes classes = sort_into_classes(
        a_edges_size, all_symmetries, [](int s, int x) { return symmetry_on_edges(s, x); });
    assert(classes.representatives.size() == edge_class_count);
    const std::vector<std::uint16_t> order = order_classes(classes);
    for (std::size_t c = 0; c < edge_class_count; c++) {
        edge_class_edges[c] = classes.representatives[order[c]];
        edge_class_stabilizer[c] = classes.stabilizer[order[c]];
        class_by_least[order[c]] = static_cast<std::uint16_t>(c);
    }
    find_class_steps(classes.of);
}
