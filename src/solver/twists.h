// SPDX-License-Identifier: MIT
//
// twists: the numbering of face twists in the two stages, their costs, and which may follow which.
//
// State     the tables and settings below, filled by the four init functions; constant afterwards.
// Units     faces 0..5, ORDER FLUBRD. A stage-1 twist 0..17 is 3 * face + k: k = 0 the quarter
//           turn, 1 the half turn, 2 the inverse quarter turn. A stage-2 twist 0..9 is one of the
//           ten that keep the subgroup of stage 2: F2 L2 U U2 U' B2 R2 D D2 D'. -1 is no twist.
// Callers   every file of the solver. The init functions are steps 0..3 of initializesolve.
// Order     options_init, twist_lengths_init, is_stage2_twist_init, twist_sequences_init.
#pragma once

#include <csetjmp>

constexpr int twist_face_count = 6; // ORDER FLUBRD
constexpr int a_twist_count = 18;   // ORDER TWIST: FLUBRD x quarter, half, inverse
constexpr int b_twist_count = 10;   // ORDER STAGE2

// The texts, in the program's own move letters; a half turn is a letter twice.

extern const char* const my_a_twist_string[a_twist_count]; // ORDER TWIST
extern const char* const my_b_twist_string[b_twist_count]; // ORDER STAGE2

extern const int b_to_a_twist[b_twist_count]; // ORDER STAGE2: the same twist as a stage-1 twist

// Settings

constexpr int quarter_turn_metric = 1;
constexpr int face_turn_metric = 2;

struct option_struc {
    int metric; // quarter_turn_metric or face_turn_metric
    int spare;  // always 0; read nowhere
};

extern option_struc user_options; // initially {0, 0}; {1, 0} after options_init
extern int metric;                // in force: quarter_turn_metric; 0 before options_init
extern int increment;             // step of the target lengths: 2; 0 before options_init
extern char metric_char;          // 'q', naming the metric; NUL before options_init

// Chooses the quarter-turn metric, always: writes options, metric, increment and metric_char.
void options_init(option_struc& options);

// Costs. A solution's length is the sum of its twists' costs.

extern int a_quarter_turn_length[a_twist_count]; // 2 for half turns, else 1
extern int b_quarter_turn_length[b_twist_count]; // the same by stage-2 twist
extern int a_face_turn_length[a_twist_count];    // all 1; built, but never selected
extern int b_face_turn_length[b_twist_count];    // all 1; built, but never selected

extern const int* a_metric_length; // the selected one of the stage's two; null before the init
extern const int* b_metric_length;

// Fills the four tables and hands back those of the metric in user_options. Any other metric is a
// fatal error.
void twist_lengths_init(const int** a_out, const int** b_out);

// Flags

// ORDER TWIST: 1 for a stage-1 twist that is a stage-2 twist as well, else 0. U' (8) has 0.
extern int is_stage2_twist[a_twist_count];

void is_stage2_twist_init(int* flags); // fills flags[0..17]

// Successions. A face never follows itself, opposite faces follow each other in one order only,
// and after such a pair neither of its faces comes again: every product of twists of an axis has
// one spelling.

enum sequence_state {
    forbidden_state,
    start_state,  // no twist yet
    last_f_state, // 2..7: the last twist was on this face, ORDER FLUBRD
    pair_fb_state = 8,
    pair_rl_state,
    pair_ud_state,
    sequence_state_count
};

// [face][state]: the state after a twist of face, ORDER FLUBRD, or 0 if it must not follow.
extern int twist_list_table[twist_face_count][sequence_state_count];
extern const int* a_twist_list_ptrs[a_twist_count]; // each twist's row
extern const int* b_twist_list_ptrs[b_twist_count];

void twist_sequences_init(int (*table)[sequence_state_count], const int** a_ptrs,
                          const int** b_ptrs);

// Ends that nothing comes back from

// Ends the process with status 1. The message names the impossibility and is not printed.
[[noreturn]] void exit_w_error_message(const char* message);

extern std::jmp_buf jump_env; // nothing in the program saves a context here

// Deliberate: NOT-BUGS.md, "user_interrupt has no caller"
[[noreturn]] void user_interrupt(); // jumps to jump_env with value 1
