// SPDX-License-Identifier: MIT
//
// macrolines: the lines of a macro file, as the program reads them. Knows no toolkit and no table,
// so that the command-line tools read the same macros out of a file as the window.
//
// State     none.
// Callers   macrofile; vexel-macro.
#pragma once

#include <cstdio>

constexpr int macrolinesize = 99; // 98 bytes read at a time, the newline among them, and a NUL

// A macro of a file. Filled with empty texts before the first is read.
struct macro_lines {
    char name[macrolinesize];
    char moves[macrolinesize]; // with its "$", if it has one
    bool begun;                // whether the file's first line has been read
};

// Reads the next macro of the file: 1, or 0 at its end. A line is cut at its newline, or at a
// carriage return and newline; one that is longer than 97 characters counts as several (with 98 the
// second is empty), and a NUL ends its text early. A byte order mark at the beginning of the file
// is passed over. Where the line of moves is missing it stays as the macro before left it.
[[nodiscard]] int readmacrolines(std::FILE* file, macro_lines& macro);
