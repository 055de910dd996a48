// SPDX-License-Identifier: MIT
#include "tools/forms.h"

#include "model/parser.h"
#include "model/permutation.h"
#include "solver/cubecheck.h"
#include "tools/movewriting.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <iterator>

const char* const formnames[formcount] = {"auto", "macro", "moves", "facelets", "cubies"};

int findform(std::string_view name) {
    const auto* found = std::find(std::begin(formnames), std::end(formnames), name);
    return found == std::end(formnames) ? -1 : static_cast<int>(found - std::begin(formnames));
}

namespace {

constexpr std::string_view blanks = " \t\n\v\f\r";
constexpr std::size_t cubiecount = edgecount + cornercount;
constexpr std::size_t surelycubies = 12; // words of two or three letters: nobody writes moves so

// ORDER FACELET: the faces U R F D L B as they follow each other in a text, by number.
constexpr int faceletfaces[cubefacecount] = {0, 3, 2, 5, 1, 4};

constexpr int placeof(std::size_t facelet) {
    return faceletfaces[facelet / faceplaces] * faceplaces + static_cast<int>(facelet % faceplaces);
}

// A part of a line, and where it begins there.
struct line_part {
    std::string_view line;
    std::string_view text;
};

line_part trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {line, {}};
    }
    return {line, line.substr(first, line.find_last_not_of(blanks) - first + 1)};
}

std::size_t columnin(const line_part& part, std::size_t at) {
    const std::size_t before = part.text.empty() ? 0 : part.text.data() - part.line.data();
    return columnof(part.line, before + at);
}

bool refuse(read_line& to, std::size_t column, std::string text) {
    to.error = {column, std::move(text)};
    return false;
}

std::string quoted(char c) {
    return "\"" + std::string(1, c) + "\"";
}

bool iscapital(char c) {
    return c >= 'A' && c <= 'Z';
}

bool isletter(char c) {
    return iscapital(c) || (c >= 'a' && c <= 'z');
}

char capital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::vector<std::string_view> wordsof(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t i = text.find_first_not_of(blanks); i != std::string_view::npos;
         i = text.find_first_not_of(blanks, i)) {
        const std::size_t end = std::min(text.find_first_of(blanks, i), text.size());
        words.push_back(text.substr(i, end - i));
        i = end;
    }
    return words;
}

// Facelets

struct facelet_text {
    std::string letters;
    std::vector<std::size_t> at; // where each stands in the text
};

facelet_text faceletsof(std::string_view text) {
    facelet_text facelets;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (blanks.find(text[i]) == std::string_view::npos) {
            facelets.letters += text[i];
            facelets.at.push_back(i);
        }
    }
    return facelets;
}

constexpr std::size_t centreat(int face) {
    return static_cast<std::size_t>(face) * faceplaces + 4;
}

char centreof(const std::string& letters, int face) {
    return letters[centreat(face)];
}

bool sixcentres(const std::string& letters) {
    for (int face = 0; face < cubefacecount; face++) {
        for (int other = 0; other < face; other++) {
            if (centreof(letters, face) == centreof(letters, other)) {
                return false;
            }
        }
    }
    return true;
}

// The different letters, in order.
std::string kindsof(std::string letters) {
    std::sort(letters.begin(), letters.end());
    letters.erase(std::unique(letters.begin(), letters.end()), letters.end());
    return letters;
}

bool ninetimes(const std::string& letters, char letter) {
    return std::count(letters.begin(), letters.end(), letter) == faceplaces;
}

// Written in one word, or in words of whole faces. Six centres are enough, and so are nine of each
// letter: what has a slip in the other is still told as facelets, where the slip can be named.
// Three letters in both cases are a macro's.
bool looklikefacelets(std::string_view text) {
    if (text.size() < placecount || text.size() > 2 * placecount) {
        return false;
    }
    const std::string letters = faceletsof(text).letters;
    if (letters.size() != placecount || !std::all_of(letters.begin(), letters.end(), isletter)) {
        return false;
    }
    const std::vector<std::string_view> words = wordsof(text);
    if (std::any_of(words.begin(), words.end(),
                    [](std::string_view word) { return word.size() % faceplaces != 0; })) {
        return false;
    }
    const std::string kinds = kindsof(letters);
    std::string capitals = kinds;
    std::transform(kinds.begin(), kinds.end(), capitals.begin(), capital);
    return kindsof(capitals).size() == cubefacecount && kinds.size() == cubefacecount &&
           (sixcentres(letters) || std::all_of(kinds.begin(), kinds.end(), [&](char kind) {
                return ninetimes(letters, kind);
            }));
}

