// SPDX-License-Identifier: MIT
#include "model/notation.h"

#include "model/singmaster.h"
#include "model/turns.h"
#include "shell.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <vector>

// Characters

char flipcase(char c) {
    return static_cast<char>(c > 'Z' ? c - 32 : c + 32);
}

char flipdir(char c) {
    switch (c) {
    case 'F': return 'B';
    case 'B': return 'F';
    case 'U': return 'D';
    case 'D': return 'U';
    case 'R': return 'L';
    case 'L': return 'R';
    default: return ' ';
    }
}

int istwist(char c) {
    return flipdir(c) != ' ' ? 1 : 0;
}

// Not the library's, which must not be given a character below zero.
bool isdecimal(char c) {
    return c >= '0' && c <= '9';
}

// Symbols

namespace {

bool takesnext(char c) {
    return c == '*' || c == '>';
}

// Turn codes by letter; one that is no turn has noturn. Tables and not searches, for each character
// of each text goes through them.
struct code_table {
    signed char code[UCHAR_MAX + 1];
};

constexpr code_table codesof(turn_kind kind) {
    code_table table = {};
    for (signed char& code : table.code) {
        code = noturn;
    }
    for (int code = 0; code < turncount; code++) {
        if (turn_table[code].kind == kind) {
            const char letter = turn_table[code].notation[kind == face_turn ? 0 : 1];
            table.code[static_cast<unsigned char>(letter)] = static_cast<signed char>(code);
        }
    }
    return table;
}

constexpr code_table facecodes = codesof(face_turn);
constexpr code_table slicecodes = codesof(slice_turn);
constexpr code_table cubecodes = codesof(cube_turn);

int codein(const code_table& table, char letter) {
    return table.code[static_cast<unsigned char>(letter)];
}

bool isface(char c) {
    return codein(facecodes, c) != noturn;
}

} // namespace

// One that ends the text has nothing to take and stands alone.
int symbolat(const char* text, int i, int length) {
    return takesnext(text[i]) && i + 1 < length ? 2 : 1;
}

int symbolbefore(const char* text, int i) {
    return i > 0 && takesnext(text[i - 1]) ? 2 : 1;
}

int symbolcode(const char* symbol, int length) {
    if (length == 1) {
        return codein(facecodes, symbol[0]);
    }
    return codein(symbol[0] == '*' ? slicecodes : cubecodes, symbol[1]);
}

// Checking

namespace {

// 1 if the character at i may stand there, with depth groups open; counts them on.
bool goodcharacter(const char* text, int i, int& depth) {
    const char c = text[i];
    if (c == '(') {
        depth++;
        return i > 0 && (isdecimal(text[i - 1]) || text[i - 1] == 's');
    }
    if (c == ')') {
        return depth-- > 0;
    }
    return isface(c) || isdecimal(c) || c == 's';
}

// Only the depth is kept: as the brackets are all of one kind, it tells whether they match.
// Deliberate: NOT-BUGS.md, "The letter of a pair is not checked"
bool goodmacro(const char* text, int length) {
    int depth = 0;
    for (int i = 0; i < length;) {
        const int taken = symbolat(text, i, length);
        if (taken == 1 && !goodcharacter(text, i, depth)) {
            return false;
        }
        i += taken;
    }
    return depth == 0;
}

} // namespace

// What a conversion leaves needs no check: it is face letters and nothing else.
int sanitycheckmacro(const char* text, int length) {
    if (length < 1 || text[0] != '[') {
        return goodmacro(text, length) ? 1 : 0;
    }
    // Deliberate: NOT-BUGS.md, "The check behind "[" reads the macro line"
    return parsesingmaster();
}

// Counting

namespace {

int saturated(long long number) {
    return static_cast<int>(number < INT_MAX ? number : INT_MAX);
}

// A group that is being counted.
struct counted_group {
    int around; // turns counted before it
    int rounds;
};

constexpr int badlength = -1;

} // namespace

// The groups are kept in a list and not on the stack, which a deep text would exhaust. One that
// ends is added to the one around it.
int maclen(const char* text, int length) {
    std::vector<counted_group> groups;
    int turnscounted = 0;
    int count = 0;
    bool counting = false; // digits were just before
    for (int i = 0; i < length; i++) {
        const char c = text[i];
        if (counting && c != '(' && !isdecimal(c)) {
            return badlength;
        }
        if (c == '(') {
            // Deliberate: NOT-BUGS.md, "The length of a group without a count"
            groups.push_back({turnscounted, counting ? count : 1});
            turnscounted = 0;
        } else if (c == ')' && !groups.empty()) {
            const counted_group done = groups.back();
            groups.pop_back();
            turnscounted = saturated(done.around + 1LL * done.rounds * turnscounted);
        } else if (isface(c)) {
            turnscounted = saturated(turnscounted + 1LL);
        }
        counting = isdecimal(c);
        count = counting ? saturated(count * 10LL + (c - '0')) : 0;
    }
    return counting || !groups.empty() ? badlength : turnscounted;
}

void loadout(const char* text) {
    const int turnscounted = maclen(text, static_cast<int>(strlen(text)));
    char readout[20] = "*****";
    if (turnscounted != badlength) {
        snprintf(readout, sizeof readout, "%d", turnscounted);
    }
    setlengthreadout(readout);
}
