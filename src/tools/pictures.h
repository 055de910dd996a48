// SPDX-License-Identifier: MIT
//
// pictures: the cube of the model as a picture in a text, from the 27 squares of render/eps.h.
//
// State     none.
// Callers   vexel-macro.
#pragma once

#include <string>
#include <string_view>

// What the window's command "Print EPS File" writes.
std::string epstext();

// The same squares as a picture of 400 x 400 for the web. letters: as the window's colours
// (render/colors.h), for the six colours in ORDER FACE (ULFRBD).
std::string svgtext(std::string_view letters);

// Whether these are six different letters that have a colour, as the window demands them.
bool goodcolors(std::string_view letters);
