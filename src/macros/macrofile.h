// SPDX-License-Identifier: MIT
//
// macrofile: reads and writes files of named macros.
//
// Format    pairs of lines: a name, then a move string (model/notation.h). A string that begins
//           with "$" is marked for the gizmo panel; the "$" is no part of it. doc/formats.md has it
//           all.
//
//               Cycle UF->UB->DF
//               $RlUUrLFF
//
// State     lastmacrofilename, below.
// Callers   main (the file named on the command line), the commands of dispatch, preferences.
// Order     nothing to set up.
#pragma once

#include <cstdio>
#include <string>

// The file that the command "Load Macro File" read last, in this run or an earlier; "" for none.
// Preferences store it and read it back.
extern std::string lastmacrofilename;

// Adds the macros of a file to the table (library.h), as macrolines.h reads them; names that are
// there already are added again. 1, or 0 when the file cannot be opened or is not a regular one.
// Reading ends where the table is full, after its message.
int loadmacrofile(const char* path);

// Writes every macro of the table, in its order, as a name line and a string line. The marks for
// the panel are not written.
void printmacrodefs(std::FILE* file);

// Commands. They ask for a file; a cancelled question ends them with nothing done.

// Writes the table to a file, which is there whole in the end or stays as it was: then the message
// is "Couldn't open ... for writing" and the reason. What was there is kept beside it (savefile.h).
// One message names the macros that loadmacrofile would not give back whole.
void dumpmacfile();

// Loads a file. On success it is remembered as lastmacrofilename and the preferences are written.
// Where it cannot be opened the message is "Couldn't open ..." and the reason.
void snarfmacros();
