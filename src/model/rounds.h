// SPDX-License-Identifier: MIT
//
// rounds: how a group of a macro is done many times without doing it again.
//
// A macro of a few characters can ask for more turns than anybody could wait for, such as
// 999999(999999(RU)). But what one round of a group does is always the same, so the parser reads a
// group once, and its rounds are multiplied when it ends:
//   queueing   the codes of the round are copied until enough are there or the queue is full;
//   direct     the round is done on a solved cube put in the place of the real one; what it did to
//              that is a permutation of the 54 places, and a power of it, found along its cycles,
//              is then applied to the real one.
// Groups inside groups work alike, with the outer group's round as "the real one".
//
// Counts are of any size. All that can be told of a large one is that it is large, and what is left
// of it when it is divided by the length of a cycle, or by the 500 codes that undo forgets at once.
// So counts that differ by a multiple of countperiod do the same, and one beyond the largest int is
// brought below it by that.
//
// State     a parse_rounds is one parse; all parses share the cube, the queue and the undo buffer.
// Callers   parser alone.
// Order     each beginround() is ended by one endrounds() or endorder(), the innermost first. A
//           queueing parse may be given up in between; in direct mode the real cube would be lost.
#pragma once

#include "model/cube.h"
#include "model/undo.h"

#include <vector>

// The round of one group.
struct group_round {
    int start;                             // queueing: turnptr before the round
    bool reset;                            // direct: the cube was reset during the round
    unsigned char savedcolors[placecount]; // direct: the real cube
    unsigned char savedplaces[placecount]; // direct: the same, cubefaces
    undo_series landed;                    // direct: the turns of the round
};

struct parse_rounds {
    bool queueing;                 // the mode, the same from beginning to end
    std::vector<group_round> open; // the groups that have begun, the innermost last
    std::vector<int> orders;       // direct: the orders found, in order
};

// One turn, code 0..23: queued, or done and handed to the undo buffer by way of the open groups.
// false if the queue is full: the parse must end then.
bool doturn(parse_rounds& rounds, int code);

void doreset(parse_rounds& rounds); // the cube is solved from here on, in either mode

// A cycle of stickers is one of up to 8 corners or 12 edges, gone through once, or three times or
// twice where it twists or flips: the lengths divide 16 * 9 * 5 * 7 * 11 = 55440.
constexpr int countperiod = 1386000; // the least number that 55440 and undodrop both divide

// count itself up to INT_MAX, else the largest int that does the same. count >= 0.
[[nodiscard]] int samecount(long long count);

void beginround(parse_rounds& rounds);

// Ends the round and makes it count rounds, count >= 1. false if the queue is full.
bool endrounds(parse_rounds& rounds, int count);

// Ends the round as the first of as many as solve the cube, and adds their number to orders; 0, and
// two rounds, if each round ends alike and unsolved. In direct mode only, and after a doreset()
// just before the round began.
void endorder(parse_rounds& rounds);
