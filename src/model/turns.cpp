// SPDX-License-Identifier: MIT
#include "model/turns.h"

#include "model/cube.h"

#include <cassert>

// ORDER TURN
constexpr int inversemove[turncount] = {
    1,  0,  3,  2,  5,  4,  // U D L
    7,  6,  9,  8,  11, 10, // R F B
    13, 12, 15, 14, 17, 16, // *F *L *U
    19, 18, 21, 20, 23, 22, // >R >U >F
};

constexpr char movelist[] = "UDLRFB"; // ORDER TURN, pairs

namespace {

// A pair is one face in both directions, or one axis from both of its ends.
constexpr bool inversepair(const turn_row& a, const turn_row& b) {
    if (a.kind != b.kind) {
        return false;
    }
    if (a.kind == face_turn) {
        return a.face == b.face && a.quarters + b.quarters == 4;
    }
    return b.face == oppositeface[a.face] && a.quarters == 1 && b.quarters == 1;
}

// The three orders of the table, and that inverse codes differ in the lowest bit.
constexpr bool soundturns() {
    for (int code = 0; code < turncount; code++) {
        const turn_row& row = turn_table[code];
        if (inversemove[code] != (code ^ 1) || !inversepair(row, turn_table[code ^ 1])) {
            return false;
        }
        if (code < 12 && code % 2 == 0 && row.notation[0] != movelist[code / 2]) {
            return false;
        }
    }
    return true;
}

static_assert(soundturns());

// A code one too large would read what lies behind the table, which no test can be sure to see.
constexpr bool isturn(int code) {
    return code >= 0 && code < turncount;
}

static_assert(!isturn(-1) && isturn(0) && isturn(turncount - 1) && !isturn(turncount));

} // namespace

// State

constinit int turns[queuesize] = {noturn};
constinit int turn = 0;
constinit int turnptr = 0;
constinit int turnmode = noturn;
constinit int ttime = 0;
constinit int TURNTIME = 120;
constinit int needsredraw = 1;
constinit int turnlanded = 0;

// There is no counter-clockwise turn of its own: it is three clockwise ones.
void applyturn(int code) {
    if (!isturn(code)) {
        return;
    }
    const turn_row& row = turn_table[code];
    for (int quarter = 0; quarter < row.quarters; quarter++) {
        switch (row.kind) {
        case face_turn: moveface(row.face); break;
        case slice_turn: moveslice(row.face); break;
        case cube_turn: movecube(row.face); break;
        }
    }
    needsredraw = 1;
}

// One entry is kept for the end mark, which is written anew with each code, so that the driver may
// read at any time.
bool queueturn(int code) {
    assert(isturn(code));
    if (turnptr >= queuesize - 1) {
        return false;
    }
    turns[turnptr++] = code;
    turns[turnptr] = noturn;
    return true;
}

// The reader goes back to the front with the writer, or it would wait behind the end for ever.
void clearqueue() {
    turn = 0;
    turnptr = 0;
    turns[0] = noturn;
}

// The frame is left alone: a turn that is replaced hands its frame on to the next.
void startturn(int code) {
    assert(code == noturn || isturn(code));
    turnmode = code;
    turnlanded = 0;
}

void initturns() {
    clearqueue();
    startturn(noturn);
    ttime = 0;
    TURNTIME = 120;
    needsredraw = 1;
}
