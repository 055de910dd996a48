// SPDX-License-Identifier: MIT
#include "model/recording.h"

#include "model/notation.h"
#include "shell.h"

#include <cstring>

// State

constinit int undoing = 0;
constinit int recording = 0;
constinit char facemoves[facemovessize] = "";
constinit int facecount = 0;

void initrecording() {
    undoing = 0;
    recording = 0;
    memset(facemoves, 0, sizeof facemoves);
    facecount = 0;
}

// Recording

namespace {

void clearline() {
    setmacroline("");
    setlengthreadout("");
}

void showline() {
    setmacroline(facemoves);
    loadout(facemoves);
}

} // namespace

void recordstart() {
    recording = 1;
    facecount = 0;
    clearline();
    macrolinechanged();
    labelrecordbutton("Record Off");
}

void recordstop() {
    labelrecordbutton("Record On");
    recording = 0;
}

// An alert lets the window go on, so that a further turn can land: recording is off by then.
void record(const char* text) {
    // Deliberate: NOT-BUGS.md, "An undo with nothing to undo silences a recorded turn"
    if (undoing != 0) {
        undoing = 0;
        return;
    }
    if (recording == 0) {
        return;
    }
    for (int i = 0; i < 2 && text[i] != '\0'; i++) {
        facemoves[facecount++] = text[i];
    }
    facemoves[facecount] = '\0';
    if (facecount > recordlimit) {
        // Deliberate: NOT-BUGS.md, "A recording that overflows keeps its label"
        facecount = 0;
        recording = 0;
        showalert("Too many recorded moves");
    }
    showline();
    macrolinechanged();
    lengthreadoutchanged();
}

// The inverse turn itself is kept out of the recording by record().
void undorecord() {
    if (recording == 0 || facecount == 0) {
        return;
    }
    // Deliberate: NOT-BUGS.md, "Undo takes one character off the recording"
    facemoves[--facecount] = '\0';
    if (facecount == 0) {
        clearline();
    } else {
        showline();
    }
    macrolinechanged();
}
