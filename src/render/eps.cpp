// SPDX-License-Identifier: MIT
#include "render/eps.h"

#include "base/savefile.h"
#include "model/cube.h"
#include "render/standardview.h"
#include "shell.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <iterator>
#include <string>

constinit float Mat[16] = {};
constinit std::FILE* fp = nullptr;
constinit int facectr = 0;

// Up the columns of F from the left, down those of U, and along the rows of L from the bottom.
// clang-format off
constexpr int face[epssquarecount] = {
    24, 21, 18, 25, 22, 19, 26, 23, 20, // F
     0,  3,  6,  1,  4,  7,  2,  5,  8, // U
    15, 16, 17, 12, 13, 14,  9, 10, 11, // L
};

// clang-format on

namespace {

constexpr bool facesinorder() {
    constexpr int order[3] = {2, 0, 1}; // ORDER FACE
    int seen[3] = {};                   // a bit for each place of a face
    for (int i = 0; i < epssquarecount; i++) {
        if (face[i] / faceplaces != order[i / faceplaces]) {
            return false;
        }
        seen[i / faceplaces] |= 1 << face[i] % faceplaces;
    }
    return seen[0] == 511 && seen[1] == 511 && seen[2] == 511;
}

static_assert(facesinorder());

// Texts, since the file is fixed to the letter: ".5" and not "0.500000". Row = colour index: the
// cube has 0..5; the rest are the colours of the letters K S V D P C X.
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

// The decimal point is the C locale's; nobody in the program sets another one for numbers.
void writepoint(const char* before, const float* corner, const char* after) {
    const point p = projected(corner[0], corner[1], corner[2]);
    std::fprintf(fp, "%s%f %f %s\n", before, static_cast<double>(p.x), static_cast<double>(p.y),
                 after);
}

} // namespace

void PScolor(int index) {
    if (index >= 0 && index < static_cast<int>(std::size(palette))) {
        std::fprintf(fp, "%s setrgbcolor\n", palette[index]);
    }
}

// The first colour is overridden by the next line; it stands for an index beyond the palette.
void quadout(const float* corners) {
    assert(facectr >= 0 && facectr < epssquarecount);
    writepoint("newpath ", corners, "moveto");
    writepoint("", corners + 3, "lineto");
    writepoint("", corners + 6, "lineto");
    std::fputs("1 0 0 setrgbcolor\n", fp);
    // Deliberate: NOT-BUGS.md, "A printed cube has its own colours"
    PScolor(cubecolors[face[facectr]]);
    facectr++;
    writepoint("", corners + 9, "lineto closepath gsave fill grestore");
    std::fputs("0 0 0 setrgbcolor stroke\n", fp);
}

namespace {

// The full cells, without the border that the stickers have on the screen: the outline draws the
// grid. Each face is walked as the table of places walks it.
void cellcorners(int square, float (&corner)[4][3]) {
    constexpr float cells[3] = {-3, -1, 1}; // where the cells of a row begin
    const float i = cells[square % faceplaces / 3];
    const float j = cells[square % 3];
    const float around[4][2] = {
        {i,     j    },
        {i + 2, j    },
        {i + 2, j + 2},
        {i,     j + 2}
    };
    for (int c = 0; c < 4; c++) {
        const float a = around[c][0];
        const float b = around[c][1];
        const float spots[3][3] = {
            {a,  b, 3}, // F
            {a,  3, b}, // U
            {-3, a, b}, // L
        };
        std::copy_n(spots[square / faceplaces], 3, corner[c]);
    }
}

// The line width counts in the units of the scale: 0.01 of them are 2.33 points.
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
    for (int square = 0; square < epssquarecount; square++) {
        float corner[4][3];
        cellcorners(square, corner);
        quadout(&corner[0][0]);
    }
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
    const std::string reason = savefile(chosen, writepicture);
    if (!reason.empty()) {
        showalert(("Couldn't open " + chosen + " for writing.\n" + reason).c_str());
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

namespace {

// The view may never have stood still yet, and there may be no view at all: the matrix is not taken
// from a frame but worked out, to the same last digit.
void keepstandardview() {
    float m[4][4];
    standardview(m);
    EPSdump(1, m);
}

} // namespace

void printeps() {
    keepstandardview();
    EPSdump(0, nullptr);
}

void writeeps(std::FILE* file) {
    keepstandardview();
    writepicture(file);
}

void epssquares(eps_square (&to)[epssquarecount]) {
    keepstandardview();
    for (int square = 0; square < epssquarecount; square++) {
        float corner[4][3];
        cellcorners(square, corner);
        to[square].place = face[square];
        for (int c = 0; c < 4; c++) {
            const point p = projected(corner[c][0], corner[c][1], corner[c][2]);
            to[square].corner[c][0] = p.x;
            to[square].corner[c][1] = p.y;
        }
    }
}
