// SPDX-License-Identifier: MIT
#include "solver/search.h"

#include "shell.h"
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/perms.h"
#include "solver/pruning.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace {

// Nodes just outside the sieves whose visits cost as much as the next sieve.
constexpr long long near1_patience = 1'500'000;
constexpr long long near2_patience = 500'000;

// State

long long near1_visits; // of such nodes, in all searches
long long near2_visits;
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

// Where a stage-1 node stands, up to symmetry.
struct a_place {
    std::uint16_t edge_class;
    std::uint16_t corner;  // as the representative of the class sees it
    std::uint8_t symmetry; // takes the real cube to the representative
    std::uint8_t twist;    // by which it was reached
};

struct a_level {
    a_place place;
    int count, next;                 // of the children, and of those tried
    a_place children[a_twist_count]; // in order of their twists
};

// The permutations along the stage-1 stack, each good up to the node with the index that is told.
struct {
    int corners, slices;
    int cornerperm[stack_size];
    int sliceedge[3][stack_size];
} carried;

a_place place_of(const a_node& root) {
    const class_step step = classify_edges(root.a_eflip * a_eloc_size + root.a_eloc);
    return {step.edge_class, symmetry_on_corner[root.a_corner][step.symmetry], step.symmetry, 0};
}

// Where twist t leads to, and where the sieve of what remains then has it. false if the edges alone
// forbid it.
bool step_to(const a_place& from, int t, int remaining, a_place& to, sieve_place& at) {
    const int seen = symmetry_on_twist[from.symmetry][t];
    const class_step step = edge_class_steps[from.edge_class][seen];
    if (step.distance > remaining)
        return false;
    to.edge_class = step.edge_class;
    to.corner = symmetry_on_corner[a_corner_steps[from.corner].after[seen]][step.symmetry];
    to.symmetry = symmetry_on_symmetry[step.symmetry][from.symmetry];
    to.twist = static_cast<std::uint8_t>(t);
    const int length = std::min(remaining, near1_length);
    const int face = symmetry_on_twist[step.symmetry][seen] / 3;
    at = sieve_find(near1_sieves[length], near1_number(to.edge_class, to.corner, face, length));
    __builtin_prefetch(at.word);
    return true;
}

// What the edges allow of a node's children, each with its place in a sieve. The places are far
// apart in memory and asked for all at once.
struct a_brood {
    int count;
    a_place places[a_twist_count]; // in order of their twists
    sieve_place at[a_twist_count];
};

void gather(const a_place& from, int state, int remaining, a_brood& brood) {
    brood.count = 0;
    for (int t = 0; t < a_twist_count; t++) {
        const int left = remaining - a_metric_length[t];
        if (a_twist_list_ptrs[t][state] == forbidden_state || left < 0)
            continue;
        // The sieve knows the last face alone: of the root's own twists it may let half turns pass.
        if (left == 0 && is_stage2_twist[t])
            continue;
        brood.count += step_to(from, t, left, brood.places[brood.count], brood.at[brood.count]);
    }
}

// Lists the children of a stage-1 node from which the subgroup can be reached in time: those of its
// brood that the sieves let pass, and all that these do not reach.
//
// The last twist must come from outside: a cube in the subgroup before it has had its stage 2 at a
// lower depth, with no better end. That holds of U' as of the twists flagged in is_stage2_twist.
int sift(const a_brood& brood, int remaining, a_place* children) {
    int count = 0;
    for (int i = 0; i < brood.count; i++) {
        const a_place& place = brood.places[i];
        const sieve_place& at = brood.at[i];
        if (remaining - a_metric_length[place.twist] > near1_length ||
            (*at.word & at.bits) == at.bits) {
            children[count++] = place;
            __builtin_prefetch(edge_class_steps[place.edge_class]);
            __builtin_prefetch(edge_class_steps[place.edge_class] + a_twist_count - 1);
        }
    }
    return count;
}

// Nodes just outside the sieves are most of a search, and nearly all children of the nodes before
// them are such. Their broods are gathered together, so that one does not wait for memory alone.
struct {
    a_brood here;                    // of the node being entered
    a_brood ahead[2][a_twist_count]; // of the children of the last node one or two steps before
} gathered;

a_brood* ahead_of(int remaining) {
    return gathered.ahead[remaining - near1_length - 2];
}

void gather_ahead(const a_level& level, const a_node& node) {
    for (int i = 0; i < level.count; i++) {
        const a_place& child = level.children[i];
        const int remaining = node.remaining - a_metric_length[child.twist];
        if (remaining == near1_length + 1)
            gather(child, a_twist_list_ptrs[child.twist][node.state], remaining,
                   ahead_of(node.remaining)[i]);
    }
}

// Before a depth, as nothing is allocated during one: fills larger sieves where the search will
// repay it. The greatest ones are filled once what they would have saved so far, and will save now,
// is worth it; nodes just outside the ordinary ones of stage 1 multiply by nine with each depth.
void grow_sieves(int depth) {
    if (near2_visits > near2_patience)
        near2_extend(near2_greatest);
    if (depth <= near1_ordinary)
        return;
    near1_extend(near1_ordinary);
    long long expected = 1;
    for (int length = near1_ordinary + 1; length < depth; length++)
        expected *= 9;
    if (near1_length == near1_ordinary && near1_visits + expected > near1_patience)
        near1_extend(near1_greatest);
}

