// SPDX-License-Identifier: MIT
#include "render/projection.h"

#include "render/colors.h"
#include "render/glwrap.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

constinit listface* facelist[facelimit] = {};
constinit int facelistcount = 0;
constinit float glmat[16] = {};

namespace {

// The records themselves; facelist points at each of them once.
constinit listface records[facelimit] = {};

// What a face is sorted by: minus its depth, so that the farthest comes first, then its address,
// which grows in the order of emission, so that a frame looks the same whatever was painted before.
using sort_key = std::pair<float, listface*>;

constinit sort_key keys[facelimit] = {}; // of the frame being painted

// A depth that is not a number would be as deep as all others, which are not as deep as one
// another, and a sort by that could run off the list. Here it counts as the farthest.
sort_key keyof(listface* face) {
    const float infinity = std::numeric_limits<float>::infinity();
    return {std::isnan(face->depth) ? -infinity : -face->depth, face};
}

// Through keys in one piece: the records themselves lie far apart.
void sortfaces() {
    sort_key* const end = std::transform(facelist, facelist + facelistcount, keys, keyof);
    std::sort(keys, end);
    std::transform(keys, end, facelist, [](const sort_key& key) { return key.second; });
}

} // namespace

void initdrawface() {
    for (int i = 0; i < facelimit; i++) {
        facelist[i] = &records[i];
    }
}

// Projected at once: the matrix of a turning layer is gone by the time the frame is painted.
void addface(int key, const float corners[4][3]) {
    assert(facelistcount >= 0 && facelistcount < facelimit);
    if (facelistcount == 0) {
        initdrawface(); // painting the frame before has moved the pointers
    }
    listface* face = facelist[facelistcount];
    facelistcount++;
    face->key = key;
    std::memcpy(face->corner, corners, sizeof face->corner);
    xform(face);
}

void getmatrix() {
    readmatrix(glmat);
}

// No test of w: the cube lies between the near and the far plane in every view.
void xformvect(float* p) {
    const float x = p[0];
    const float y = p[1];
    const float z = p[2];
    const float* m = glmat;
    const float w = m[3] * x + m[7] * y + m[11] * z + m[15];
    p[0] = (m[0] * x + m[4] * y + m[8] * z + m[12]) / w;
    p[1] = (m[1] * x + m[5] * y + m[9] * z + m[13]) / w;
    p[2] = (m[2] * x + m[6] * y + m[10] * z + m[14]) / w;
}

void xform(listface* face) {
    float center[3] = {};
    for (int axis = 0; axis < 3; axis++) {
        for (const auto& corner : face->corner) {
            center[axis] += corner[axis];
        }
        center[axis] *= 0.25F;
    }
    // The depth is that of the true centre, not of the middle of the projected corners.
    xformvect(center);
    face->depth = center[2];
    for (auto& corner : face->corner) {
        xformvect(corner);
    }
}

// Written so that a depth that is not a number is neither larger nor smaller.
int compdepth(const void* a, const void* b) {
    const float da = (*static_cast<listface* const*>(a))->depth;
    const float db = (*static_cast<listface* const*>(b))->depth;
    return da > db ? -1 : da < db ? 1 : 0;
}

void nongldisplay() {
    PushMatrix();
    LoadIdentity(); // the points are in device coordinates already
    sortfaces();
    for (int i = 0; i < facelistcount; i++) {
        setfacecolor(facelist[i]->key);
        polygon(facelist[i]->corner);
    }
    PopMatrix();
}
