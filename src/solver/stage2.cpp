// SPDX-License-Identifier: MIT
#include "solver/stage2.h"

#include "solver/growth.h"
#include "solver/near2.h"
#include "solver/pruning.h"

#include <algorithm>
#include <cassert>

namespace {

int cornerperm_after(const a_node* stage1_stack) {
    int cornerperm = p_current_cube->cornerperm;
    for (const a_node* node = stage1_stack; node->remaining > 0; node++) {
        cornerperm = a_twist_on_cornerperm_ptrs[node[1].twist][cornerperm];
    }
    return cornerperm;
}

// The next twist that may lead there, from where the node's loop stands. false if none is left.
bool next_twist(b_node* node) {
    b_node* next = node + 1;
    const b_steps& corner_after = b_corner_steps[node->cornerperm];
    const b_steps& edge_after = b_edge_steps[node->b_edgeperm];
    for (int t = next->twist + 1; t < b_twist_count; t++) {
        const int state = b_twist_list_ptrs[t][node->state];
        const int remaining = node->remaining - b_metric_length[t];
        if (state == forbidden_state || remaining < 0) {
            continue;
        }
        const int midperm = twist_on_midperm_ptrs[t][node->b_midperm];
        const int cornerperm = corner_after.after[t];
        if (mid_cornerperm_dist_ptrs[midperm][cornerperm] > remaining) {
            continue;
        }
        const int edgeperm = edge_after.after[t];
        if (mid_edgeperm_dist_ptrs[midperm][edgeperm] <= remaining &&
            near2_within(class_of_cornerperm(cornerperm), edgeperm, midperm, remaining)) {
            *next = {remaining, t, state, cornerperm, edgeperm, midperm};
            return true;
        }
    }
    return false;
}

// Looks for a completion of just the root's length, and puts the first out. false if there is none
// or the user interrupts.
bool find_completion(const a_node* stage1_stack, b_node* stage2_stack) {
    for (b_node* node = stage2_stack; node >= stage2_stack;) {
        // 1. Solved.
        if (node->remaining == 0) {
            output_solution(stage1_stack, stage2_stack);
            return true;
        }
        // 2, 3. Down or up.
        if (!next_twist(node)) {
            node--;
            continue;
        }
        node++;
        node[1].twist = -1;
        b_node_count++;
        near2_visits += node->remaining > near2_ordinary && node->remaining <= near2_greatest;
        // 4. Let the user interrupt.
        if (search_interrupted()) {
            error = 1;
            return false;
        }
    }
    return false;
}

} // namespace

bool complete(const a_node* stage1_stack, classified_corners corners, const edge_slices& edges,
              int limit) {
    // 1. The corners alone.
    if (corners.distance > limit) {
        return false;
    }
    // 2. With the slice edges.
    const int midperm = sliceedge_to_midperm[edges.slot[0]];
    const int mid_corner = mid_cornerperm_dist_ptrs[symmetry_on_midperm[midperm][corners.symmetry]]
                                                   [corner_class_cornerperm(corners.corner_class)];
    if (mid_corner > limit) {
        return false;
    }
    // 3. With the edges of the layers.
    const int even = sliceedge_to_halfedgeperm[edges.slot[1]];
    const int odd = sliceedge_to_halfedgeperm[edges.slot[2]];
    const int edgeperm = half_to_edgeperm_ptrs[even][odd];
    const int mid_edge = mid_edgeperm_dist_ptrs[midperm][edgeperm];
    if (mid_edge > limit) {
        return false;
    }
    // 4. Length by length. All that a state and its lengths are asked for rests on their parity.
    assert((mid_corner + mid_edge) % 2 == 0 && (mid_corner + limit) % 2 == 0 && increment == 2);
    for (int e = std::max(mid_corner, mid_edge); e <= limit && error == 0; e += increment) {
        if (!near2_within({corners.corner_class, corners.symmetry}, edgeperm, midperm, e)) {
            continue;
        }
        b_node stack[stack_size];
        stack[0] = {e, -1, start_state, cornerperm_after(stage1_stack), edgeperm, midperm};
        stack[1].twist = -1;
        if (find_completion(stage1_stack, stack)) {
            return true;
        }
    }
    return false;
}

void stage2_solve(const a_node* stage1_stack) {
    search_tables_init();
    edge_slices edges;
    std::copy(std::begin(p_current_cube->sliceedge), std::end(p_current_cube->sliceedge),
              edges.slot);
    for (const a_node* node = stage1_stack; node->remaining > 0; node++) {
        edges.turn(node[1].twist);
    }
    (void)complete(stage1_stack, classify_corners(cornerperm_after(stage1_stack)), edges,
                   stage2_allotment);
}

void stage2_search(const a_node* stage1_stack, b_node* stage2_stack) {
    search_tables_init();
    (void)find_completion(stage1_stack, stage2_stack);
}
