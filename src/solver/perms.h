// SPDX-License-Identifier: MIT
//
// perms: permutations of a few things, ranked, checked and cycled.
//
// State     none.
// Units     a permutation of n is n ints, each of 0..n-1 once; its rank is 0..n!-1, the identity 0,
//           in lexicographic order (the Lehmer code read as a mixed-base number).
// Callers   phase1 and phase2 build every coordinate from these; cubecheck judges a cube by them.
// Range     nothing here is checked but by check_perm_n: entries, ranks and positions must be good.
#pragma once

// Ranks; a pair of inverses. n is 1..12.

void perm_n_unpack(int n, int index, int* perm); // writes perm[0..n-1]; index is 0..n!-1
int perm_n_pack(int n, const int* perm);         // the rank of perm[0..n-1]

// Questions; n is 0..24.

// 1 if perm[0..n-1] is no permutation: an entry outside 0..n-1, or a value missing. Else 0.
[[nodiscard]] int check_perm_n(int n, const int* perm);

// 1 if perm is odd, 0 if it is even: its inversions modulo 2.
[[nodiscard]] int parity_of_perm_n(int n, const int* perm);

// Cycles: what lay at a later position comes to the one before it, the first goes to the last.

void two_cycle(int* p, int a, int b);                // exchanges p[a] and p[b]
void three_cycle(int* p, int a, int b, int c);       // a <- b <- c <- a
void four_cycle(int* p, int a, int b, int c, int d); // a <- b <- c <- d <- a

// out[0..n-1] becomes p seen through q: out[q[i]] = q[p[i]]. out is neither p nor q.
void conjugate_perm_n(int n, const int* p, const int* q, int* out);
