// SPDX-License-Identifier: MIT
//
// vexel-macro: what the window knows of a macro, for scripts. One macro a line in, in any of the
// forms that people write (tools/forms.h), or a macro file; what is asked for out.
#include "base/readfile.h"
#include "base/replacefile.h"
#include "macros/macrolines.h"
#include "solver/solver.h"
#include "tools/drawing.h"
#include "tools/fields.h"
#include "tools/forms.h"
#include "tools/inputs.h"
#include "tools/lines.h"
#include "tools/messages.h"
#include "tools/movewriting.h"
#include "tools/pictures.h"
#include "tools/properties.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <getopt.h>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct wanted_property {
    const property_row* row;
    move_text with; // its argument
};

struct settings {
    int from = anyform;
    bool fromtold = false;
    bool named = false;     // the files are macro files
    bool arguments = false; // the words are macros, not files
    bool header = false;
    bool json = false;
    std::uint64_t scrambles = 0; // to be drawn in place of an input
    std::uint64_t seed = 0;
    bool seedtold = false;
    std::string eps; // files to draw into, "-" for standard output; empty for none
    std::string svg;
    std::string colors = "WGRBOY";
    bool colorstold = false;
    std::vector<wanted_property> wanted;
    std::vector<std::string> words; // files or macros
};

// State

settings asked;
constinit bool allgood = true;
constinit bool drawn = false; // the one macro that a picture can be of has come
move_text nothing;

const char usage[] = " [OPTION]... [FILE]...\n";
const char help[] =
    "Tell what is asked for of the macros in the FILEs, or on standard input, one a line.\n"
    "\n"
    "A line is a macro, or moves as in books; also facelets or the names of cubies, of which\n"
    "only what is true of any cube can be told. 'vexel-solve --help' shows the forms.\n"
    "\n"
    "With one of these, its value alone; with several, a column for each; with none, a card:\n"
    "      --name            the name that a macro file gives it\n"
    "      --macro           the macro itself, as the window takes it\n"
    "      --check           whether it is good\n"
    "      --moves           as moves in books\n"
    "      --length          its quarter turns\n"
    "      --order           how often to do it until each face is of one colour\n"
    "      --order-facelets  how often until each facelet is at home\n"
    "      --inverse         the macro that takes it back\n"
    "      --expand          with its groups written out\n"
    "      --conjugate=A     A, it, A backwards\n"
    "      --commutator=A    A, it, A backwards, it backwards\n"
    "      --cycles          the numbers and lengths of the cycles of cubies\n"
    "      --facelets        the 54 letters of the cube that it makes\n"
    "      --cubies          the names of the cubies of that cube\n"
    "      --permutation     the window's report on that cube\n"
    "      --net             that cube unfolded\n"
    "\n"
    "      --eps=FILE        print the cube as the window does, without a display\n"
    "      --svg=FILE        the same for the web\n"
    "      --colors=LETTERS  its colours for U L F R B D, six of WGRBYOKSVDPCX\n"
    "      --scramble=N      take N cubes drawn by lot instead of an input, each as a\n"
    "                        macro that makes it\n"
    "      --seed=S          draw the cubes of this number, 0 to 18446744073709551615\n"
    "\n"
    "  -e                    the arguments are macros, not files\n"
    "  -f, --from=FORM       the lines are all of this form: macro, moves, facelets or\n"
    "                        cubies; auto (default) finds out for each line\n"
    "  -n, --named           the files are macro files: a line with a name, then a macro\n"
    "      --header          begin with a line of titles\n"
    "      --json            write a JSON object for each line\n"
    "  -h, --help            display this help and exit\n"
    "  -V, --version         output version information and exit\n"
    "\n"
    "Exit status is 0, or 1 if a line was invalid or a file could not be read, or 2\n"
    "for wrong usage or where an answer could not be written.\n";

// Options

enum {
    eps_option = 256,
    svg_option,
    colors_option,
    scramble_option,
    seed_option,
    header_option,
    json_option,
    first_property
};

constexpr option plain_options[] = {
    {"eps",      required_argument, nullptr, eps_option     },
    {"svg",      required_argument, nullptr, svg_option     },
    {"colors",   required_argument, nullptr, colors_option  },
    {"scramble", required_argument, nullptr, scramble_option},
    {"seed",     required_argument, nullptr, seed_option    },
    {"from",     required_argument, nullptr, 'f'            },
    {"named",    no_argument,       nullptr, 'n'            },
    {"header",   no_argument,       nullptr, header_option  },
    {"json",     no_argument,       nullptr, json_option    },
    {"help",     no_argument,       nullptr, 'h'            },
    {"version",  no_argument,       nullptr, 'V'            },
};

