// SPDX-License-Identifier: MIT
#include "model/rounds.h"

#include "model/turns.h"
#include "model/undo.h"

#include <cassert>
#include <cstring>
#include <utility>

namespace {

// Codes

constexpr size_t keptcodes = undolimit + undodrop;

// Drops from the front what the undo buffer would have dropped by the end.
void trim(std::string& codes) {
    if (codes.size() > keptcodes) {
        const size_t excess = codes.size() - keptcodes;
        codes.erase(0, (excess + undodrop - 1) / undodrop * undodrop);
    }
}

// The codes of count rounds, trimmed, without writing out those that would be dropped: filled from
// the end, where only the last undolimit + 1 need be exact.
std::string multiplied(const std::string& codes, int count) {
    const size_t total = codes.size() * static_cast<size_t>(count);
    const size_t length =
        total > keptcodes ? undolimit + 1 + (total - undolimit - 1) % undodrop : total;
    std::string result(length, '\0');
    for (size_t end = length; end > 0;) {
        const size_t taken = end < codes.size() ? end : codes.size();
        result.replace(end - taken, taken, codes, codes.size() - taken, taken);
        end -= taken;
    }
    return result;
}

// To the round around this one, or at top level to the undo buffer, where an undo that is under way
// takes the first of them for its own.
void landcodes(landing& to, const std::string& codes) {
    if (!to.open.empty()) {
        std::string& outer = to.open.back().codes;
        outer += codes;
        trim(outer);
        return;
    }
    for (char code : codes) {
        undosave(code);
    }
}

// Permutations: row[p] is the place that the facelet at p came from.

void apply(const unsigned char* row, const unsigned char* from, unsigned char* to) {
    for (int p = 0; p < placecount; p++) {
        to[p] = from[row[p]];
    }
}

// Each cycle is walked once; count steps along it are count modulo its length.
void power(const unsigned char* row, int count, unsigned char* result) {
    bool done[placecount] = {};
    unsigned char cycle[placecount];
    for (int start = 0; start < placecount; start++) {
        int length = 0;
        for (unsigned char p = static_cast<unsigned char>(start); !done[p]; p = row[p]) {
            done[p] = true;
            cycle[length++] = p;
        }
        for (int i = 0; i < length; i++) {
            result[cycle[i]] = cycle[(i + count % length) % length];
        }
    }
}

// Ending rounds

round takeround(landing& to) {
    assert(!to.open.empty());
    round done = std::move(to.open.back());
    to.open.pop_back();
    return done;
}

// What the round around this one did before the reset is of no account any more.
void markreset(landing& to) {
    if (!to.open.empty()) {
        to.open.back().reset = true;
    }
}

// Read while they are written, behind themselves: the queue never moves.
int queuerounds(const round& done, int count) {
    const int end = turnptr;
    if (end == done.start) {
        return 1; // a billion rounds of nothing
    }
    for (int next = 1; next < count; next++) {
        for (int i = done.start; i < end; i++) {
            if (queueturn(turns[i]) == 0) {
                return 0;
            }
        }
    }
    return 1;
}

// After a reset within the round all rounds end alike, and the cube stands as it should.
void applyrounds(landing& to, const round& done, int count) {
    if (done.reset) {
        markreset(to);
    } else {
        unsigned char all[placecount];
        power(cubefaces, count, all);
        apply(all, done.savedcolors, cubecolors);
        apply(all, done.savedplaces, cubefaces);
    }
    landcodes(to, multiplied(done.codes, count));
}

// The cube has had one round from solved; gives it further ones. Ends, for some power of a
// permutation is the identity.
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
int landturn(landing& to, int code) {
    if (to.queueing) {
        return queueturn(code);
    }
    applyturn(code);
    if (to.open.empty()) {
        undosave(code);
    } else {
        to.open.back().codes.push_back(static_cast<char>(code));
        trim(to.open.back().codes);
    }
    return 1;
}

void landreset(landing& to) {
    initcubies();
    markreset(to);
}

void beginround(landing& to) {
    round& begun = to.open.emplace_back();
    begun.start = turnptr;
    if (!to.queueing) {
        memcpy(begun.savedcolors, cubecolors, sizeof cubecolors);
        memcpy(begun.savedplaces, cubefaces, sizeof cubefaces);
        initcubies();
    }
}

int endrounds(landing& to, int count) {
    assert(count >= 1);
    const round done = takeround(to);
    if (to.queueing) {
        return queuerounds(done, count);
    }
    applyrounds(to, done, count);
    return 1;
}

void endorder(landing& to) {
    assert(!to.queueing);
    const round done = takeround(to);
    const int order = done.reset ? solved() : roundstosolved();
    to.orders.push_back(order);
    landcodes(to, multiplied(done.codes, order != 0 ? order : 2));
}
