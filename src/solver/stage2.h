// SPDX-License-Identifier: MIT
//
// stage2: from a sequence of stage 1 to its shortest completion. The steps that search.h names,
// and the one that stage 1 takes itself.
//
// State     none of its own; search.h's.
// Callers   stage1.
#pragma once

#include "solver/cornerclass.h"
#include "solver/search.h"

// The three sliceedges of phase2: slice edges, even and odd edges of the layers.
struct edge_slices {
    int slot[3];

    void turn(int twist) {
        for (int& value : slot) {
            value = twist_on_sliceedge_ptrs[twist][value];
        }
    }
};

// Looks for the shortest completion, of at most limit, behind a sequence that leads to these
// corners and edges, and puts it out. false if there is none or, with error 1, the user interrupts.
[[nodiscard]] bool complete(const a_node* stage1_stack, classified_corners corners,
                            const edge_slices& edges, int limit);
