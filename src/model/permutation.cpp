// SPDX-License-Identifier: MIT
#include "model/permutation.h"

#include "shell.h"
#include "solver/cubecheck.h"

#include <cassert>
#include <cstdio>
#include <cstring>
#include <string>

// State

constinit int muck[cubefacecount] = {};
constinit int unmuck[cubefacecount] = {};
constinit unsigned char savedfaces[placecount] = {};
constinit char e_str[edgecount][4] = {};
constinit char c_str[cornercount][5] = {};

// Places in ascending order, then the face of each.
constexpr int muckcornerdata[cornercount][6] = {
    {0,  9,  38, 0, 1, 4}, // UBL
    {2,  29, 36, 0, 3, 4}, // URB
    {6,  11, 18, 0, 1, 2}, // ULF
    {8,  20, 27, 0, 2, 3}, // UFR
    {15, 44, 51, 1, 4, 5}, // DLB
    {17, 24, 45, 1, 2, 5}, // DFL
    {26, 33, 47, 2, 3, 5}, // DRF
    {35, 42, 53, 3, 4, 5}, // DBR
};
constexpr int muckedgedata[edgecount][4] = {
    {1,  37, 0, 4}, // UB
    {3,  10, 0, 1}, // UL
    {7,  19, 0, 2}, // UF
    {5,  28, 0, 3}, // UR
    {12, 41, 1, 4}, // BL
    {14, 21, 1, 2}, // FL
    {23, 30, 2, 3}, // FR
    {32, 39, 3, 4}, // BR
    {16, 48, 1, 5}, // DL
    {25, 46, 2, 5}, // DF
    {34, 50, 3, 5}, // DR
    {43, 52, 4, 5}, // DB
};

namespace {

constexpr int foundlengths = 24; // cycles of 0 to 23 are counted; none of a cube is longer than 22
constexpr size_t linelimit = 50; // a line of the facelet cycles ends after the cycle that passes it
constexpr int facetextsize = 800;

// The answers of flipedge() and faceperm(), overwritten by each call.
constinit char fliptext[3] = "";
constinit char facetext[facetextsize] = "";

template <int rows, int width> constexpr bool soundplaces(const int (&table)[rows][width]) {
    for (const auto& row : table) {
        for (int i = 0; i < width / 2; i++) {
            if (row[width / 2 + i] != row[i] / faceplaces || (i > 0 && row[i - 1] >= row[i])) {
                return false;
            }
        }
    }
    return true;
}

static_assert(soundplaces(muckcornerdata) && soundplaces(muckedgedata));

// The orders in which a cubie's colours can lie on three or two places.
// Deliberate: NOT-BUGS.md, "Mirrored corners are recognised"
constexpr int cornerorders[6][3] = {
    {0, 1, 2},
    {0, 2, 1},
    {1, 0, 2},
    {2, 1, 0},
    {1, 2, 0},
    {2, 0, 1},
};
constexpr int edgeorders[2][2] = {
    {0, 1},
    {1, 0},
};

// If the cubie home lies at the places at, its colours in this order, says so in cubefaces.
template <int n>
void trycubie(const int (&at)[2 * n], const int (&home)[2 * n], const int (&order)[n]) {
    for (int i = 0; i < n; i++) {
        if (muck[cubecolors[at[i]]] != home[n + order[i]]) {
            return;
        }
    }
    for (int i = 0; i < n; i++) {
        cubefaces[at[i]] = static_cast<unsigned char>(home[order[i]]);
    }
}

// The scan need not stop at a match: no two cubies have the same faces, so that three colours, or
// two, are those of one cubie in one order at most.
template <int n, int rows, int orders>
void findcubies(const int (&data)[rows][2 * n], const int (&allorders)[orders][n]) {
    for (const auto& at : data) {
        for (const auto& home : data) {
            for (const auto& order : allorders) {
                trycubie<n>(at, home, order);
            }
        }
    }
}

} // namespace

// Normalising

