// SPDX-License-Identifier: MIT
//
// collectorlayout: what stands where in the colour collector, and what is written on it.
//
// State     none.
// Units     pixels from the dialog's top left corner; places, faces and colours as in model/cube.h.
// Callers   colorcollector, which builds the dialog from it; the window tests, to find the buttons.
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

#include <array>

namespace collector {

// Texts

inline constexpr char titletext[] = "Set Cube Face Colors"; // of the window and inside it
inline constexpr char finishtext[] = "Finish";
inline constexpr char resettext[] = "Reset";
inline constexpr char fliptext[] = "Flip/Rotate";
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

constexpr int titlesize = 20; // of the letters, in pixels
constexpr int plainsize = 14; // of a facelet's label
constexpr int boldsize = 18;  // of the selected facelet's, which is bold

// Places

struct area {
    int x, y, w, h;
};

constexpr int dialogwidth = 510;
constexpr int dialogheight = 470;

constexpr area titlearea = {120, 5, 250, 22};
constexpr area messagearea = {10, 285, 115, 115};
constexpr area colorhelparea = {260, 35, 240, 115};
constexpr area selecthelparea = {260, 285, 240, 115};
constexpr area finisharea = {10, 420, 75, 35};
constexpr area resetarea = {90, 420, 80, 35};
constexpr area fliparea = {175, 420, 75, 35};

// The button of a place, 0..53. Other places are a mistake of the caller.
[[nodiscard]] area faceletarea(int place);

// The button of colour 0..5.
[[nodiscard]] area colorarea(int face);

} // namespace collector
