// SPDX-License-Identifier: MIT
#include "solver/solver.h"

#include "solver/edgeclass.h"
#include "solver/growth.h"
#include "solver/largepages.h"
#include "solver/pruning.h"
#include "solver/search.h"

#include <iterator>

namespace {

// Two of the steps also build what the searches need beside the described tables.

void distances_of_stage1_edges() {
    a_eflip_eloc_dist_init(eflip_eloc_dist_table, eflip_eloc_dist_ptrs);
    edge_classes_init();
}

void distances_of_stage2_edges() {
    b_mid_edgeperm_dist_init(mid_edgeperm_dist_table, mid_edgeperm_dist_ptrs);
    search_tables_init();
}

void first_options() {
    ask_for_large_pages(); // before a table is written, and so has pages
    options_init(user_options);
}

using step_function = void (*)();

// ORDER STEP
// clang-format off
constexpr step_function steps[] = {
    first_options,                                                                           //  0
    [] { twist_lengths_init(&a_metric_length, &b_metric_length); },                          //  1
    [] { is_stage2_twist_init(is_stage2_twist); },                                           //  2
    [] { twist_sequences_init(twist_list_table, a_twist_list_ptrs, b_twist_list_ptrs); },    //  3
    transformation_tables_init,                                                              //  4
    [] { a_corner_eflip_dist_init(corner_eflip_dist_table, corner_eflip_dist_ptrs); },       //  5
    [] { a_corner_eloc_dist_init(corner_eloc_dist_table, corner_eloc_dist_ptrs); },          //  6
    distances_of_stage1_edges,                                                               //  7
    [] { b_cornerperm_dist_init(cornerperm_dist_table); },                                   //  8
    [] { b_mid_cornerperm_dist_init(mid_cornerperm_dist_table, mid_cornerperm_dist_ptrs); }, //  9
    distances_of_stage2_edges,                                                               // 10
};
// clang-format on

constexpr int step_count = std::size(steps);
static_assert(step_count == 11);

// State

int steps_done = 0; // 0..step_count
cube_struc cube;    // the cube of the last my_user_enters_cube

} // namespace

int initializesolve() {
    if (steps_done < step_count) {
        steps[steps_done++]();
    }
    return steps_done == step_count;
}

void setsearchdepth(int n) {
    solvedepth = n;
}

// The text is judged here whoever it comes from: the search believes what it is given.
const char* my_user_enters_cube(const char* text) {
    outputstring[0] = '\0';
    cubie_names names;
    read_cubies(text, names);
    if (parse_cubies(names, cube) < edge_count + corner_count || check_cube(cube)) {
        return nullptr;
    }
    process_cube(cube);
    solve_cube(cube);
    return outputstring[0] != '\0' ? outputstring : "error";
}
