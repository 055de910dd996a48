// SPDX-License-Identifier: MIT
#include "input/coloring.h"

#include "model/permutation.h"
#include "solver/cubecheck.h"

#include <array>
#include <cassert>
#include <utility>

namespace collector {

namespace {

// The place of the fifth facelet of a face.
constexpr int centerof(int face) {
    return faceplaces * face + 4;
}

// A letter that is not there ends the compilation.
consteval int position(char letter) {
    int i = 0;
    while (validcolors[i] != letter) {
        i++;
    }
    return i;
}

} // namespace

// Rows in no particular order: Flip/Rotate searches them. The order of the places in a row counts.
constexpr int rotcorners[cornercount][3] = {
    {8,  27, 20}, // UFR
    {2,  36, 29}, // URB
    {0,  9,  38}, // UBL
    {6,  18, 11}, // ULF
    {26, 33, 47}, // DRF
    {17, 24, 45}, // DFL
    {15, 51, 44}, // DLB
    {35, 42, 53}, // DBR
};

constexpr int flipedges[edgecount][2] = {
    {1,  37}, // UB
    {3,  10}, // UL
    {5,  28}, // UR
    {7,  19}, // UF
    {12, 41}, // BL
    {14, 21}, // FL
    {23, 30}, // FR
    {32, 39}, // BR
    {16, 48}, // DL
    {25, 46}, // DF
    {34, 50}, // DR
    {43, 52}, // DB
};

namespace {

// With the six centres, each place is there once: 48 entries, all different, none of them a centre.
constexpr bool eachplaceonce() {
    std::array<bool, placecount> seen = {};
    const auto take = [&seen](int place) {
        const bool fresh = !std::exchange(seen[static_cast<unsigned>(place)], true);
        return fresh && place != centerof(place / faceplaces);
    };
    for (const auto& row : rotcorners) {
        if (!take(row[0]) || !take(row[1]) || !take(row[2])) {
            return false;
        }
    }
    for (const auto& row : flipedges) {
        if (!take(row[0]) || !take(row[1])) {
            return false;
        }
    }
    return true;
}

static_assert(eachplaceonce());

} // namespace

constinit unsigned allcolors[validcolorcount] = {};
constinit char facenames[cubefacecount][2] = {};
constinit unsigned flcubecolors[cubefacecount] = {};
constinit int currentface = 0;

unsigned rgb(double r, double g, double b) {
    if (r == 0 && g == 0 && b == 0) {
        return namedblack;
    }
    // Not rounded: half of 255 is 127.
    const auto byte = [](double fraction) { return static_cast<unsigned>(fraction * 255); };
    return byte(r) << 24 | byte(g) << 16 | byte(b) << 8;
}

// The colours of the screen (colors.h) as the toolkit counts them: what a button shows is what the
// cube will show.
void setrgbfacecolors() {
    for (int i = 0; i < validcolorcount; i++) {
        const letter_row& row = letter_table[i];
        allcolors[i] = rgb(row.r, row.g, row.b);
    }
}

void init() {
    for (int face = 0; face < cubefacecount; face++) {
        const letter_row* row = findletter(colortable[face]);
        const bool known = row != nullptr; // false only for a preferences file edited by hand
        facenames[face][0] = known ? row->letter : '?';
        flcubecolors[face] = known ? allcolors[row - letter_table] : rgb(0.5, 0.5, 0.5);
    }
}

// The other letters are bright enough for black.
bool whitelabel(unsigned color) {
    return color == allcolors[position('K')] || color == allcolors[position('B')];
}

void selectnext() {
    currentface = (currentface + 1) % placecount;
}

// One less than 0 would be negative, hence the whole round.
void selectprevious() {
    currentface = (currentface + placecount - 1) % placecount;
}

int colorofkey(int key) {
    // Keys beyond a byte, such as BackSpace, have no case and match no letter.
    const int upper = key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key;
    for (int face = 0; face < cubefacecount; face++) {
        if (upper == facenames[face][0]) {
            return face;
        }
    }
    return -1;
}

bool flip(int place) {
    for (const auto& row : rotcorners) {
        for (int i = 0; i < 3; i++) {
            if (row[i] == place) {
                // Two swaps carry the colours round: a takes b's, b takes c's, c takes a's.
                std::swap(cubecolors[place], cubecolors[row[(i + 1) % 3]]);
                std::swap(cubecolors[row[(i + 1) % 3]], cubecolors[row[(i + 2) % 3]]);
                return true;
            }
        }
    }
    for (const auto& row : flipedges) {
        if (row[0] == place || row[1] == place) {
            std::swap(cubecolors[row[0]], cubecolors[row[1]]);
            return true;
        }
    }
    return false;
}

namespace {

// The solver's check is given edges and corners only: it would pass the solved cube with two equal
// centres, and call another one wrong for what is right about it.
bool centersdiffer() {
    for (int face = 1; face < cubefacecount; face++) {
        for (int other = 0; other < face; other++) {
            if (cubecolors[centerof(face)] == cubecolors[centerof(other)]) {
                return false;
            }
        }
    }
    return true;
}

constexpr char samecenters[] = "Two centers have the same color.";

int checked(std::string& reason) {
    const int sane = sanitycheckcube(dumpcube());
    reason = sane != 0 ? "" : geterrorstring();
    return sane;
}

} // namespace

int judge(std::string& text) {
    // With every entry, so without the normalising, which would recolour half-entered cubes.
    std::string reason = samecenters;
    const int sane = centersdiffer() ? checked(reason) : 0;
    text = sane != 0 ? "Valid Cube!" : "Invalid Cube:\n" + reason;
    return sane;
}

int finish(std::string& reason) {
    // muckcube would recolour by the centres what nobody could colour back.
    if (!centersdiffer()) {
        reason = samecenters;
        return 0;
    }
    // The check reads colours as faces, which is right only with each centre at home.
    muckcube();
    const int sane = checked(reason);
    if (sane != 0) {
        unmuckcube();
    }
    return sane;
}

} // namespace collector
