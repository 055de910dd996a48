// SPDX-License-Identifier: MIT
//
// coloring: the colour collector without its window: what colour its buttons have, which facelet is
// selected, what an entry does to the cube, and whether the colours are those of a cube.
//
// State     currentface; facenames, flcubecolors, allcolors: below. The cube itself, cubecolors, is
//           edited in place.
// Units     places, faces and colours as in model/cube.h. A display colour is a number of the
//           toolkit's: red, green, blue in the top three bytes, the lowest byte 0; or 56, its named
//           black.
// Callers   colorcollector alone, and the tests. The namespace keeps short names apart from the
//           model's, which has a table facenames too.
// Order     setrgbfacecolors, then init, before any display colour is asked for.
#pragma once

#include "model/cube.h"
#include "render/colors.h"

#include <string>

namespace collector {

// Display colours

constexpr unsigned namedblack = 56;

// The display colour of three fractions 0..1, each cut down to a 255th; pure black is namedblack.
[[nodiscard]] unsigned rgb(double r, double g, double b);

extern unsigned allcolors[validcolorcount]; // by letter of validcolors; 0 before setrgbfacecolors
void setrgbfacecolors();                    // fills allcolors

// By colour of the cube: the letter in force and its display colour; initially empty and 0. A
// letter of the colour table that is none of validcolors shows as "?" in grey.
extern char facenames[cubefacecount][2];
extern unsigned flcubecolors[cubefacecount];
void init(); // fills both from colortable

// Whether a label needs white to be read: on the near-black K and on pure blue, nowhere else.
[[nodiscard]] bool whitelabel(unsigned color);

// Selection

extern int currentface; // place of the selected facelet, 0..53; initially 0

void selectnext();     // after 53 comes 0
void selectprevious(); // before 0 comes 53

// The colour that a key stands for, 0..5, or -1. Letters of either case; of two colours with one
// letter the first.
[[nodiscard]] int colorofkey(int key);

// Editing. No colouring is refused.

// Places of a corner, listed in the direction against which Flip/Rotate carries the colours.
extern const int rotcorners[cornercount][3];
extern const int flipedges[edgecount][2];

// Rotates the colours of the corner, or swaps those of the edge, that the place 0..53 belongs to:
// on a corner the place takes the colour of the one listed after it, and so on round. False for a
// centre, which changes nothing.
bool flip(int place);

// Judging. Both ask first whether the six centres have six different colours: without that no
// colour belongs to a face, and nothing else can be said.

// 1 if the colours, taken as they stand, are those of a cube that can be solved; else 0. text
// becomes the verdict to show. A legal cube that is held in another way than the colours of the
// solved cube are listed may be rejected here: only finish() looks at where the centres lie.
// Deliberate: NOT-BUGS.md, "The verdict does not know how the cube is held"
int judge(std::string& text);

// The check that closes the dialog, relative to the centres. 1: the cube is legal and unchanged.
// 0: it is not, and reason tells why; its colours are left as normalised to the centres, or, with
// two centres of one colour, as they were.
// Deliberate: NOT-BUGS.md, "A refused Finish leaves the cube recoloured"
[[nodiscard]] int finish(std::string& reason);

} // namespace collector
