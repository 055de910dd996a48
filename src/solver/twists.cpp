// SPDX-License-Identifier: MIT
#include "solver/twists.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

constexpr int opposite_distance = 3; // faces 0..2 lie opposite faces 3..5, ORDER FLUBRD

// Twists of each axis are written first face first: F before B, R before L, U before D.
// ORDER FLUBRD of the first face.
struct axis_row {
    int first, second, pair_state;
};

constexpr axis_row axes[] = {
    {0, 3, pair_fb_state}, // F B
    {4, 1, pair_rl_state}, // R L
    {2, 5, pair_ud_state}, // U D
};

constexpr bool axes_are_opposite() {
    for (const axis_row& axis : axes) {
        if ((axis.first + opposite_distance) % twist_face_count != axis.second) {
            return false;
        }
    }
    return true;
}

static_assert(axes_are_opposite());

constexpr int turns_of(int a_twist) {
    return a_twist % 3 == 1 ? 2 : 1;
}

constexpr int state_of(int face) {
    return last_f_state + face;
}

} // namespace

// clang-format off
const char* const my_a_twist_string[] = { // ORDER TWIST
    "F", "FF", "f", // 0..2
    "L", "LL", "l", // 3..5
    "U", "UU", "u", // 6..8
    "B", "BB", "b", // 9..11
    "R", "RR", "r", // 12..14
    "D", "DD", "d", // 15..17
};

const char* const my_b_twist_string[] = { // ORDER STAGE2
    "FF", "LL", "U", "UU", "u", "BB", "RR", "D", "DD", "d",
};
// clang-format on

constexpr int b_to_a_twist[] = {1, 4, 6, 7, 8, 10, 13, 15, 16, 17}; // ORDER STAGE2

static_assert(std::size(b_to_a_twist) == b_twist_count &&
              std::is_sorted(b_to_a_twist, b_to_a_twist + b_twist_count));

constinit option_struc user_options = {0, 0};
constinit int metric = 0;
constinit int increment = 0;
constinit char metric_char = '\0';

constinit int a_quarter_turn_length[a_twist_count] = {};
constinit int b_quarter_turn_length[b_twist_count] = {};
constinit int a_face_turn_length[a_twist_count] = {};
constinit int b_face_turn_length[b_twist_count] = {};
constinit const int* a_metric_length = nullptr;
constinit const int* b_metric_length = nullptr;

constinit int is_stage2_twist[a_twist_count] = {};

constinit int twist_list_table[twist_face_count][sequence_state_count] = {};
constinit const int* a_twist_list_ptrs[a_twist_count] = {};
constinit const int* b_twist_list_ptrs[b_twist_count] = {};

std::jmp_buf jump_env;

// Half turns count two, since that is how the window counts and animates them. Solutions of one
// cube then all have one parity, hence the increment.
void options_init(option_struc& options) {
    options = {quarter_turn_metric, 0};
    metric = options.metric;
    increment = 2;
    metric_char = 'q';
}

void twist_lengths_init(const int** a_out, const int** b_out) {
    for (int t = 0; t < a_twist_count; t++) {
        a_quarter_turn_length[t] = turns_of(t);
        a_face_turn_length[t] = 1;
    }
    for (int t = 0; t < b_twist_count; t++) {
        b_quarter_turn_length[t] = turns_of(b_to_a_twist[t]);
        b_face_turn_length[t] = 1;
    }
    if (user_options.metric == quarter_turn_metric) {
        *a_out = a_quarter_turn_length;
        *b_out = b_quarter_turn_length;
    } else if (user_options.metric == face_turn_metric) {
        *a_out = a_face_turn_length;
        *b_out = b_face_turn_length;
    } else {
        exit_w_error_message("twist_lengths_init : unknown metric");
    }
}

void is_stage2_twist_init(int* flags) {
    std::fill(flags, flags + a_twist_count, 0);
    for (const int t : b_to_a_twist) {
        flags[t] = 1;
    }
    // Deliberate: NOT-BUGS.md, "A first stage may end in U'"
    flags[8] = 0;
}

void twist_sequences_init(int (*table)[sequence_state_count], const int** a_ptrs,
                          const int** b_ptrs) {
    for (int face = 0; face < twist_face_count; face++) {
        table[face][forbidden_state] = forbidden_state;
        for (int state = start_state; state < sequence_state_count; state++) {
            table[face][state] = state_of(face);
        }
        table[face][state_of(face)] = forbidden_state;
    }
    for (const axis_row& axis : axes) {
        table[axis.first][state_of(axis.second)] = forbidden_state;
        table[axis.second][state_of(axis.first)] = axis.pair_state;
        table[axis.first][axis.pair_state] = forbidden_state;
        table[axis.second][axis.pair_state] = forbidden_state;
    }
    for (int t = 0; t < a_twist_count; t++) {
        a_ptrs[t] = table[t / 3];
    }
    for (int t = 0; t < b_twist_count; t++) {
        b_ptrs[t] = table[b_to_a_twist[t] / 3];
    }
}

// What leads here is a mistake of the program, which no user can mend: the caller's line is what
// tells it, in a debugger.
void exit_w_error_message([[maybe_unused]] const char* message) {
    std::exit(1);
}

void user_interrupt() {
    std::longjmp(jump_env, 1);
}
