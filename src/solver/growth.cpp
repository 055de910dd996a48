// SPDX-License-Identifier: MIT
#include "solver/growth.h"

#include "solver/cornerclass.h"
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/pruning.h"

#include <cassert>

constinit long long near1_visits = 0;
constinit long long near2_visits = 0;
constinit long long corner_visits = 0;

namespace {

// The nodes just outside the ordinary tables multiply by nine with each depth.
long long expected_visits(int depth) {
    long long visits = 1;
    for (int length = near1_ordinary + 1; length < depth; length++) {
        visits *= 9;
    }
    return visits;
}

// All that initializesolve builds, in the metric that the search knows.
bool described_tables_are_built() {
    return metric == quarter_turn_metric && a_metric_length == a_quarter_turn_length &&
           b_metric_length == b_quarter_turn_length && is_stage2_twist[1] != 0 &&
           a_twist_list_ptrs[0] != nullptr && half_to_edgeperm_ptrs[0] != nullptr &&
           corner_eflip_dist_ptrs[0] != nullptr && corner_eloc_dist_ptrs[0] != nullptr &&
           eflip_eloc_dist_ptrs[0] != nullptr && cornerperm_dist_table[1] != 0 &&
           mid_cornerperm_dist_ptrs[0] != nullptr && mid_edgeperm_dist_ptrs[0] != nullptr;
}

} // namespace

void search_tables_init() {
    assert(described_tables_are_built());
    edge_classes_init();
    corner_classes_init();
    near2_tables_init();
    [[maybe_unused]] const bool filled =
        near1_extend(near1_initial) && near2_extend(near2_ordinary);
    assert(filled); // these two ask nobody
}

bool grow_tables(int depth) {
    if (near2_visits > near2_patience && !near2_extend(near2_greatest)) {
        return false;
    }
    if (corner_visits > corner_patience && !corner_bounds_fill()) {
        return false;
    }
    if (depth <= near1_ordinary) {
        return true;
    }
    const bool pays = near1_visits + expected_visits(depth) > near1_patience;
    return near1_extend(pays ? near1_greatest : near1_ordinary);
}