// Those above and one for each property.
std::vector<option> alloptions() {
    std::vector<option> all(std::begin(plain_options), std::end(plain_options));
    for (int i = 0; i < propertycount; i++) {
        const property_row& row = property_table[i];
        all.push_back({row.name, row.argument ? required_argument : no_argument, nullptr,
                       first_property + i});
    }
    all.push_back({nullptr, 0, nullptr, 0});
    return all;
}

// All of the text must be digits: a sign, a blank or a unit behind it is refused, not passed over.
std::uint64_t parsenumber(std::string_view text, std::uint64_t least, const char* complaint) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least) {
        refuseusage(complaint);
    }
    return number;
}

void parsefrom() {
    asked.from = findform(optarg);
    asked.fromtold = true;
    if (asked.from < 0) {
        refuseusage(std::string("a form is auto, macro, moves, facelets or cubies, not '") +
                    optarg + "'");
    }
}

void parsecolors() {
    asked.colors = optarg;
    asked.colorstold = true;
    if (!goodcolors(asked.colors)) {
        refuseusage("the colours must be six different letters of WGRBYOKSVDPCX");
    }
}

// The argument is read once and not with each line. What resets the cube has no way back, which a
// conjugate and a commutator need.
void wantproperty(const property_row& row) {
    wanted_property wanted = {&row, {}};
    if (row.argument) {
        read_line read;
        const bool good = readform(optarg, anyform, read);
        if (!good || (read.form != macroform && read.form != movesform) || read.moves.resets) {
            refuseusage(std::string("--") + row.name + " needs turns: " +
                        (good ? "'" + std::string(optarg) + "' is none" : notetext(read.error)));
        }
        wanted.with = read.moves;
    }
    asked.wanted.push_back(std::move(wanted));
}

void parseoption(int c, char** argv) {
    switch (c) {
    case 'e': asked.arguments = true; break;
    case 'f': parsefrom(); break;
    case 'n': asked.named = true; break;
    case eps_option: asked.eps = optarg; break;
    case svg_option: asked.svg = optarg; break;
    case colors_option: parsecolors(); break;
    case scramble_option:
        asked.scrambles = parsenumber(optarg, 1, "the scrambles must be a number, 1 or more");
        break;
    case seed_option:
        asked.seed = parsenumber(optarg, 0, "the seed must be 0 to 18446744073709551615");
        asked.seedtold = true;
        break;
    case header_option: asked.header = true; break;
    case json_option: asked.json = true; break;
    case 'h': sayandexit("Usage: " + escaped(programname) + usage + help);
    case 'V': sayandexit("vexel-macro " VEXEL_VERSION "\n");
    default:
        if (c < first_property) {
            refuseoption(c, argv);
        }
        wantproperty(property_table[c - first_property]);
    }
}

// What would have no effect is refused: it was meant to have one.
void checksettings() {
    const bool scrambling = asked.scrambles != 0;
    if (scrambling && (asked.arguments || asked.named || asked.fromtold || !asked.words.empty())) {
        refuseusage("--scramble takes no input");
    }
    if (asked.seedtold && !scrambling) {
        refuseusage("--seed is for --scramble");
    }
    if (asked.colorstold && asked.svg.empty()) {
        refuseusage("--colors is for --svg");
    }
    if (asked.arguments && (asked.named || asked.words.empty())) {
        refuseusage(asked.named ? "-e and --named exclude each other" : "-e needs a macro");
    }
}

void parsearguments(int argc, char** argv) {
    const std::vector<option> options = alloptions();
    opterr = 0; // the library would write the user's bytes to the terminal as they are
    for (int c = 0; (c = getopt_long(argc, argv, ":ef:nhV", options.data(), nullptr)) != -1;) {
        parseoption(c, argv);
    }
    asked.words.assign(argv + optind, argv + argc);
    checksettings();
    if (asked.named && !asked.fromtold) {
        asked.from = macroform;
    }
    if (asked.scrambles != 0 && asked.wanted.empty() && !asked.json && asked.eps.empty() &&
        asked.svg.empty()) {
        asked.wanted.push_back({&property_table[macroproperty], {}});
    }
}

// Answers. What is asked for of a line decides between four ways of telling it.

field fieldof(const wanted_property& wanted, const property_value& value) {
    return {wanted.row->name, value.good ? wanted.row->kind : nofield, value.text};
}

std::string invalid(const std::string& why) {
    return "invalid: " + escaped(why);
}

// One value alone: a text of several lines ends with an empty one.
line_answer answeralone(const wanted_property& wanted, const subject& of) {
    const property_value value = propertyof(*wanted.row, of);
    if (!value.good) {
        return {false, invalid(value.text) + "\n", ""};
    }
    const bool ended = value.text.ends_with('\n');
    return {true, value.text + (wanted.row->lines && !ended ? "\n\n" : "\n"), ""};
}

