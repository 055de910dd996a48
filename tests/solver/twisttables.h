// SPDX-License-Identifier: MIT
//
// twisttables: the first four steps of the initialisation, taken by hand, for tests that build the
// tables behind them one by one.
//
// State     that of solver/twists.h.
// Callers   the tests of single tables.
#pragma once

#include "solver/twists.h"

// The metric is chosen between the steps, since options_init always takes quarter turns.
inline void twist_tables_init(int chosen_metric = quarter_turn_metric) {
    options_init(user_options);
    user_options.metric = chosen_metric;
    twist_lengths_init(&a_metric_length, &b_metric_length);
    is_stage2_twist_init(is_stage2_twist);
    twist_sequences_init(twist_list_table, a_twist_list_ptrs, b_twist_list_ptrs);
}
