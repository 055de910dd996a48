// SPDX-License-Identifier: MIT
//
// demomacro: which macro the demo plays: a made-up one, or as much of the user's as it can hold.
//
// State     none. Making a macro up draws from rand(), which the program never seeds: the first
//           demo of a run that does nothing else is the same in every run.
// Callers   demo.
#pragma once

#include <string>

constexpr int demomacrosize = 200; // the demo's buffer: a macro of 199 characters and its NUL

constexpr int badpaircount = 12;
extern const char badpair[badpaircount][3]; // a face turn directly followed by its inverse

// A macro of face and slice turns whose full cycle, repeated until the cube is solved again, takes
// 60 to 250 turns, counted roughly: the order times two more than the rounds of drawing. Resets the
// cube and works with calcorder (model/parser.h): the order of each macro that was tried is shown
// unless displayorder is 0, and its turns end in the undo buffer. The cube is solved afterwards.
std::string makeupmacro();

// How many characters of text the demo's buffer takes. A text that is too long is cut behind a turn
// outside all brackets; when there is none, because one group fills the buffer, anywhere but inside
// a pair such as "*F".
int demolength(const std::string& text);