line_answer answerrow(const std::vector<wanted_property>& wanted, const read_line& read,
                      const std::string& name) {
    line_answer answer = {true, "", ""};
    std::vector<field> fields;
    for (const wanted_property& w : wanted) {
        property_value value = propertyof(*w.row, {read, name, w.with});
        answer.good = answer.good && value.good;
        value.text = value.good ? value.text : invalid(value.text);
        fields.push_back(fieldof(w, value));
    }
    answer.out = tablerow(fields);
    return answer;
}

// All properties that need no argument.
std::vector<wanted_property> wholecard() {
    std::vector<wanted_property> card;
    for (const property_row& row : property_table) {
        if (!row.argument) {
            card.push_back({&row, {}});
        }
    }
    return card;
}

// A value that is not there is null. Only one that was asked for by name makes the line a bad one.
line_answer answerjson(const asked_line& line, const read_line& read, const std::string& name) {
    std::vector<field> fields = {
        {"line", numberfield, std::to_string(line.number)},
        {"form", textfield,   formnames[read.form]       }
    };
    line_answer answer = {true, "", ""};
    std::string why;
    for (const wanted_property& w : asked.wanted.empty() ? wholecard() : asked.wanted) {
        const property_value value = propertyof(*w.row, {read, name, w.with});
        fields.push_back(fieldof(w, value));
        why = why.empty() && !value.good ? value.text : why;
    }
    if (!asked.wanted.empty() && !why.empty()) {
        answer.good = false;
        fields.push_back({"error", textfield, why});
    }
    answer.out = jsonobject(fields);
    return answer;
}

// Values stand in one column; one of several lines stands below its title, indented.
std::string cardentry(const property_row& row, const property_value& value) {
    constexpr std::size_t titlewidth = 16;
    std::string entry = std::string(row.name) + ":";
    if (!value.good) {
        return entry.append(titlewidth - entry.size(), ' ') + "none: " + value.text + "\n";
    }
    if (!row.lines) {
        return value.text.empty()
                   ? entry + "\n"
                   : entry.append(titlewidth - entry.size(), ' ') + value.text + "\n";
    }
    for (std::size_t from = 0; from < value.text.size();) {
        const std::size_t end = std::min(value.text.find('\n', from), value.text.size());
        entry += end > from ? "\n  " + value.text.substr(from, end - from) : "\n";
        from = end + 1;
    }
    return entry + "\n";
}

// What a cube that is no macro cannot have is left out, and so is a name that it has not.
line_answer answercard(const read_line& read, const std::string& name) {
    line_answer answer = {true, "", ""};
    const bool macro = read.form == macroform || read.form == movesform;
    for (const wanted_property& w : wholecard()) {
        if ((macro || !w.row->ofmacro) && !(name.empty() && w.row == property_table)) {
            answer.out += cardentry(*w.row, propertyof(*w.row, {read, name, w.with}));
        }
    }
    answer.out += "\n";
    return answer;
}

line_answer answergood(const asked_line& line, const read_line& read, const std::string& name) {
    if (asked.json) {
        return answerjson(line, read, name);
    }
    if (asked.wanted.size() == 1) {
        return answeralone(asked.wanted[0], {read, name, asked.wanted[0].with});
    }
    return asked.wanted.empty() ? answercard(read, name) : answerrow(asked.wanted, read, name);
}

// In the first column that is not the name, which is known all the same.
line_answer answerbad(const asked_line& line, const read_line& read, const std::string& name) {
    line_answer answer = {false, invalidtext(read) + "\n", ""};
    std::vector<field> fields;
    if (asked.json) {
        fields = errorfields(read);
        fields.insert(fields.begin(), {"line", numberfield, std::to_string(line.number)});
        answer.out = jsonobject(fields);
    } else if (asked.wanted.size() > 1) {
        std::string told = invalidtext(read);
        for (const wanted_property& w : asked.wanted) {
            const bool isname = w.row == property_table;
            fields.push_back({w.row->name, textfield, isname ? name : told});
            told = isname ? told : "";
        }
        answer.out = tablerow(fields);
    }
    return answer;
}

// Pictures

// Whole or not at all. Unlike the window this keeps nothing of the old file: a script that names
// one means it.
void writepicture(const std::string& file, const std::string& text) {
    if (file == "-") {
        put(text);
        return;
    }
    const int error = replacefile(file, text);
    if (error != 0) {
        flushanswers();
        complain("Couldn't open " + file + " for writing: " + whynot(error));
        std::exit(bad_usage);
    }
}

bool drawing() {
    return !asked.eps.empty() || !asked.svg.empty();
}

