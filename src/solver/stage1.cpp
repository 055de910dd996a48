// SPDX-License-Identifier: MIT
#include "solver/stage1.h"

#include "solver/growth.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace {

// The 18 twists by what they cost.
constexpr std::uint32_t quarter_turns = 0x2DB6D;
constexpr std::uint32_t half_turns = 0x12492;
static_assert((quarter_turns ^ half_turns) == lead_mask && (quarter_turns & half_turns) == 0);

// Symmetries make quarter turns of quarter turns, so it does not matter who sees the twist.
int left_after(int remaining, int twist) {
    return remaining - 1 - static_cast<int>(half_turns >> twist & 1);
}

} // namespace

stage1_walk::stage1_walk(a_node* root)
    : stack(root), known(near1_length), kept(std::min(near1_length, near1_ordinary)) {
    for (int t = 0; t < a_twist_count; t++) {
        assert(a_metric_length[t] == ((quarter_turns >> t & 1) != 0 ? 1 : 2));
        for (int state = start_state; state < sequence_state_count; state++) {
            const int next = a_twist_list_ptrs[t][state];
            next_state[t][state] = static_cast<std::uint8_t>(next);
            if (next != forbidden_state) {
                allowed[state] |= 1u << t;
            }
        }
    }
    for (int s = 0; s < symmetry_count; s++) {
        for (int t = 0; t < a_twist_count; t++) {
            real_twist[s][symmetry_on_twist[s][t]] = static_cast<std::uint8_t>(t);
        }
        for (int state = start_state; state < sequence_state_count; state++) {
            seen_allowed[state][s] = symmetry_on_twists(s, allowed[state]);
        }
    }
}

void stage1_walk::run() {
    const visit root = root_visit();
    if (root.remaining > 0 || root.number() == 0) {
        (void)walk_far(0, root);
    }
}

stage1_walk::visit stage1_walk::root_visit() const {
    const classified_edges edges = classify_edges(stack->a_eflip * a_eloc_size + stack->a_eloc);
    visit root;
    root.edge_class = edges.edge_class;
    root.corner = symmetry_on_corner[stack->a_corner][edges.symmetry];
    root.symmetry = edges.symmetry;
    root.remaining = static_cast<std::uint8_t>(stack->remaining);
    root.state = static_cast<std::uint8_t>(stack->state);
    root.corners = classify_corners(p_current_cube->cornerperm);
    root.path = 0;
    root.leads = 0;
    if (edges.distance <= root.remaining && root.remaining <= kept && root.remaining > 0) {
        root.leads = leads_of(root);
    }
    return root;
}

// Counts a node. false if the search is to end, and none is visited any more.
inline bool stage1_walk::enter() const {
    if (error != 0) {
        return false;
    }
    a_node_count++;
    if (search_interrupted()) {
        error = 1;
    }
    return error == 0;
}

// A child by a twist that the representative sees so, without path and leads.
inline void stage1_walk::after(const visit& node, int seen, visit& child) const {
    const int twist = real_twist[node.symmetry][seen];
    const classified_edges edges = edge_class_steps[node.edge_class].after(seen);
    child.edge_class = edges.edge_class;
    child.corner = symmetry_on_corner[a_corner_steps[node.corner].after[seen]][edges.symmetry];
    child.symmetry = symmetry_on_symmetry[edges.symmetry][node.symmetry];
    child.remaining = static_cast<std::uint8_t>(left_after(node.remaining, seen));
    child.state = next_state[twist][node.state];
    child.corners = corners_after(node.corners, twist);
    child.leads = 0;
    child.path = 0;
}

// In a block, so many twists from its root.
inline void stage1_walk::after(const visit& node, int seen, int level, visit& child) const {
    after(node, seen, child);
    const std::uint64_t twist = real_twist[node.symmetry][seen];
    child.path = node.path | twist << (path_top - path_bits * level);
}

inline std::uint32_t stage1_walk::leads_of(const visit& node) const {
    const lead_table& table = near1_leads[node.remaining];
    const std::uint32_t hash = lead_hash(table, node.number());
    return lead_find(lead_bucket(table, hash), hash) & seen_allowed[node.state][node.symmetry];
}

// The whole corners of a node.
inline whole_corners stage1_walk::corners_of(const visit& node) const {
    const int view = symmetry_on_symmetry[node.corners.symmetry][inverse_symmetry[node.symmetry]];
    return {node.corners.corner_class, symmetry_on_corner[node.corner][view]};
}