// The centres say which colour is which; the cubies are then looked up by their colours' faces. The
// cube is recoloured last, since the look-up goes by the colours that it has.
void muckcube() {
    for (int face = 0; face < cubefacecount; face++) {
        muck[cubecolors[face * faceplaces + 4]] = face;
    }
    for (int c = 0; c < cubefacecount; c++) {
        unmuck[muck[c]] = c;
    }
    memcpy(savedfaces, cubefaces, sizeof cubefaces);
    for (int centre = 4; centre < placecount; centre += faceplaces) {
        cubefaces[centre] = static_cast<unsigned char>(centre);
    }
    findcubies<3>(muckcornerdata, cornerorders);
    findcubies<2>(muckedgedata, edgeorders);
    xmuckcube();
}

void unmuckcube() {
    memcpy(cubefaces, savedfaces, sizeof cubefaces);
    xunmuckcube();
}

void xmuckcube() {
    for (unsigned char& c : cubecolors) {
        c = static_cast<unsigned char>(muck[c]);
    }
}

void xunmuckcube() {
    for (unsigned char& c : cubecolors) {
        c = static_cast<unsigned char>(unmuck[c]);
    }
}

// Comparing names

// 2 and 3 tell how far the letters are shifted: an edge has one way to lie wrong, a corner two.

int sameedge(const char* a, const char* b) {
    if (a[0] == b[0] && a[1] == b[1]) {
        return 1;
    }
    return a[0] == b[1] && a[1] == b[0] ? 2 : 0;
}

int samecorner(const char* a, const char* b) {
    if (a[0] == b[0] && a[1] == b[1] && a[2] == b[2]) {
        return 1;
    }
    if (a[0] == b[1] && a[1] == b[2] && a[2] == b[0]) {
        return 2;
    }
    return a[0] == b[2] && a[1] == b[0] && a[2] == b[1] ? 3 : 0;
}

const char* flipedge(int flip, const char* name) {
    if (flip == 0) {
        return name;
    }
    fliptext[0] = name[1];
    fliptext[1] = name[0];
    return fliptext;
}

// Reporting

namespace {

// "2(4) " for two cycles of length four.
std::string structure(const int* counts) {
    std::string text;
    for (int length = 0; length < foundlengths; length++) {
        if (counts[length] != 0) {
            text += std::to_string(counts[length]) + "(" + std::to_string(length) + ") ";
        }
    }
    return text;
}

// The cycle that starts at p, as text, against the direction of the walk; marks its places.
std::string facecycle(int p, bool* done, int& length) {
    std::string names; // built from its end: the walk goes the other way
    for (length = 0; !done[p]; length++) {
        done[p] = true;
        names.insert(0, std::string(facenames[p]) + " ");
        p = cubefaces[p];
    }
    names.back() = ')';
    return "(" + names;
}

} // namespace

// The walk goes from a place to the home of the facelet there. Written backwards, each name is
// followed by the place to which its facelet has gone.
const char* faceperm() {
    bool done[placecount];
    for (int p = 0; p < placecount; p++) {
        done[p] = cubefaces[p] == p;
    }
    std::string text;
    size_t line = 0; // where the current line starts
    int counts[placecount + 1] = {};
    for (int p = 0; p < placecount; p++) {
        if (done[p]) {
            continue;
        }
        int length = 0;
        text += facecycle(p, done, length);
        counts[length]++;
        if (text.size() - line > linelimit) {
            text += '\n';
            line = text.size();
        }
    }
    text = text.empty() ? "1" : text + "\nCycle Structure: " + structure(counts);
    assert(text.size() < facetextsize);
    memcpy(facetext, text.c_str(), text.size() + 1);
    return facetext;
}

