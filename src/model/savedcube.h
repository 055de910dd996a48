// SPDX-License-Identifier: MIT
//
// savedcube: the two single copies of the cube's colours: the user's, and that of the order
// computation. cubefaces and the undo buffer are not part of either.
//
// State     below; the label of a button follows it through the seam (shell.h): "Save Cube" or
//           "Restore Cube".
// Callers   the command Save Cube; the parser, around an order.
// Order     nothing to set up: nothing saved.
#pragma once

#include "model/cube.h"

extern unsigned char savecubedata[placecount];  // the user's copy
extern unsigned char savecubedatax[placecount]; // the order computation's copy
extern int issavedcube;                         // 1 while savecubedata holds a cube to restore

void savecube();     // saves the colours, or restores them if some are saved; relabels the button
void savecubex();    // copies the colours to savecubedatax
void restorecubex(); // and back

void initsavedcube(); // all of the above back to the initial values, without a word; for tests
