// SPDX-License-Identifier: MIT
//
// readfile: reads files without ever waiting and without ever writing.
//
// Purpose   a path that a person gives may name anything. A pipe that nobody writes to, a terminal
//           or a tape would hold the program up for as long as they like: only regular files are
//           read.
// Errors    are numbers: 0 for none, the system's own, or a negative one of this floor. whynot says
//           each in words.
// State     none.
// Callers   the files of this folder; macrofile, prefstore, vexel-macro.
#pragma once

#include <cstdio>
#include <string>

constexpr int notregular = -1; // a pipe, a device or a socket, where a file should be

// What the error means, in the system's words; "" for 0.
[[nodiscard]] std::string whynot(int error);

// Opens a file for reading. Null if that fails, which error tells then; error is 0 otherwise. The
// caller closes it.
[[nodiscard]] std::FILE* openregular(const std::string& path, int& error);

// The whole of a file that has at most so many bytes; a longer one is EFBIG. Where it fails content
// is empty.
[[nodiscard]] int readregular(const std::string& path, std::string& content, std::size_t most);
