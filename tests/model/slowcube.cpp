// SPDX-License-Identifier: MIT
#include "model/slowcube.h"

#include "model/cube.h"

#include <vector>

namespace {

using vec = std::array<int, 3>;

int dot(const vec& a, const vec& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// A quarter turn about n, clockwise for one who looks at the face that n points out of.
vec rotated(const vec& v, const vec& n) {
    const int along = dot(v, n);
    return {along * n[0] + v[1] * n[2] - v[2] * n[1], along * n[1] + v[2] * n[0] - v[0] * n[2],
            along * n[2] + v[0] * n[1] - v[1] * n[0]};
}

struct sticker {
    vec cubie, normal;
};

// The net folded up. ORDER FACE: which way a face looks, its columns run, and its rows run.
const vec frames[6][3] = {
    {{0, 1, 0},  {1, 0, 0},  {0, 0, 1} }, // U, from B to F
    {{-1, 0, 0}, {0, 0, 1},  {0, -1, 0}}, // L, from B to F
    {{0, 0, 1},  {1, 0, 0},  {0, -1, 0}}, // F, from L to R
    {{1, 0, 0},  {0, 0, -1}, {0, -1, 0}}, // R, from F to B
    {{0, 0, -1}, {-1, 0, 0}, {0, -1, 0}}, // B, from R to L
    {{0, -1, 0}, {1, 0, 0},  {0, 0, -1}}, // D, from F to B
};

sticker stickerat(int place) {
    const vec* frame = frames[place / 9];
    const int row = place % 9 / 3 - 1;
    const int column = place % 3 - 1;
    vec cubie = {};
    for (int axis = 0; axis < 3; axis++) {
        cubie[axis] = frame[0][axis] + column * frame[1][axis] + row * frame[2][axis];
    }
    return {cubie, frame[0]};
}

int placeof(const sticker& s) {
    for (int p = 0; p < 54; p++) {
        const sticker at = stickerat(p);
        if (at.cubie == s.cubie && at.normal == s.normal) {
            return p;
        }
    }
    return -1;
}

const std::string allnotations[24] = {"U",  "u",  "D",  "d",  "L",  "l",  "R",  "r",
                                      "F",  "f",  "B",  "b",  "*F", "*B", "*L", "*R",
                                      "*U", "*D", ">R", ">L", ">U", ">D", ">F", ">B"};

using place_map = std::array<int, 54>; // where each place goes

// depth: 1 the face, 0 the layer under it, 2 everything
place_map layerturn(int face, int depth) {
    const vec n = stickerat(9 * face + 4).normal;
    place_map to = {};
    for (int p = 0; p < 54; p++) {
        const sticker s = stickerat(p);
        const bool turns = depth == 2 || dot(s.cubie, n) == depth;
        to[p] = turns ? placeof({rotated(s.cubie, n), rotated(s.normal, n)}) : p;
    }
    return to;
}

place_map turnof(const std::string& notation) {
    const char letter = notation.back();
    const bool backwards = letter >= 'a';
    const int face = static_cast<int>(
        std::string("ULFRBD").find(static_cast<char>(backwards ? letter - 'a' + 'A' : letter)));
    const place_map once = layerturn(face, notation[0] == '*' ? 0 : notation[0] == '>' ? 2 : 1);
    place_map to = once;
    for (int quarter = 1; quarter < (backwards ? 3 : 1); quarter++) {
        for (int& p : to) {
            p = once[p];
        }
    }
    return to;
}

std::vector<place_map> allturns() {
    std::vector<place_map> all;
    for (const std::string& notation : allnotations) {
        all.push_back(turnof(notation));
    }
    return all;
}

} // namespace

slow_cube slowsolved() {
    slow_cube cube = {};
    for (int p = 0; p < 54; p++) {
        cube.colors[p] = p / 9;
        cube.homes[p] = p;
    }
    return cube;
}

bool slowuniform(const slow_cube& cube) {
    for (int p = 0; p < 54; p++) {
        if (cube.colors[p] != cube.colors[p - p % 9]) {
            return false;
        }
    }
    return true;
}

int slowcode(const std::string& notation) {
    for (int code = 0; code < 24; code++) {
        if (allnotations[code] == notation) {
            return code;
        }
    }
    return -1;
}

bool slowturn(slow_cube& cube, const std::string& notation) {
    static const std::vector<place_map> known = allturns(); // geometry takes its time
    const int code = slowcode(notation);
    if (code < 0) {
        return false;
    }
    const slow_cube before = cube;
    for (int p = 0; p < 54; p++) {
        cube.colors[known[code][p]] = before.colors[p];
        cube.homes[known[code][p]] = before.homes[p];
    }
    return true;
}

slow_cube modelcube() {
    slow_cube cube = {};
    for (int p = 0; p < 54; p++) {
        cube.colors[p] = cubecolors[p];
        cube.homes[p] = cubefaces[p];
    }
    return cube;
}

void setmodelcube(const slow_cube& cube) {
    for (int p = 0; p < 54; p++) {
        cubecolors[p] = static_cast<unsigned char>(cube.colors[p]);
        cubefaces[p] = static_cast<unsigned char>(cube.homes[p]);
    }
}
