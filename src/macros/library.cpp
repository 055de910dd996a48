// SPDX-License-Identifier: MIT
#include "macros/library.h"

#include "macros/preferences.h"
#include "model/notation.h"
#include "model/parser.h"
#include "shell.h"

#include <algorithm>
#include <iterator>
#include <optional>

constinit int maccount = 0;
std::string macnames[maxmacros]; // no constinit: not every compiler sees that these are constants
std::string macstrs[maxmacros];
constinit int showmac[maxmacros] = {};

namespace {

struct macro_row {
    const char* name;
    const char* moves;
};

// Row = number of the macro in a fresh table. The names tell what happens to which cubies: "->"
// from place to place, "<>" a swap. Rows 3 and 6 leave open how the cubies are turned.
constexpr macro_row builtin_table[] = {
    {"Flip UF, UL",               "FRBLUlUbrfluLu" }, // 0
    {"Flip UF, UB",               "LfUlFbUrFuRfBu" }, // 1
    {"Rotate UFL->LUF, UFR->RUF", "LdlfdFUfDFLDlu" }, // 2
    {"Cycle RF->UF->FL",          "rdlFFLDRUFFu"   }, // 3
    {"Cycle UF->UB->DF",          "RlUUrLFF"       }, // 4
    {"Cycle ULF->BLU->RUF",       "fUBuFUbu"       }, // 5
    {"UL<>UF, FUL<>FUR",          "rURurUFRbRBRfRR"}, // 6
};

static_assert(std::size(builtin_table) == 7);

// A copy: the answer of the seam is gone with the next question, and one may follow.
std::optional<std::string> askname(const char* prompt, const std::string& preset) {
    const char* answer = askline(prompt, preset.c_str());
    return answer == nullptr ? std::nullopt : std::optional(plainname(answer));
}

// The name of the entry that is chosen in the list, to be offered as an answer.
std::string chosenname() {
    return macnames[std::clamp(chosenmacro(), 0, maxmacros - 1)];
}

// Asks for one of the table's names. Nothing when cancelled, or, after the message, for a name that
// is not there.
std::optional<int> askmacro(const char* prompt) {
    const std::optional<std::string> name = askname(prompt, chosenname());
    if (!name) {
        return std::nullopt;
    }
    const int i = findmacro(*name);
    if (i < 0) {
        showalert(("No macro named: " + *name).c_str());
        return std::nullopt;
    }
    return i;
}

// The row goes to the end of the table, the rows between move up, and the end is cut off.
void removemacro(int i) {
    const auto removefrom = [i](auto* row) { std::rotate(row + i, row + i + 1, row + maccount); };
    removefrom(macnames);
    removefrom(macstrs);
    removefrom(showmac);
    maccount--;
    macnames[maccount].clear();
    macstrs[maccount].clear();
    showmac[maccount] = 0;
}

// Asked before the table is looked at: a macro may be stored and not, or no more, in the table.
void offertoforget(const std::string& name) {
    if (isprefmacro(name.c_str()) != 0 && askyesno("Delete from preferences file as well?")) {
        deleteprefmacro(name.c_str());
    }
}

} // namespace

void initlibrary() {
    maccount = 0;
    std::fill(std::begin(macnames), std::end(macnames), "");
    std::fill(std::begin(macstrs), std::end(macstrs), "");
    std::fill(std::begin(showmac), std::end(showmac), 0);
}

int findmacro(const std::string& name) {
    const auto distance = std::find(macnames, macnames + maccount, name) - macnames;
    return distance == maccount ? -1 : static_cast<int>(distance);
}

std::string plainname(std::string name) {
    const auto isbreak = [](char c) { return c == '\n' || c == '\r'; };
    std::replace_if(name.begin(), name.end(), isbreak, ' ');
    return name;
}

int addmacro(const char* name, const char* text) {
    if (maccount == maxmacros) {
        showalert("Too many macro definitions");
        return 0;
    }
    const bool marked = *text == '$'; // a mark of a deleted macro must not stay in this row either
    macnames[maccount] = plainname(name);
    macstrs[maccount] = marked ? text + 1 : text;
    showmac[maccount] = marked ? 1 : 0;
    maccount++;
    showmacros();
    if (marked) {
        macrodisplay(0, 0);
    }
    return 1;
}

void addbuiltinmacros() {
    for (const macro_row& row : builtin_table) {
        addmacro(row.name, row.moves);
    }
}

void applysavedmacro(int i) {
    if (i < 0 || i >= std::max(maccount, 1)) {
        return;
    }
    parsing = 0; // at once, not by way of the turn queue
    setmacroline(macstrs[i].c_str());
    loadout(macstrs[i].c_str());
    applymacro();
}

void definemacro() {
    const std::optional<std::string> name = askname("Name for new macro", "");
    if (!name) {
        return;
    }
    if (findmacro(*name) >= 0) {
        showalert((*name + ": name in use").c_str());
        return;
    }
    const std::string text = macroline(); // a copy: the line may change while the list is made
    if (addmacro(name->c_str(), text.c_str()) != 0) {
        choosemacro(maccount - 1);
        addprefmacro(name->c_str(), text.c_str());
    }
}

void deletedefinedmacro() {
    const std::optional<std::string> name = askname("Name of macro to delete", chosenname());
    if (!name) {
        return;
    }
    offertoforget(*name);
    const int i = findmacro(*name);
    if (i < 0) {
        showalert(("No macro named: " + *name).c_str());
        return;
    }
    const bool marked = showmac[i] != 0;
    removemacro(i);
    showmacros();
    if (marked) {
        macrodisplay(0, 0);
    } else {
        refreshmacrodisplay(); // the later macros have new numbers
    }
}

// Deliberate: NOT-BUGS.md, "Deleting all macros takes the marks with it"
void deleteallmacros() {
    while (maccount > 0) {
        removemacro(maccount - 1);
    }
    showmacros();
    refreshmacrodisplay(); // its numbers would reach past the table
}

void addmactogizmo() {
    if (const std::optional<int> i = askmacro("Name of macro to add to gizmo")) {
        showmac[*i] = 1;
        macrodisplay(0, 0);
        addgizmomac(macnames[*i].c_str());
    }
}

void deletemacfromgizmo() {
    if (const std::optional<int> i = askmacro("Name of macro to delete gizmo")) {
        showmac[*i] = 0;
        deletegizmomac(macnames[*i].c_str());
        // Deliberate: NOT-BUGS.md, "Taking the last mark away is answered"
        macrodisplay(0, 0);
    }
}

void clearmacrogizmo() {
    std::fill(std::begin(showmac), std::end(showmac), 0);
    deleteallgizmoprefs();
    hidemacrodisplay();
}
