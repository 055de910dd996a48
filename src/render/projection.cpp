// SPDX-License-Identifier: MIT
#include "render/projection.h"

#include "render/colors.h"
#include "render/glwrap.h"

#include <cassert>
#include <cstring>
#include <initializer_list>

constinit listface* facelist[facelimit] = {};
constinit int facelistcount = 0;
constinit float glmat[16] = {};

namespace {

// The records themselves, in no order; facelist points at each of them once.
constinit listface records[facelimit] = {};

// Shell's sort (D. L. Shell 1959) with the gaps of M. Ciura 2001. The library's qsort fetches heap
// memory for a list this long, and its sort may run off the list when a depth is not a number:
// this one does neither, whatever compdepth says.
void sortfaces() {
    for (const int gap : {301, 132, 57, 23, 10, 4, 1}) {
        for (int i = gap; i < facelistcount; i++) {
            listface* const moving = facelist[i];
            int hole = i;
            for (; hole >= gap && compdepth(&facelist[hole - gap], &moving) > 0; hole -= gap) {
                facelist[hole] = facelist[hole - gap];
            }
            facelist[hole] = moving;
        }
    }
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
