// SPDX-License-Identifier: MIT
#include "render/rendertest.h"

#include "model/cube.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "nullgl.h"
#include "nullshell.h"
#include "render/animation.h"
#include "render/colors.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/view.h"

#include <cmath>
#include <cstring>

void rendertest::SetUp() {
    resetshell();
    resetmodel();
    initdrawface();
    std::strcpy(colortable, "WGRBOY");
    demomode = 0;
    setupcube(); // puts the demo spin back
    showrear = 1;
    drawingmain = 1;
    facelistcount = 0;
    initnullgl();
    getmatrix();
}

void rendertest::TearDown() {
    std::strcpy(colortable, "WGRBOY");
    demomode = 0;
}

modelpoint centerof(const listface* face) {
    modelpoint c = {0, 0, 0};
    for (const auto& corner : face->corner) {
        c.x += corner[0] / 4;
        c.y += corner[1] / 4;
        c.z += corner[2] / 4;
    }
    return c;
}

void expectseenasbytwin(const float (&point)[3]) {
    const viewpixel wanted = project({point[0], point[1], point[2]}, false);
    float p[3] = {point[0], point[1], point[2]};
    xformvect(p);
    EXPECT_NEAR((p[0] + 1) * viewsize / 2, wanted.x, 1e-3);
    EXPECT_NEAR((1 - p[1]) * viewsize / 2, wanted.y, 1e-3);
}

double distance(modelpoint a, modelpoint b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

void emitframe() {
    facelistcount = 0;
    paintedcount = 0;
    setupeye(viewsize, viewsize);
    PushMatrix();
    setupcube();
    displaycube();
    PopMatrix();
}
