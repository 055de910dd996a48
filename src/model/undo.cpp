// SPDX-License-Identifier: MIT
#include "model/undo.h"

#include "model/turns.h"

#include <cstring>

// State

constinit int undobuf[undosize] = {};
constinit int undoptr = 0;
constinit int redomax = 0;

namespace {

// Not the variable of this name in recording.h, which this file must never include: that one waits
// for record(), this one for undosave().
constinit int undoing = 0;

} // namespace

void initundo() {
    undoptr = 0;
    redomax = -1;
    undoing = 0;
}

void undosave(int code) {
    if (undoing != 0) {
        undoing = 0;
        return;
    }
    undobuf[undoptr++] = code;
    if (undoptr > undolimit) {
        memmove(undobuf, undobuf + undodrop, sizeof(int) * (undosize - undodrop));
        undoptr -= undodrop;
    }
}

void undo() {
    if (undoing != 0) {
        // Deliberate: NOT-BUGS.md, "A second Undo while one is under way"
        undoing = 0;
        return;
    }
    if (undoptr > 0) {
        undoptr--;
        undoing = 1;
        startturn(inversemove[undobuf[undoptr]]);
    }
}

void redo() {}
