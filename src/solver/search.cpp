// SPDX-License-Identifier: MIT
#include "solver/search.h"

#include "solver/growth.h"
#include "solver/perms.h"
#include "solver/pruning.h"
#include "solver/stage1.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace {

// Solutions of at most 27 quarter turns, or 28, are looked for first. Odd, as unreached is.
constexpr int likely_bound = 29;

// The edge cubies that each sliceedge follows, labelled 1..4 in this order. ORDER CUBIE
constexpr int marked_edges[3][4] = {
    {8, 9, 10, 11}, // FR FL BR BL
    {0, 2, 4,  6 }, // UF UB DF DB
    {1, 3, 5,  7 }, // UR UL DR DL
};

int sliceedge_of(const cube_struc& cube, const int (&marked)[4]) {
    int labels[edge_count];
    for (int i = 0; i < edge_count; i++) {
        const int* found = std::find(marked, marked + 4, cube.edges[i] % edge_count);
        labels[i] = found == marked + 4 ? 0 : static_cast<int>(found - marked) + 1;
    }
    return sliceedge_pack(labels);
}

// Depth by depth, from the least one on.
void search_depths(const cube_struc& cube, int lower) {
    // A solvedepth below the first one is passed over.
    // Deliberate: NOT-BUGS.md, "A depth below the least one"
    for (int depth = lower;; depth++) {
        stage2_allotment = shortest_solution - depth - increment;
        if (stage2_allotment < 0) {
            return;
        }
        if (!hurried && !grow_tables(depth)) {
            error = 1;
            return;
        }
        a_node stack[stack_size];
        stack[0] = {depth, -1, start_state, cube.a_corner, cube.a_eflip, cube.a_eloc};
        stack[1].twist = -1;
        if (stage1_search(stack) == 0) {
            return;
        }
        if (depth == solvedepth || depth + 1 > unreached) {
            return;
        }
    }
}

void append(const char* text) {
    assert(std::strlen(outputstring) + std::strlen(text) < sizeof outputstring);
    std::strcat(outputstring, text);
}

} // namespace

constinit cube_struc* p_current_cube = nullptr;
constinit int shortest_solution = 0;
constinit int stage2_allotment = 0;
constinit int solvedepth = 14;
constinit int error = 0;
constinit char outputstring[longest_search + 1] = "";
constinit long long a_node_count = 0;
constinit long long b_node_count = 0;
constinit int clicks = 0;
constinit bool hurried = false;

void process_cube(cube_struc& cube) {
    int values[edge_count];
    for (int i = 0; i < corner_count; i++) {
        values[i] = cube.corners[i] / corner_count;
    }
    cube.a_corner = a_corner_pack(values);
    for (int i = 0; i < edge_count; i++) {
        values[i] = cube.edges[i] / edge_count;
    }
    cube.a_eflip = a_eflip_pack(values);
    for (int i = 0; i < edge_count; i++) {
        values[i] = cube.edges[i] % edge_count >= 8;
    }
    cube.a_eloc = a_eloc_pack(values);
    for (int i = 0; i < corner_count; i++) {
        values[i] = cube.corners[i] % corner_count;
    }
    cube.cornerperm = perm_n_pack(corner_count, values);
    for (int slot = 0; slot < 3; slot++) {
        cube.sliceedge[slot] = sliceedge_of(cube, marked_edges[slot]);
    }
}

void solve_cube(cube_struc& cube) {
    search_tables_init();
    p_current_cube = &cube;
    error = 0;
    a_node_count = 0;
    b_node_count = 0;
    // 1. The least depth.
    const int lower = std::max({int{corner_eflip_dist_ptrs[cube.a_corner][cube.a_eflip]},
                                int{corner_eloc_dist_ptrs[cube.a_corner][cube.a_eloc]},
                                int{eflip_eloc_dist_ptrs[cube.a_eflip][cube.a_eloc]}});
    if (lower > unreached) {
        return;
    }
    // 2. First as if a solution were known that nearly every cube improves on. It spares the long
    // ones that the first depths would find; what is found below it is the same. Who interrupts
    // before that gets a long one.
    for (const int bound : {likely_bound, unreached}) {
        // The bound has the parity of this cube's solutions.
        shortest_solution = bound + (metric == quarter_turn_metric && cube.corner_parity != 1);
        const int begin = shortest_solution;
        search_depths(cube, lower);
        error = hurried ? 1 : error;
        if (shortest_solution < begin) {
            break;
        }
        hurried = error != 0;
    }
    hurried = false;
}

int stage1_search(a_node* stack) {
    assert(metric == quarter_turn_metric && stack->remaining <= longest_search);
    search_tables_init();
    error = 0;
    stage1_walk(stack).run();
    return error == 0;
}

void output_solution(const a_node* stage1_stack, const b_node* stage2_stack) {
    outputstring[0] = '\0';
    for (const a_node* node = stage1_stack; node->remaining > 0; node++) {
        append(my_a_twist_string[node[1].twist]);
    }
    for (const b_node* node = stage2_stack; node->remaining > 0; node++) {
        append(my_b_twist_string[node[1].twist]);
    }
    shortest_solution = stage1_stack->remaining + stage2_stack->remaining;
    stage2_allotment = stage2_stack->remaining - increment;
    error = hurried ? 1 : error;
}
