// SPDX-License-Identifier: MIT
//
// label: the labels that show a text letter for letter, whatever a person wrote into it.
//
// Callers   messages (boxes), macrochoice and gizmo (names of macros).
#pragma once

#include <string>

// To the toolkit "@" begins a symbol, everywhere; doubled it is the letter.
[[nodiscard]] std::string boxlabel(const std::string& text);

// In a menu or on a button "&" besides underlines a letter and makes it a key.
[[nodiscard]] std::string plainlabel(const std::string& text);
