// SPDX-License-Identifier: MIT
//
// undo: the codes of the turns that have landed, and the way back through them.
//
// State     undobuf, undoptr, and a private flag "undoing": 1 from the moment undo() starts an
//           inverse turn until that turn lands. recording.h has another variable of that name, the
//           shell's; the two are set together and cleared apart, and must not become one.
// Units     turn codes 0..23 (turns.h), the oldest first.
// Callers   parser and rounds hand every turn over that is applied in direct mode; the Undo and
//           Reset commands. Scrambles, restored and entered cubes leave the buffer as it is.
// Order     nothing to set up: an empty buffer.
#pragma once

#include <string>

constexpr int undosize = 1000;
constexpr int undolimit = 800; // one more than this many and the oldest 500 are forgotten at once
constexpr int undodrop = 500;

extern int undobuf[undosize];
extern int undoptr; // number of codes held, 0..800
extern int redomax; // -1 after initundo; read by nothing

void initundo(); // empties the buffer and forgets an undo that is under way

// Stores a landed turn. The first turn that lands after undo() has started one is taken for that
// inverse turn and not stored. The 801st code leaves the last 301. Codes are not checked.
void undosave(int code);

// Takes the last code off the buffer and starts the animation of its inverse. With an empty buffer
// it does nothing; while an inverse turn is under way it does nothing but forget that it is one, so
// that this turn will be stored like any other when it lands.
void undo();

void redo(); // does nothing, by design: there is no redo

// A series of turns that lands at once, as the rounds of a group do. It may be longer than anybody
// could wait for, so of it is kept what the buffer can tell. As that forgets its oldest 500 codes
// whenever it has more than 800, it holds at most the last 800 of a long series, and how many
// depends on the length of the series modulo 500 alone. Whenever a series has more than 1300 codes
// its first 500 are therefore dropped, and the buffer never sees the difference.

struct undo_series {
    std::string codes; // one a character
};

void addturn(undo_series& series, int code);

// Adds more, times over; times >= 0. Takes no longer than for 1300 codes.
void addseries(undo_series& series, const undo_series& more, int times);

void undosaveseries(const undo_series& series); // stores it as undosave() would, code by code
