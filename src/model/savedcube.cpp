// SPDX-License-Identifier: MIT
#include "model/savedcube.h"

#include "model/turns.h"
#include "shell.h"

#include <cstring>

// State

constinit unsigned char savecubedata[placecount] = {};
constinit unsigned char savecubedatax[placecount] = {};
constinit int issavedcube = 0;

void initsavedcube() {
    memset(savecubedata, 0, sizeof savecubedata);
    memset(savecubedatax, 0, sizeof savecubedatax);
    issavedcube = 0;
}

// What a facelet's home is follows from the colours, and the report derives it anew from them
// (permutation.h): cubefaces may tell of another cube after this without harm.
void savecube() {
    if (issavedcube == 0) {
        memcpy(savecubedata, cubecolors, sizeof cubecolors);
        labelsavebutton("Restore Cube");
        issavedcube = 1;
    } else {
        // Deliberate: NOT-BUGS.md, "A saved cube is its colours"
        memcpy(cubecolors, savecubedata, sizeof cubecolors);
        needsredraw = 1;
        labelsavebutton("Save Cube");
        issavedcube = 0;
    }
}

void savecubex() {
    memcpy(savecubedatax, cubecolors, sizeof cubecolors);
}

void restorecubex() {
    memcpy(cubecolors, savecubedatax, sizeof cubecolors);
    needsredraw = 1;
}
