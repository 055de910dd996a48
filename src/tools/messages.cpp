// SPDX-License-Identifier: MIT
#include "tools/messages.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

std::string programname;

void nameprogram(const char* argv0) {
    const char* slash = argv0 == nullptr ? nullptr : std::strrchr(argv0, '/');
    programname = slash != nullptr ? slash + 1 : argv0 == nullptr ? "" : argv0;
}

// open() takes the lowest number that is free, which is the one that was found closed. Each is
// opened for what it is not used for, so that using it fails.
void keepstandardfiles() {
    for (int file = STDIN_FILENO; file <= STDERR_FILENO; file++) {
        if (fcntl(file, F_GETFD) == -1) {
            const int mode = file == STDIN_FILENO ? O_WRONLY : O_RDONLY;
            if (open("/dev/null", mode) != file) {
                std::exit(bad_usage);
            }
        }
    }
}

namespace {

// A file or an argument may hold what moves a cursor or sets a title: no terminal gets it as it is.
void appendescaped(std::string& to, char c) {
    switch (c) {
    case '\t': to += "\\t"; return;
    case '\n': to += "\\n"; return;
    case '\r': to += "\\r"; return;
    case '\\': to += "\\\\"; return;
    default: break;
    }
    if (c >= ' ' && c <= '~') {
        to += c;
        return;
    }
    char hex[5];
    std::snprintf(hex, sizeof hex, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
    to += hex;
}

} // namespace

std::string escaped(std::string_view text) {
    std::string safe;
    safe.reserve(text.size());
    for (const char c : text) {
        appendescaped(safe, c);
    }
    return safe;
}

void complain(std::string_view text) {
    const std::string line = escaped(programname) + ": " + escaped(text) + "\n";
    std::fputs(line.c_str(), stderr);
}

void refuseusage(std::string_view text) {
    complain(text);
    std::fprintf(stderr, "Try '%s --help' for more information.\n", escaped(programname).c_str());
    std::exit(bad_usage);
}

// A long option is told as it was written; of short ones written together, the one letter.
void refuseoption(int answer, char* const* argv) {
    const std::string_view word = argv[optind - 1];
    const bool longone = word.starts_with("--") || optopt == 0 || optopt > '~';
    const std::string letter(1, static_cast<char>(optopt));
    const std::string option = longone ? std::string(word) : "-" + letter;
    refuseusage(answer == ':' ? "option '" + option + "' needs an argument"
                              : "option '" + option + "' is not understood");
}
