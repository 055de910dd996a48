// SPDX-License-Identifier: MIT
#include "app/demomacro.h"

#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/turns.h"

#include <cstdlib>
#include <cstring>

// Rows in no particular order, both directions of each face.
constexpr char badpair[badpaircount][3] = {"lL", "Ll", "Rr", "rR", "uU", "Uu",
                                           "Dd", "dD", "fF", "Ff", "bB", "Bb"};

namespace {

constexpr bool pairsareinverses() {
    for (const auto& pair : badpair) {
        if (pair[0] != pair[1] + ('a' - 'A') && pair[1] != pair[0] + ('a' - 'A')) {
            return false;
        }
    }
    return true;
}

static_assert(pairsareinverses());

struct made_up {
    std::string text;
    int rounds; // of drawing; one more for each slice turn drawn
};

bool isbadpair(char a, char b) {
    for (const auto& pair : badpair) {
        if (pair[0] == a && pair[1] == b) {
            return true;
        }
    }
    return false;
}

// The turn is left out if it would undo the one before it, for nobody wants to look at that; the
// letter of a slice counts as a turn.
void appendfaceturn(std::string& text, char letter) {
    if (!isbadpair(text.back(), letter)) {
        text += letter;
    }
}

// The order of the draws is part of the sequence: number of rounds, first turn, rounds, last turn.
made_up drawmacro() {
    made_up macro = {"", std::rand() % 6 + 7};
    macro.text += movelist[std::rand() % 6];
    for (int i = 0; i < macro.rounds; i++) {
        const int r = std::rand() % 18;
        const char letter = movelist[r % 6];
        if (r < 6) { // a third of the draws each: inverse turn, turn, slice with a turn behind it
            appendfaceturn(macro.text, flipcase(letter));
        } else if (r < 12) {
            appendfaceturn(macro.text, letter);
        } else {
            macro.text += {'*', letter, movelist[(r + 3) % 6]};
            macro.rounds++; // so that slices do not use up the rounds
        }
    }
    macro.text += movelist[std::rand() % 6];
    return macro;
}

// What has a meaning only together with what follows it.
bool isnumberorgroupstart(char c) {
    return (c >= '0' && c <= '9') || c == 's' || c == '(';
}

} // namespace

std::string makeupmacro() {
    for (;;) { // about fifteen tries on average
        initcubies();
        const made_up macro = drawmacro();
        const int cycle = calcorder(macro.text.c_str()) * (macro.rounds + 2);
        if (cycle >= 60 && cycle <= 250) {
            return macro.text;
        }
    }
}

// A cut inside a group would leave a bracket open; behind a whole turn it leaves at least the
// beginning of what was meant.
int demolength(const std::string& text) {
    const int length = static_cast<int>(text.size());
    const int room = demomacrosize - 1;
    if (length <= room) {
        return length;
    }
    int outside = 0; // the last place outside all brackets and behind a turn or a group
    int last = 0;    // the last place that splits no pair
    int level = 0;
    while (last < room) {
        const char c = text[static_cast<unsigned>(last)];
        const bool pair = c == '*' || c == '>';
        if (pair && last + 2 > room) {
            break; // half a pair is no turn
        }
        last += pair ? 2 : 1;
        level += c == '(' ? 1 : 0;
        level -= c == ')' && level > 0 ? 1 : 0;
        if (level == 0 && !isnumberorgroupstart(c)) {
            outside = last;
        }
    }
    return outside > 0 ? outside : last;
}
