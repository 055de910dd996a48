// SPDX-License-Identifier: MIT
//
// lines: text in and out of a filter. Lines of any bytes are read; answers are kept back while more
// lines are at hand and written before the program waits for one.
//
// State     the answers that are kept back, private.
// Limits    A line of more than longestline bytes is read to its end and handed out as overlong,
//           without a text: memory grows with neither the length nor the number of lines.
// Callers   the tools.
#pragma once

#include <string>
#include <string_view>

constexpr std::size_t longestline = 4 << 20; // bytes

struct line_reader {
    int file;             // to read from; -1 once it is closed
    std::string name;     // of the file, for messages
    std::size_t number;   // of the line that was handed out last, from 1; 0 before the first
    std::string held;     // what was read
    std::size_t begin;    // where in it the next line begins
    std::size_t searched; // up to where no newline is, begin or more
    bool overlong;        // the line at begin has been dropped so far, for its length
    bool ended;           // nothing more can be read
    int failure;          // why: 0 for the end of the file, else the errno
};

struct input_line {
    std::string_view text; // without its newline; good until the reader is used again
    bool overlong;         // longer than longestline: the text is empty
};

// Opens path, "-" for standard input. False with errno set if it cannot be opened.
bool openlines(line_reader& reader, const char* path);
void closelines(line_reader& reader);

// Whether nextline() can answer without reading.
bool lineready(line_reader& reader);

// Reads once, whatever is there; waits if nothing is. Only while no line is ready.
void readmore(line_reader& reader);

// The next line; false at the end of the file, and where reading fails (failure). A last line need
// not be ended. Answers that are kept back are written before it waits. A byte order mark at the
// start of the file is no part of the first line.
bool nextline(line_reader& reader, input_line& line);

// Answers

void put(std::string_view text);

// Writes what is kept back. Where that fails the program ends: by SIGPIPE if nobody reads any more,
// which is no mistake of anybody; else with a complaint and bad_usage.
void flushanswers();

// What --help and --version do: the text alone, and the program ends with all_good.
[[noreturn]] void sayandexit(std::string_view text);
