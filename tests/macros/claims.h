// SPDX-License-Identifier: MIT
//
// claims: what the name of a macro promises, as places, to be held against the cube.
//
// Names     "Cycle UF->UB->UR": the sticker on each letter's face of the one goes to the face of
//           the letter at the same position of the next, the last goes where the first was;
//           "UL<>UF" says the same of two. "UFL->LUF" turns a cubie where it is: there is no way
//           back to close. "Flip UF" turns an edge over. A comma goes on to the next; words in
//           front are skipped. Nothing else may move.
// Callers   library_test, examples_test.
#pragma once

#include <array>
#include <string>

using cubeplaces = std::array<int, 54>; // by place: the home place of the facelet that lies there

// The cube that the name promises to make of a solved one. Throws std::runtime_error for a name
// that promises nothing.
cubeplaces claimed(const std::string& name);

cubeplaces madeby(const std::string& moves); // the cube that a macro makes of a solved one

// By place, the home places of the facelet's cubie in one order: where cubies lie, not how turned.
cubeplaces cubiesof(const cubeplaces& places);

// The six faces of that cube, ORDER FACE, as the letters of the faces where the stickers are at
// home.
std::string net(const cubeplaces& places);
