// SPDX-License-Identifier: MIT
//
// colors: the colour letters of the six faces and the colour that each letter has on the screen.
//
// State     colortable, below.
// Units     a colour index 0..5 is a colour of the cube: colour k lies on face k when it is solved.
//           A colour letter names what that colour looks like. RGB components are 0..1.
// Callers   projection (paints), preferences and the colour dialog (read and write colortable),
//           the collector (validcolors).
// Order     nothing to set up. A changed table shows at the next frame: colours are looked up when
//           a frame is painted.
#pragma once

// The letters

constexpr int validcolorcount = 13;

// Every letter that a colour table may use. ORDER COLOR: the position of a letter here is the row
// of letter_table, and the number of its button in the collector.
inline constexpr char validcolors[validcolorcount + 1] = "WGRBYOKSVDPCX";

struct letter_row {
    char letter;
    float r, g, b;
};

extern const letter_row letter_table[validcolorcount]; // ORDER COLOR

// The row of a letter; null for any other character, lower-case letters included.
const letter_row* findletter(char letter);

// The colour table

// Six letters, in ORDER FACE (ULFRBD), and a NUL; initially "WGRBOY". Six different letters of
// validcolors when the colour dialog wrote it, but anything when the preferences file was edited
// by hand. Written by preferences and by the colour dialog.
extern char colortable[7];

// Makes the colour of a face-list key current for the next polygon: black for -1, else the colour
// of the sticker that lies at place key, 0..53 (others: assertion). A letter without a row changes
// nothing: the polygon gets the colour of the one painted before it.
void setfacecolor(int key);
