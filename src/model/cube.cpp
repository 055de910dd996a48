// SPDX-License-Identifier: MIT
#include "model/cube.h"

#include "model/turns.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// State

constinit unsigned char cubecolors[placecount] = {};
constinit unsigned char cubefaces[placecount] = {};
constinit char outpat[outpatsize] = "";

// Names

constinit const char faces[] = "ULFRBD";
constinit const char color[] = "WGRBOY";

// ORDER CUBIE
constinit const char* const edgecubies[edgecount] = {
    "UF", "UR", "UB", "UL", //  0..3
    "DF", "DR", "DB", "DL", //  4..7
    "FR", "FL", "BR", "BL", //  8..11
};
constinit const char* const cornercubies[cornercount] = {
    "UFR", "URB", "UBL", "ULF", // 0..3
    "DRF", "DFL", "DLB", "DBR", // 4..7
};

// ORDER CUBIE
constexpr int edgeplaces[edgecount][2] = {
    {7,  19}, // UF
    {5,  28}, // UR
    {1,  37}, // UB
    {3,  10}, // UL
    {46, 25}, // DF
    {50, 34}, // DR
    {52, 43}, // DB
    {48, 16}, // DL
    {23, 30}, // FR
    {21, 14}, // FL
    {39, 32}, // BR
    {41, 12}, // BL
};
constexpr int cornerplaces[cornercount][3] = {
    {8,  20, 27}, // UFR
    {2,  29, 36}, // URB
    {0,  38, 9 }, // UBL
    {6,  11, 18}, // ULF
    {47, 33, 26}, // DRF
    {45, 24, 17}, // DFL
    {51, 15, 44}, // DLB
    {53, 42, 35}, // DBR
};

// By place, a row of the face a line, labelled by its first place. The order of the small letters
// is the design's, and no rule gives it: it differs from face to face.
constinit const char* const facenames[placecount] = {
    "Ulb", "Ub", "Urb", //  0
    "Ul",  "U",  "Ur",  //  3
    "Ulf", "Uf", "Urf", //  6
    "Lub", "Lu", "Luf", //  9
    "Lb",  "L",  "Lf",  // 12
    "Ldb", "Ld", "Ldf", // 15
    "Ful", "Fu", "Fur", // 18
    "Fl",  "F",  "Fr",  // 21
    "Fld", "Fd", "Frd", // 24
    "Ruf", "Ru", "Rub", // 27
    "Rf",  "R",  "Rb",  // 30
    "Rfd", "Rd", "Rbd", // 33
    "Bru", "Bu", "Blu", // 36
    "Br",  "B",  "Bl",  // 39
    "Brd", "Bd", "Bld", // 42
    "Dlf", "Df", "Drf", // 45
    "Dl",  "D",  "Dr",  // 48
    "Dlb", "Db", "Drb", // 51
};

