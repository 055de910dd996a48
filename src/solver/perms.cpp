// SPDX-License-Identifier: MIT
#include "solver/perms.h"

#include <utility>

void perm_n_unpack(int n, int index, int* perm) {
    for (int i = n - 1; i >= 0; i--) {
        perm[i] = index % (n - i);
        index /= n - i;
        // Right of i only the order was known; making room for perm[i] turns ranks into values.
        for (int j = i + 1; j < n; j++) {
            if (perm[j] >= perm[i]) {
                perm[j]++;
            }
        }
    }
}

// Ranks in lexicographic order, one digit a place in the base of what is left (Lehmer): counting is
// quick enough, since tables are built once and a search packs only where it begins.
int perm_n_pack(int n, const int* perm) {
    int index = 0;
    for (int i = 0; i < n; i++) {
        index *= n - i;
        for (int j = i + 1; j < n; j++) {
            index += perm[j] < perm[i];
        }
    }
    return index;
}

int check_perm_n(int n, const int* perm) {
    unsigned seen = 0; // n different numbers below n are all of them
    for (int i = 0; i < n; i++) {
        if (perm[i] < 0 || perm[i] >= n) {
            return 1;
        }
        seen |= 1u << perm[i];
    }
    return seen != (1u << n) - 1;
}

int parity_of_perm_n(int n, const int* perm) {
    int inversions = 0;
    for (int i = 0; i < n; i++) {
        for (int j = i + 1; j < n; j++) {
            inversions += perm[i] > perm[j];
        }
    }
    return inversions % 2;
}

void two_cycle(int* p, int a, int b) {
    std::swap(p[a], p[b]);
}

void three_cycle(int* p, int a, int b, int c) {
    two_cycle(p, a, b);
    two_cycle(p, b, c);
}

void four_cycle(int* p, int a, int b, int c, int d) {
    three_cycle(p, a, b, c);
    two_cycle(p, c, d);
}

// The same permutation where each place i is called q[i].
void conjugate_perm_n(int n, const int* p, const int* q, int* out) {
    for (int i = 0; i < n; i++) {
        out[q[i]] = q[p[i]];
    }
}
