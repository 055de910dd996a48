// SPDX-License-Identifier: MIT
//
// storetext: what the text of a preferences store says, and whether the toolkit can read it.
//
// Purpose   the toolkit cannot read a store without writing it: what it has read it holds for
//           changed, and puts back in place when its object goes. So it is the toolkit that writes
//           and this that reads. The toolkit also trusts what it once wrote: on a text that a
//           person edited it may read through a null pointer or beyond a value. Such a text is not
//           given to it at all, and left as it is for the person to put right.
// State     none.
// Callers   prefstore.
//
// A text is read in lines of at most 1023 bytes; what is longer counts as several lines. The first
// three are not looked at. Each of the others is one of
//
//   [.]  [./group]  [./group/group]   entries of this group follow; 120 bytes at most
//   key:value                         an entry; without a colon its value is empty, and the line
//                                     has 1021 bytes at most
//   +more                             more of the value; only behind an entry or another "+"
//   ;comment  #comment
//
// In a value "\" begins an escape of one character, or of three octal digits; a value must not end
// within one. A key that stands twice in a group has its last value.
#pragma once

#include <map>
#include <string>

// Why the toolkit had better not read the text, with the number of the line; "" if it may.
[[nodiscard]] std::string storefault(const std::string& text);

// The entries of a group by their keys. The values are as they were given to the toolkit, without
// escapes; a comment is an entry without a value. A key is cut to 127 bytes.
using storeentries = std::map<std::string, std::string>;

// The groups of a sound text that have entries, by their names as they stand in the brackets.
[[nodiscard]] std::map<std::string, storeentries> readgroups(const std::string& text);
