// SPDX-License-Identifier: MIT
//
// preferences: what the program remembers from run to run: the speed, the colour letters, the last
// macro file, the user's own macros and their marks for the gizmo panel.
//
// Store     prefstore.h tells where it lies. Each function opens and closes it by itself; those
//           that only read never write. Keys, types and sizes: doc/formats.md.
// Macros    lie under numbers from 0, with gaps: "mac7" is a name, "val7" its move string, "gizmo7"
//           its mark. Only the numbers 0..199 are ever read; others may be written.
// Names     a name is found as it was given, and also as a later run has it: cut to 198 bytes, with
//           blanks for line breaks.
// Errors    what cannot be read counts as absent, without a word: a store that is missing, that
//           has lines on which the toolkit would stumble, or that has no HOME to lie in. What
//           cannot be written leaves the store as it was, whole, after the message "Couldn't write
//           ..." and the reason.
// Callers   main reads; the library, the macro file commands, the speed and colour dialogs write.
// Order     readprefs() after the built-in macros are in the table.
#pragma once

// Sets TURNTIME (100 without a stored speed of 1..999) and lastmacrofilename, adds the stored
// macros to the table in the order of their numbers and marks those whose stored mark is 1, and no
// others. colortable is read once for each macro: without a stored macro it stays as it is.
void readprefs();

void writeprefs(); // stores TURNTIME, lastmacrofilename and colortable

// Macros

// Stores a macro under the first free number, however large, and whole. Where a later run will read
// less of it, one message gives both lengths.
void addprefmacro(const char* name, const char* text);

[[nodiscard]] int isprefmacro(const char* name); // 1 if one of that name is stored, else 0
int deleteprefmacro(const char* name); // deletes the first of that name: 1, or 0 without one

// Marks of stored macros, for the first of that name. Without one nothing happens: the mark of a
// built-in macro, or of one from a file, is not remembered.
void addgizmomac(const char* name);
void deletegizmomac(const char* name);
void deleteallgizmoprefs(); // deletes every mark but those that are 0
