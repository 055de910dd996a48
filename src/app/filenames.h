// SPDX-License-Identifier: MIT
//
// filenames: what a person types for a file, and what lies in a folder.
//
// Purpose   the file question (filequestion.h) without its widgets.
// Paths     are bytes, as the system has them: no encoding is assumed, no length is too long to ask
//           about. Folders are absolute, without "." and "..", which are taken off as texts.
// Callers   filequestion. Knows no window.
#pragma once

#include <string>
#include <vector>

// Folders

struct file_entry {
    std::string name;
    bool folder; // or a link to one

    bool operator==(const file_entry&) const = default;
};

struct file_listing {
    std::vector<file_entry> entries; // folders first, each kind by name, upper case like lower
    std::string failure;             // the system's reason if the folder cannot be read, else ""
};

// What lies in a folder, "." and ".." left out: all folders, and the files that pattern fits. The
// pattern is one of the toolkit's, as in "*.macros" or "{*.macros|*.txt}"; the empty one fits all.
// Names that begin with a point are told only if hidden.
[[nodiscard]] file_listing listfolder(const std::string& folder, const std::string& pattern,
                                      bool hidden);

[[nodiscard]] bool isfolder(const std::string& path); // or a link to one

[[nodiscard]] std::string startfolder(); // the working folder, or "/" if that is gone

// Typed names

// "~" and "~/..." with the home folder for the "~", "~name..." with that user's. A user who is not
// there, and a "~" anywhere else, is a name like others.
[[nodiscard]] std::string expandhome(const std::string& typed);

// The path that is meant by a text typed while folder is shown. A "/" at the end stays there.
[[nodiscard]] std::string pathof(const std::string& folder, const std::string& typed);

struct completion {
    std::string text; // typed, with all that every candidate goes on with
    int candidates;   // how many names begin like the typed one
};

// Completes the name after the last "/" of a typed text. A folder that is the only candidate gets
// its "/". Hidden names are candidates if the typed one begins with a point.
[[nodiscard]] completion completename(const std::string& folder, const std::string& pattern,
                                      const std::string& typed);

// The two parts of a path at its last "/": the folder with the "/", and the name. Without a "/" all
// of it is the name.
[[nodiscard]] std::string folderpart(const std::string& path);
[[nodiscard]] std::string namepart(const std::string& path);