namespace {

using cycle = int[4]; // the facelet at [0] goes to [1], ... at [3] to [0]

constexpr int facecycles = 5;  // two turn the face's own grid, three carry the stickers around it
constexpr int cubecycles = 13; // two faces of two cycles each, nine for the four faces in between
constexpr int owncubeturns = 3;

// The cycles are rows of four numbers and stay grids.
// clang-format off

// ORDER FACE: clockwise quarter turn of the face.
constexpr cycle face_table[cubefacecount][facecycles] = {
    {{ 0,  2,  8,  6}, { 1,  5,  7,  3}, { 9, 36, 27, 18}, {10, 37, 28, 19}, {11, 38, 29, 20}}, // U
    {{ 9, 11, 17, 15}, {10, 14, 16, 12}, { 0, 18, 45, 44}, { 3, 21, 48, 41}, { 6, 24, 51, 38}}, // L
    {{18, 20, 26, 24}, {19, 23, 25, 21}, { 6, 27, 47, 17}, { 7, 30, 46, 14}, { 8, 33, 45, 11}}, // F
    {{27, 29, 35, 33}, {28, 32, 34, 30}, { 8, 36, 53, 26}, { 5, 39, 50, 23}, { 2, 42, 47, 20}}, // R
    {{36, 38, 44, 42}, {37, 41, 43, 39}, { 2,  9, 51, 35}, { 1, 12, 52, 32}, { 0, 15, 53, 29}}, // B
    {{45, 47, 53, 51}, {46, 50, 52, 48}, {24, 33, 42, 15}, {25, 34, 43, 16}, {26, 35, 44, 17}}, // D
};

// ORDER FACE, its first three: quarter turn of the whole cube. The face itself, its opposite the
// other way round, then the ring of four faces, place by place.
constexpr cycle cube_table[owncubeturns][cubecycles] = {
    {{ 0,  2,  8,  6}, { 1,  5,  7,  3}, {45, 51, 53, 47}, {46, 48, 52, 50},                    // U
     { 9, 36, 27, 18}, {10, 37, 28, 19}, {11, 38, 29, 20},
     {12, 39, 30, 21}, {13, 40, 31, 22}, {14, 41, 32, 23},
     {15, 42, 33, 24}, {16, 43, 34, 25}, {17, 44, 35, 26}},
    {{ 9, 11, 17, 15}, {10, 14, 16, 12}, {27, 33, 35, 29}, {28, 30, 34, 32},                    // L
     { 0, 18, 45, 44}, { 3, 21, 48, 41}, { 6, 24, 51, 38},
     { 1, 19, 46, 43}, { 4, 22, 49, 40}, { 7, 25, 52, 37},
     { 2, 20, 47, 42}, { 5, 23, 50, 39}, { 8, 26, 53, 36}},
    {{18, 20, 26, 24}, {19, 23, 25, 21}, {36, 42, 44, 38}, {37, 39, 43, 41},                    // F
     { 6, 27, 47, 17}, { 7, 30, 46, 14}, { 8, 33, 45, 11},
     { 3, 28, 50, 16}, { 4, 31, 49, 13}, { 5, 34, 48, 10},
     { 0, 29, 53, 15}, { 1, 32, 52, 12}, { 2, 35, 51,  9}},
};

// clang-format on

// A table row is sound when none of its places occurs twice.
template <int length> constexpr bool distinctplaces(const cycle (&row)[length]) {
    bool seen[placecount] = {};
    for (const cycle& c : row) {
        for (int place : c) {
            if (place < 0 || place >= placecount || seen[place]) {
                return false;
            }
            seen[place] = true;
        }
    }
    return true;
}

template <int rows, int length> constexpr bool soundtable(const cycle (&table)[rows][length]) {
    for (const auto& row : table) {
        if (!distinctplaces(row)) {
            return false;
        }
    }
    return true;
}

// The cubies' places: all but the centres, each once.
constexpr bool coverscubies() {
    int times[placecount] = {};
    for (const auto& edge : edgeplaces) {
        times[edge[0]]++;
        times[edge[1]]++;
    }
    for (const auto& corner : cornerplaces) {
        times[corner[0]]++;
        times[corner[1]]++;
        times[corner[2]]++;
    }
    for (int p = 0; p < placecount; p++) {
        if (times[p] != (p % faceplaces == 4 ? 0 : 1)) {
            return false;
        }
    }
    return true;
}

static_assert(soundtable(face_table) && soundtable(cube_table));
static_assert(coverscubies());

// The cycles of a row touch different places, so that their order does not matter.
void docycles(const cycle* row, int length) {
    for (int i = 0; i < length; i++) {
        move(row[i][0], row[i][1], row[i][2], row[i][3]);
    }
}

// From the end of the cycle, so that only the last facelet needs a place to wait.
void movefour(unsigned char* places, int a, int b, int c, int d) {
    const unsigned char last = places[d];
    places[d] = places[c];
    places[c] = places[b];
    places[b] = places[a];
    places[a] = last;
}

} // namespace

// Turning

void initcubies() {
    for (int p = 0; p < placecount; p++) {
        cubecolors[p] = static_cast<unsigned char>(p / faceplaces);
        cubefaces[p] = static_cast<unsigned char>(p);
    }
    needsredraw = 1;
}

