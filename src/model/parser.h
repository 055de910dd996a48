// SPDX-License-Identifier: MIT
//
// parser: does what a macro says (notation.h): into the turn queue or onto the cube, forwards or
// backwards; finds orders; and lets the turn that was animated land.
//
// State     the globals below, and the turn queue (turns.h).
// Modes     parsing 1, queueing: codes are appended to the turn queue and the cube stands still
//           (but for "x" and "s", which reset it at once). parsing 0, direct: each turn is applied
//           to the cube and its code goes to undosave (undo.h); the queue is left alone.
// Texts     of any bytes, of any length, nested to any depth. The length argument rules: nothing
//           behind it is read, and a NUL is a character like another. A length below 1 is empty.
// Limits    a count of any number of digits is exact in what it does to the cube. All functions
//           take time linear in the length, whatever the counts are: a group is worked out once and
//           its rounds are multiplied.
// Callers   dispatch, driver, demo, library; the animation and the view hand turns over here.
#pragma once

// State

extern int parsing;    // 1 queueing mode, 0 direct mode; initially 0. Set by the callers
extern int parselevel; // depth of the group that is being parsed; 0 at top level and between calls
extern int macorder;   // the last order told by "s" in direct mode; 0 before the first or if none

// 1 while revparsestring runs, and stuck at 1 after it met a group without digits, until a reversal
// ends normally. While it is 1 a queueing parse appends to the queue instead of starting it anew.
extern int reversing;

constexpr int saveparsesize = 3;      // a turn's notation and its NUL
extern char saveparse[saveparsesize]; // the notation that waits for doparsestring
extern int saveparselen;              // its length: 0 for none, 1 or 2

void initparser(); // all of the above back to the initial values; for tests

// Parsing

// Parses text in the mode that parsing tells. At top level and unless reversing is set, a queueing
// parse starts the queue anew: written from 0 and read from 0, so that the macro is played whole,
// also when it comes in the middle of another. Returns the number of codes in the queue then. It
// queues 999 codes at most: the first one beyond ends the parse. In direct mode it returns 0 and
// leaves turns, turn and turnptr alone, since a turn that lands must not wipe out a macro that was
// queued meanwhile.
//
// "s" in queueing mode: the cube is reset, the group is queued once and the rest is not parsed;
// nothing is told and macorder stays. In direct mode the rest is not parsed either; the order is
// stored in macorder and shown as "order = %d" once the parse is over, once for each "s" of the
// text however often the group around it is repeated. Where an "x" or another "s" inside the group
// makes each application end alike and unsolved, there is no order: two applications, order 0.
int parsestring(const char* text, int length);

// Parses text from its end to its beginning with each turn inverted, so that it takes the macro
// back. Queueing mode starts the queue anew. Characters that are no turn and no group are stepped
// over, "s" and "x" and stray digits among them. A ")" without its "(" ends the reversal. A group's
// count are the digits directly before its "(", the last five of them when there are more; with
// none the reversal of the text, or of the group around it, ends there and then and reversing is
// left set.
void revparsestring(const char* text, int length);

// The order of a macro: how often it must be applied to the solved cube until each face is of one
// colour again. Works by parsing "s(" macro ")" in direct mode, whatever that does: nothing is
// checked or converted, and the turns of all applications end in the undo buffer. The colours of
// the cube are restored, cubefaces is not; then the order is shown. Marks the macro line as
// changed, sets needsredraw. Returns macorder, an older one if the macro closes no group.
int calcorder(const char* macro);

// Landing: the moment when an animated turn is applied to the cube. The animation hands the turn's
// notation over on its last frame; the view has it applied when that frame is painted.

void sparsestring(const char* text, int length); // remembers the first two characters at most

// If a notation waits: applies it in direct mode, whatever parsing is, and hands it to record
// (recording.h). With a turn in progress it also sets turnlanded. A notation lands only once.
void doparsestring();
