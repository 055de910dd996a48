// SPDX-License-Identifier: MIT
#include "render/colors.h"

#include "model/cube.h"
#include "render/glwrap.h"

#include <cassert>

constinit char colortable[7] = "WGRBOY";

// ORDER COLOR: row = position in validcolors.
constexpr letter_row letter_table[validcolorcount] = {
    {'W', 1.00F, 1.00F, 1.00F}, //  0 white
    {'G', 0.00F, 1.00F, 0.00F}, //  1 green
    {'R', 1.00F, 0.00F, 0.00F}, //  2 red
    {'B', 0.00F, 0.00F, 1.00F}, //  3 blue
    {'Y', 1.00F, 1.00F, 0.00F}, //  4 yellow
    {'O', 1.00F, 0.50F, 0.00F}, //  5 orange
    {'K', 0.03F, 0.03F, 0.03F}, //  6 black
    {'S', 0.90F, 0.90F, 0.90F}, //  7 silver
    {'V', 0.80F, 0.00F, 0.80F}, //  8 violet
    {'D', 0.90F, 0.60F, 0.00F}, //  9 gold
    {'P', 1.00F, 0.50F, 0.50F}, // 10 pink
    {'C', 0.00F, 1.00F, 1.00F}, // 11 cyan
    {'X', 0.60F, 0.60F, 0.60F}, // 12 grey
};

namespace {

// The table is indexed like the letters that a user may choose.
constexpr bool rowsfollowvalidcolors() {
    for (int i = 0; i < validcolorcount; i++) {
        if (letter_table[i].letter != validcolors[i]) {
            return false;
        }
    }
    return validcolors[validcolorcount] == '\0';
}

static_assert(rowsfollowvalidcolors());

} // namespace

const letter_row* findletter(char letter) {
    for (const letter_row& row : letter_table) {
        if (row.letter == letter) {
            return &row;
        }
    }
    return nullptr;
}

void setfacecolor(int key) {
    if (key == -1) {
        Color3f(0, 0, 0);
        return;
    }
    assert(key >= 0 && key < placecount && cubecolors[key] < 6);
    // Looked up anew each time: thirteen rows cost nothing beside the painting, and a new letter or
    // a turned cube needs nobody to tell.
    const letter_row* row = findletter(colortable[cubecolors[key]]);
    // Deliberate: NOT-BUGS.md, "A strange colour letter paints with the colour before it"
    if (row != nullptr) {
        Color3f(row->r, row->g, row->b);
    }
}
