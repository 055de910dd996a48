// SPDX-License-Identifier: MIT
#include "viewpoints.h"

#include <cassert>
#include <cmath>

namespace {

enum face_number { up_face, left_face, front_face, right_face, back_face, down_face };

modelpoint rearcopy(modelpoint p) {
    const double half = std::sqrt(0.5);
    p = turned(p, 30, {half, 0, half});
    p = turned(p, 180, {0, 1, 0});
    return {0.2 * (p.x + 13), 0.2 * (p.y + 23), 0.2 * (p.z + 13)};
}

} // namespace

// By the formula of Rodrigues.
modelpoint turned(modelpoint p, double degrees, modelpoint a) {
    const double angle = degrees * std::acos(-1.0) / 180;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double along = (a.x * p.x + a.y * p.y + a.z * p.z) * (1 - c);
    return {p.x * c + (a.y * p.z - a.z * p.y) * s + a.x * along,
            p.y * c + (a.z * p.x - a.x * p.z) * s + a.y * along,
            p.z * c + (a.x * p.y - a.y * p.x) * s + a.z * along};
}

modelpoint stickercenter(int place) {
    assert(place >= 0 && place < 54);
    const int line = place % 9 / 3;
    const double row = line - 1;         // -1, 0, 1 from the top of the face's grid
    const double column = place % 3 - 1; // -1, 0, 1 from its left
    switch (place / 9) {
    case up_face: return {2 * column, 3, 2 * row};
    case left_face: return {-3, -2 * row, 2 * column};
    case front_face: return {2 * column, -2 * row, 3};
    case right_face: return {3, -2 * row, -2 * column};
    case back_face: return {-2 * column, -2 * row, -3};
    default: return {2 * column, -3, -2 * row};
    }
}

viewpixel project(modelpoint p, bool rear, int size) {
    if (rear) {
        p = rearcopy(p);
    }
    p = turned({1.5 * p.x, 1.5 * p.y, 1.5 * p.z}, 25, {0, 1, 0});
    p = turned(p, 25, {1, 0, 0});
    const double distance = 32 - p.z; // from the eye, along the view
    const double half = size / 2.0;
    return {half + half * 4 * p.x / distance, half - half * 4 * p.y / distance};
}

viewpoint lookat(int place, int size) {
    const int face = place / 9;
    const bool rear = face == right_face || face == back_face || face == down_face;
    modelpoint p = stickercenter(place);
    if (!rear && place % 9 == 4) {
        (face == up_face ? p.x : p.y) -= 0.5;
    }
    const viewpixel pixel = project(p, rear, size);
    return {place, pixel.x, pixel.y, rear};
}
