// SPDX-License-Identifier: MIT
//
// cube: the one cube of the program as 54 facelets, what a layer's quarter turn does to them, and
// three ways of looking at the whole: solved or not, a listing of the cubies, a printed net.
//
// State     cubecolors, cubefaces: the cube. Also written where a group is done many times
//           (rounds), by the Save/Restore copies (savedcube), by the normalisation to the centres
//           (permutation) and by the colour collector. outpat: the last listing.
// Units     face 0..5 = ULFRBD; colour 0..5, colour k lies on face k of the solved cube;
//           place 0..53 = 9 * face + 3 * row + column. The net, each place at its spot:
//
//                              0  1  2
//                              3  4  5     U
//                              6  7  8
//
//                   9 10 11   18 19 20   27 28 29   36 37 38
//               L  12 13 14   21 22 23   30 31 32   39 40 41     F, R, B after L
//                  15 16 17   24 25 26   33 34 35   42 43 44
//
//                             45 46 47
//                             48 49 50     D
//                             51 52 53
//
// Callers   turns and rounds turn it; rendering, EPS and the solver's front end read it.
// Order     initcubies() before anything else: the arrays start as zeros.
#pragma once

#include <string>

constexpr int cubefacecount = 6;
constexpr int faceplaces = 9; // places of one face; the fifth is its centre
constexpr int placecount = cubefacecount * faceplaces;
constexpr int edgecount = 12;
constexpr int cornercount = 8;

// The cube. Every turn moves both arrays alike; restoring a saved cube changes only the colours.

extern unsigned char cubecolors[placecount]; // colour of the facelet that lies at each place
extern unsigned char cubefaces[placecount];  // home place of the facelet that lies at each place

// Names

extern const char faces[]; // "ULFRBD", ORDER FACE: face letter by face number
extern const char color[]; // "WGRBOY": colour letter by colour index, for the printed net alone

inline constexpr unsigned oppositeface[cubefacecount] = {5, 3, 4, 1, 2, 0}; // ORDER FACE

// ORDER CUBIE. A name gives the faces of the cubie; the places are in the order of the letters.
extern const char* const edgecubies[edgecount];
extern const char* const cornercubies[cornercount];
extern const int edgeplaces[edgecount][2];
extern const int cornerplaces[cornercount][3];

// By place: the face in upper case, then the faces that border there: "Ulb", "Ub", "Urb", ...
extern const char* const facenames[placecount];

// Turning. A face is numbered 0..5; with 6 or more nothing happens.

void initcubies(); // the solved cube

// One 4-cycle in both arrays: the facelet at place a goes to b, b to c, c to d and d to a.
void move(int a, int b, int c, int d);

void moveface(unsigned f);  // the face, clockwise as seen from outside
void movecube(unsigned f);  // the whole cube, in the direction of moveface(f)
void moveslice(unsigned f); // the layer between f and its opposite, in the direction of moveface(f)

// 30 to 229 passes of a random face, cube and slice turn from the solved cube. Draws from rand(),
// once for the number of passes and three times in each. Nothing is animated or kept for undo.
void jumblecube();

// Looking

[[nodiscard]] int solved(); // 1 if each face shows one colour, whichever it is and wherever, else 0

constexpr int outpatsize = 100; // a full listing takes 69 with its NUL
extern char outpat[outpatsize]; // the listing

// Writes the listing of the cube into outpat and returns it: the 12 edges and 8 corners in ORDER
// CUBIE, each as the letters of the faces where its colours are at home, each followed by a blank.
const char* dumpcube();

// Append one entry to outpat. A place outside 0..53 or a full outpat is a mistake of the caller.
void out2(int a, int b);
void out3(int a, int b, int c);

std::string nettext(); // the net above in colour letters, each followed by a blank
void drawcube();       // prints it to standard output; a debugging aid
