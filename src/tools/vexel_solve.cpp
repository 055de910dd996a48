// SPDX-License-Identifier: MIT
//
// vexel-solve: the solver without a window. One cube a line in, one solution a line out.
//
// A line that is a macro is a cube made from the solved one by that macro; anything else is taken
// for the twenty names of a cube's cubies (solver/cubecheck.h) and judged as such.
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/permutation.h"
#include "shell.h"
#include "solver/cubecheck.h"
#include "solver/search.h"
#include "solver/solver.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <getopt.h>
#include <iostream>
#include <string>
#include <string_view>

namespace {

enum exit_status { all_solved, some_invalid, bad_usage };

constexpr int least_depth = 14;
constexpr int greatest_depth = 16;
constexpr char blanks[] = " \t\n\v\f\r";

struct settings {
    int depth = least_depth;
    bool verbose = false;
    const char* file = nullptr; // null or "-" for standard input
};

const char usage[] = "Usage: vexel-solve [-d DEPTH] [-v] [FILE]\n";
const char help[] = "Solve the cubes in FILE, or on standard input, one a line.\n"
                    "\n"
                    "A line is either the names of the twenty cubies, as in\n"
                    "  UF UR UB UL DF DR DB DL FR FL BR BL UFR URB UBL ULF DRF DFL DLB DBR\n"
                    "for the solved cube, or a macro that makes the cube from the solved one.\n"
                    "For each cube one line is printed: a solution, nothing for a solved cube,\n"
                    "or \"invalid: \" and what is wrong with it.\n"
                    "\n"
                    "  -d, --depth=DEPTH  search to DEPTH quarter turns: 14 (default), 15 or 16;\n"
                    "                     each step may find shorter solutions and takes longer\n"
                    "  -v, --verbose      add quarter turns, stage-1 nodes, stage-2 nodes and\n"
                    "                     seconds, separated by tabs\n"
                    "      --help         display this help and exit\n"
                    "      --version      output version information and exit\n"
                    "\n"
                    "Exit status is 0, or 1 if a line was invalid, or 2 for wrong usage or a file\n"
                    "that cannot be read.\n";

[[noreturn]] void print_and_exit(std::string_view first, std::string_view second) {
    std::cout << first << second << std::flush;
    std::exit(std::cout ? all_solved : bad_usage);
}

[[noreturn]] void refuse(std::string_view complaint) {
    std::cerr << "vexel-solve: " << complaint << '\n'
              << "Try 'vexel-solve --help' for more information.\n";
    std::exit(bad_usage);
}

int parse_depth(std::string_view text) {
    for (int depth = least_depth; depth <= greatest_depth; depth++)
        if (text == std::to_string(depth))
            return depth;
    refuse("the depth must be 14, 15 or 16");
}

settings parse_arguments(int argc, char** argv) {
    enum { help_option = 256, version_option };

    constexpr option options[] = {
        {"depth",   required_argument, nullptr, 'd'           },
        {"verbose", no_argument,       nullptr, 'v'           },
        {"help",    no_argument,       nullptr, help_option   },
        {"version", no_argument,       nullptr, version_option},
        {nullptr,   0,                 nullptr, 0             }
    };
    settings s;
    for (int c = 0; (c = getopt_long(argc, argv, "d:v", options, nullptr)) != -1;) {
        switch (c) {
        case 'd': s.depth = parse_depth(optarg); break;
        case 'v': s.verbose = true; break;
        case help_option: print_and_exit(usage, help);
        case version_option: print_and_exit("vexel-solve " VEXEL_VERSION "\n", "");
        default: // getopt has said what is wrong
            std::cerr << "Try 'vexel-solve --help' for more information.\n";
            std::exit(bad_usage);
        }
    }
    if (argc - optind > 1)
        refuse("more than one file");
    if (optind < argc)
        s.file = argv[optind];
    return s;
}

// Input

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// The listing of the cube that a macro makes, relative to its centres; null if it is no macro.
const char* listing_of_macro(const std::string& text) {
    setmacroline(text.c_str());
    if (text.size() > INT_MAX || !sanitycheckmacro(text.c_str(), static_cast<int>(text.size())))
        return nullptr;
    // The check converts a macro in brackets in the line.
    const std::string macro = text.starts_with('[') ? macroline() : text;
    initcubies();
    parsing = 0;
    parsestring(macro.c_str(), static_cast<int>(macro.size()));
    muckcube();
    return dumpcube();
}

// Whether anything stands behind the twentieth name, which the check of a listing does not read.
bool has_surplus(std::string_view text) {
    for (int names = 0; names < edge_count + corner_count; names++) {
        text = trimmed(text);
        text.remove_prefix(std::min(text.find_first_of(blanks), text.size()));
    }
    return !trimmed(text).empty();
}

// Output

void print_invalid(std::string message) {
    for (char& c : message) // a name may hold what a terminal would obey
        if (std::iscntrl(static_cast<unsigned char>(c)))
            c = '?';
    std::cout << "invalid: " << message << std::endl;
}

void print_solution(const char* listing, bool verbose) {
    while (!initializesolve())
        continue;
    const auto start = std::chrono::steady_clock::now();
    const char* const answer = my_user_enters_cube(listing);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const std::string solution = std::strcmp(answer, "error") == 0 ? "" : answer;
    std::cout << solution;
    if (verbose) {
        char seconds[32];
        std::snprintf(seconds, sizeof seconds, "%.3f", time.count());
        std::cout << '\t' << solution.size() << '\t' << a_node_count << '\t' << b_node_count << '\t'
                  << seconds;
    }
    std::cout << std::endl;
}

// 1 if the line is a cube, which is solved, else 0.
int answer_line(const std::string& line, bool verbose) {
    std::string text{trimmed(line)};
    for (char& c : text)
        if (c == '\0') // would hide what follows it
            c = '?';
    if (const char* const listing = listing_of_macro(text)) {
        print_solution(listing, verbose);
        return 1;
    }
    if (!sanitycheckcube(text.c_str())) {
        print_invalid(geterrorstring());
        return 0;
    }
    if (has_surplus(text)) {
        print_invalid("Surplus cubie.");
        return 0;
    }
    print_solution(text.c_str(), verbose);
    return 1;
}

int answer_all(std::istream& in, const char* name, bool verbose) {
    int status = all_solved;
    for (std::string line; std::getline(in, line);) {
        if (!answer_line(line, verbose))
            status = some_invalid;
        if (!std::cout) {
            std::cerr << "vexel-solve: write error: " << std::strerror(errno) << '\n';
            return bad_usage;
        }
    }
    if (in.bad()) {
        std::cerr << "vexel-solve: " << name << ": " << std::strerror(errno) << '\n';
        return bad_usage;
    }
    return status;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is a write error
    std::ios::sync_with_stdio(false);
    const settings s = parse_arguments(argc, argv);
    setsearchdepth(s.depth);
    if (s.file == nullptr || std::string_view(s.file) == "-")
        return answer_all(std::cin, "standard input", s.verbose);
    std::ifstream in(s.file, std::ios::binary);
    if (!in) {
        std::cerr << "vexel-solve: " << s.file << ": " << std::strerror(errno) << '\n';
        return bad_usage;
    }
    return answer_all(in, s.file, s.verbose);
}
