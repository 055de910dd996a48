// SPDX-License-Identifier: MIT
//
// storetext: whether a preferences file is one that the toolkit can read.
//
// Purpose   the toolkit trusts what it once wrote. On a file that a person edited it may read
//           through a null pointer or beyond a text. Such a file is not opened at all: it is left
//           as it is, for the person to put right.
// State     none.
// Callers   preferences.
//
// A file is read in lines of at most 1023 bytes; what is longer counts as several lines. The first
// three are not looked at. Each of the others is one of
//
//   [.]  [./group]  [./group/group]   entries of this group follow; 120 bytes at most
//   key:value                         an entry; without a colon its value is empty
//   +more                             more of the value; only behind an entry or another "+"
//   ;comment  #comment
//
// In a value "\" begins an escape of one character, or of three digits; a value must not end within
// one.
#pragma once

// 1 if the file is sound or does not exist, 0 if it is not or cannot be read.
[[nodiscard]] int soundstore(const char* path);
