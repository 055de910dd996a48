// SPDX-License-Identifier: MIT
#include "render/view.h"

#include "model/turns.h"
#include "render/glwrap.h"
#include "render/standardview.h"

#include <span>

constinit int demomode = 0;

namespace {

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

// Both angles grow by a little more than a quarter and a little more than half of a turn's 90
// degrees while one turn is animated, so that the spin keeps step with the speed setting. They are
// added up without bound: a float stands still long before it overflows.
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

// OpenGL's part of standardview.
void take(const view_step& step) {
    switch (step.move) {
    case viewmove::perspective: Frustum(-1, 1, -1, 1, step.x, step.y); break;
    case viewmove::shift: Translatef(step.x, step.y, step.z); break;
    case viewmove::tilt: Rotatef(step.angle, step.x, step.y, step.z); break;
    case viewmove::enlargement: Scalef(step.x, step.y, step.z); break;
    }
}

void take(std::span<const view_step> steps) {
    for (const view_step& step : steps) {
        take(step);
    }
}

constexpr std::span<const view_step> steps = viewsteps;

} // namespace

void setupeye(int w, int h) {
    LoadIdentity();
    Viewport(0, 0, w, h);
    take(steps.first(eyesteps));
}

// The spin comes between tilt and scale: its axes are tilted with the cube.
void setupcube() {
    take(steps.subspan(eyesteps, tiltsteps));
    spin();
    take(steps.subspan(eyesteps + tiltsteps));
}

int clickturn(float fx, float fy, bool ctrl, bool alt) {
    for (const region_row& row : region_table) {
        if (fx > row.left && fx < row.right && fy > row.bottom && fy < row.top) {
            return ctrl ? (alt ? row.both : row.ctrl) : (alt ? row.alt : row.plain);
        }
    }
    return noturn;
}
