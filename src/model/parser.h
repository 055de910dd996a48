// SPDX-License-Identifier: MIT
//
// notation: macros, that is texts in the move notation: checked, counted, converted from the
// Singmaster form, parsed into the turn queue or onto the cube, and parsed backwards.
//
// The notation, read from left to right:
//
//   U D L R F B     a face, clockwise; in lower case counter-clockwise     codes 0..11
//   *F ... *D       the middle layer beside that face, in its direction    codes 12..17
//   >R ... >B       the whole cube, in that face's direction               codes 18..23
//   3(...)          the group three times. A count is any run of digits and counts only directly
//                   before "("; a group without a count, or with count 0, is skipped whole
//   s(...)          resets the cube, does the group until the cube is solved and tells how often
//   x               resets the cube
//   anything else   is passed over
//
// After "*" or ">" the next character is always part of the pair: "*u" and "*(" do nothing, and
// such a bracket opens no group. A group without its ")" is passed over with all that follows it.
//
// State     the globals below, and the turn queue (turns.h).
// Modes     parsing 1, queueing: codes are appended to the turn queue and the cube stands still
//           (but for "x" and "s", which reset it at once). parsing 0, direct: each turn is applied
//           to the cube and its code goes to undosave (undo.h); the queue is left alone.
// Texts     of any bytes, of any length, nested to any depth. The length argument rules: nothing
//           behind it is read, and a NUL is a character like another. A length below 1 is empty.
// Limits    A count stops growing at INT_MAX. All functions take time linear in the length,
//           whatever the counts are: a group is worked out once and its rounds are multiplied.
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

void initnotation(); // all of the above back to the initial values; for tests

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
// checked or converted, the order is shown, and the turns of all applications end in the undo
// buffer. The colours of the cube are restored, cubefaces is not. Marks the macro line as changed,
// sets needsredraw. Returns macorder, which is an older one if the macro closes no group.
int calcorder(const char* macro);

// Characters

[[nodiscard]] char flipcase(char c); // 32 less for a character above 'Z', 32 more for any other
[[nodiscard]] char flipdir(char c);  // the opposite face: F-B, U-D, R-L; a blank for any other
[[nodiscard]] int istwist(char c);   // 1 for B F U D L R in upper case, else 0

// Checking and counting

// 1 if text is a macro that may be parsed, else 0. The empty text is good. Allowed are face letters
// of either case, digits, "s", "(" directly behind a digit or an "s", ")" with a group open, and
// "*" or ">" with a character behind it, which is not looked at. All groups must be closed. A text
// that starts with "[" has the macro line converted (parsesingmaster) and checked in its place; if
// that fails the answer is 0 and the line stays as it was. "x" is not allowed.
[[nodiscard]] int sanitycheckmacro(const char* text, int length);

// Converts the macro line, whatever it starts with, from the Singmaster form: a face letter counts
// once, "R'" becomes "r", "R2" becomes "RR", anything else is dropped, "]" ends it. The result
// replaces the line and its length is shown: 1. Without a "]" the line stays as it was: 0.
int parsesingmaster();

// The number of quarter turns in text, or -1 if a count is not followed by "(" or a "(" has no ")".
// Purely by character: each face letter of either case counts, also behind "*" and ">"; letters in
// a group without a count count once; a stray ")" and all else is ignored. INT_MAX stands for more.
[[nodiscard]] int maclen(const char* text, int length);

void loadout(const char* text); // shows maclen of text in the length read-out, "*****" for -1

// Landing. The animation hands the notation of a turn over on its last frame; the view has it
// applied when that frame is painted.

void sparsestring(const char* text, int length); // remembers the first two characters at most

// If a notation waits: applies it in direct mode, whatever parsing is, and hands it to record
// (recording.h). With a turn in progress it also sets turnlanded. A notation lands only once.
void doparsestring();