// Whether it could be drawn: a file holds one picture.
bool drawpictures(const asked_line& line, const read_line& read) {
    if (drawn) {
        flushanswers();
        complain(placeof(line) + ": only the first macro is drawn");
        return false;
    }
    drawn = true;
    makecube(read);
    if (!asked.eps.empty()) {
        writepicture(asked.eps, epstext());
    }
    if (!asked.svg.empty()) {
        writepicture(asked.svg, svgtext(asked.colors));
    }
    return true;
}

// Running

// Where only pictures are asked for, standard output may be one of them: what is wrong with the
// line is then told aside.
void answerread(const asked_line& line, bool good, const read_line& read, const std::string& name) {
    line_answer answer = {good, "", ""};
    if (!good && drawing() && asked.wanted.empty()) {
        flushanswers();
        complain(placeof(line) + ": " + notetext(read.error));
    } else if (!good) {
        answer = answerbad(line, read, name);
    } else {
        const bool pictured = !drawing() || drawpictures(line, read);
        if (!drawing() || !asked.wanted.empty() || asked.json) {
            answer = answergood(line, read, name);
        }
        answer.good = answer.good && pictured;
    }
    answer.aside = notelines(line, read);
    allgood = allgood && answer.good;
    putanswer(answer);
}

void answerline(const asked_line& line, const std::string& name) {
    static read_line read; // keeps its room from line to line
    const bool good = readasked(line, asked.from, read);
    answerread(line, good, read, name);
}

// Macro files

// Each pair of lines; a "$" is a mark of the window's.
void answermacros(std::FILE* file, const std::string& source) {
    macro_lines macro = {};
    for (std::size_t number = 1; readmacrolines(file, macro) != 0; number++) {
        const char* moves = macro.moves[0] == '$' ? macro.moves + 1 : macro.moves;
        answerline({source, 2 * number, false, moves}, macro.name);
    }
}

void answermacrofile(const std::string& path) {
    const bool standard = path == "-";
    std::FILE* const file = standard ? stdin : std::fopen(path.c_str(), "r");
    const std::string source = standard ? "standard input" : path;
    if (file == nullptr) {
        complainoffile(source, errno);
        allgood = false;
        return;
    }
    errno = 0; // so that it is about this file
    answermacros(file, source);
    if (std::ferror(file) != 0) {
        complainoffile(source, errno);
        allgood = false;
    }
    if (!standard) {
        std::fclose(file);
    }
}

void answermacrofiles() {
    for (const std::string& path :
         asked.words.empty() ? std::vector<std::string>{"-"} : asked.words) {
        answermacrofile(path);
    }
}

// Scrambles

// A macro costs a search, the cube next to nothing: who wants only the cube need not wait.
bool needsmacro() {
    const auto ofmacro = [](const wanted_property& w) { return w.row->ofmacro; };
    return (asked.json && asked.wanted.empty()) ||
           std::any_of(asked.wanted.begin(), asked.wanted.end(), ofmacro);
}

// A macro that makes the cube: what solves it, backwards.
std::string macrothatmakes(const std::string& cubies) {
    while (initializesolve() == 0) {
        continue;
    }
    const char* const answer = my_user_enters_cube(cubies.c_str());
    move_text solution;
    misfit bad = {};
    // "error": the lot was the solved cube, which needs no turn.
    const bool good = std::strcmp(answer, "error") == 0 || readmacro(answer, true, solution, bad);
    assert(good);
    return macrotext(solution, true);
}

// The cubes stand for lines of a file.
void answerscrambles() {
    std::random_device chance;
    lot from(asked.seedtold ? asked.seed : (static_cast<std::uint64_t>(chance()) << 32) + chance());
    for (std::uint64_t i = 1; i <= asked.scrambles; i++) {
        std::string text = drawcubies(from);
        asked.from = cubiesform;
        if (needsmacro()) {
            text = macrothatmakes(text);
            asked.from = macroform;
            flushanswers(); // the next one takes its time
        }
        answerline({"scramble", static_cast<std::size_t>(i), false, text}, "");
    }
}

void answerlines() {
    const auto take = [](const asked_line& line) { answerline(line, ""); };
    const bool whole =
        asked.arguments ? eachargument(asked.words, take)
                        : eachline(asked.words, take, [](const line_reader&) { flushanswers(); });
    allgood = allgood && whole;
}

} // namespace

int main(int argc, char** argv) {
    keepstandardfiles();
    nameprogram(argv[0]);
    parsearguments(argc, argv);
    if (asked.header && !asked.json && asked.wanted.size() > 0) {
        std::vector<field> titles;
        for (const wanted_property& wanted : asked.wanted) {
            titles.push_back({wanted.row->name, textfield, ""});
        }
        put(titlerow(titles)); // also where no line follows: so it is a table all the same
    }
    if (asked.scrambles != 0) {
        answerscrambles();
    } else if (asked.named) {
        answermacrofiles();
    } else {
        answerlines();
    }
    flushanswers();
    return allgood ? all_good : some_invalid;
}