// Each letter must be that of a centre, and none come a tenth time. After the centres have been
// found good: which letters there may be is known by them alone.
bool checkletters(const line_part& part, const facelet_text& facelets, read_line& to) {
    int seen[UCHAR_MAX + 1] = {};
    for (std::size_t i = 0; i < placecount; i++) {
        const char letter = facelets.letters[i];
        bool centre = false;
        for (int face = 0; face < cubefacecount; face++) {
            centre = centre || letter == centreof(facelets.letters, face);
        }
        if (!centre) {
            return refuse(to, columnin(part, facelets.at[i]), quoted(letter) + " is on no centre");
        }
        if (++seen[static_cast<unsigned char>(letter)] > faceplaces) {
            return refuse(to, columnin(part, facelets.at[i]),
                          quoted(letter) + " comes more than nine times");
        }
    }
    return true;
}

bool checkcentres(const line_part& part, const facelet_text& facelets, read_line& to) {
    for (int face = 0; face < cubefacecount; face++) {
        const char letter = centreof(facelets.letters, face);
        const std::size_t at = facelets.at[centreat(face)];
        if (!isletter(letter)) {
            return refuse(to, columnin(part, at), quoted(letter) + " is no letter");
        }
        for (int other = 0; other < face; other++) {
            if (letter == centreof(facelets.letters, other)) {
                return refuse(to, columnin(part, at), quoted(letter) + " is on two centres");
            }
        }
    }
    return true;
}

bool checknumber(const line_part& part, const facelet_text& facelets, read_line& to) {
    const std::size_t number = facelets.letters.size();
    if (number == placecount) {
        return true;
    }
    const std::size_t at = number > placecount ? facelets.at[placecount] : part.text.size();
    return refuse(to, columnin(part, at), std::to_string(number) + " facelets instead of 54");
}

// The colour that each letter stands for: that of its home face where the letters are the faces'
// own, so that a cube which is held otherwise is told and read alike; else that of the face which
// it is the centre of.
unsigned char colorof(const std::string& letters, char letter) {
    const bool own = kindsof(letters) == "BDFLRU";
    const char* const home = own ? std::strchr(faces, letter) : nullptr;
    if (home != nullptr) {
        return static_cast<unsigned char>(home - faces);
    }
    int face = 0;
    while (centreof(letters, face) != letter) {
        face++;
    }
    return static_cast<unsigned char>(faceletfaces[face]);
}

// That a cube can be turned into the colours. The model is asked, which knows what cubies they make
// and where the centres are; the solver's check knows names only.
bool checkcubies(read_line& to) {
    makecube(to);
    return sanitycheckcube(cubiestext().c_str()) != 0 || refuse(to, 0, geterrorstring());
}

// Each check leans on those before it: without 54 letters no face has a fifth one, and without six
// centres no letter has a colour.
bool readfacelets(const line_part& part, read_line& to) {
    to.form = faceletsform;
    const facelet_text facelets = faceletsof(part.text);
    if (!checknumber(part, facelets, to) || !checkcentres(part, facelets, to) ||
        !checkletters(part, facelets, to)) {
        return false;
    }
    for (std::size_t i = 0; i < placecount; i++) {
        to.colors[placeof(i)] = colorof(facelets.letters, facelets.letters[i]);
    }
    return checkcubies(to);
}

// Cubies

bool ispropername(std::string_view word) {
    const auto is = [&](const char* name) { return word == name; };
    return std::any_of(edge_cubie_string, edge_cubie_string + 2 * edge_count, is) ||
           std::any_of(corner_cubie_string, corner_cubie_string + 3 * corner_count, is);
}

