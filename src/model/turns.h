// SPDX-License-Identifier: MIT
//
// turns: the 24 turn codes, and the queue of turns that wait to be animated.
//
// State     the queue and the turn in progress, below. The parser (notation) writes the queue, the
//           driver (src/app) empties it and counts the frames, the view draws from it.
// Units     a turn code is 0..23 and names one quarter turn; code ^ 1 is its inverse, -1 is none.
// Callers   notation, undo, animation, dispatch, driver, demo.
// Order     nothing to set up: the initial values are those of a quiet program.
#pragma once

// The codes

constexpr int turncount = 24;
constexpr int noturn = -1;

enum turn_kind { face_turn, slice_turn, cube_turn };

struct turn_row {
    const char* notation; // its text in the move notation, one or two characters
    turn_kind kind;       // what turns: moveface, moveslice or movecube
    unsigned face;        // 0..5 = ULFRBD
    int quarters;         // how many clockwise quarter turns of it: 1, or 3 for the inverse
};

// ORDER TURN: row = turn code. Faces go in pairs U D L R F B, slices F/B L/R U/D, the whole cube
// R/L U/D F/B: three orders, none of them ORDER FACE.
extern const turn_row turn_table[turncount];

extern const int inversemove[turncount]; // ORDER TURN: the code that takes the turn back

void applyturn(int code); // turns the cube; a code outside 0..23 does nothing

// The queue

constexpr int queuesize = 1000; // 999 turns and the end mark

extern int turns[queuesize]; // codes that wait, in order, ended by -1; all 0..turnptr are written
extern int turn;             // next entry to animate; 0 when the queue is empty
extern int turnptr;          // next entry to write, 0..999

void queueturn(int code); // appends and ends the queue; when 999 wait, does nothing
void clearqueue();        // drops what waits; the turn in progress goes on

// The turn in progress

extern int turnmode;    // its code, -1 for none. Started through startturn
extern int ttime;       // its frame, 0..TURNTIME - 1; rests at -1 between turns, 0 before the first
extern int TURNTIME;    // frames a quarter turn, 1..999; initially 120
extern int turnlanded;  // 1 from the frame that applied this turn to the cube until the turn ends
extern int needsredraw; // 1: the view is out of date and no animation redraws it; initially 1

// Makes code the turn in progress, also in the middle of another one, whose frame it inherits.
void startturn(int code);

void initturns(); // back to the initial values; for tests
