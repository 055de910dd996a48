// SPDX-License-Identifier: MIT
//
// eps: the faces F, U and L of the cube as an Encapsulated PostScript file.
//
// Purpose   the picture that one can print: always from the standard viewpoint, whatever the view
//           does (a turn, the demo spin, the rear view), and in fixed colours. Nothing is sorted,
//           since the three faces do not overlap.
// State     Mat, fp, facectr below.
// Units     device coordinates -1..1 in the file; its header maps them to points, (0, 0) to
//           (187, 221) and 1 to 233 points, inside a box of 400 x 400. Six decimals.
// Callers   the command "Print EPS File"; vexel-macro, which needs no OpenGL for it.
// Order     none; works before the first frame was drawn, and without a display.
//
// The file: 198 lines, "\n" at their ends.
//    8  header: comments, line width 0.01, round joins, translate, scale
//    7  for each of the 27 squares: three corners, a colour that the next line overrides, the
//       colour, the fourth corner and the fill, the black outline. The squares of F come first,
//       then U, then L.
//    1  showpage
//
// The colours are the colour indices' own: white, green, red, blue, orange, yellow for 0..5. The
// colour table (colors.h) is the screen's alone.
#pragma once

#include <cstdio>

// Asks for a file and writes the picture. Cancelling ends it without a word. A file that cannot be
// opened or written in full is told as "Couldn't open %s for writing." and the reason; then nothing
// stands under its name that did not stand there before. Otherwise what did is kept beside it
// (base/savefile.h).
void printeps();

// mode other than 0: keeps the matrix m, in OpenGL's order (column, then row), for all pictures to
// come, unless one is kept already. mode 0: asks for a file and writes the picture with the matrix
// kept; m is not used and may be null.
void EPSdump(int mode, const float m[4][4]);

// Writes the picture of the cube into file, as printeps() would.
void writeeps(std::FILE* file);

// The same squares for pictures of other kinds, in the file's order.

constexpr int epssquarecount = 27;

struct eps_square {
    int place;          // whose colour it has
    float corner[4][2]; // x, y of its corners, in device coordinates
};

void epssquares(eps_square (&to)[epssquarecount]);

// The parts of the picture

extern float Mat[16];                  // the matrix kept, in row order (4 * row + column); 0 before
extern std::FILE* fp;                  // the file that is being written, else null
extern int facectr;                    // the square that quadout writes next, 0..26
extern const int face[epssquarecount]; // the places of the squares, in the file's order

// The line of a colour: 0..5 are those of the cube, 6..12 of the letters K S V D P C X. Any other
// index writes nothing. fp must be open.
void PScolor(int index);

// Writes one square and counts it: twelve floats, x, y, z of each corner in model space. fp must be
// open, and one more than 27 is an assertion.
void quadout(const float* corners);