// One word alone is a macro, whatever its letters.
bool looklikecubies(std::string_view text) {
    if (text.find(' ') == std::string_view::npos && text.find('\t') == std::string_view::npos) {
        return false;
    }
    if (!std::all_of(text.begin(), text.end(), [](char c) {
            return iscapital(c) || blanks.find(c) != std::string_view::npos;
        })) {
        return false;
    }
    const std::vector<std::string_view> words = wordsof(text);
    const auto fits = [](std::string_view word) { return word.size() == 2 || word.size() == 3; };
    return static_cast<std::size_t>(std::count_if(words.begin(), words.end(), fits)) >=
               surelycubies ||
           (words.size() > 1 && std::all_of(words.begin(), words.end(), ispropername));
}

void setcolor(read_line& to, int place, char letter) {
    to.colors[place] = static_cast<unsigned char>(std::strchr(faces, letter) - faces);
}

// The names are read as seen from the centres, which therefore are at home.
void setcolors(const cubie_names& names, read_line& to) {
    for (int face = 0; face < cubefacecount; face++) {
        to.colors[face * faceplaces + 4] = static_cast<unsigned char>(face);
    }
    for (int i = 0; i < edgecount; i++) {
        for (int k = 0; k < 2; k++) {
            setcolor(to, edgeplaces[i][k], names.edge[i][k]);
        }
    }
    for (int i = 0; i < cornercount; i++) {
        for (int k = 0; k < 3; k++) {
            setcolor(to, cornerplaces[i][k], names.corner[i][k]);
        }
    }
}

// The solver's check reads twenty names and not on. A NUL would hide what follows it.
bool readcubies(const line_part& part, read_line& to) {
    to.form = cubiesform;
    std::string text(part.text);
    std::replace(text.begin(), text.end(), '\0', '?');
    if (sanitycheckcube(text.c_str()) == 0) {
        return refuse(to, 0, geterrorstring());
    }
    const std::vector<std::string_view> words = wordsof(part.text);
    if (words.size() > cubiecount) {
        return refuse(to, columnin(part, words[cubiecount].data() - part.text.data()),
                      "Surplus cubie.");
    }
    cubie_names names;
    read_cubies(text.c_str(), names);
    setcolors(names, to);
    return true;
}

// Of words that may be moves of two letters, too, few are refused with both ways out: "UF UR" is a
// cube begun or four moves, and the wrong guess would be a wrong answer.
bool readlikelycubies(const line_part& part, read_line& to) {
    const std::size_t words = wordsof(part.text).size();
    if (words < surelycubies) {
        return refuse(to, columnin(part, 0),
                      std::to_string(words) +
                          " names of cubies instead of 20; --from=moves reads them as moves");
    }
    return readcubies(part, to);
}

// Macros and moves

bool fits(read_line& to, line_form form) {
    to.form = form;
    return true;
}

bool refusemisfit(const line_part& part, const misfit& bad, read_line& to) {
    return refuse(to, columnin(part, bad.at), bad.why);
}

// What is read here but lost in the window is worth a word: the two would make different cubes.
void notedropped(const line_part& part, read_line& to) {
    constexpr std::size_t mosttold = 20; // of a line that may have millions
    const std::vector<std::size_t> dropped = droppedbywindow(part.text);
    for (std::size_t i = 0; i < std::min(dropped.size(), mosttold); i++) {
        const std::size_t at = dropped[i];
        const std::string_view character = part.text.substr(at, characterat(part.text, at));
        to.notes.push_back(
            {columnin(part, at), "the window would drop \"" + std::string(character) + "\""});
    }
    if (dropped.size() > mosttold) {
        to.notes.push_back(
            {0, "the window would drop " + std::to_string(dropped.size() - mosttold) + " more"});
    }
}

// Outside brackets the window takes no moves, so that nothing can be lost on it.
bool readbookmoves(const line_part& part, bool certain, read_line& to, misfit& bad) {
    if (!readmoves(part.text, certain, to.moves, bad)) {
        return false;
    }
    to.macro = macrotext(to.moves, false);
    if (part.text.starts_with('[')) {
        notedropped(part, to);
    }
    return fits(to, movesform);
}

