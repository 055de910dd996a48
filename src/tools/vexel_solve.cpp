// SPDX-License-Identifier: MIT
//
// vexel-solve: the solver without a window. One cube a line in, in any of the forms that people
// write (tools/forms.h), one line of answer out.
#include "solver/search.h"
#include "solver/solver.h"
#include "tools/drawing.h"
#include "tools/fields.h"
#include "tools/forms.h"
#include "tools/inputs.h"
#include "tools/jobs.h"
#include "tools/lines.h"
#include "tools/messages.h"
#include "tools/movewriting.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <getopt.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int leastdepth = 14;
constexpr int greatestdepth = 16;

struct settings {
    int depth = leastdepth;
    int from = anyform;
    int to = macroform;
    int jobs = 1;
    bool verbose = false;
    bool header = false;
    bool json = false;
    bool arguments = false;         // the words are cubes, not files
    std::vector<std::string> words; // files or cubes
};

// State

settings asked;

const char usage[] = " [OPTION]... [FILE]...\n";
const char help[] =
    "Solve the cubes in the FILEs, or on standard input, one a line.\n"
    "\n"
    "A line is a cube, or the turns that make it from the solved one, in any of these forms:\n"
    "  macro     RuFF*U 3(RU)        as in the window\n"
    "  moves     R U' F2 E (R U)3    as in books; also in brackets, [R U' F2]\n"
    "  facelets  54 letters          faces in the order U R F D L B, any six letters\n"
    "  cubies    UF UR ... DBR       the twenty names, as --to=cubies writes them\n"
    "For each cube one line is printed: a solution, nothing for a solved cube,\n"
    "or \"invalid: \" and what is wrong with it.\n"
    "\n"
    "  -d, --depth=DEPTH  search to DEPTH quarter turns: 14 (default), 15 or 16;\n"
    "                     each step may find shorter solutions and takes longer\n"
    "  -e                 the arguments are cubes, not files\n"
    "  -f, --from=FORM    the lines are all of this form: macro, moves, facelets or\n"
    "                     cubies; auto (default) finds out for each line\n"
    "  -t, --to=FORM      write the solution as a macro (default) or as moves, or the\n"
    "                     cube itself as facelets or cubies without solving it\n"
    "  -j, --jobs=N       solve N cubes at once, 1 (default) to 256\n"
    "  -v, --verbose      add quarter turns, stage-1 nodes, stage-2 nodes and\n"
    "                     seconds, separated by tabs\n"
    "      --header       begin with a line of titles\n"
    "      --json         write a JSON object for each line\n"
    "  -h, --help         display this help and exit\n"
    "  -V, --version      output version information and exit\n"
    "\n"
    "Exit status is 0, or 1 if a line was invalid or a file could not be read, or 2\n"
    "for wrong usage or where an answer could not be written.\n";

// A number in digits alone from least to greatest; anything else is refused with the complaint.
// Compared as a text: so no sign, blank or zero in front passes.
int parsenumber(std::string_view text, int least, int greatest, const char* complaint) {
    for (int number = least; number <= greatest; number++) {
        if (text == std::to_string(number)) {
            return number;
        }
    }
    refuseusage(complaint);
}

int parseform(const char* text, bool any) {
    const int form = findform(text);
    if (form < 0 || (form == anyform && !any)) {
        refuseusage(std::string(any ? "a form is auto, " : "a form is ") +
                    "macro, moves, facelets or cubies, not '" + text + "'");
    }
    return form;
}

enum { header_option = 256, json_option };

constexpr option options[] = {
    {"depth",   required_argument, nullptr, 'd'          },
    {"from",    required_argument, nullptr, 'f'          },
    {"to",      required_argument, nullptr, 't'          },
    {"jobs",    required_argument, nullptr, 'j'          },
    {"verbose", no_argument,       nullptr, 'v'          },
    {"header",  no_argument,       nullptr, header_option},
    {"json",    no_argument,       nullptr, json_option  },
    {"help",    no_argument,       nullptr, 'h'          },
    {"version", no_argument,       nullptr, 'V'          },
    {nullptr,   0,                 nullptr, 0            }
};

void parseoption(int c, char** argv) {
    switch (c) {
    case 'd':
        asked.depth =
            parsenumber(optarg, leastdepth, greatestdepth, "the depth must be 14, 15 or 16");
        break;
    case 'e': asked.arguments = true; break;
    case 'f': asked.from = parseform(optarg, true); break;
    case 't': asked.to = parseform(optarg, false); break;
    case 'j': asked.jobs = parsenumber(optarg, 1, mostjobs, "the jobs must be 1 to 256"); break;
    case 'v': asked.verbose = true; break;
    case header_option: asked.header = true; break;
    case json_option: asked.json = true; break;
    case 'h': sayandexit("Usage: " + escaped(programname) + usage + help);
    case 'V': sayandexit("vexel-solve " VEXEL_VERSION "\n");
    default: refuseoption(c, argv);
    }
}

