// SPDX-License-Identifier: MIT
#include "macros/macrofile.h"

#include "base/replacefile.h"
#include "macros/library.h"
#include "macros/macrolines.h"
#include "macros/preferences.h"
#include "shell.h"

std::string lastmacrofilename; // no constinit: not every compiler sees that this is a constant

int loadmacrofile(const char* path) {
    std::FILE* file = std::fopen(path, "r");
    if (file == nullptr) {
        return 0;
    }
    macro_lines macro = {};
    bool room = true;
    while (room && readmacrolines(file, macro) != 0) {
        // Deliberate: NOT-BUGS.md, "Loading adds names that are there"
        room = addmacro(macro.name, macro.moves) != 0;
    }
    std::fclose(file);
    return 1;
}

void printmacrodefs(std::FILE* file) {
    for (int i = 0; i < maccount; ++i) {
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
    if (replacefile(path.c_str(), printmacrodefs) == 0) {
        showalert(("Couldn't open " + path + " for writing").c_str());
    }
}

void snarfmacros() {
    const char* answer = askfile("Macro File Name", nullptr, lastmacrofilename.c_str());
    if (answer == nullptr) {
        return;
    }
    const std::string path = answer;
    if (loadmacrofile(path.c_str()) != 0) {
        lastmacrofilename = path;
        writeprefs();
    }
}
