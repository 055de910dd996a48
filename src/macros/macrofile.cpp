// SPDX-License-Identifier: MIT
#include "macros/macrofile.h"

#include "base/readfile.h"
#include "base/savefile.h"
#include "macros/library.h"
#include "macros/macrolines.h"
#include "macros/preferences.h"
#include "shell.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

std::string lastmacrofilename; // no constinit: not every compiler sees that this is a constant

namespace {

constexpr std::size_t shownames = 10; // in one message
constexpr std::size_t shownpart = 60; // bytes of each

// The error of opening the file (base/readfile.h); what can be opened is read.
int load(const std::string& path) {
    int error = 0;
    std::FILE* file = openregular(path, error);
    if (file != nullptr) {
        macro_lines macro = {};
        bool room = true;
        while (room && readmacrolines(file, macro) != 0) {
            // Deliberate: NOT-BUGS.md, "Loading adds names that are there"
            room = addmacro(macro.name, macro.moves) != 0;
        }
        std::fclose(file);
    }
    return error;
}

using macropair = std::pair<std::string, std::string>; // name and moves

// What a reader finds in the table as it is written.
std::set<macropair> writtenandread() {
    std::set<macropair> read;
    std::string content = contentof(printmacrodefs);
    std::FILE* file = content.empty() ? nullptr : fmemopen(content.data(), content.size(), "r");
    if (file != nullptr) {
        macro_lines macro = {};
        while (readmacrolines(file, macro) != 0) {
            read.insert({macro.name, macro.moves});
        }
        std::fclose(file);
    }
    return read;
}

// The names of the macros that a reader does not get as they are. A "$" would become a mark.
std::vector<std::string> notwhole() {
    const std::set<macropair> read = writtenandread();
    std::vector<std::string> names;
    for (int i = 0; i < maccount; i++) {
        if (!read.contains({macnames[i], macstrs[i]}) || macstrs[i].starts_with("$")) {
            names.push_back(macnames[i]);
        }
    }
    return names;
}

void tellnotwhole() {
    const std::vector<std::string> names = notwhole();
    if (names.empty()) {
        return;
    }
    std::string text = "Not to come back whole from this file:\n";
    for (std::size_t i = 0; i < std::min(names.size(), shownames); i++) {
        const bool cut = names[i].size() > shownpart;
        text += names[i].substr(0, shownpart) + (cut ? "...\n" : "\n");
    }
    if (names.size() > shownames) {
        text += "and " + std::to_string(names.size() - shownames) + " more\n";
    }
    text += "A line of more than 97 characters is read as several.";
    showalert(text.c_str());
}

} // namespace

int loadmacrofile(const char* path) {
    return load(path) == 0 ? 1 : 0;
}

void printmacrodefs(std::FILE* file) {
    for (int i = 0; i < maccount; i++) {
        // Deliberate: NOT-BUGS.md, "A saved file has no marks"
        std::fprintf(file, "%s\n%s\n", macnames[i].c_str(), macstrs[i].c_str());
    }
}

void dumpmacfile() {
    const char* answer = askfile("Save Macros in File:", nullptr, nullptr);
    if (answer == nullptr) {
        return;
    }
    const std::string path = answer;
    const std::string reason = savefile(path, printmacrodefs);
    if (reason.empty()) {
        tellnotwhole();
    } else {
        showalert(("Couldn't open " + path + " for writing\n" + reason).c_str());
    }
}

void snarfmacros() {
    const char* answer = askfile("Macro File Name", nullptr, lastmacrofilename.c_str());
    if (answer == nullptr) {
        return;
    }
    const std::string path = answer;
    const int error = load(path);
    if (error == 0) {
        lastmacrofilename = path;
        writeprefs();
    } else {
        showalert(("Couldn't open " + path + "\n" + whynot(error)).c_str());
    }
}
