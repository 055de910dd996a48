// SPDX-License-Identifier: MIT
//
// undo: the codes of the turns that have landed, and the way back through them.
//
// State     undobuf, undoptr, and a private flag "undoing": 1 from the moment undo() starts an
//           inverse turn until that turn lands. recording.h has another variable of that name, the
//           shell's; the two are set together and cleared apart, and must not become one.
// Units     turn codes 0..23 (turns.h), the oldest first.
// Callers   notation hands every turn over that is applied in direct mode; the Undo and Reset
//           commands. Scrambles, restored and entered cubes leave the buffer as it is.
// Order     nothing to set up: an empty buffer.
#pragma once

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
