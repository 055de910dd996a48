// SPDX-License-Identifier: MIT
//
// coloring: the colour collector without its window: what its buttons are called, where they lie
// and what colour they have, which facelet is selected, and what an entry does to the cube.
//
// State     currentface; facenames, flcubecolors, allcolors: below. The cube itself, cubecolors, is
//           edited in place.
// Units     places, faces and colours as in model/cube.h. Pixels from the dialog's top left corner.
//           A display colour is a number of the toolkit's: red, green, blue in the top three bytes,
//           the lowest byte 0; or 56, its named black.
// Callers   colorcollector alone, and the tests. The namespace keeps short names apart from the
//           model's, which has a table facenames too.
// Order     setrgbfacecolors, then init, before any display colour is asked for.
//
//       0    10           135          260          385        510
//     0 +-------------------------------------------------------+
//       |             Set Cube Face Colors                      |
//    35 |              +----------+  how to set the colour      |
//       |              |    U     |  of the selected facelet    |
//   160 |  +----------++----------++----------++----------+     |
//       |  |    L     ||    F     ||    R     ||    B     |     |
//   285 |  +----------++----------++----------++----------+     |
//       |  | message  ||    D     |  how to select a facelet    |
//       |  +----------++----------+                             |
//   420 | [Finish] [Reset] [Flip/Rotate]  [W][G][R][B][O][Y]    |
//   470 +-------------------------------------------------------+
#pragma once

#include "model/cube.h"
#include "render/colors.h"

#include <array>
#include <string>

namespace collector {

// Texts

inline constexpr char titletext[] = "Set Cube Face Colors";
inline constexpr char colorhelp[] =
    "Set the color of the highlighted cubie face by clicking the appropriate button at the bottom "
    "of this window or by typing the letter labeling that button.";
inline constexpr char selecthelp[] =
    "To set the color of a particular cubie face, click on it to select it and then set its color "
    "as described above.  To move the selection forward or back type the space and backspace keys.";

constexpr int butnamesize = 5;

struct button_name {
    char text[butnamesize]; // "U1" .. "D9" and a NUL
};

// By place: the face letter and the number within the face.
extern const std::array<button_name, placecount> butnames;

// Geometry

constexpr int buttonsize = 35; // width and height of a facelet's and of a colour's button
constexpr int buttonstep = 40; // from one to the next

struct spot {
    int x, y;
};

// The top left corner of the button of a place, 0..53. Other places are a mistake of the caller.
[[nodiscard]] spot faceletspot(int place);

// The same for the button of colour 0..5.
[[nodiscard]] spot colorspot(int face);

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
// on a corner the place takes the colour of the one listed after it, and so on round. A centre
// changes nothing.
void flip(int place);

// Judging

// 1 if the colours, taken as they stand, are those of a cube that can be solved; else 0. text
// becomes the verdict to show. A legal cube that is held in another way than the colours of the
// solved cube are listed may be rejected here: only finish() looks at the centres.
// Deliberate: NOT-BUGS.md, "The verdict does not know how the cube is held"
int judge(std::string& text);

// The check that closes the dialog, relative to the centres. 1: the cube is legal and unchanged.
// 0: it is not, and its colours are left as normalised to the centres; geterrorstring() tells why.
// Deliberate: NOT-BUGS.md, "A refused Finish leaves the cube recoloured"
[[nodiscard]] int finish();

} // namespace collector