namespace {

// One kind of cubie: its names, what lies at each position, and how the two compare.
struct cubie_kind {
    const char* const* names;
    const char* entries[edgecount];
    int count;
    int (*same)(const char*, const char*);
};

struct cycle_report {
    std::string text;
    int counts[foundlengths];
};

// The cubie that lies at position i.
int cubieat(const cubie_kind& kind, int i) {
    int j = 0;
    while (j < kind.count && kind.same(kind.entries[i], kind.names[j]) == 0) {
        j++;
    }
    assert(j < kind.count);
    return j;
}

// The position at which cubie i lies.
int whereis(const cubie_kind& kind, int i) {
    int k = 0;
    while (k < kind.count && kind.same(kind.entries[k], kind.names[i]) == 0) {
        k++;
    }
    assert(k < kind.count);
    return k;
}

// The cycle in which cubie j has come to position i.
void writecycle(const cubie_kind& kind, int j, int i, bool* done, cycle_report& report) {
    report.text += std::string("(") + kind.names[j] + " " + kind.names[i] + " ";
    done[j] = true;
    done[i] = true;
    int length = 2;
    for (int k = whereis(kind, i); !done[k]; k = whereis(kind, k)) {
        report.text += std::string(kind.names[k]) + " ";
        done[k] = true;
        length++;
    }
    report.text.back() = ')';
    report.counts[length]++;
}

// A cubie at home but flipped, or twisted by 2 or 3; the latter's name goes backwards.
void writetwisted(const char* name, int twist, cycle_report& report) {
    const std::string letters = name;
    report.text +=
        "(" + (twist == 3 ? std::string(letters.rbegin(), letters.rend()) : letters) + ")";
    report.counts[1]++;
}

// Cycles begin at the first position, in ORDER CUBIE, that holds a stranger. A cubie at home that
// is flipped or twisted counts as a cycle of one; orientation within a longer cycle is not told.
void writecubies(const cubie_kind& kind, cycle_report& report) {
    bool done[edgecount] = {};
    for (int i = 0; i < kind.count; i++) {
        if (done[i]) {
            continue;
        }
        const int j = cubieat(kind, i);
        const int same = kind.same(kind.entries[i], kind.names[j]);
        if (j != i) {
            writecycle(kind, j, i, done, report);
        } else if (same != 1) {
            writetwisted(kind.names[i], same, report);
        }
    }
}

// The listing is of the form that sanitycheckcube() accepts, so that all twenty names are there.
void readlisting(const char* listing, cubie_kind& edges, cubie_kind& corners) {
    const int read =
        sscanf(listing,
               "%3s %3s %3s %3s %3s %3s %3s %3s %3s %3s %3s   %3s %4s %4s %4s %4s %4s %4s %4s %4s",
               e_str[0], e_str[1], e_str[2], e_str[3], e_str[4], e_str[5], e_str[6], e_str[7],
               e_str[8], e_str[9], e_str[10], e_str[11], c_str[0], c_str[1], c_str[2], c_str[3],
               c_str[4], c_str[5], c_str[6], c_str[7]);
    assert(read == edgecount + cornercount);
    for (int i = 0; i < edgecount; i++) {
        edges.entries[i] = e_str[i];
    }
    for (int i = 0; i < cornercount; i++) {
        corners.entries[i] = c_str[i];
    }
}

} // namespace

// Everything is told relative to the centres, so the listing and the facelets must be taken while
// the cube is normalised; the alert comes last, when it is itself again.
void dumpcubeperm() {
    muckcube();
    const char* listing = dumpcube();
    if (sanitycheckcube(listing) == 0) {
        // Deliberate: NOT-BUGS.md, "A colouring that no cube has stays normalised"
        showalert("Invalid cube coloring");
        return;
    }
    cubie_kind edges = {edgecubies, {}, edgecount, sameedge};
    cubie_kind corners = {cornercubies, {}, cornercount, samecorner};
    cycle_report report = {};
    readlisting(listing, edges, corners);
    writecubies(edges, report);
    writecubies(corners, report);
    const std::string facelets = faceperm();
    unmuckcube();
    const std::string text =
        "Current cube permutation:\n" + (report.text.empty() ? "1" : report.text) +
        "\nCycle structure: " + structure(report.counts) + "\n\nFace Permutation:\n" + facelets;
    showalert(text.c_str());
}
