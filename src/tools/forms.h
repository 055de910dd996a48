// SPDX-License-Identifier: MIT
//
// forms: the ways in which people write a cube, or the turns that make it from the solved one, on a
// line of text.
//
//   macro      RuFF, 3(R*F)        the program's own notation (model/notation.h)
//   moves      R U' F2, (R M)3     as in books (tools/movetext.h); also [R U' F2]
//   facelets   54 letters          faces in the order U R F D L B, each row by row as one looks at
//                                  it with U, or for U and D with B and F, above. Any six letters,
//                                  nine of each; a face's letter is that of its centre
//   cubies     UF UR ... DBR       what lies at the twenty positions, in the order of the solver
//                                  (solver/cubecheck.h), as seen from the centres
//
// State     none of its own; the cube of the model is used for checking and written by makecube.
// Callers   inputs, properties, vexel-solve, vexel-macro.
//
// A line whose form is not told is taken for the first of these that it can be; what no form takes
// is refused by the reading that came farthest:
//   1. what begins with "[": moves
//   2. facelets, if it is 54 letters of six kinds that differ by more than case, and either each
//      kind comes nine times or there is one on each centre
//   3. cubies, if it is several words in capitals: at least twelve of two or three letters, or all
//      of them names of cubies
//   4. a macro, if no count in it is lost
//   5. moves, if their lower-case letters are certainly wide turns
#pragma once

#include "model/cube.h"
#include "tools/movetext.h"

#include <string>
#include <string_view>
#include <vector>

enum line_form { anyform, macroform, movesform, faceletsform, cubiesform, formcount };

extern const char* const formnames[formcount]; // "auto", "macro", ...

int findform(std::string_view name); // the form of that name, or -1

struct line_note {
    std::size_t column; // from 1, of characters; 0 for the whole line
    std::string text;
};

struct read_line {
    line_form form;                   // what the line was taken for; anyform if for nothing
    move_text moves;                  // macro, moves: the turns
    std::string macro;                // and as a macro
    unsigned char colors[placecount]; // facelets, cubies: the cube, as cubecolors
    line_note error;                  // why the line is refused; the text is empty if it is not
    std::vector<line_note> notes;     // what was understood in a way that might surprise
};

// Reads a line in the form, anyform to find it out. Whether it is good. The cube of the model is
// not the same afterwards.
bool readform(std::string_view line, line_form form, read_line& to);

// "column 3: ...", or the text alone.
std::string notetext(const line_note& note);

// Makes the cube of a good line the cube of the model.
void makecube(const read_line& line);

// The cube of the model as text, in a form that is read back. facelets name colours by their home
// faces, wherever the centres are; cubies are told as seen from the centres.
std::string faceletstext();
std::string cubiestext();
