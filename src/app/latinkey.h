// SPDX-License-Identifier: MIT
//
// latinkey: which Latin letter a key bears, whatever alphabet the keyboard is set to.
//
// Callers   dispatch (Alt with a letter, the interrupt chord) and menu (the shortcuts), which go by
//           the key and not by what it types.
#pragma once

// For a letter that is none of a..z: the Latin letter that the key of the current event bears in
// another layout of this keyboard, or else at its place on an English one. Anything else, and a key
// that bears none, is returned as it is.
int latinkey(int key);

// Whether the key of that Latin letter (a..z) is held down now.
bool letterheld(char letter);
