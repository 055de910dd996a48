// SPDX-License-Identifier: MIT
//
// turns: the 24 turn codes, and the queue of turns that wait to be animated.
//
// State     the queue and the turn in progress, below. The parser writes the queue, the driver
//           (src/app) empties it and counts the frames, the view draws from it.
// Units     a turn code is 0..23 and names one quarter turn; code ^ 1 is its inverse, -1 is none.
// Callers   parser, undo, animation, dispatch, driver, demo.
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
inline constexpr turn_row turn_table[turncount] = {
    {"U",  face_turn,  0, 1}, //  0
    {"u",  face_turn,  0, 3}, //  1
    {"D",  face_turn,  5, 1}, //  2
    {"d",  face_turn,  5, 3}, //  3
    {"L",  face_turn,  1, 1}, //  4
    {"l",  face_turn,  1, 3}, //  5
    {"R",  face_turn,  3, 1}, //  6
    {"r",  face_turn,  3, 3}, //  7
    {"F",  face_turn,  2, 1}, //  8
    {"f",  face_turn,  2, 3}, //  9
    {"B",  face_turn,  4, 1}, // 10
    {"b",  face_turn,  4, 3}, // 11
    {"*F", slice_turn, 2, 1}, // 12
    {"*B", slice_turn, 4, 1}, // 13
    {"*L", slice_turn, 1, 1}, // 14
    {"*R", slice_turn, 3, 1}, // 15
    {"*U", slice_turn, 0, 1}, // 16
    {"*D", slice_turn, 5, 1}, // 17
    {">R", cube_turn,  3, 1}, // 18
    {">L", cube_turn,  1, 1}, // 19
    {">U", cube_turn,  0, 1}, // 20
    {">D", cube_turn,  5, 1}, // 21
    {">F", cube_turn,  2, 1}, // 22
    {">B", cube_turn,  4, 1}, // 23
};

extern const int inversemove[turncount]; // ORDER TURN: the code that takes the turn back
extern const char movelist[];            // "UDLRFB": the face letter of codes 0..11 is [code / 2]

void applyturn(int code); // turns the cube; a code outside 0..23 does nothing

// The queue. In use are turns[turn..turnptr - 1]; turns[turnptr] is the end mark.

constexpr int queuesize = 1000; // 999 turns and the end mark

extern int turns[queuesize]; // codes that wait, in order, ended by -1; initially just the -1
extern int turn;             // next entry to animate; 0 when the queue is empty
extern int turnptr;          // next entry to write, 0..999

// Appends the code and ends the queue. When 999 are queued already it changes nothing: false.
// A code outside 0..23 is a mistake of the caller.
bool queueturn(int code);

// Drops what waits; the turn in progress goes on. The driver calls it too when it has taken the
// last turn, so that a parse which appends (parser.h, reversing) starts where the driver reads.
void clearqueue();

// The turn in progress

extern int turnmode; // its code, -1 for none. Started through startturn
extern int ttime;    // its frame, 0..TURNTIME - 1; rests at -1 between turns, 0 before the first
extern int TURNTIME; // frames a quarter turn, 1..999; initially 120

// 1: the view is out of date and no animation redraws it; initially 1. Set by each command, and by
// all that changes the cube: a turn that is applied, a reset, a cube that is brought back.
extern int needsredraw;

// 1 from the moment the turn in progress has been applied to the cube until it ends; else 0. While
// it is 1 the view draws the still cube, and the turn cannot land a second time when the window is
// redrawn (uncovered, resized, behind a message) before the driver has ended the turn.
extern int turnlanded;

// Makes code (-1..23) the turn in progress, -1 for none, and clears turnlanded. Also in the middle
// of another turn: that one is lost, and the new one inherits its frame.
void startturn(int code);

void initturns(); // all of the above back to the initial values; for tests
