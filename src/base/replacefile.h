// SPDX-License-Identifier: MIT
//
// replacefile: writes a file whole or leaves the old one whole.
//
// Purpose   what a person stored must survive a full disk. The new content goes into a file of its
//           own in the same folder, is brought to the disk and takes the old one's name only then.
// State     none.
// Links     a symbolic link to a file stays one: the file is replaced. Other hard links to that
//           file keep the old content.
// Callers   macrofile, preferences, eps.
#pragma once

#include <cstdio>
#include <functional>

// Has write put the content into a file and gives that file the name path. 1 if all of it is there
// now; 0 if any step failed, write errors included, and then path is as it was. A file that exists
// keeps its permissions, and one that may not be written is not replaced. A device or a pipe is
// written in place.
[[nodiscard]] int replacefile(const char* path, const std::function<void(std::FILE*)>& write);
