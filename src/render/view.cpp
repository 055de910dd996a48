// SPDX-License-Identifier: MIT
#include "render/view.h"

#include "model/turns.h"
#include "render/glwrap.h"

#include <algorithm>
#include <cmath>
#include <numbers>

constinit int demomode = 0;

namespace {

// The viewpoint

constexpr float nearplane = 4; // distances from the eye
constexpr float farplane = 80;
constexpr float eyedistance = 32;
constexpr float tilt = 25; // degrees
constexpr float enlargement = 1.5F;

// The clicks. Rectangles that lie roughly inside the three faces as they are seen.

struct region_row {
    float left, right, bottom, top; // the bounds lie outside
    int plain, alt, ctrl, both;     // turn codes
};

// ORDER REGION: tested from the top; the regions do not overlap.
constexpr region_row region_table[] = {
    {0.16F, 0.35F, 0.32F, 0.62F, 4, 14, 19, 7 }, // left   L *L >L r
    {0.35F, 0.87F, 0.18F, 0.62F, 8, 12, 22, 11}, // front  F *F >F b
    {0.35F, 0.70F, 0.70F, 0.90F, 0, 16, 20, 3 }, // up     U *U >U d
};

// Both angles grow by a little less than a third and a little more than half of a turn's 90 degrees
// while one turn is animated, so that the spin keeps step with the speed setting. They are added up
// without bound: a float stands still long before it overflows.
void spin() {
    static float rx = 0; // degrees by which the demo has turned the picture about x
    static float ry = 0; // and y
    if (demomode == 0) {
        rx = 0;
        ry = 0;
        return;
    }
    Rotatef(rx, 1, 0, 0);
    rx += 24.0F / static_cast<float>(TURNTIME);
    Rotatef(ry, 0, 1, 0);
    ry += 51.6F / static_cast<float>(TURNTIME);
}

// left = left * right, in column order.
void multiply(float left[4][4], const float (&right)[4][4]) {
    float product[4][4];
    for (int column = 0; column < 4; column++) {
        for (int row = 0; row < 4; row++) {
            product[column][row] =
                left[0][row] * right[column][0] + left[1][row] * right[column][1] +
                left[2][row] * right[column][2] + left[3][row] * right[column][3];
        }
    }
    std::copy(&product[0][0], &product[0][0] + 16, &left[0][0]);
}

} // namespace

void setupeye(int w, int h) {
    LoadIdentity();
    Viewport(0, 0, w, h);
    Frustum(-1, 1, -1, 1, nearplane, farplane);
    Translatef(0, 0, -eyedistance);
}

// The spin comes between tilt and scale: its axes are tilted with the cube.
void setupcube() {
    Rotatef(tilt, 1, 0, 0);
    Rotatef(tilt, 0, 1, 0);
    spin();
    Scalef(enlargement, enlargement, enlargement);
}

void standardview(float m[4][4]) {
    const float depth = farplane - nearplane;
    const float a = -(farplane + nearplane) / depth;
    const float b = -(2 * farplane * nearplane) / depth;
    const float radians = tilt * (std::numbers::pi_v<float> / 180);
    const float s = std::sin(radians);
    const float c = std::cos(radians);
    const float e = enlargement;
    const float n = nearplane;
    const float d = -eyedistance;
    const float frustum[4][4] = {
        {n, 0, 0, 0 },
        {0, n, 0, 0 },
        {0, 0, a, -1},
        {0, 0, b, 0 }
    };
    const float away[4][4] = {
        {1, 0, 0, 0},
        {0, 1, 0, 0},
        {0, 0, 1, 0},
        {0, 0, d, 1}
    };
    const float aboutx[4][4] = {
        {1, 0,  0, 0},
        {0, c,  s, 0},
        {0, -s, c, 0},
        {0, 0,  0, 1}
    };
    const float abouty[4][4] = {
        {c, 0, -s, 0},
        {0, 1, 0,  0},
        {s, 0, c,  0},
        {0, 0, 0,  1}
    };
    const float scale[4][4] = {
        {e, 0, 0, 0},
        {0, e, 0, 0},
        {0, 0, e, 0},
        {0, 0, 0, 1}
    };
    std::copy(&frustum[0][0], &frustum[0][0] + 16, &m[0][0]);
    multiply(m, away);
    multiply(m, aboutx);
    multiply(m, abouty);
    multiply(m, scale);
}

int clickturn(float fx, float fy, bool ctrl, bool alt) {
    for (const region_row& row : region_table) {
        if (fx > row.left && fx < row.right && fy > row.bottom && fy < row.top) {
            return ctrl ? (alt ? row.both : row.ctrl) : (alt ? row.alt : row.plain);
        }
    }
    return noturn;
}