// Brings one carried permutation up to the node at depth.
void carry(const a_node* stack, std::uint16_t* const* moves, int* values, int from, int depth) {
    for (int i = from; i < depth; i++)
        values[i + 1] = moves[stack[i + 1].twist][values[i]];
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
    // 3. Depth by depth. A solvedepth below the first one is passed over.
    // Deliberate: NOT-BUGS.md, "A depth below the least one"
    for (int depth = lower;; depth++) {
        grow_sieves(depth);
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
    assert(metric == quarter_turn_metric && stack->remaining <= longest_search);
    a_level levels[stack_size];
    levels[0].place = place_of(*stack);
    carried.corners = carried.slices = 0;
    carried.cornerperm[0] = p_current_cube->cornerperm;
    for (int slot = 0; slot < 3; slot++)
        carried.sliceedge[slot][0] = p_current_cube->sliceedge[slot];
    int depth = 0;
    bool entering = true;
    while (depth >= 0) {
        a_node* const node = stack + depth;
        a_level& level = levels[depth];
        if (entering) {
            // 1. Let the user interrupt.
            if (testclick())
                return 0;
            a_node_count++;
            near1_visits += node->remaining == near1_ordinary + 1;
            level.count = level.next = 0;
            if (node->remaining == 0) {
                // 2. In the subgroup. No solution can be better than one that stage 2 adds nothing
                // to, nor than one a quarter turn longer.
                stage2_solve(stack);
                if (stage2_allotment < 0)
                    return 1;
            } else {
                // 3. All twists that lead there in time.
                const a_brood* brood = &gathered.here;
                if (depth > 0 && node->remaining == near1_length + 1)
                    brood = ahead_of(node[-1].remaining) + levels[depth - 1].next - 1;
                else
                    gather(level.place, node->state, node->remaining, gathered.here);
                level.count = sift(*brood, node->remaining, level.children);
                gather_ahead(level, *node);
            }
        }
        // 4, 5. Down or up.
        entering = level.next < level.count;
        if (entering) {
            const a_place& child = level.children[level.next++];
            depth++;
            levels[depth].place = child;
            stack[depth].remaining = node->remaining - a_metric_length[child.twist];
            stack[depth].twist = child.twist;
            stack[depth].state = a_twist_list_ptrs[child.twist][node->state];
            carried.corners = std::min(carried.corners, depth - 1);
            carried.slices = std::min(carried.slices, depth - 1);
        } else {
            depth--;
        }
    }
    return 1;
}

void stage2_solve(const a_node* stage1_stack) {
    int depth = 0;
    while (stage1_stack[depth].remaining > 0)
        depth++;
    // 1. The corners alone.
    carry(stage1_stack, a_twist_on_cornerperm_ptrs, carried.cornerperm, carried.corners, depth);
    carried.corners = depth;
    const int cornerperm = carried.cornerperm[depth];
    if (cornerperm_dist_table[cornerperm] > stage2_allotment)
        return;
    // 2. With the slice edges.
    for (auto& slot : carried.sliceedge)
        carry(stage1_stack, twist_on_sliceedge_ptrs, slot, carried.slices, depth);
    carried.slices = depth;
    const int midperm = sliceedge_to_midperm[carried.sliceedge[0][depth]];
    const int mid_corner = mid_cornerperm_dist_ptrs[midperm][cornerperm];
    if (mid_corner > stage2_allotment)
        return;
    // 3. With the edges of the layers.
    const int even = sliceedge_to_halfedgeperm[carried.sliceedge[1][depth]];
    const int odd = sliceedge_to_halfedgeperm[carried.sliceedge[2][depth]];
    const int edgeperm = half_to_edgeperm_ptrs[even][odd];
    const int mid_edge = mid_edgeperm_dist_ptrs[midperm][edgeperm];
    if (mid_edge > stage2_allotment)
        return;
    // 4. Length by length; a solution lowers the allotment.
    for (int e = std::max(mid_corner, mid_edge); e <= stage2_allotment; e += increment) {
        if (!near2_within(cornerperm, edgeperm, midperm, e))
            continue;
        b_node stack[stack_size];
        stack[0] = {e, -1, start_state, cornerperm, edgeperm, midperm};
        stack[1].twist = -1;
        stage2_search(stage1_stack, stack);
    }
}

void stage2_search(const a_node* stage1_stack, b_node* stage2_stack) {
    for (b_node* node = stage2_stack; node >= stage2_stack;) {
        // 1. Solved.
        b_node* const next = node + 1;
        if (node->remaining == 0) {
            output_solution(stage1_stack, stage2_stack);
            return;
        }
        // 2. The next twist that may lead there.
        const b_steps& corner_after = b_corner_steps[node->cornerperm];
        const b_steps& edge_after = b_edge_steps[node->b_edgeperm];
        bool taken = false;
        for (int t = next->twist + 1; t < b_twist_count && !taken; t++) {
            const int state = b_twist_list_ptrs[t][node->state];
            const int remaining = node->remaining - b_metric_length[t];
            if (state == forbidden_state || remaining < 0)
                continue;
            const int midperm = twist_on_midperm_ptrs[t][node->b_midperm];
            const int cornerperm = corner_after.after[t];
            if (mid_cornerperm_dist_ptrs[midperm][cornerperm] > remaining)
                continue;
            const int edgeperm = edge_after.after[t];
            if (mid_edgeperm_dist_ptrs[midperm][edgeperm] > remaining ||
                !near2_within(cornerperm, edgeperm, midperm, remaining))
                continue;
            *next = {remaining, t, state, cornerperm, edgeperm, midperm};
            taken = true;
        }
        // 3. Down or up.
        if (taken) {
            b_node_count++;
            near2_visits += next->remaining > near2_ordinary && next->remaining <= near2_greatest;
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