bool readownmacro(const line_part& part, bool strict, read_line& to, misfit& bad) {
    if (!readmacro(part.text, strict, to.moves, bad)) {
        return false;
    }
    to.macro = part.text;
    return fits(to, macroform);
}

// "R2(UF)" is a macro that counts the group; in books the 2 would belong to the R. Small letters
// are a macro's.
void notecounts(const line_part& part, read_line& to) {
    move_text moves;
    misfit bad = {};
    const std::size_t open = part.text.find("2(");
    if (open != std::string_view::npos &&
        part.text.find_first_of("udlrfb") == std::string_view::npos &&
        readmoves(part.text, false, moves, bad)) {
        to.notes.push_back({columnin(part, open),
                            "\"2\" is read as the count of the group; --from=moves reads it with "
                            "the letter before it"});
    }
}

// A macro that is nearly as long as facelets are, in capitals and with all six letters.
void notelength(const line_part& part, read_line& to) {
    constexpr std::size_t about = 4;
    const std::size_t number = part.text.size();
    if (number + about >= placecount && number <= placecount + about &&
        kindsof(std::string(part.text)) == "BDFLRU") {
        to.notes.push_back(
            {0, std::to_string(number) + " letters are read as a macro, not as facelets"});
    }
}

// The forms with more to tell them by come first. Between a macro and moves the macro wins, since
// that is how the window reads what is typed there.
bool readany(const line_part& part, read_line& to) {
    misfit asmacro = {};
    misfit asmoves = {};
    if (part.text.starts_with('[')) {
        return readbookmoves(part, true, to, asmoves) || refusemisfit(part, asmoves, to);
    }
    if (looklikefacelets(part.text)) {
        return readfacelets(part, to);
    }
    if (looklikecubies(part.text)) {
        return readlikelycubies(part, to);
    }
    if (readownmacro(part, true, to, asmacro)) {
        notecounts(part, to);
        notelength(part, to);
        return true;
    }
    return readbookmoves(part, false, to, asmoves) ||
           refusemisfit(part, asmoves.reached >= asmacro.reached ? asmoves : asmacro, to);
}

// A form that was told needs no proof: a small letter is what that form makes of it.
bool readas(const line_part& part, line_form form, read_line& to) {
    misfit bad = {};
    const bool bracketed = part.text.starts_with('[');
    switch (form) {
    case macroform:
        return (bracketed ? readbookmoves(part, true, to, bad)
                          : readownmacro(part, false, to, bad)) ||
               refusemisfit(part, bad, to);
    case movesform: return readbookmoves(part, true, to, bad) || refusemisfit(part, bad, to);
    case faceletsform: return readfacelets(part, to);
    case cubiesform: return readcubies(part, to);
    default: return readany(part, to);
    }
}

} // namespace

bool readform(std::string_view line, line_form form, read_line& to) {
    to.form = anyform;
    to.error = {0, ""};
    to.notes.clear();
    return readas(trimmed(line), form, to);
}

std::string notetext(const line_note& note) {
    return note.column == 0 ? note.text
                            : "column " + std::to_string(note.column) + ": " + note.text;
}

void makecube(const read_line& line) {
    initcubies();
    if (line.form == macroform || line.form == movesform) {
        parsing = 0; // at once: nobody takes turns out of a queue here
        parsestring(line.macro.c_str(), static_cast<int>(line.macro.size()));
    } else {
        std::copy(std::begin(line.colors), std::end(line.colors), cubecolors);
    }
}

std::string faceletstext() {
    std::string text;
    for (std::size_t i = 0; i < placecount; i++) {
        text += faces[cubecolors[placeof(i)]];
    }
    return text;
}

// The listing is that of the cube held as the solver wants it; the model keeps its own colours.
std::string cubiestext() {
    muckcube();
    std::string text = dumpcube();
    unmuckcube();
    text.pop_back(); // the blank behind the last name
    return text;
}
