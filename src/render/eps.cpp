// SPDX-License-Identifier: MIT
#include "render/eps.h"

#include "base/replacefile.h"
#include "model/cube.h"
#include "render/view.h"
#include "shell.h"

#include <cassert>
#include <cstdio>
#include <iterator>
#include <string>

namespace {

// State

constinit float Mat[16] = {}; // the projection, in row order (4 * row + column)
constinit std::FILE* fp = nullptr;
constinit int facectr = 0; // the next square, 0..26

// Tables

constexpr int squares = 27;

// The places in the order in which their squares are written: up the columns of F from the left,
// down those of U, and along the rows of L from the bottom.
// clang-format off
constexpr int face[squares] = {
    24, 21, 18, 25, 22, 19, 26, 23, 20, // F
     0,  3,  6,  1,  4,  7,  2,  5,  8, // U
    15, 16, 17, 12, 13, 14,  9, 10, 11, // L
};

// clang-format on

constexpr bool facesinorder() {
    constexpr int order[3] = {2, 0, 1}; // ORDER FACE
    int seen[3] = {};                   // a bit for each place of a face
    for (int i = 0; i < squares; i++) {
        if (face[i] / faceplaces != order[i / faceplaces]) {
            return false;
        }
        seen[i / faceplaces] |= 1 << face[i] % faceplaces;
    }
    return seen[0] == 511 && seen[1] == 511 && seen[2] == 511;
}

static_assert(facesinorder());

// Row = colour index. The cube has 0..5; the rest are the colours of the letters K S V D P C X.
constexpr const char* palette[] = {
    "1 1 1",       //  0
    "0 1 0",       //  1
    "1 0 0",       //  2
    "0 0 1",       //  3
    "1 .5 0",      //  4
    "1 1 0",       //  5
    ".03 .03 .03", //  6
    ".9 .9 .9",    //  7
    ".8 0 .8",     //  8
    ".9 .6 0",     //  9
    "1 .5 .5",     // 10
    "0 1 1",       // 11
    ".6 .6 .6",    // 12
};

static_assert(std::size(palette) == 13);

// Writing

struct point {
    float x, y;
};

// As the screen projects (projection.h), but from the kept matrix, in row order.
point projected(float x, float y, float z) {
    const float w = Mat[12] * x + Mat[13] * y + Mat[14] * z + Mat[15];
    return {(Mat[0] * x + Mat[1] * y + Mat[2] * z + Mat[3]) / w,
            (Mat[4] * x + Mat[5] * y + Mat[6] * z + Mat[7]) / w};
}

void writepoint(const char* before, const float* corner, const char* after) {
    const point p = projected(corner[0], corner[1], corner[2]);
    std::fprintf(fp, "%s%f %f %s\n", before, static_cast<double>(p.x), static_cast<double>(p.y),
                 after);
}

// An index beyond the palette writes nothing.
void PScolor(int index) {
    if (index >= 0 && index < static_cast<int>(std::size(palette))) {
        std::fprintf(fp, "%s setrgbcolor\n", palette[index]);
    }
}

// The first colour is overridden by the next line; it stands for an index beyond the palette.
void quadout(const float (&corner)[4][3]) {
    assert(facectr < squares);
    writepoint("newpath ", corner[0], "moveto");
    writepoint("", corner[1], "lineto");
    writepoint("", corner[2], "lineto");
    std::fputs("1 0 0 setrgbcolor\n", fp);
    // Deliberate: NOT-BUGS.md, "A printed cube has its own colours"
    PScolor(cubecolors[face[facectr]]);
    facectr++;
    writepoint("", corner[3], "lineto closepath gsave fill grestore");
    std::fputs("0 0 0 setrgbcolor stroke\n", fp);
}

// The full cells, without the border that the stickers have on the screen: the outline draws the
// grid. Each function walks its face as the table of places does.
constexpr float cells[3] = {-3, -1, 1}; // where the cells of a row begin

void writefront() {
    for (const float i : cells) {
        for (const float j : cells) {
            quadout({
                {i,     j,     3},
                {i + 2, j,     3},
                {i + 2, j + 2, 3},
                {i,     j + 2, 3}
            });
        }
    }
}

void writeup() {
    for (const float i : cells) {
        for (const float j : cells) {
            quadout({
                {i,     3, j    },
                {i + 2, 3, j    },
                {i + 2, 3, j + 2},
                {i,     3, j + 2}
            });
        }
    }
}

void writeleft() {
    for (const float i : cells) {
        for (const float j : cells) {
            quadout({
                {-3, i,     j    },
                {-3, i + 2, j    },
                {-3, i + 2, j + 2},
                {-3, i,     j + 2}
            });
        }
    }
}

void writepicture(std::FILE* file) {
    fp = file;
    facectr = 0;
    std::fputs("%!PS-Adobe-2.0 EPSF-1.2\n"
               "%%Creator: Vexel\n"
               "%%BoundingBox: 0 0 400 400\n"
               "%%EndComments\n"
               "0.01 setlinewidth\n"
               "1 setlinejoin\n"
               "187.000000 221.000000 translate\n"
               "233.000000 233.000000 scale\n",
               fp);
    writefront();
    writeup();
    writeleft();
    std::fputs("showpage\n", fp);
    fp = nullptr;
}

// OpenGL's order is column by column, the file's row by row.
void keepmatrix(const float m[4][4]) {
    for (int row = 0; row < 4; row++) {
        for (int column = 0; column < 4; column++) {
            Mat[4 * row + column] = m[column][row];
        }
    }
}

// The name is copied: the toolkit owns it and may use its room for the next question.
void askandwrite() {
    const char* name = askfile("EPS file name:", nullptr, nullptr);
    if (name == nullptr) {
        return;
    }
    const std::string chosen = name;
    if (replacefile(chosen.c_str(), writepicture) == 0) {
        showalert(("Couldn't open " + chosen + " for writing.").c_str());
    }
}

} // namespace

void EPSdump(int mode, const float m[4][4]) {
    static bool kept = false; // whether Mat is filled
    if (mode == 0) {
        askandwrite();
    } else if (!kept) {
        keepmatrix(m);
        kept = true;
    }
}

// The view may never have stood still yet, and there may be no view at all: the matrix is not taken
// from a frame but worked out, to the same last digit.
void printeps() {
    float m[4][4];
    standardview(m);
    EPSdump(1, m);
    EPSdump(0, nullptr);
}
