// SPDX-License-Identifier: MIT
#include "solver/search.h"

#include "shell.h"
#include "solver/perms.h"
#include "solver/pruning.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace {

// State

int clicks; // calls of testclick since it asked, 0..70000

// The edge cubies that each sliceedge follows, labelled 1..4 in this order. ORDER CUBIE
constexpr int marked_edges[3][4] = {
    {8, 9, 10, 11}, // FR FL BR BL
    {0, 2, 4,  6 }, // UF UB DF DB
    {1, 3, 5,  7 }, // UR UL DR DL
};

int sliceedge_of(const cube_struc& cube, const int (&marked)[4]) {
    int labels[edge_count];
    for (int i = 0; i < edge_count; i++) {
        const int* const found = std::find(marked, marked + 4, cube.edges[i] % edge_count);
        labels[i] = found == marked + 4 ? 0 : static_cast<int>(found - marked) + 1;
    }
    return sliceedge_pack(labels);
}

// The coordinate that start becomes by the twists of a stage-1 stack.
int replay(const a_node* stack, std::uint16_t* const* moves, int start) {
    for (; stack->remaining > 0; stack++)
        start = moves[stack[1].twist][start];
    return start;
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

void process_cube(cube_struc& cube) {
    int values[edge_count];
    for (int i = 0; i < corner_count; i++)
        values[i] = cube.corners[i] / corner_count;
    cube.a_corner = a_corner_pack(values);
    for (int i = 0; i < edge_count; i++)
        values[i] = cube.edges[i] / edge_count;
    cube.a_eflip = a_eflip_pack(values);
    for (int i = 0; i < edge_count; i++)
        values[i] = cube.edges[i] % edge_count >= 8;
    cube.a_eloc = a_eloc_pack(values);
    for (int i = 0; i < corner_count; i++)
        values[i] = cube.corners[i] % corner_count;
    cube.cornerperm = perm_n_pack(corner_count, values);
    for (int slot = 0; slot < 3; slot++)
        cube.sliceedge[slot] = sliceedge_of(cube, marked_edges[slot]);
}

void solve_cube(cube_struc& cube) {
    // 1. The bound has the parity of this cube's solutions.
    p_current_cube = &cube;
    shortest_solution = unreached;
    error = 0;
    if (metric == quarter_turn_metric && cube.corner_parity != 1)
        shortest_solution = unreached + 1;
    // 2. The least depth.
    const int lower = std::max({int{corner_eflip_dist_ptrs[cube.a_corner][cube.a_eflip]},
                                int{corner_eloc_dist_ptrs[cube.a_corner][cube.a_eloc]},
                                int{eflip_eloc_dist_ptrs[cube.a_eflip][cube.a_eloc]}});
    if (lower > unreached)
        return;
    a_node_count = 0;
    b_node_count = 0;
    // 3. Depth by depth.
    for (int depth = lower;; depth++) {
        stage2_allotment = shortest_solution - depth - increment;
        if (stage2_allotment < 0)
            return;
        a_node stack[stack_size];
        stack[0] = {depth, -1, start_state, cube.a_corner, cube.a_eflip, cube.a_eloc};
        stack[1].twist = -1;
        if (!stage1_search(stack)) {
            error = 1;
            return;
        }
        if (depth == solvedepth || depth + 1 > unreached)
            return;
    }
}

int stage1_search(a_node* stack) {
    for (a_node* node = stack; node >= stack;) {
        // 1. Let the user interrupt.
        if (testclick())
            return 0;
        a_node_count++;
        a_node* const next = node + 1;
        bool taken = false;
        if (node->remaining == 0) {
            // 2. In the subgroup.
            if (stack->remaining == 0 || !is_stage2_twist[node->twist])
                stage2_solve(stack);
        } else {
            // 3. The next twist that may lead there.
            for (int t = next->twist + 1; t < a_twist_count && !taken; t++) {
                const int state = a_twist_list_ptrs[t][node->state];
                const int remaining = node->remaining - a_metric_length[t];
                if (state == forbidden_state)
                    continue;
                const int corner = twist_on_corner_ptrs[t][node->a_corner];
                const int eflip = twist_on_eflip_ptrs[t][node->a_eflip];
                if (corner_eflip_dist_ptrs[corner][eflip] > remaining)
                    continue;
                const int eloc = twist_on_eloc_ptrs[t][node->a_eloc];
                if (corner_eloc_dist_ptrs[corner][eloc] > remaining ||
                    eflip_eloc_dist_ptrs[eflip][eloc] > remaining)
                    continue;
                *next = {remaining, t, state, corner, eflip, eloc};
                taken = true;
            }
        }
        // 4, 5. Down or up.
        if (taken) {
            node = next;
            node[1].twist = -1;
        } else {
            node--;
        }
    }
    return 1;
}

void stage2_solve(const a_node* stage1_stack) {
    const cube_struc& cube = *p_current_cube;
    // 1. The corners alone.
    const int cornerperm = replay(stage1_stack, a_twist_on_cornerperm_ptrs, cube.cornerperm);
    if (cornerperm_dist_table[cornerperm] > stage2_allotment)
        return;
    // 2. With the slice edges.
    const int midperm =
        sliceedge_to_midperm[replay(stage1_stack, twist_on_sliceedge_ptrs, cube.sliceedge[0])];
    const int mid_corner = mid_cornerperm_dist_ptrs[midperm][cornerperm];
    if (mid_corner > stage2_allotment)
        return;
    // 3. With the edges of the layers.
    const int even = replay(stage1_stack, twist_on_sliceedge_ptrs, cube.sliceedge[1]);
    const int odd = replay(stage1_stack, twist_on_sliceedge_ptrs, cube.sliceedge[2]);
    const int edgeperm =
        half_to_edgeperm_ptrs[sliceedge_to_halfedgeperm[even]][sliceedge_to_halfedgeperm[odd]];
    const int mid_edge = mid_edgeperm_dist_ptrs[midperm][edgeperm];
    if (mid_edge > stage2_allotment)
        return;
    // 4. Length by length; a solution lowers the allotment.
    for (int e = std::max(mid_corner, mid_edge); e <= stage2_allotment; e += increment) {
        b_node stack[stack_size];
        stack[0] = {e, -1, start_state, cornerperm, edgeperm, midperm};
        stack[1].twist = -1;
        stage2_search(stage1_stack, stack);
    }
}

void stage2_search(const a_node* stage1_stack, b_node* stage2_stack) {
    for (b_node* node = stage2_stack; node >= stage2_stack;) {
        b_node_count++;
        if (node->remaining == 0) {
            output_solution(stage1_stack, stage2_stack);
            return;
        }
        b_node* const next = node + 1;
        bool taken = false;
        for (int t = next->twist + 1; t < b_twist_count && !taken; t++) {
            const int state = b_twist_list_ptrs[t][node->state];
            const int remaining = node->remaining - b_metric_length[t];
            if (state == forbidden_state)
                continue;
            const int midperm = twist_on_midperm_ptrs[t][node->b_midperm];
            const int cornerperm = b_twist_on_cornerperm_ptrs[t][node->cornerperm];
            if (mid_cornerperm_dist_ptrs[midperm][cornerperm] > remaining)
                continue;
            const int edgeperm = twist_on_edgeperm_ptrs[t][node->b_edgeperm];
            if (mid_edgeperm_dist_ptrs[midperm][edgeperm] > remaining)
                continue;
            *next = {remaining, t, state, cornerperm, edgeperm, midperm};
            taken = true;
        }
        if (taken) {
            node = next;
            node[1].twist = -1;
        } else {
            node--;
        }
    }
}

void output_solution(const a_node* stage1_stack, const b_node* stage2_stack) {
    outputstring[0] = '\0';
    for (const a_node* node = stage1_stack; node->remaining > 0; node++)
        append(my_a_twist_string[node[1].twist]);
    for (const b_node* node = stage2_stack; node->remaining > 0; node++)
        append(my_b_twist_string[node[1].twist]);
    shortest_solution = stage1_stack->remaining + stage2_stack->remaining;
    stage2_allotment = stage2_stack->remaining - increment;
}

int testclick() {
    constexpr int calls_a_question = 70001;
    if (++clicks < calls_a_question)
        return 0;
    clicks = 0;
    return alt_q();
}