// The longest completion worth finding. One as long as that found in the block, if it comes before.
inline int stage1_walk::limit_of(const visit& node) const {
    return stage2_allotment + (found && node.path < found_path ? increment : 0);
}

// true if the whole corners cannot be solved within what is left of both stages.
inline bool stage1_walk::too_far(const visit& node) const {
    const int left = node.remaining + limit_of(node);
    if (left > corner_reach) {
        return false;
    }
    corner_visits++;
    return corner_bounds_filled && corners_of(node).bound().distance > left;
}

// Node by node. false when the search is at its end.
bool stage1_walk::walk_far(int depth, const visit& here) {
    if (here.remaining <= block_length) {
        return walk_block(depth, here);
    }
    if (!enter()) {
        return false;
    }
    for (std::uint32_t twists = allowed[here.state]; twists != 0; twists &= twists - 1) {
        const int t = std::countr_zero(twists);
        visit child;
        after(here, symmetry_on_twist[here.symmetry][t], child);
        stack[depth + 1].remaining = child.remaining;
        stack[depth + 1].twist = t;
        stack[depth + 1].state = child.state;
        if (!walk_far(depth + 1, child)) {
            return false;
        }
    }
    return true;
}

// All below a node. false when the search is at its end: no solution can be better than one that
// stage 2 adds nothing to, nor than one a quarter turn longer.
bool stage1_walk::walk_block(int depth, const visit& root) {
    block_depth = depth;
    std::copy(std::begin(p_current_cube->sliceedge), std::end(p_current_cube->sliceedge),
              block_edges.slot);
    for (int i = 1; i <= depth; i++) {
        block_edges.turn(stack[i].twist);
    }
    found = false;
    if (root.remaining <= near_length) {
        walk_near(root, 0);
    } else {
        lists[0].count = 1;
        lists[0].nodes[0] = root;
        (void)walk_list(lists[0], 0);
    }
    return stage2_allotment >= 0 && error == 0;
}

// Visits the nodes of a list, so many twists from the block's root, and all below them. false when
// interrupted.
bool stage1_walk::walk_list(visit_list& list, int level) {
    visit_list& out = lists[level + 1];
    out.count = 0;
    for (int begin = 0; begin < list.count; begin += chunk_size) {
        chunk = list.nodes + begin;
        chunk_count = std::min(chunk_size, list.count - begin);
        if (!enter_chunk(level, out)) {
            return false;
        }
        // 1. What is asked of the quarter turns decides on the half turns.
        gather_quarters(level, out);
        sift_by_bits(level, out);
        sift_by_leads(kept);
        gather_halves(level, out);
        sift_by_bits(level, out);
        sift_by_leads(kept);
        sift_by_leads(kept - 1);
        add_members(level, out);
        // 2. Down.
        const bool last = begin + chunk_size >= list.count;
        if (out.count >= list_enough || (last && out.count > 0)) {
            if (!walk_list(out, level + 1)) {
                return false;
            }
            out.count = 0;
        }
    }
    return error == 0;
}

// Visits the chunk's nodes, and follows the leads of those that have any. false when interrupted.
bool stage1_walk::enter_chunk(int level, visit_list& out) {
    for (int i = 0; i < chunk_count; i++) {
        visit& node = chunk[i];
        const bool led = node.remaining <= kept;
        if (led && node.leads == 0) {
            node.leads = leads_of(node);
            if (node.leads == 0) {
                continue;
            }
        }
        if (!enter()) {
            return false;
        }
        if (led) {
            follow(i, level, out);
        }
    }
    sift_by_endings(level);
    return error == 0;
}

// The children by the leads of a node. Their own are looked up later, and fetched till then.
void stage1_walk::follow(int parent, int level, visit_list& out) {
    const visit& node = chunk[parent];
    for (std::uint32_t twists = node.leads; twists != 0; twists &= twists - 1) {
        const int seen = std::countr_zero(twists);
        if (left_after(node.remaining, seen) <= near_length) {
            follow_near(parent, seen, level);
            continue;
        }
        visit& child = out.nodes[out.count];
        after(node, seen, level, child);
        if (too_far(child)) {
            continue;
        }
        const lead_table& table = near1_leads[child.remaining];
        __builtin_prefetch(lead_bucket(table, lead_hash(table, child.number())));
        __builtin_prefetch(edge_class_steps + child.edge_class);
        out.count++;
    }
}

