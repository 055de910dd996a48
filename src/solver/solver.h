// SPDX-License-Identifier: MIT
//
// solver: what the rest of the program needs of this room. Numbers in, a text out.
//
// State     the step counter of the initialisation, private.
// Callers   solvecube (src/app), vexel-solve, vexel-macro, the bench.
// Order     initializesolve until it returns 1, then my_user_enters_cube as often as wanted.
#pragma once

// Does the next step of the initialisation, 0.04 s at most, and returns 0; 1 once all is done, from
// the call that does the last step on. The steps, one a call:
//    0 options_init           4 transformation_tables_init    8 cornerperm distances
//    1 twist_lengths_init     5 corner_eflip distances        9 mid_cornerperm distances
//    2 is_stage2_twist_init   6 corner_eloc distances        10 mid_edgeperm distances
//    3 twist_sequences_init   7 eflip_eloc distances
int initializesolve();

// The last depth that stage 1 tries, its length in quarter turns: 14 (initially), 15 or 16. Each
// depth takes some nine times as long as the one before. Below 14: see solve_cube (search.h).
void setsearchdepth(int n);

// Solves the cube that text describes in the form of cubecheck.h. Returns the solution in the
// program's move letters, good until the next call; "error" when there is none, which is also what
// a solved cube gives; null when the text describes no cube. An interrupt (Alt+Q) keeps the best
// solution found so far. Improper names set no errorstring: sanitycheckcube does that.
const char* my_user_enters_cube(const char* text);
