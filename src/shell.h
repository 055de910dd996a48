// SPDX-License-Identifier: MIT
//
// shell: all that the rooms below the window may ask of the window.
//
// State     none here; each function reads or writes a widget of the main window.
// Callers   the floors below the window, the solver for alt_q alone; and src/app itself.
// Defined   in src/app/shell.cpp over the toolkit; in tests/nullshell.cpp as a recorder; in
//           src/tools/noshell.cpp for programs without a window. Chosen when the program is linked.
// Texts     are shown letter for letter: "%", "&" and "@" mean nothing. A null text is empty.
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

// Questions; each returns when the user has answered. A text that is returned is null when the user
// cancelled, and good until the next question.

bool askyesno(const char* question);                         // true for "Yes"
const char* askline(const char* prompt, const char* preset); // a line of text, preset to begin with
const char* askfile(const char* title, const char* pattern,
                    const char* preset); // a file's name; a null pattern offers every file

// The named macros (macros/library.h), as the list and the gizmo panel show them

void showmacros();               // makes the list anew from the table; its first entry is chosen
int chosenmacro();               // the entry chosen in the list; 0 in an empty one
void choosemacro(int macro);     // chooses an entry that the list has
void applymacro();               // checks the macro line and does it at once, or tells why not
void macrodisplay(int x, int y); // makes the panel anew and shows it, or hides an empty one: with
                                 // the words "No macros in gizmo" if x and y are both 0
void refreshmacrodisplay();      // only keeps a panel that is in sight true, without a word
void hidemacrodisplay();         // hides the panel, if there is one

// Time

void delay(); // lets the toolkit handle what waits: at most one millisecond
int alt_q();  // 1 while the interrupt chord, Alt with Q, is held, else 0

// Commands

void b_cb(Fl_Widget* w, long cmd); // runs command cmd (0..23 turns, 100..129); w is not used
void interpretkey(int key);        // 'u' 'd' 'l' 'r' 'f' 'b': turns that face; others do nothing