// A child near the subgroup: at once, or once its ending was asked for. Few of those are left, so
// the edges wait for that. The node's limit does for the child: its path comes no later.
inline void stage1_walk::follow_near(int parent, int seen, int level) {
    const visit& node = chunk[parent];
    if (left_after(node.remaining, seen) != corner_ending_length ||
        limit_of(node) > corner_ending_reach) {
        walk_child(node, seen, level);
        return;
    }
    const int twist = real_twist[node.symmetry][seen];
    const whole_corners corners =
        corners_of(node).after(symmetry_on_twist[node.corners.symmetry][twist]);
    corners.prefetch();
    by_endings[by_endings_count++] = {corners, static_cast<std::uint16_t>(parent),
                                      static_cast<std::uint16_t>(seen)};
}

// Walks down to those of which the corners may be solved in time.
void stage1_walk::sift_by_endings(int level) {
    for (int i = 0; i < by_endings_count; i++) {
        const ending_candidate& to = by_endings[i];
        const visit& node = chunk[to.parent];
        corner_visits++;
        if (!corner_bounds_filled || to.corners.bound().ending <= limit_of(node)) {
            walk_child(node, to.seen, level);
        }
    }
    by_endings_count = 0;
}

// A child near the subgroup, and all below it.
void stage1_walk::walk_child(const visit& node, int seen, int level) {
    visit child;
    after(node, seen, level, child);
    // The last twist must lead into the subgroup, and no table is trusted with that.
    bool leads = child.number() == 0;
    if (child.remaining > 0) {
        child.leads = leads_of(child);
        leads = child.leads != 0;
    }
    if (leads) {
        walk_near(child, level + 1);
    }
}

// The children of the other nodes by quarter turns
void stage1_walk::gather_quarters(int level, visit_list& out) {
    for (int i = 0; i < chunk_count; i++) {
        const visit& node = chunk[i];
        seen_halves[i] = 0;
        if (node.remaining <= kept) {
            continue;
        }
        near1_visits += node.remaining == near1_ordinary + 1 ? 1 : 0;
        const std::uint32_t seen = seen_allowed[node.state][node.symmetry];
        seen_halves[i] = seen & half_turns;
        passed[i] = node.remaining - 1 > known ? seen : 0;
        gather(i, seen & quarter_turns, node.remaining - 1, level, out);
    }
}

// By half turns, where both quarter turns have passed
void stage1_walk::gather_halves(int level, visit_list& out) {
    for (int i = 0; i < chunk_count; i++) {
        const std::uint32_t seen = seen_halves[i] & passed[i] << 1 & passed[i] >> 1;
        if (seen != 0) {
            gather(i, seen, chunk[i].remaining - 2, level, out);
        }
    }
}

// Adds the children by some twists, with so much left, to the candidates, or to the list if nothing
// is known of that length. What near1 knows of them is far apart in memory, and all of it is asked
// for at once.
inline void stage1_walk::gather(int parent, std::uint32_t seen_twists, int remaining, int level,
                                visit_list& out) {
    // The bits and the greatest table of leads may be asked of any edges.
    if (remaining < near1_ordinary || remaining > known) {
        seen_twists = within(chunk[parent], seen_twists, remaining);
    }
    if (remaining <= kept) {
        const lead_table table = near1_leads[remaining];
        gather_some(parent, seen_twists, by_leads[kept - remaining], [table](std::uint32_t number) {
            const std::uint32_t hash = lead_hash(table, number);
            __builtin_prefetch(lead_bucket(table, hash));
            return hash;
        });
    } else if (remaining <= known) {
        gather_some(parent, seen_twists, by_bits, [](std::uint32_t number) {
            __builtin_prefetch(near1_greatest_bits + number / 64);
            return number;
        });
    } else {
        for (; seen_twists != 0; seen_twists &= seen_twists - 1) {
            add({0, static_cast<std::uint16_t>(parent),
                 static_cast<std::uint16_t>(std::countr_zero(seen_twists))},
                level, out);
        }
    }
}

