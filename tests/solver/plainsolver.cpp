// SPDX-License-Identifier: MIT
#include "solver/plainsolver.h"

#include "solver/plaintables.h"

#include <algorithm>

namespace plain {

long long stage1nodes, stage2nodes;

namespace {

constexpr int stack_size = 184; // more nodes than any sequence has

// One twist, what is left after it, and the stage's three coordinates: corner, eflip and eloc; or
// corners, edges and middle slice.
struct node {
    int remaining, twist, state, x, y, z;
};

// What the junction replays the sequence of stage 1 on: slices of the middle edges, of the even and
// the odd edges of the layers.
struct {
    int cornerperm, slices[3];
} input;

int best;      // length of the answer so far
int allotment; // what stage 2 may have to better it
std::string answer;

// Stage 2

// Both stacks' twists, each up to the node that has nothing remaining.
void keep(const node* one, const node* two) {
    best = one->remaining + two->remaining;
    allotment = two->remaining - 2;
    answer.clear();
    for (; one->remaining > 0; one++) {
        answer += texts[one[1].twist];
    }
    for (; two->remaining > 0; two++) {
        answer += texts[two[1].twist];
    }
}

bool search2(const node* one, const node* two, node* n) {
    stage2nodes++;
    if (n->remaining == 0) {
        keep(one, two);
        return true;
    }
    for (const int t : stage2) {
        const int state = follow[t / 3][n->state];
        const int remaining = n->remaining - lengths[t];
        if (state == 0) {
            continue;
        }
        const int mid = move_midperm[t][n->z];
        const int corners = move_cornerperm[t][n->x];
        if (mid_corner[cornerperm_size * mid + corners] > remaining) {
            continue;
        }
        const int edges = move_edgeperm[t][n->y];
        if (mid_edge[edgeperm_size * mid + edges] > remaining) {
            continue;
        }
        n[1] = {remaining, t, state, corners, edges, mid};
        if (search2(one, two, n + 1)) {
            return true;
        }
    }
    return false;
}

// From one stage to the other

template <typename entry> int replayed(const table<entry>& move, const node* one, int x) {
    for (; one->remaining > 0; one++) {
        x = move[one[1].twist][x];
    }
    return x;
}

void junction(const node* one) {
    const int corners = replayed(move_cornerperm, one, input.cornerperm);
    if (cornerperm_alone[corners] > allotment) {
        return;
    }
    const int mid = slice_to_mid[replayed(move_slice, one, input.slices[0])];
    const int d1 = mid_corner[cornerperm_size * mid + corners];
    if (d1 > allotment) {
        return;
    }
    const int even = slice_to_half[replayed(move_slice, one, input.slices[1])];
    const int odd = slice_to_half[replayed(move_slice, one, input.slices[2])];
    const int edges = halves_to_edgeperm[half_size * even + odd];
    const int d2 = mid_edge[edgeperm_size * mid + edges];
    if (d2 > allotment) {
        return;
    }
    for (int e = std::max(d1, d2); e <= allotment; e += 2) {
        node two[stack_size];
        two[0] = {e, -1, 1, corners, edges, mid};
        search2(one, two, two);
    }
}

// Stage 1

void search1(const node* one, node* n) {
    stage1nodes++;
    if (n->remaining == 0) {
        // A twist of stage 2 at the end is left to stage 2, but for U'.
        const bool flagged = n->twist != 8 && std::count(stage2.begin(), stage2.end(), n->twist);
        if (n == one || !flagged) {
            junction(one);
        }
        return;
    }
    for (const int t : stage1) {
        const int state = follow[t / 3][n->state];
        const int remaining = n->remaining - lengths[t];
        if (state == 0) {
            continue;
        }
        const int corner = move_corner[t][n->x];
        const int eflip = move_eflip[t][n->y];
        if (corner_eflip[eflip_size * corner + eflip] > remaining) {
            continue;
        }
        const int eloc = move_eloc[t][n->z];
        if (corner_eloc[eloc_size * corner + eloc] > remaining ||
            eflip_eloc[eloc_size * eflip + eloc] > remaining) {
            continue;
        }
        n[1] = {remaining, t, state, corner, eflip, eloc};
        search1(one, n + 1);
    }
}

// The slice coordinate of four edges: as if they were the slice edges.
int slice_of(const cube& c, int first, int step) {
    return get_four(c, first, step, of12);
}

} // namespace

void build() {
    buildmovetables();
    builddistances();
}

std::string solve(const cube& c, int depth) {
    const int corner = get_corner(c);
    const int eflip = get_eflip(c);
    const int eloc = get_eloc(c);
    input = {
        get_cornerperm(c), {get_slice(c), slice_of(c, 0, 2), slice_of(c, 1, 2)}
    };
    answer.clear();
    stage1nodes = stage2nodes = 0;
    best = parity(c.corner, 8) != 0 ? 181 : 182;
    const int least =
        std::max({corner_eflip[eflip_size * corner + eflip], corner_eloc[eloc_size * corner + eloc],
                  eflip_eloc[eloc_size * eflip + eloc]});
    for (int d = least;; d++) {
        allotment = best - d - 2;
        if (allotment < 0) {
            break;
        }
        node one[stack_size];
        one[0] = {d, -1, 1, corner, eflip, eloc};
        search1(one, one);
        if (d == depth) {
            break;
        }
    }
    return answer;
}

} // namespace plain
