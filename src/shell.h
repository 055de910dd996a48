// SPDX-License-Identifier: MIT
//
// shell: all that the rooms below the window may ask of the window.
//
// State     none here; each function reads or writes a widget of the main window.
// Callers   src/model, src/render, src/macros, src/input and the command-line tools' own code.
// Defined   in src/app/shell.cpp over the toolkit; in tests/nullshell.cpp as a recorder; in
//           src/tools/noshell.cpp for programs without a window. Chosen when the program is linked.
// Texts     are shown letter for letter: "%", "&" and "@" mean nothing. A null text is an empty one.
#pragma once

class Fl_Widget;

// The macro line and its length read-out

const char* macroline();                 // the text; good until the line changes
void setmacroline(const char* text);     // replaces the text
void macrolinechanged();                 // marks the line as changed
void setlengthreadout(const char* text); // replaces the text right of "Macro length:"
void lengthreadoutchanged();             // marks the read-out as changed

// Buttons whose label tells a state

void labelrecordbutton(const char* text); // "Record On" or "Record Off"
void labelsavebutton(const char* text);   // "Save Cube" or "Restore Cube"

// Messages; each returns when the user has answered

void displaystring(const char* text); // information; silent while displayorder is 0
void showalert(const char* text);     // an error or a result

// Time

void delay(); // lets the toolkit handle what waits: at most one millisecond
int alt_q();  // 1 while the interrupt chord, Alt with Q, is held, else 0

// Commands

void b_cb(Fl_Widget* w, long cmd); // runs command cmd (0..23 turns, 100..129); w is not used
void interpretkey(int key);        // 'u' 'd' 'l' 'r' 'f' 'b': turns that face; others do nothing
