// SPDX-License-Identifier: MIT
//
// latinkey: which Latin letter a key bears, whatever alphabet the keyboard is set to.
//
// Callers   dispatch (Alt with a letter, the interrupt chord), menu and my_input (the shortcuts),
//           which go by the key and not by what it types.
// State     the code of the key that was pressed last; private.
#pragma once

// For a letter that is none of a..z: the Latin letter that the key of the current event bears in
// another layout of this keyboard, or else at its place on an English one. Anything else, and a key
// that bears none, is returned as it is.
//
// A key that an input method has made a text of comes as an event of no key; it is then the one
// that was pressed last.
int latinkey(int key);

// Has the toolkit tell which key was pressed. Called once, before any key matters.
void watchkeys();

// Whether the key of that Latin letter (a..z) is held down now.
bool letterheld(char letter);
