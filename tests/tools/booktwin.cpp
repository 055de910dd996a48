// SPDX-License-Identifier: MIT
#include "tools/booktwin.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

const char* const apostrophes[] = {"'", "\xe2\x80\x99", "\xe2\x80\xb2"};

struct word_row {
    const char* word;
    std::vector<std::string> turns; // notations of the slow cube
};

// Longer words first, for the first that fits is taken.
const std::vector<word_row>& words() {
    static const std::vector<word_row> rows = {
        {"Uw", {"U", "*U"}},
        {"Dw", {"D", "*D"}},
        {"Lw", {"L", "*L"}},
        {"Rw", {"R", "*R"}},
        {"Fw", {"F", "*F"}},
        {"Bw", {"B", "*B"}},
        {"u",  {"U", "*U"}},
        {"d",  {"D", "*D"}},
        {"l",  {"L", "*L"}},
        {"r",  {"R", "*R"}},
        {"f",  {"F", "*F"}},
        {"b",  {"B", "*B"}},
        {"U",  {"U"}      },
        {"D",  {"D"}      },
        {"L",  {"L"}      },
        {"R",  {"R"}      },
        {"F",  {"F"}      },
        {"B",  {"B"}      },
        {"M",  {"*L"}     },
        {"E",  {"*D"}     },
        {"S",  {"*F"}     },
        {"x",  {">R"}     },
        {"y",  {">U"}     },
        {"z",  {">F"}     },
    };
    return rows;
}

using turn_list = std::vector<std::string>;

// Backwards is three times forwards.
turn_list reversed(const turn_list& turns) {
    turn_list back;
    for (auto turn = turns.rbegin(); turn != turns.rend(); ++turn) {
        back.insert(back.end(), 3, *turn);
    }
    return back;
}

bool skip(const std::string& text, std::size_t& i, const std::string& word) {
    if (text.compare(i, word.size(), word) != 0) {
        return false;
    }
    i += word.size();
    return true;
}

// The count and apostrophe at i, applied.
turn_list suffixed(const std::string& text, std::size_t& i, turn_list turns) {
    bool back = false;
    int count = 1;
    for (int pass = 0; pass < 2; pass++) {
        for (const char* apostrophe : apostrophes) {
            back = skip(text, i, apostrophe) || back;
        }
        if (pass == 0 && i < text.size() && text[i] >= '0' && text[i] <= '9') {
            count = std::atoi(text.c_str() + i);
            i = text.find_first_not_of("0123456789", i);
            i = std::min(i, text.size());
        }
    }
    turns = back ? reversed(turns) : turns;
    turn_list all;
    for (int round = 0; round < count; round++) {
        all.insert(all.end(), turns.begin(), turns.end());
    }
    return all;
}

// Up to the ")" or the end.
turn_list turnsfrom(const std::string& text, std::size_t& i) {
    turn_list all;
    while (i < text.size() && text[i] != ')') {
        turn_list turns;
        if (text[i] == '(') {
            turns = turnsfrom(text, ++i);
            turns = suffixed(text, ++i, turns);
        } else {
            const auto& rows = words();
            const auto row = std::find_if(rows.begin(), rows.end(),
                                          [&](const word_row& r) { return skip(text, i, r.word); });
            if (row == rows.end()) {
                i++; // a blank, a bracket
            } else {
                turns = suffixed(text, i, row->turns);
            }
        }
        all.insert(all.end(), turns.begin(), turns.end());
    }
    return all;
}

} // namespace

void bookturns(slow_cube& cube, const std::string& moves) {
    std::size_t i = 0;
    for (const std::string& turn : turnsfrom(moves, i)) {
        slowturn(cube, turn);
    }
}

std::string bookfacelets(const slow_cube& cube) {
    constexpr int firsts[] = {0, 27, 18, 45, 9, 36}; // U R F D L B
    std::string text;
    for (const int first : firsts) {
        for (int p = first; p < first + 9; p++) {
            text += "ULFRBD"[cube.colors[static_cast<std::size_t>(p)]];
        }
    }
    return text;
}

int below(chance& from, int count) {
    return static_cast<int>(from() % static_cast<unsigned>(count));
}

std::string randommacro(chance& from, int symbols) {
    std::string text;
    for (int i = 0; i < symbols; i++) {
        switch (below(from, 8)) {
        case 0: text += std::string("*") + "UDLRFB"[below(from, 6)]; break;
        case 1: text += std::string(">") + "UDLRFB"[below(from, 6)]; break;
        case 2:
            text += std::to_string(below(from, 4)) + "(" + randommacro(from, symbols / 2) + ")";
            break;
        default: text += "UDLRFBudlrfb"[below(from, 12)];
        }
    }
    return text;
}

namespace {

std::string suffix(chance& from) {
    std::string apostrophe = apostrophes[below(from, 3)];
    switch (below(from, 5)) {
    case 0: return apostrophe;
    case 1: return "2";
    case 2: return "2" + apostrophe;
    case 3: return apostrophe + "2";
    default: return "";
    }
}

} // namespace

std::string randommoves(chance& from, int number) {
    std::string text;
    for (int i = 0; i < number; i++) {
        text += below(from, 3) == 0 ? "" : " ";
        if (below(from, 6) == 0) {
            text += "(" + randommoves(from, number / 2) + ")";
            text += below(from, 2) == 0 ? suffix(from) : std::to_string(below(from, 5));
        } else {
            text += words()[static_cast<std::size_t>(below(from, static_cast<int>(words().size())))]
                        .word +
                    suffix(from);
        }
    }
    return text;
}

std::string plainmoves(chance& from, int number) {
    constexpr const char* axes[3][6] = {
        {"R", "L", "Rw", "Lw", "M", "x"},
        {"U", "D", "Uw", "Dw", "E", "y"},
        {"F", "B", "Fw", "Bw", "S", "z"},
    };
    constexpr const char* suffixes[] = {"", "'", "2", "2'"};
    std::string text;
    int axis = 0;
    for (int i = 0; i < number; i++) {
        axis = (axis + 1 + below(from, 2)) % 3;
        text += (i == 0 ? "" : " ") + std::string(axes[axis][below(from, 6)]) +
                suffixes[below(from, 4)];
    }
    return text;
}