// Every turn comes through here and takes both arrays along: a sticker's colour and its home must
// not part.
void move(int a, int b, int c, int d) {
    movefour(cubecolors, a, b, c, d);
    movefour(cubefaces, a, b, c, d);
}

void moveface(unsigned f) {
    if (f < cubefacecount) {
        docycles(face_table[f], facecycles);
    }
}

// The faces R, B and D have no row of their own: they are three quarters of their opposites.
void movecube(unsigned f) {
    if (f >= cubefacecount) {
        return;
    }
    if (f < owncubeturns) {
        docycles(cube_table[f], cubecycles);
        return;
    }
    for (int quarter = 0; quarter < 3; quarter++) {
        movecube(oppositeface[f]);
    }
}

// The outer layers are turned back first, so that the turn of the whole cube brings them home.
void moveslice(unsigned f) {
    if (f >= cubefacecount) {
        return;
    }
    for (int quarter = 0; quarter < 3; quarter++) {
        moveface(f);
    }
    moveface(oppositeface[f]);
    movecube(f);
}

// The number of passes is drawn first and the three turns of a pass in this order: the scrambles of
// a run are part of the design, and any other order of draws would give others.
void jumblecube() {
    const int r = rand();
    initcubies();
    const int passes = r % 200 + 30;
    for (int pass = 0; pass < passes; pass++) {
        moveface(static_cast<unsigned>(rand() % cubefacecount));
        movecube(static_cast<unsigned>(rand() % cubefacecount));
        moveslice(static_cast<unsigned>(rand() % cubefacecount));
    }
}

// Looking

// Each place against the first of its face, not against the face's number: a cube that is held
// another way, or whose colours were entered, is solved as well.
int solved() {
    for (int p = 0; p < placecount; p++) {
        if (cubecolors[p] != cubecolors[p - p % faceplaces]) {
            return 0;
        }
    }
    return 1;
}

namespace {

// A colour is named by the face that it is at home on.
char faceletter(int place) {
    assert(place >= 0 && place < placecount);
    return faces[cubecolors[place]];
}

// The listing's room is part of the design, so its end is watched: an entry too many is a mistake.
void append(const char* entry) {
    const size_t used = strlen(outpat);
    const size_t more = strlen(entry);
    assert(used + more < outpatsize);
    memcpy(outpat + used, entry, more + 1);
}

} // namespace

void out2(int a, int b) {
    const char entry[] = {faceletter(a), faceletter(b), ' ', '\0'};
    append(entry);
}

void out3(int a, int b, int c) {
    const char entry[] = {faceletter(a), faceletter(b), faceletter(c), ' ', '\0'};
    append(entry);
}

const char* dumpcube() {
    outpat[0] = '\0';
    for (const auto& edge : edgeplaces) {
        out2(edge[0], edge[1]);
    }
    for (const auto& corner : cornerplaces) {
        out3(corner[0], corner[1], corner[2]);
    }
    return outpat;
}

namespace {

// Three places, each with a blank behind it: the gap between two faces is thus two blanks wide.
void appendrow(std::string& net, int first) {
    for (int p = first; p < first + 3; p++) {
        net += color[cubecolors[p]];
        net += ' ';
    }
}

// U or D, under the second face of the band.
void appendend(std::string& net, int face) {
    for (int row = 0; row < 3; row++) {
        net += "       ";
        appendrow(net, face * faceplaces + 3 * row);
        net += '\n';
    }
}

} // namespace

std::string nettext() {
    std::string net;
    appendend(net, 0);
    net += '\n';
    for (int row = 0; row < 3; row++) {
        for (int face = 1; face <= 4; face++) {
            appendrow(net, face * faceplaces + 3 * row);
            net += face < 4 ? ' ' : '\n';
        }
    }
    net += '\n';
    appendend(net, 5);
    return net;
}

void drawcube() {
    fputs(nettext().c_str(), stdout);
}
