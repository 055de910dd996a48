// SPDX-License-Identifier: MIT
#include "solver/edgeclass.h"

#include "solver/pruning.h"

#include <algorithm>

namespace {

void find_corner_steps() {
    for (int t = 0; t < a_twist_count; t++)
        for (int x = 0; x < a_corner_size; x++)
            a_corner_steps[x].after[t] = static_cast<std::uint16_t>(twist_on_corner_ptrs[t][x]);
}

void find_class_steps(const std::vector<class_place>& of) {
    for (int c = 0; c < edge_class_count; c++) {
        const int eflip = edge_class_edges[c] / a_eloc_size;
        const int eloc = edge_class_edges[c] % a_eloc_size;
        for (int t = 0; t < a_twist_count; t++) {
            const int x = twist_on_eflip_ptrs[t][eflip] * a_eloc_size + twist_on_eloc_ptrs[t][eloc];
            edge_class_steps[c][t] = {of[x].number, of[x].symmetry, eflip_eloc_dist_table[x]};
        }
    }
}

} // namespace

constinit int edge_class_edges[edge_class_count] = {};
constinit std::uint16_t edge_class_stabilizer[edge_class_count] = {};
constinit class_step edge_class_steps[edge_class_count][a_twist_count] = {};
constinit corner_steps a_corner_steps[a_corner_size] = {};

int symmetry_on_edges(int symmetry, int a_edges) {
    const int eloc = a_edges % a_eloc_size;
    return symmetry_on_eflip(symmetry, eloc, a_edges / a_eloc_size) * a_eloc_size +
           symmetry_on_eloc[eloc][symmetry];
}

class_step classify_edges(int a_edges) {
    int least = a_edges;
    int symmetry = 0;
    for (int s = 1; s < symmetry_count; s++) {
        const int image = symmetry_on_edges(s, a_edges);
        if (image < least) {
            least = image;
            symmetry = s;
        }
    }
    const int* const found =
        std::lower_bound(edge_class_edges, edge_class_edges + edge_class_count, least);
    return {static_cast<std::uint16_t>(found - edge_class_edges),
            static_cast<std::uint8_t>(symmetry), 0};
}

void edge_classes_init() {
    find_corner_steps();
    const symmetry_classes classes = sort_into_classes(
        a_edges_size, all_symmetries, [](int s, int x) { return symmetry_on_edges(s, x); });
    std::copy(classes.representatives.begin(), classes.representatives.end(), edge_class_edges);
    std::copy(classes.stabilizer.begin(), classes.stabilizer.end(), edge_class_stabilizer);
    find_class_steps(classes.of);
}
