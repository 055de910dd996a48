// SPDX-License-Identifier: MIT
//
// rounds: where the turns of a parse go, and how a group is done many times without doing it again.
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
// The undo buffer (undo.h) forgets its oldest 500 codes whenever it has more than 800. Of a long
// series of codes it therefore keeps at most the last 800, and how many it keeps depends on the
// length of the series modulo 500 alone. So of a round only that much is remembered: whenever there
// are more than 1300 codes the first 500 are dropped, and the buffer never sees the difference.
//
// State     a landing is one parse; all parses share the cube, the queue and the undo buffer.
// Callers   notation alone.
// Order     each beginround() is ended by one endrounds() or endorder(), the innermost first. A
//           queueing parse may be given up in between; in direct mode the real cube would be lost.
#pragma once

#include "model/cube.h"

#include <string>
#include <vector>

struct round {
    int start;                             // queueing: turnptr before the round
    bool reset;                            // direct: the cube was reset during the round
    unsigned char savedcolors[placecount]; // direct: the real cube
    unsigned char savedplaces[placecount]; // direct: the same, cubefaces
    std::string codes;                     // direct: the codes that landed, one a character
};

struct landing {
    bool queueing;           // the mode, the same from beginning to end
    std::vector<round> open; // the groups that have begun, the innermost last
    std::vector<int> orders; // direct: the orders found, in order
};

// One turn, code 0..23. 1, or 0 if the queue is full: the parse must end then.
int landturn(landing& to, int code);

void landreset(landing& to); // the cube is solved from here on, in either mode

void beginround(landing& to);

// Ends the round and makes it count rounds, count >= 1. 1, or 0 if the queue is full.
int endrounds(landing& to, int count);

// Ends the round as the first of as many as solve the cube, and adds their number to orders; 0, and
// two rounds, if each round ends alike and unsolved. In direct mode only, and after a landreset()
// just before the round began.
void endorder(landing& to);
