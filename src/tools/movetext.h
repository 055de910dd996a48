// SPDX-License-Identifier: MIT
//
// movetext: sequences of turns read from two notations, the program's own (model/notation.h) and
// the one that cube books use. Writing them is movewriting's part.
//
//   in books                                          in a macro
//   U D L R F B          the face, clockwise          U D L R F B
//   Uw or u, ...         with the layer beside it     U*U ...
//   M E S                slices, as L, D and F turn   *L *D *F
//   x y z                the cube, as R, U and F      >R >U >F
//   R' R2 R2'            back, twice, twice back      r RR rr
//   (R U)3  (R U)2'      groups                       3(RU) 2(ur)
//
// In books blanks may stand between moves; an apostrophe may be straight, curly or a prime, and the
// 2 may come after it. In a macro the letter of a pair may be any, and then it does nothing.
//
// State     none.
// Limits    groups are nested at most deepestgroup deep. Time is linear in the length.
// Callers   forms, movewriting, properties, the tools; fields for its characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

constexpr std::size_t deepestgroup = 10'000;

enum piece_kind : unsigned char { turnpiece, openpiece, closepiece };

struct piece {
    piece_kind kind;
    bool inverted;    // openpiece: the group is done backwards
    signed char code; // turnpiece: 0..23
    int count;        // openpiece: which of the counts it has
    int partner;      // openpiece, closepiece: where the other one is
};

struct move_text {
    std::vector<piece> pieces;       // in order, groups as they stand in the text
    std::vector<std::string> counts; // in digits, as they may be of any size; no zeros in front
    bool resets;                     // an "s" stands in it: the pieces are not all that it does
};

// Reading. Where the text does not fit, false; then at is the first byte that does not, and why
// says what is wrong with it, beginning with the character in quotes.

struct misfit {
    std::size_t at;
    std::string why;
    std::size_t reached; // how far the text could be read, at or more
};

// What sanitycheckmacro() lets pass and no more. With strict, each count must stand before a group,
// so that none is lost.
[[nodiscard]] bool readmacro(std::string_view text, bool strict, move_text& to, misfit& bad);

// Moves as in books, in brackets or not. A lower-case letter is a wide turn; unless certain is set,
// something else in the text must show that it cannot be a macro with blanks: an apostrophe, a 2,
// a "w", a slice, a turn of the cube, a group, the brackets.
[[nodiscard]] bool readmoves(std::string_view text, bool certain, move_text& to, misfit& bad);

// The bytes that the window's conversion (parsesingmaster) would drop from a text in brackets, up
// to its "]", blanks and the first "[" apart.
std::vector<std::size_t> droppedbywindow(std::string_view text);

// Characters

// How many bytes the character has that begins at i: that of a well-formed UTF-8 sequence, else 1.
std::size_t characterat(std::string_view text, std::size_t i);

// The column, from 1, of the character that begins at byte i.
std::size_t columnof(std::string_view text, std::size_t i);