void parsearguments(int argc, char** argv) {
    opterr = 0; // the library would write the user's bytes to the terminal as they are
    for (int c = 0; (c = getopt_long(argc, argv, ":d:ef:t:j:vhV", options, nullptr)) != -1;) {
        parseoption(c, argv);
    }
    asked.words.assign(argv + optind, argv + argc);
    if (asked.arguments && asked.words.empty()) {
        refuseusage("-e needs a cube");
    }
}

// Answering

bool solves() {
    return asked.to == macroform || asked.to == movesform;
}

std::vector<field> titles() {
    std::vector<field> fields = {
        {solves() ? "solution" : formnames[asked.to], textfield, ""}
    };
    if (asked.verbose && solves()) {
        for (const char* title : {"turns", "stage1", "stage2", "seconds"}) {
            fields.push_back({title, numberfield, ""});
        }
    }
    return fields;
}

std::string inmoves(const std::string& macro) {
    move_text moves;
    misfit bad;
    return readmacro(macro, true, moves, bad) ? bookmoves(moves) : macro;
}

// The solution of the model's cube and what it took, as titles() says. The tables are made with the
// first cube: who is told of a bad line, or asks for another form, does not wait for them. The time
// is that of the search alone.
void fillsolution(std::vector<field>& fields) {
    while (!initializesolve()) {
        continue;
    }
    const std::string cube = cubiestext();
    const auto start = std::chrono::steady_clock::now();
    const char* const answer = my_user_enters_cube(cube.c_str());
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const std::string solution = std::strcmp(answer, "error") == 0 ? "" : answer;
    fields[0].value = asked.to == movesform ? inmoves(solution) : solution;
    if (asked.verbose) {
        char seconds[32];
        std::snprintf(seconds, sizeof seconds, "%.3f", time.count());
        fields[1].value = std::to_string(solution.size());
        fields[2].value = std::to_string(a_node_count);
        fields[3].value = std::to_string(b_node_count);
        fields[4].value = seconds;
    }
}

std::vector<field> answerfields(const read_line& line) {
    std::vector<field> fields = titles();
    makecube(line);
    if (solves()) {
        fillsolution(fields);
    } else {
        fields[0].value = asked.to == faceletsform ? faceletstext() : cubiestext();
    }
    return fields;
}

line_answer answerline(const asked_line& line) {
    static read_line read; // keeps its room from line to line
    const bool good = readasked(line, asked.from, read);
    line_answer answer = {good, "", notelines(line, read)};
    std::vector<field> fields = good ? answerfields(read) : errorfields(read);
    if (asked.json) {
        fields.insert(fields.begin(), {"line", numberfield, std::to_string(line.number)});
        answer.out = jsonobject(fields);
    } else {
        answer.out = good ? tablerow(fields) : invalidtext(read) + "\n";
    }
    return answer;
}

bool alllines(const std::function<void(const asked_line&)>& take,
              const std::function<void(const line_reader&)>& wait) {
    return asked.arguments ? eachargument(asked.words, take) : eachline(asked.words, take, wait);
}

bool answerhere() {
    bool good = true;
    const bool whole = alllines(
        [&](const asked_line& line) {
            const line_answer answer = answerline(line);
            good = answer.good && good;
            putanswer(answer);
            if (solves()) {
                flushanswers(); // each takes long enough for somebody to wait for it
            }
        },
        [](const line_reader&) { flushanswers(); });
    flushanswers();
    return good && whole;
}

// What the jobs are to share rather than make each for itself: the tables, and the part of them
// that grows with the first ordinary cube.
void preparejobs() {
    while (!initializesolve()) {
        continue;
    }
    lot from(1);
    my_user_enters_cube(drawcubies(from).c_str());
}

bool answerinjobs() {
    if (solves()) {
        preparejobs();
    }
    startjobs(asked.jobs, answerline);
    const bool whole = alllines(givejob, waitforinput);
    return endjobs() && whole;
}

} // namespace

int main(int argc, char** argv) {
    keepstandardfiles();
    nameprogram(argv[0]);
    parsearguments(argc, argv);
    setsearchdepth(asked.depth);
    if (asked.header && !asked.json) {
        put(titlerow(titles()));
    }
    return (asked.jobs > 1 ? answerinjobs() : answerhere()) ? all_good : some_invalid;
}
