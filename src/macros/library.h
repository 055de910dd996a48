// SPDX-License-Identifier: MIT
//
// library: the table of named macros, and the commands that add to it, prune it and mark it.
//
// State     maccount, macnames, macstrs, showmac: row i of each is that of macro i, 0..maccount -
//           1, in the order of adding: the built-in macros, those of the preferences, those of
//           files and of the user. Rows from maccount on hold empty texts.
// Texts     any bytes but NUL, any length. A name holds no line break, since a macro file could not
//           hold it, and may be empty. It may stand in the table more than once: whoever looks for
//           a name finds its first macro. A move string is not checked
//           before it is applied.
// Window    the list of macros and the gizmo panel follow the table through the seam (shell.h).
// Callers   mainwindow (built-in macros), macrofile, preferences, the commands of dispatch, the
//           list and the panel.
// Order     nothing to set up: the table is empty.
#pragma once

#include <string>

// The table

constexpr int maxmacros = 500;

extern int maccount;                    // number of macros, 0..500; initially 0
extern std::string macnames[maxmacros]; // the name of macro i
extern std::string macstrs[maxmacros];  // its move string (model/notation.h)
extern int showmac[maxmacros];          // 1 if it is marked for the gizmo panel, else 0

void initlibrary(); // all of the above back to the initial values, without a word; for tests

// The first macro of that name; -1 if there is none.
[[nodiscard]] int findmacro(const std::string& name);

[[nodiscard]] std::string plainname(std::string name); // a name with blanks for its line breaks

// Adding

// Appends a macro. A text that begins with "$" has that character taken off and the macro marked,
// which refreshes the panel. Makes the list anew. 1; or 0 when the table is full: then nothing is
// added, after the message "Too many macro definitions".
int addmacro(const char* name, const char* text);

void addbuiltinmacros(); // appends the seven that every table begins with

// Using

// Puts macro i into the macro line, shows its length and applies the line at once, backwards while
// Shift is held. In an empty table macro 0 is an empty one; beyond the table nothing happens.
void applysavedmacro(int i);

// Commands. They ask for a name; a cancelled question ends them with nothing done, a name that is
// not in the table with "No macro named: ".

// Adds the macro line under a new name, chooses it in the list and stores it in the preferences.
// A name that is in the table is refused with ": name in use".
void definemacro();

// Deletes a macro, after a question also from the preferences if a macro of that name is there.
void deletedefinedmacro();

void deleteallmacros(); // empties the table, asking nothing. The preferences keep what they hold

void addmactogizmo();      // marks a macro, here and in the preferences
void deletemacfromgizmo(); // takes its mark away, here and in the preferences
void clearmacrogizmo();    // takes all marks away, asking nothing, and hides the panel
