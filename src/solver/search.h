// SPDX-License-Identifier: MIT
//
// search: finds a short sequence of twists that solves a cube, and goes on improving it.
//
// Stage 1 looks, length by length, for every sequence that brings the cube into the subgroup of
// stage 2; at each one stage 2 looks for the shortest completion with its ten twists. A complete
// solution replaces the one before, and only shorter ones count from then on. Both stages
// search by iterative deepening (R. E. Korf 1985), here measured in quarter turns.
//
// State     the search in progress and its result, below. Not for two searches at a time.
// Units     lengths are quarter turns.
// Callers   solver (my_user_enters_cube); the counters are read by vexel-solve and the bench.
// Order     all tables (initializesolve) before any search.
#pragma once

#include "shell.h"
#include "solver/cubecheck.h"
#include "solver/phase2.h"

// Longest length any search may have: the bound starts at 182 and must be undercut by 2.
constexpr int longest_search = 180;

// A stack: the root, one node a twist, and the one after the last, which holds a loop position.
constexpr int stack_size = longest_search + 2;

struct a_node {
    int remaining; // length left to spend
    int twist;     // by which the node was reached
    int state;     // sequence_state
    int a_corner;  // this and the next two: of the root alone, as the search walks over classes
    int a_eflip;
    int a_eloc;
};

struct b_node {
    int remaining;
    int twist; // in the node after the current one: the twist that the current node tried last, -1
               // before the first
    int state;
    int cornerperm;
    int b_edgeperm;
    int b_midperm;
};

// State

extern cube_struc* p_current_cube; // the cube in work; null before the first
extern int shortest_solution;      // length of the best solution, before any 181 or 182
extern int stage2_allotment;       // longest stage-2 length still worth trying; below 0: none
extern int solvedepth;             // last stage-1 depth to try; initially 14. setsearchdepth
extern int error;                  // 1 if the last search was interrupted, else 0
extern char outputstring[longest_search + 1]; // text of the best solution; empty for none

extern long long a_node_count; // nodes visited by the stages of the last search
extern long long b_node_count;

extern int clicks;   // calls of testclick since it asked, 0..70000
extern bool hurried; // interrupted before any solution: the first one that turns up is enough

// Search

// Fills the coordinates of a cube that check_cube found good.
void process_cube(cube_struc& cube);

// Searches all depths from the least that the tables allow up to solvedepth, and leaves the result
// in outputstring, which must be empty before. Depths keep rising past a solvedepth that lies below
// the least one, until no better solution is possible: no use with less than 14. Who interrupts
// before there is any solution gets the best of the first depth that holds one; a second interrupt
// meanwhile ends that, too.
void solve_cube(cube_struc& cube);

// The steps of it. A stack's root must be set, and in stage 2 the twist of the node after it be -1.

// The root is p_current_cube's. 1 when all of the root's depth was searched, 0 when the user
// interrupted.
[[nodiscard]] int stage1_search(a_node* stack);

// The junction, a step of stage1_search: completes the twists of its stack, of which the last has 0
// remaining.
void stage2_solve(const a_node* stage1_stack);

// Looks for a completion of just the root's length; keeps the first and returns.
void stage2_search(const a_node* stage1_stack, b_node* stage2_stack);

// Writes outputstring and tightens shortest_solution and stage2_allotment.
void output_solution(const a_node* stage1_stack, const b_node* stage2_stack);

// 1 if the user asks for an end. Asks the shell on every 70001st call only, as asking is slow.
[[nodiscard]] inline int testclick() {
    constexpr int calls_a_question = 70001;
    if (++clicks < calls_a_question) {
        return 0;
    }
    clicks = 0;
    return alt_q();
}

// true if the search is to end, as the user asks for it. Not before there is any solution, if there
// was none when it was asked for: the first one that turns up ends the search then.
[[nodiscard]] inline bool search_interrupted() {
    return testclick() != 0 && !hurried;
}
