// SPDX-License-Identifier: MIT
//
// replacefile: writes a file whole or leaves the old one whole.
//
// Purpose   what a person stored must survive a full disk and a sudden end. The new content goes
//           into a file of its own in the same folder, is brought to the disk and takes the old
//           one's name only then.
// Links     a symbolic link to a file stays one: the file is replaced; one that leads nowhere makes
//           the file that it names.
// In place  where no file can be made beside the old one, or the old one would not be the same
//           afterwards (it has more names than one, another owner, or is a mount), the old one
//           itself is written. Room is reserved first, and what cannot be written is taken back,
//           so that a full disk leaves the old content; but a program that is killed on the way
//           leaves a file that is neither the old nor the new one.
// Devices   and pipes are written to as they are, and not waited for: a pipe that nobody reads is
//           an error at once, one whose reader stops reading after a second.
// Errors    as in readfile.h. What is told is the first step that failed.
// State     none.
// Callers   savefile, safestore; vexel-macro for its pictures.
#pragma once

#include <string>

enum class oldcontent {
    dropped, // is gone
    kept,    // stays beside the file, as the first of NAME~, NAME~2, NAME~3, ... that is free
};

// Makes content that of the file path. 0 if all of it is there now; otherwise path is as it was.
// A file that exists keeps its permissions, and one that may not be written is not replaced.
//
// To keep the old content is part of the work: without it nothing is written, except in a folder
// in which no file can be made at all, where it is not kept.
[[nodiscard]] int replacefile(const std::string& path, const std::string& content,
                              oldcontent old = oldcontent::dropped);

// For work on a file that is to be replaced under a lock (safestore.h)

// The name of a new file or folder beside path, ending in the "XXXXXX" that mkdtemp and its kind
// fill in.
[[nodiscard]] std::string newfilename(const std::string& path);

// Removes what programs that were killed over the same work have left there. Nobody may be at it.
void removeleftovers(const std::string& path);

// Whether the error of making or moving a file says that nobody like us may do so in its folder.
[[nodiscard]] bool isclosedfolder(int error);
