// SPDX-License-Identifier: MIT
#include "macros/macrolines.h"

#include <cstring>

namespace {

// Reads one line into text and cuts it at its newline. At the end of the file: false, and text
// stays as it was.
bool readline(char (&text)[macrolinesize], std::FILE* file) {
    // Deliberate: NOT-BUGS.md, "A long line is several lines"
    if (std::fgets(text, macrolinesize, file) == nullptr) {
        return false;
    }
    text[std::strcspn(text, "\n")] = '\0';
    return true;
}

} // namespace

int readmacrolines(std::FILE* file, macro_lines& macro) {
    if (!readline(macro.name, file)) {
        return 0;
    }
    // Deliberate: NOT-BUGS.md, "A name without a string gets the string before it"
    readline(macro.moves, file);
    return 1;
}
