// SPDX-License-Identifier: MIT
//
// notation: macros, that is texts in the move notation: what each character means, whether a text
// is a macro, and how many turns it has. Doing them is the parser's part (parser.h).
//
// The notation, read from left to right:
//
//   U D L R F B     a face, clockwise; in lower case counter-clockwise     codes 0..11
//   *F ... *D       the middle layer beside that face, in its direction    codes 12..17
//   >R ... >B       the whole cube, in that face's direction               codes 18..23
//   3(...)          the group three times. A count is any run of digits and counts only directly
//                   before "("; a group without a count, or with count 0, is skipped whole
//   s(...)          resets the cube, does the group until the cube is solved and tells how often
//   x               resets the cube
//   anything else   is passed over
//
// After "*" or ">" the next character is always part of the pair: "*u" and "*(" do nothing, and
// such a bracket opens no group. A group without its ")" is passed over with all that follows it.
//
// State     none.
// Texts     of any bytes, of any length, nested to any depth. The length argument rules: nothing
//           behind it is read, and a NUL is a character like another. A length below 1 is empty.
// Limits    all functions take time linear in the length.
// Callers   parser; the macro line, the library and the demo; vexel-solve.
#pragma once

// Characters

[[nodiscard]] char flipcase(char c); // 32 less for a character above 'Z', 32 more for any other
[[nodiscard]] char flipdir(char c);  // the opposite face: F-B, U-D, R-L; a blank for any other
[[nodiscard]] int istwist(char c);   // 1 for B F U D L R in upper case, else 0

[[nodiscard]] bool isdecimal(char c); // 0 to 9, whatever the locale

// Symbols. A symbol is one character, or two where "*" or ">" takes the next one with it, whatever
// that is. From the left "*>F" is "*>" and "F", from the right it is "*" and ">F": hence two ways
// to ask, and the direction of a parse makes a difference.

// How many characters the symbol has that begins at i: 1 or 2. 0 <= i < length.
[[nodiscard]] int symbolat(const char* text, int i, int length);

// The same for the symbol that ends at i, 0 <= i.
[[nodiscard]] int symbolbefore(const char* text, int i);

// The turn code of a symbol of one or two characters, or -1 if it is no turn.
[[nodiscard]] int symbolcode(const char* symbol, int length);

// Checking and counting

// 1 if text is a macro that may be parsed, else 0. The empty text is good. Allowed are face letters
// of either case, digits, "s", "(" directly behind a digit or an "s", ")" with a group open, and
// "*" or ">" with a character behind it, which is not looked at. All groups must be closed. A text
// that starts with "[" has the macro line converted in its place (singmaster.h), and what that
// leaves is good; if it fails the answer is 0 and the line stays as it was. "x" is not allowed.
[[nodiscard]] int sanitycheckmacro(const char* text, int length);

// The number of quarter turns in text, or -1 if a count is not followed by "(" or a "(" has no ")".
// Purely by character: each face letter of either case counts, also behind "*" and ">"; letters in
// a group without a count count once; a stray ")" and all else is ignored. INT_MAX stands for more.
[[nodiscard]] int maclen(const char* text, int length);

void loadout(const char* text); // shows maclen of text in the length read-out, "*****" for -1
