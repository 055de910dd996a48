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

} // namespace

stage1_walk::stage1_walk(a_node* root)
    : stack(root), kept(std::min(near1_length, near1_ordinary)),
      bits_known(near1_length == near1_greatest) {
    for (int t = 0; t < a_twist_count; t++) {
        assert(a_metric_length[t] == ((quarter_turns >> t & 1) != 0 ? 1 : 2));
        for (int state = start_state; state < sequence_state_count; state++) {
            if (a_twist_list_ptrs[t][state] != forbidden_state) {
                allowed[state] |= 1u << t;
            }
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

// Counts a node. false if the search is to end.
inline bool stage1_walk::enter() const {
    a_node_count++;
    if (testclick() != 0) {
        error = 1;
    }
    return error == 0;
}

// A child, with the path and without the leads.
inline stage1_walk::visit stage1_walk::after(const visit& node, int twist) const {
    const int seen = symmetry_on_twist[node.symmetry][twist];
    const classified_edges edges = edge_class_steps[node.edge_class].after(seen);
    visit child;
    child.edge_class = edges.edge_class;
    child.corner = symmetry_on_corner[a_corner_steps[node.corner].after[seen]][edges.symmetry];
    child.symmetry = symmetry_on_symmetry[edges.symmetry][node.symmetry];
    child.remaining = static_cast<std::uint8_t>(node.remaining - a_metric_length[twist]);
    child.state = static_cast<std::uint8_t>(a_twist_list_ptrs[twist][node.state]);
    child.corners = corners_after(node.corners, twist);
    child.leads = 0;
    child.path = 0;
    return child;
}

// In a block, so many twists from its root.
inline stage1_walk::visit stage1_walk::after(const visit& node, int twist, int level) const {
    visit child = after(node, twist);
    child.path = node.path | static_cast<std::uint64_t>(twist) << (path_top - path_bits * level);
    return child;
}

// The leads that a table tells, as the real cube has them.
inline std::uint32_t stage1_walk::leads_of(const visit& node, std::uint32_t seen) const {
    return symmetry_on_twists(inverse_symmetry[node.symmetry], seen) & allowed[node.state];
}

inline std::uint32_t stage1_walk::leads_of(const visit& node) const {
    const lead_table& table = near1_leads[node.remaining];
    const std::uint32_t hash = lead_hash(table, node.number());
    return leads_of(node, lead_find(lead_bucket(table, hash), hash));
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
    if (!corner_bounds_filled) {
        return false;
    }
    const int view = symmetry_on_symmetry[node.corners.symmetry][inverse_symmetry[node.symmetry]];
    return corner_bound(node.corners.corner_class, symmetry_on_corner[node.corner][view]) > left;
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
        const visit child = after(here, t);
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
bool stage1_walk::walk_list(const visit_list& list, int level) {
    visit_list& out = lists[level + 1];
    out.count = 0;
    for (int begin = 0; begin < list.count; begin += chunk_size) {
        const int count = std::min(chunk_size, list.count - begin);
        for (int i = 0; i < count; i++) {
            if (!enter()) {
                return false;
            }
        }
        const visit* chunk = list.nodes + begin;
        gather(chunk, count);
        sift_by_bits(chunk, level, out);
        sift_by_leads(chunk, level, out);
        const bool last = begin + count == list.count;
        if (out.count >= list_enough || (last && out.count > 0)) {
            if (!walk_list(out, level + 1)) {
                return false;
            }
            out.count = 0;
        }
    }
    return error == 0;
}

// Adds the children by some twists of a cost to the candidates, but for those that the edges
// forbid. ask turns a state's number into what is asked.
template <typename question>
inline void stage1_walk::gather_some(const visit* chunk, int parent, std::uint32_t twists, int cost,
                                     candidate_list& to, question ask) {
    const visit& node = chunk[parent];
    const int remaining = node.remaining - cost;
    const edge_class_row& edges = edge_class_steps[node.edge_class];
    const corner_steps& corners = a_corner_steps[node.corner];
    const auto& seen_twists = symmetry_on_twist[node.symmetry];
    candidate* next = to.entries + to.count;
    for (; twists != 0; twists &= twists - 1) {
        const auto t = static_cast<unsigned>(std::countr_zero(twists));
        const int seen = seen_twists[t];
        const classified_edges step = edges.after(seen);
        const unsigned corner = symmetry_on_corner[corners.after[seen]][step.symmetry];
        *next = {ask(near1_number(step.edge_class, corner)), static_cast<std::uint8_t>(remaining),
                 static_cast<std::uint8_t>(parent), static_cast<std::uint8_t>(t)};
        next += step.distance <= remaining ? 1 : 0;
    }
    to.count = static_cast<int>(next - to.entries);
}

// The children that the edges allow, or the leads of the nodes. What near1 knows of them is far
// apart in memory, and all of it is asked for at once.
void stage1_walk::gather(const visit* chunk, int count) {
    by_leads.count = by_bits.count = unasked.count = 0;
    for (int i = 0; i < count; i++) {
        const visit& node = chunk[i];
        near1_visits += node.remaining == near1_ordinary + 1 ? 1 : 0;
        const std::uint32_t twists = node.remaining <= kept ? node.leads : allowed[node.state];
        for (const int cost : {1, 2}) {
            const std::uint32_t some = twists & (cost == 1 ? quarter_turns : half_turns);
            const int remaining = node.remaining - cost;
            if (remaining <= kept) {
                const lead_table table = near1_leads[remaining];
                gather_some(chunk, i, some, cost, by_leads, [&](std::uint32_t number) {
                    const std::uint32_t hash = lead_hash(table, number);
                    __builtin_prefetch(lead_bucket(table, hash));
                    return hash;
                });
            } else if (remaining == near1_greatest && bits_known) {
                gather_some(chunk, i, some, cost, by_bits, [](std::uint32_t number) {
                    __builtin_prefetch(near1_greatest_bits + number / 64);
                    return number;
                });
            } else {
                gather_some(chunk, i, some, cost, unasked,
                            [](std::uint32_t number) { return number; });
            }
        }
    }
}

// Adds the candidates that the bits let pass to the list, and those of which nothing is known.
void stage1_walk::sift_by_bits(const visit* chunk, int level, visit_list& out) {
    for (int i = 0; i < by_bits.count; i++) {
        unasked.entries[unasked.count] = by_bits.entries[i];
        unasked.count += near1_greatest_has(by_bits.entries[i].asked) ? 1 : 0;
    }
    for (int i = 0; i < unasked.count; i++) {
        const candidate& to = unasked.entries[i];
        const visit child = after(chunk[to.parent], to.twist, level);
        __builtin_prefetch(edge_class_steps + child.edge_class);
        out.nodes[out.count++] = child;
    }
}

// Adds the candidates that have leads, and visits those near the subgroup at once.
void stage1_walk::sift_by_leads(const visit* chunk, int level, visit_list& out) {
    std::uint32_t seen[chunk_children + 1];
    int count = 0;
    for (int i = 0; i < by_leads.count; i++) {
        const candidate to = by_leads.entries[i];
        seen[count] = lead_find(lead_bucket(near1_leads[to.remaining], to.asked), to.asked);
        by_leads.entries[count] = to;
        count += seen[count] != 0 ? 1 : 0;
    }
    for (int i = 0; i < count; i++) {
        const candidate& to = by_leads.entries[i];
        visit child = after(chunk[to.parent], to.twist, level);
        child.leads = leads_of(child, seen[i]);
        if (child.leads == 0 || too_far(child)) {
            continue;
        }
        if (child.remaining <= near_length) {
            walk_near(child, level + 1);
        } else {
            __builtin_prefetch(edge_class_steps + child.edge_class);
            out.nodes[out.count++] = child;
        }
    }
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
        visit child = after(node, std::countr_zero(twists), level);
        // The last twist must lead into the subgroup, and no table is trusted with that.
        bool leads = child.number() == 0;
        if (child.remaining > 0) {
            child.leads = leads_of(child);
            leads = child.leads != 0 && !too_far(child);
        }
        if (leads) {
            walk_near(child, level + 1);
        }
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
