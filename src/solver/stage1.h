// SPDX-License-Identifier: MIT
//
// stage1: one depth of stage 1. All that belongs to it is one object, made for the call.
//
// It walks over states up to symmetry (edgeclass.h), and carries the permutation of the corners as
// its class (cornerclass.h). The depth is parted: node by node down to block_length quarter turns
// from the end; from there block by block, several nodes at a time, as what the tables of near1
// know of each is far away in memory; and the last of it, where the tables are small, node by
// node again.
//
// Where leads are kept, a node follows its own. Farther out it asks for its children, first for
// those by quarter turns: a half turn leads on only if both quarter turns of its face do, each
// followed by the other half. (Not if what follows it began with the same face: but that is no
// sequence.)
//
// Within a block solutions are not met in the order of the twists. So of two of the same length the
// one whose sequence comes first counts: what a completed depth leaves is the first sequence that
// attains the depth's least total, as if all had been tried in order.
//
// State     none but the object; search.h's.
// Callers   search.
#pragma once

#include "solver/near1.h"
#include "solver/stage2.h"

class stage1_walk {
  public:
    explicit stage1_walk(a_node* root); // its stack's first node, which must be set

    // All of the root's depth. Ends early when no better solution is left, or with error 1 when the
    // user interrupts.
    void run();

  private:
    // Length from which on nodes are visited one by one again. The leads of these are always kept,
    // and so are those of what comes by a half turn from where children are asked for.
    static constexpr int near_length = corner_ending_length;
    static_assert(near_length < near1_initial - 1);

    // Length that the root of a block has left, or less. The shorter it is, the fewer nodes there
    // are to fill a chunk with.
    static constexpr int block_length = near1_greatest + 3;

    // The twists from the root of a block to a node are packed, the first one highest: so the
    // greater of two numbers is the sequence that comes later.
    static constexpr int path_bits = 5;
    static constexpr int path_top = 64 - path_bits;
    static_assert(a_twist_count <= 1 << path_bits && block_length * path_bits <= 64);

    struct visit {
        std::uint16_t edge_class;
        std::uint16_t corner;  // as the representative of the class sees it
        std::uint8_t symmetry; // takes the real cube to the representative
        std::uint8_t remaining;
        std::uint8_t state; // sequence_state
        classified_corners corners;
        // The twists that lead on, where near1 keeps them, as the representative sees them; 0 if
        // not looked up.
        std::uint32_t leads;
        std::uint64_t path;

        std::uint32_t number() const { return near1_number(edge_class, corner); }
    };

    // A child that a node may have: a state of which a table of near1 is asked.
    struct candidate {
        std::uint32_t asked;  // number, or hash; in members the leads
        std::uint16_t parent; // in the chunk
        std::uint16_t seen;   // the twist, as the parent's representative sees it
    };

    // One with just corner_ending_length left, of which the whole corners are asked first.
    struct ending_candidate {
        whole_corners corners;
        std::uint16_t parent, seen;
    };

    // So many nodes are asked for together; those that they leave make a list, which is walked when
    // it has enough.
    static constexpr int chunk_size = 24;
    static constexpr int list_enough = 64;
    static constexpr int chunk_children = chunk_size * a_twist_count;

    struct visit_list {
        int count;
        visit nodes[list_enough + chunk_children];
    };

    // One more than there can be, as each is written before it is known to be one.
    struct candidate_list {
        int count = 0;
        candidate entries[chunk_children + 1];
    };

    visit root_visit() const;
    bool walk_far(int depth, const visit& here);
    bool walk_block(int depth, const visit& root);
    bool walk_list(visit_list& list, int level);
    void walk_near(const visit& node, int level);
    void walk_child(const visit& node, int seen, int level);

    bool enter_chunk(int level, visit_list& out);
    void follow(int parent, int level, visit_list& out);
    void follow_near(int parent, int seen, int level);
    void sift_by_endings(int level);
    void gather_quarters(int level, visit_list& out);
    void gather_halves(int level, visit_list& out);
    void gather(int parent, std::uint32_t seen_twists, int remaining, int level, visit_list& out);
    static std::uint32_t within(const visit& node, std::uint32_t seen_twists, int remaining);
    template <typename question>
    void gather_some(int parent, std::uint32_t seen_twists, candidate_list& to, question ask);
    void sift_by_bits(int level, visit_list& out);
    void sift_by_leads(int length);
    void add(const candidate& from, int level, visit_list& out);
    void add_members(int level, visit_list& out);

    bool enter() const;
    void after(const visit& node, int seen, visit& child) const;
    void after(const visit& node, int seen, int level, visit& child) const;
    std::uint32_t leads_of(const visit& node) const;
    int limit_of(const visit& node) const;
    bool too_far(const visit& node) const;
    whole_corners corners_of(const visit& node) const;
    void junction(const visit& node);

    a_node* stack;
    const int known; // length up to which members are told from others
    const int kept;  // length up to which their leads are kept

    // Twists by the state of the sequence; and as a representative sees them, by the symmetry that
    // takes the real cube there
    std::uint32_t allowed[sequence_state_count] = {};
    std::uint32_t seen_allowed[sequence_state_count][symmetry_count] = {};
    std::uint8_t next_state[a_twist_count][sequence_state_count] = {};
    std::uint8_t real_twist[symmetry_count][a_twist_count]; // of one that a representative sees

    // The block in work
    int block_depth = 0; // of its root
    edge_slices block_edges = {};
    bool found = false; // if a solution was found in it: by this path
    std::uint64_t found_path = 0;

    // The chunk in work, and by node: the half turns that may be asked for, and the quarter turns
    // that lead to members
    visit* chunk = nullptr;
    int chunk_count = 0;
    std::uint32_t seen_halves[chunk_size];
    std::uint32_t passed[chunk_size];

    // Its candidates: of which the bits are asked, and the leads, of the length kept and the one
    // below; those that were found to have leads; and those of which the endings are asked
    candidate_list by_bits, by_leads[2], members;
    int by_endings_count = 0;
    ending_candidate by_endings[chunk_children];

    visit_list
        lists[block_length - near_length + 1]; // by the number of twists from the block's root
};
