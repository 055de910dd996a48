// SPDX-License-Identifier: MIT
#include "render/view.h"

#include "model/turns.h"
#include "render/glwrap.h"

constinit int demomode = 0;

namespace {

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

void spin() {
    static float rx = 0; // degrees about x and y by which the demo has turned the picture
    static float ry = 0;
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

} // namespace

void setupeye(int w, int h) {
    LoadIdentity();
    Viewport(0, 0, w, h);
    Frustum(-1, 1, -1, 1, 4, 80);
    Translatef(0, 0, -32);
}

void setupcube() {
    Rotatef(25, 1, 0, 0);
    Rotatef(25, 0, 1, 0);
    spin();
    Scalef(1.5F, 1.5F, 1.5F);
}

int clickturn(float fx, float fy, bool ctrl, bool alt) {
    for (const region_row& row : region_table) {
        if (fx > row.left && fx < row.right && fy > row.bottom && fy < row.top) {
            return ctrl ? (alt ? row.both : row.ctrl) : (alt ? row.alt : row.plain);
        }
    }
    return noturn;
}