// The twists of some that bring the edges, taken alone, to where so much left may be enough.
inline std::uint32_t stage1_walk::within(const visit& node, std::uint32_t seen_twists,
                                         int remaining) {
    const edge_class_row& edges = edge_class_steps[node.edge_class];
    std::uint32_t near = 0;
    for (; seen_twists != 0; seen_twists &= seen_twists - 1) {
        const int seen = std::countr_zero(seen_twists);
        near |= (edges.after(seen).distance <= remaining ? 1u : 0u) << seen;
    }
    return near;
}

// ask turns a state's number into what is asked.
template <typename question>
inline void stage1_walk::gather_some(int parent, std::uint32_t seen_twists, candidate_list& to,
                                     question ask) {
    const visit& node = chunk[parent];
    const edge_class_row& edges = edge_class_steps[node.edge_class];
    const corner_steps& corners = a_corner_steps[node.corner];
    candidate* next = to.entries + to.count;
    for (; seen_twists != 0; seen_twists &= seen_twists - 1) {
        const int seen = std::countr_zero(seen_twists);
        const classified_edges step = edges.after(seen);
        const unsigned corner = symmetry_on_corner[corners.after[seen]][step.symmetry];
        *next++ = {ask(near1_number(step.edge_class, corner)), static_cast<std::uint16_t>(parent),
                   static_cast<std::uint16_t>(seen)};
    }
    to.count = static_cast<int>(next - to.entries);
}

// Adds the candidates that the bits let pass to the list.
void stage1_walk::sift_by_bits(int level, visit_list& out) {
    candidate* const begin = by_bits.entries;
    candidate* end = begin; // of those that pass
    for (int i = 0; i < by_bits.count; i++) {
        const candidate to = begin[i];
        *end = to;
        end += near1_greatest_has(to.asked) ? 1 : 0;
    }
    by_bits.count = 0;
    for (const candidate* to = begin; to != end; to++) {
        passed[to->parent] |= 1u << to->seen;
        add(*to, level, out);
    }
}

inline void stage1_walk::add(const candidate& from, int level, visit_list& out) {
    visit& child = out.nodes[out.count++];
    after(chunk[from.parent], from.seen, level, child);
    __builtin_prefetch(edge_class_steps + child.edge_class);
}

// Keeps the candidates that have leads.
void stage1_walk::sift_by_leads(int length) {
    candidate_list& asked = by_leads[kept - length];
    const lead_table table = near1_leads[length];
    candidate* const begin = members.entries + members.count;
    candidate* end = begin;
    for (int i = 0; i < asked.count; i++) {
        const candidate to = asked.entries[i];
        const std::uint32_t leads = lead_find(lead_bucket(table, to.asked), to.asked);
        *end = {leads, to.parent, to.seen};
        end += leads != 0 ? 1 : 0;
    }
    asked.count = 0;
    for (const candidate* to = begin; to != end; to++) {
        passed[to->parent] |= 1u << to->seen;
    }
    members.count = static_cast<int>(end - members.entries);
}

// Adds them to the list.
void stage1_walk::add_members(int level, visit_list& out) {
    for (int i = 0; i < members.count; i++) {
        add(members.entries[i], level, out);
        visit& child = out.nodes[out.count - 1];
        child.leads = members.entries[i].asked & seen_allowed[child.state][child.symmetry];
        if (child.leads == 0 || too_far(child)) {
            out.count--;
        }
    }
    members.count = 0;
}

// A node with its leads, so many twists from the block's root, and all below it.
void stage1_walk::walk_near(const visit& node, int level) {
    if (!enter()) {
        return;
    }
    if (node.remaining == 0) {
        junction(node);
        return;
    }
    for (std::uint32_t twists = node.leads; twists != 0; twists &= twists - 1) {
        walk_child(node, std::countr_zero(twists), level);
    }
}

// In the subgroup.
void stage1_walk::junction(const visit& node) {
    const int limit = limit_of(node);
    if (node.corners.distance > limit) {
        return;
    }
    edge_slices edges = block_edges;
    int depth = block_depth;
    for (int shift = path_top; stack[depth].remaining > 0; shift -= path_bits) {
        const int twist = static_cast<int>(node.path >> shift & ((1u << path_bits) - 1));
        stack[depth + 1].remaining = stack[depth].remaining - a_metric_length[twist];
        stack[depth + 1].twist = twist;
        edges.turn(twist);
        depth++;
    }
    if (complete(stack, node.corners, edges, limit)) {
        found = true;
        found_path = node.path;
    }
}
