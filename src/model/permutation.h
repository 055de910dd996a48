// SPDX-License-Identifier: MIT
//
// permutation: which cubie lies where, found from the colours and relative to the centres, and the
// report of it: cycles of edges, corners and facelets, and how many there are of each length.
//
// State     below; the cube itself between muckcube() and unmuckcube().
// Units     places, faces and colours as in cube.h.
// Callers   the Display Permutation command (dumpcubeperm); the solver's command and the colour
//           collector (muckcube, dumpcube, unmuckcube).
// Order     unmuckcube() only after muckcube().
#pragma once

#include "model/cube.h"

// State

extern int muck[cubefacecount];              // by colour: the face whose centre shows it
extern int unmuck[cubefacecount];            // by face: the colour of its centre
extern unsigned char savedfaces[placecount]; // cubefaces as muckcube() found it

// The entries of the listing as dumpcubeperm() reads them back, ORDER CUBIE.
extern char e_str[edgecount][4];
extern char c_str[cornercount][5];

// Tables, in an order of their own: the places of a cubie in ascending order, then their faces.
extern const int muckcornerdata[cornercount][6];
extern const int muckedgedata[edgecount][4];

// Normalising

// Recolours the cube so that each centre shows the colour of its face, and rebuilds cubefaces from
// the colours as a permutation relative to the centres, in which centres are at home. Mirrored
// corners count as well, so that it cannot fail; with a colouring that no cube has, places whose
// colours are no cubie's keep their entry, and two may get the same home. Two centres of one colour
// leave muck and unmuck with an entry of an earlier call, or zero.
void muckcube();

void unmuckcube(); // takes the colours and cubefaces back to what they were before muckcube()

void xmuckcube();   // the recolouring alone: each colour c becomes muck[c]
void xunmuckcube(); // and back: unmuck[c]

// Comparing names

// Of two letters: 1 if equal, 2 if a is b reversed, else 0.
[[nodiscard]] int sameedge(const char* a, const char* b);

// Of three letters: 1 if equal, 2 if a0 a1 a2 = b1 b2 b0, 3 if a0 a1 a2 = b2 b0 b1, else 0.
[[nodiscard]] int samecorner(const char* a, const char* b);

// The name itself for flip 0, else its two letters swapped, in a static text.
const char* flipedge(int flip, const char* name);

// Reporting

// The facelet permutation of cubefaces in cycles of facenames, "1" if there is none, with a line
// "Cycle Structure: " of counts and lengths behind; in a static text. cubefaces must hold numbers
// below 54. A cycle is written against the direction of the walk p, cubefaces[p], ...
const char* faceperm();

// Alerts the report on the cube relative to its centres; the cube is the same afterwards. With a
// colouring that sanitycheckcube() rejects: the alert "Invalid cube coloring", and the cube is left
// normalised.
void dumpcubeperm();
