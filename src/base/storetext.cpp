// SPDX-License-Identifier: MIT
#include "base/storetext.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

constexpr int linesize = 1024; // bytes the toolkit reads at a time, the NUL among them
constexpr int headerlines = 3;
constexpr std::size_t groupsize = 120; // the toolkit makes its paths in a buffer of 128

// How far an escape has come: not begun, behind its "\", behind the first and the second digit.
enum escape { none, begun, digit1, digit2 };

// What the lines so far have left open.
struct reading {
    bool inentry = false; // the last line was an entry or more of its value
    escape end = none;    // where its value stands
};

escape followescape(escape state, char c) {
    switch (state) {
    case none: return c == '\\' ? begun : none;
    case begun: return std::isdigit(static_cast<unsigned char>(c)) != 0 ? digit1 : none;
    case digit1: return digit2;
    case digit2: return none;
    }
    return none;
}

void followvalue(reading& r, const char* text) {
    for (; *text != '\0'; ++text) {
        r.end = followescape(r.end, *text);
    }
}

// The toolkit looks for the group from its root, ".", and takes what it does not find as found.
bool soundgroup(const char* line) {
    const std::size_t size = std::strcspn(line + 1, "]");
    const bool relative = std::strncmp(line + 1, "./", 2) == 0 || (size == 1 && line[1] == '.');
    return relative && size <= groupsize;
}

// What a "+" line adds to is the entry set last, by its position, whatever group has come since; a
// comment is an entry with a null value.
bool soundline(reading& r, char* line) {
    line[std::strcspn(line, "\n\r")] = '\0';
    if (*line == '\0') {
        return true; // an empty line ends nothing
    }
    if (*line == '+') {
        followvalue(r, line + 1);
        return r.inentry;
    }
    const bool valueended = r.end == none; // of the entry before this line
    r = reading();
    if (*line == '[') {
        return valueended && soundgroup(line);
    }
    if (*line != ';' && *line != '#') {
        r.inentry = true;
        followvalue(r, line);
    }
    return valueended;
}

} // namespace

int soundstore(const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr) {
        return errno == ENOENT ? 1 : 0;
    }
    char line[linesize];
    reading r;
    bool sound = true;
    for (int i = 0; sound && std::fgets(line, linesize, file) != nullptr; ++i) {
        sound = i < headerlines || soundline(r, line);
    }
    sound = sound && r.end == none && std::ferror(file) == 0;
    std::fclose(file);
    return sound ? 1 : 0;
}
