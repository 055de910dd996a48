// SPDX-License-Identifier: MIT
//
// colorcollector: the dialog in which a real cube is entered sticker by sticker.
//
// Purpose   54 buttons laid out as an unfolded cube, six colour buttons and a running verdict. The
//           toolkit's side of it; what an entry does to the cube is coloring.h's.
// State     sanecube; buts, facecolors: the buttons. The widgets are built on first use and never
//           deleted.
// Keys      a colour letter    colours the selected facelet and selects the next one
//           space, backspace   select the next, the previous facelet
//           anything else      nothing: the dialog takes every key, Escape too
// Closing   by "Finish" alone. The window manager's button means Finish: a cube that cannot be
//           solved keeps the dialog open.
// Callers   the application's loadcube.
// Order     a window must be open; the dialog is modal to it.
#pragma once

#include "model/cube.h"

class Fl_Button;

// 1 while the colouring is known as legal, else 0; initially 1. Written here: by each verdict, by
// Reset and by Finish.
extern int sanecube;

// Null before the first use; read by nobody but the dialog and the tests.
extern Fl_Button* buts[placecount];          // by place
extern Fl_Button* facecolors[cubefacecount]; // by colour; the colour is the callback's number

// Opens the dialog on the cube as it stands, with the first facelet of U selected and no verdict
// until something is entered, and returns at once: the toolkit's loop goes on, and so do an
// animation and the demo.
// Deliberate: NOT-BUGS.md, "The collector does not follow turns"
void colorcollector();
