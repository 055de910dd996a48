// SPDX-License-Identifier: MIT
//
// savefile: a file that a person has the program write, under a name of the person's choice.
//
// Purpose   the name may be that of a file the person still needs, and nothing asks. So what was
//           there is kept beside it (replacefile.h, oldcontent::kept), unless it is what comes now,
//           or what this very run of the program put there.
// State     what this run has written, private.
// Callers   macrofile, eps.
#pragma once

#include <cstdio>
#include <functional>
#include <string>

using filewriter = std::function<void(std::FILE*)>;

[[nodiscard]] std::string contentof(const filewriter& write); // what it writes

// Has write make the content and puts it into the file path. "" if all of it is there now;
// otherwise why not, in the system's words, and path is as it was.
[[nodiscard]] std::string savefile(const std::string& path, const filewriter& write);
