// SPDX-License-Identifier: MIT
#include "macros/macrolines.h"

#include <cstring>
#include <string>

namespace {

constexpr char byteordermark[] = "\xef\xbb\xbf"; // some editors begin a file with it

// The next byte. A carriage return that ends a line together with the newline is passed over: else
// the files of other systems would have it in every text, and longer lines.
int nextbyte(std::FILE* file) {
    const int byte = std::getc(file);
    if (byte != '\r') {
        return byte;
    }
    const int next = std::getc(file);
    if (next == '\n') {
        return next;
    }
    std::ungetc(next, file);
    return byte;
}

// Reads one line into text and cuts it at its newline. At the end of the file: false, and text
// stays as it was.
bool readline(char (&text)[macrolinesize], std::FILE* file, bool first) {
    std::string line;
    int byte = 0;
    // Deliberate: NOT-BUGS.md, "A long line is several lines"
    while (byte != '\n' && line.size() < macrolinesize - 1 && (byte = nextbyte(file)) != EOF) {
        line += static_cast<char>(byte);
        if (first && line == byteordermark) {
            line.clear();
            first = false;
        }
    }
    if (line.empty()) {
        return false;
    }
    std::strcpy(text, line.c_str());
    text[std::strcspn(text, "\n")] = '\0';
    return true;
}

} // namespace

int readmacrolines(std::FILE* file, macro_lines& macro) {
    const bool first = !macro.begun;
    macro.begun = true;
    if (!readline(macro.name, file, first)) {
        return 0;
    }
    // Deliberate: NOT-BUGS.md, "A name without a string gets the string before it"
    readline(macro.moves, file, false);
    return 1;
}
