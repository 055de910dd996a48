// SPDX-License-Identifier: MIT
//
// inputs: what a tool has to answer, line by line: its arguments, or the lines of files and of
// standard input; and what is said of a line that is no good.
//
// State     none.
// Callers   vexel-solve, vexel-macro; jobs sends an asked_line to another process.
#pragma once

#include "tools/fields.h"
#include "tools/forms.h"
#include "tools/lines.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct asked_line {
    std::string_view source; // the name of the file, "argument" for an argument
    std::size_t number;      // of the line there, or of the argument, from 1
    bool overlong;           // longer than longestline: there is no text
    std::string_view text;
};

// "standard input, line 3"
std::string placeof(const asked_line& line);

// Reads the line in the form (forms.h); one that is too long is refused.
bool readasked(const asked_line& line, int form, read_line& to);

std::string invalidtext(const read_line& read);        // "invalid: column 3: ...", escaped
std::vector<field> errorfields(const read_line& read); // the same as "error" and "column"

// A line to standard error for each note on the line.
std::string notelines(const asked_line& line, const read_line& read);

// What was answered. Both texts are complete lines.
struct line_answer {
    bool good;
    std::string out;   // for standard output
    std::string aside; // for standard error
};

using answer_function = std::function<line_answer(const asked_line&)>;

// Writes the answer, the part aside first.
void putanswer(const line_answer& answer);

// Complains about a file that cannot be opened or read, with errno's text for reason.
void complainoffile(const std::string& name, int reason);

// Hands each argument to take, or each line of each file. A file that cannot be opened or read is
// complained of and the rest goes on. Whether none was. No file at all is standard input.
bool eachargument(const std::vector<std::string>& arguments,
                  const std::function<void(const asked_line&)>& take);
bool eachline(const std::vector<std::string>& files,
              const std::function<void(const asked_line&)>& take,
              const std::function<void(const line_reader&)>& wait);
