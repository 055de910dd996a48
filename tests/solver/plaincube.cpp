// SPDX-License-Identifier: MIT
#include "solver/plaincube.h"

#include <sstream>
#include <vector>

namespace plain {

namespace {

// Names, and what a turn does to them

const std::string edge_names[] = {"UF", "UR", "UB", "UL", "DF", "DR",
                                  "DB", "DL", "FR", "FL", "BR", "BL"};
const std::string corner_names[] = {"UFR", "URB", "UBL", "ULF", "DRF", "DFL", "DLB", "DBR"};

// By face, in the order of the twists: where its turn carries the letters of the side faces.
const struct {
    char face;
    std::string from, to;
} turns[6] = {
    {'F', "URDL", "RDLU"},
    {'L', "UFDB", "FDBU"},
    {'U', "FLBR", "LBRF"},
    {'B', "ULDR", "LDRU"},
    {'R', "UBDF", "BDFU"},
    {'D', "FRBL", "RBLF"},
};

// Which name this is in any of its readings, and how far it is rotated; -1 if none.
struct reading {
    int cubie, rotation;
};

reading readingof(const std::string* names, int count, const std::string& name) {
    for (int i = 0; i < count; i++) {
        for (std::size_t r = 0; r < names[i].size(); r++) {
            if (names[i].substr(r) + names[i].substr(0, r) == name) {
                return {i, static_cast<int>(r)};
            }
        }
    }
    return {-1, 0};
}

// Where the turn of a face carries a position, and how the cubie is read there.
reading carried(const std::string* names, int count, int position, int face) {
    std::string name = names[position];
    if (name.find(turns[face].face) == std::string::npos) {
        return {position, 0};
    }
    for (char& letter : name) {
        if (letter != turns[face].face) {
            letter = turns[face].to[turns[face].from.find(letter)];
        }
    }
    return readingof(names, count, name);
}

cube quarterturned(const cube& c, int face) {
    static const auto motions = [] {
        std::vector<reading> all;
        for (int f = 0; f < 6; f++) {
            for (int i = 0; i < 12; i++) {
                all.push_back(carried(edge_names, 12, i, f));
            }
            for (int i = 0; i < 8; i++) {
                all.push_back(carried(corner_names, 8, i, f));
            }
        }
        return all;
    }();
    const reading* m = &motions[20 * face];
    cube out{};
    for (int i = 0; i < 12; i++, m++) {
        out.edge[m->cubie] = c.edge[i];
        out.flip[m->cubie] = (c.flip[i] + 2 - m->rotation) % 2;
    }
    for (int i = 0; i < 8; i++, m++) {
        out.corner[m->cubie] = c.corner[i];
        out.twist[m->cubie] = (c.twist[i] + 3 - m->rotation) % 3;
    }
    return out;
}

} // namespace

cube solvedcube() {
    cube c{};
    for (int i = 0; i < 12; i++) {
        c.edge[i] = i;
    }
    for (int i = 0; i < 8; i++) {
        c.corner[i] = i;
    }
    return c;
}

bool parse(const std::string& text, cube& out) {
    std::istringstream words(text);
    std::string word;
    for (int i = 0; i < 20; i++) {
        words >> word;
        const reading r =
            i < 12 ? readingof(edge_names, 12, word) : readingof(corner_names, 8, word);
        if (!words || r.cubie < 0) {
            return false;
        }
        (i < 12 ? out.edge[i] : out.corner[i - 12]) = r.cubie;
        (i < 12 ? out.flip[i] : out.twist[i - 12]) = r.rotation;
    }
    return !(words >> word);
}

std::string listing(const cube& c) {
    std::string text;
    for (int i = 0; i < 20; i++) {
        const std::string name = i < 12 ? edge_names[c.edge[i]] : corner_names[c.corner[i - 12]];
        const int rotation = i < 12 ? c.flip[i] : c.twist[i - 12];
        text += name.substr(rotation) + name.substr(0, rotation) + ' ';
    }
    return text;
}

cube turned(const cube& c, int twist) {
    cube out = c;
    for (int i = 0; i <= twist % 3; i++) {
        out = quarterturned(out, twist / 3);
    }
    return out;
}

int parity(const int* p, int n) {
    int odd = 0;
    for (int i = 0; i < n; i++) {
        for (int j = i + 1; j < n; j++) {
            odd ^= p[i] > p[j];
        }
    }
    return odd;
}

bool solvable(const cube& c) {
    int flips = 0;
    int twists = 0;
    for (const int flip : c.flip) {
        flips += flip;
    }
    for (const int twist : c.twist) {
        twists += twist;
    }
    return flips % 2 == 0 && twists % 3 == 0 && parity(c.edge, 12) == parity(c.corner, 8);
}

} // namespace plain
