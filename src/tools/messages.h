// SPDX-License-Identifier: MIT
//
// messages: what the tools say beside their answers: complaints, wrong usage, how they end.
//
// State     programname, below.
// Callers   the tools.
// Order     nameprogram() before anything else.
#pragma once

#include <string>
#include <string_view>

enum exit_status { all_good, some_invalid, bad_usage };

extern std::string programname; // by which the program was called, without its folder

void nameprogram(const char* argv0);

// Opens what is closed of the three standard files, so that no file of the user's can take their
// place; to write into them, or read, is an error as it was before.
void keepstandardfiles();

// The text as a terminal may get it: printable ASCII as it is but for the backslash, which is
// doubled; \t, \n, \r; any other byte as \x and two digits.
std::string escaped(std::string_view text);

void complain(std::string_view text); // "name: text" to standard error, escaped

// Complains, points to --help and ends the program with bad_usage.
[[noreturn]] void refuseusage(std::string_view text);

// Tells why getopt_long (with ":" before its letters and opterr 0) returned answer, ':' or '?', and
// ends the program.
[[noreturn]] void refuseoption(int answer, char* const* argv);
