// SPDX-License-Identifier: MIT
//
// recording: the macro that is written while turns are made.
//
// State     below. The macro line and the label of a button follow it through the seam (shell.h):
//           "Record On" or "Record Off".
// Callers   parser (record); the commands Record and Undo; recordstop from every command that ends
//           a recording.
// Order     nothing to set up: not recording.
#pragma once

// The shell's flag: 1 from the Undo command until the next turn has passed record(), which is to be
// the inverse turn; else 0. undo.cpp has a private variable of the same name and another lifetime.
extern int undoing;

// Recording

constexpr int facemovessize = 500;
constexpr int recordlimit = 496; // a recording longer than this is given up

extern int recording;                 // 1 while turns are recorded, else 0
extern char facemoves[facemovessize]; // the recorded macro, NUL-terminated
extern int facecount;                 // its length, 0..496

void recordstart(); // starts an empty recording; clears the macro line and its length read-out
void recordstop();  // stops it; the macro stays in the line. Also without a recording: the label

// Takes the notation of a landed turn, one or two characters. If undoing is set, clears it and does
// nothing else. While recording it appends the text and shows the macro and its length. Beyond 496
// characters it stops recording with the alert "Too many recorded moves": the button keeps the
// label "Record Off" and the line the whole text. Not recording: nothing.
void record(const char* text);

// Takes the last character, not the last turn, off the recording and shows what is left. Without a
// recording or with an empty one: nothing.
void undorecord();

void initrecording(); // all of the above back to the initial values, without a word; for tests
