// SPDX-License-Identifier: MIT
#include "model/rounds.h"

#include "model/turns.h"

#include <cassert>
#include <climits>
#include <cstring>
#include <utility>

static_assert(countperiod % 55440 == 0 && countperiod % undodrop == 0);

int samecount(long long count) {
    if (count <= INT_MAX) {
        return static_cast<int>(count);
    }
    const long long periods = (count - INT_MAX + countperiod - 1) / countperiod;
    return static_cast<int>(count - periods * countperiod);
}

namespace {

// Permutations: came[p] is the place that the facelet at p came from. That is how cubefaces stands
// after a round from the solved cube, so that the round needs no other record.

void apply(const unsigned char* came, const unsigned char* from, unsigned char* to) {
    for (int p = 0; p < placecount; p++) {
        to[p] = from[came[p]];
    }
}

// Each cycle is walked once; count steps along it are count modulo its length.
void power(const unsigned char* came, int count, unsigned char* result) {
    bool done[placecount] = {};
    unsigned char cycle[placecount];
    for (int start = 0; start < placecount; start++) {
        int length = 0;
        for (unsigned char p = static_cast<unsigned char>(start); !done[p]; p = came[p]) {
            done[p] = true;
            cycle[length++] = p;
        }
        assert(length == 0 || countperiod % length == 0);
        for (int i = 0; i < length; i++) {
            result[cycle[i]] = cycle[(i + count % length) % length];
        }
    }
}

// Ending rounds

group_round takeround(parse_rounds& rounds) {
    assert(!rounds.open.empty());
    group_round done = std::move(rounds.open.back());
    rounds.open.pop_back();
    return done;
}

// What the round around this one did before the reset is of no account any more.
void markreset(parse_rounds& rounds) {
    if (!rounds.open.empty()) {
        rounds.open.back().reset = true;
    }
}

// To the round around this one, or at top level to the undo buffer.
void landrounds(parse_rounds& rounds, const undo_series& landed, int count) {
    if (!rounds.open.empty()) {
        addseries(rounds.open.back().landed, landed, count);
        return;
    }
    undo_series all;
    addseries(all, landed, count);
    undosaveseries(all);
}

// Read while they are written, behind themselves: the queue never moves.
bool queuerounds(const group_round& done, int count) {
    const int end = turnptr;
    if (end == done.start) {
        return true; // a billion rounds of nothing
    }
    for (int next = 1; next < count; next++) {
        for (int i = done.start; i < end; i++) {
            if (!queueturn(turns[i])) {
                return false;
            }
        }
    }
    return true;
}

// After a reset within the round all rounds end alike, and the cube stands as it should.
void applyrounds(parse_rounds& rounds, const group_round& done, int count) {
    if (done.reset) {
        markreset(rounds);
    } else {
        unsigned char all[placecount];
        power(cubefaces, count, all);
        apply(all, done.savedcolors, cubecolors);
        apply(all, done.savedplaces, cubefaces);
    }
    landrounds(rounds, done.landed, count);
}

// The cube has had one round from solved; gives it further ones. Only the colours go round by
// round, for solved() looks at nothing else, and an order may well come before the places are back.
// Ends, for some power of a permutation is the identity.
int roundstosolved() {
    unsigned char one[placecount];
    unsigned char before[placecount];
    memcpy(one, cubefaces, sizeof one);
    int order = 1;
    for (; solved() == 0; order++) {
        memcpy(before, cubecolors, sizeof before);
        apply(one, before, cubecolors);
    }
    power(one, order, cubefaces);
    return order;
}

} // namespace

// In a round the turn is done on the cube that stands in for the real one.
bool doturn(parse_rounds& rounds, int code) {
    if (rounds.queueing) {
        return queueturn(code);
    }
    applyturn(code);
    if (rounds.open.empty()) {
        undosave(code);
    } else {
        addturn(rounds.open.back().landed, code);
    }
    return true;
}

void doreset(parse_rounds& rounds) {
    initcubies();
    markreset(rounds);
}

void beginround(parse_rounds& rounds) {
    group_round& begun = rounds.open.emplace_back();
    begun.start = turnptr;
    if (!rounds.queueing) {
        memcpy(begun.savedcolors, cubecolors, sizeof cubecolors);
        memcpy(begun.savedplaces, cubefaces, sizeof cubefaces);
        initcubies();
    }
}

bool endrounds(parse_rounds& rounds, int count) {
    assert(count >= 1);
    const group_round done = takeround(rounds);
    if (rounds.queueing) {
        return queuerounds(done, count);
    }
    applyrounds(rounds, done, count);
    return true;
}

void endorder(parse_rounds& rounds) {
    assert(!rounds.queueing);
    const group_round done = takeround(rounds);
    // Deliberate: NOT-BUGS.md, "An order that never comes is 0"
    const int order = done.reset ? solved() : roundstosolved();
    // Deliberate: NOT-BUGS.md, "An order is told once"
    rounds.orders.push_back(order);
    landrounds(rounds, done.landed, order != 0 ? order : 2); // the second has shown that it is none
}
