// SPDX-License-Identifier: MIT
#include "render/animation.h"

#include "model/parser.h"
#include "model/turns.h"
#include "render/cubies.h"
#include "render/glwrap.h"
#include "render/projection.h"

#include <cstring>
#include <span>

constinit int showrear = 1;
constinit int drawingmain = 1;

namespace {

// Tables

using enum cubie;

// The cubies that stay and the cubies that move, for each layer. The orders are the order of
// emission: of two equally deep squares the later one lies on top.
// clang-format off
constexpr cubie u_still[]  = {F, B, D, R, L, DFR, DFL, DBL, DBR, RF, LF, RB, LB, DF, DB, DR, DL};
constexpr cubie u_moving[] = {U, UFL, UFR, UBL, UBR, UF, UB, UR, UL};
constexpr cubie d_still[]  = {F, B, U, R, L, UFR, UFL, UBL, UBR, RF, LF, RB, LB, UF, UB, UR, UL};
constexpr cubie d_moving[] = {D, DFL, DFR, DBL, DBR, DF, DB, DR, DL};
constexpr cubie l_still[]  = {F, B, U, D, R, UFR, UBR, DFR, DBR, UF, UB, UR, RF, RB, DF, DB, DR};
constexpr cubie l_moving[] = {L, UFL, UBL, DFL, DBL, UL, LF, LB, DL};
constexpr cubie r_still[]  = {F, B, U, D, L, UFL, UBL, DFL, DBL, UF, UB, UL, LF, LB, DF, DB, DL};
constexpr cubie r_moving[] = {R, UFR, UBR, DFR, DBR, UR, RF, RB, DR};
constexpr cubie f_still[]  = {B, U, D, R, L, UBL, UBR, DBL, DBR, UB, UR, UL, RB, LB, DB, DR, DL};
constexpr cubie f_moving[] = {F, UFL, UFR, DFR, DFL, UF, LF, RF, DF};
constexpr cubie b_still[]  = {F, U, D, R, L, UFL, UFR, DFR, DFL, UF, UR, UL, RF, LF, DF, DR, DL};
constexpr cubie b_moving[] = {B, UBL, UBR, DBL, DBR, UB, RB, LB, DB};

// The middle slices. *L and *R move the same cubies, but list the rest in different orders.
constexpr cubie fb_still[] = {F, B, UFL, UBL, DFL, DBL, UF, UB, LF, LB, DF, DB,
                              UFR, UBR, DFR, DBR, RF, RB};
constexpr cubie fb_moving[] = {U, D, L, R, UL, DL, UR, DR};
constexpr cubie ls_still[] = {L, R, UFL, UBL, DFL, DBL, UL, UR, LF, LB, DL, DR,
                              UFR, UBR, DFR, DBR, RF, RB};
constexpr cubie rs_still[] = {L, R, UFL, UBL, DFL, DBL, UL, UR, LF, LB, DL, DR,
                              RF, RB, UFR, UBR, DFR, DBR};
constexpr cubie lr_moving[] = {U, D, F, B, UF, DF, UB, DB};
constexpr cubie ud_still[] = {U, D, UFL, UBL, DFL, DBL, UL, UR, DL, DR, UF, DF,
                              UB, DB, UFR, UBR, DFR, DBR};
constexpr cubie ud_moving[] = {L, R, F, B, LF, LB, RF, RB};

// The still cube and the cube that turns as a whole.
constexpr cubie all[] = {U, D, UFL, UBL, DFL, DBL, UL, UR, DL, DR, UF, DF, UB,
                         DB, UFR, UBR, DFR, DBR, L, R, F, B, LF, LB, RF, RB};

// clang-format on

enum axis { x_axis, y_axis, z_axis };

struct layer_row {
    std::span<const cubie> still;
    std::span<const cubie> moving;
    int sign; // of the angle about axis; positive is counter-clockwise seen from the axis' tip
    axis about;
};

constexpr int layercount = 18;

// ORDER TURN: row = turn code 0..17.
constexpr layer_row layer_table[layercount] = {
    {u_still,  u_moving,  -1, y_axis}, //  0 U
    {u_still,  u_moving,  +1, y_axis}, //  1 u
    {d_still,  d_moving,  +1, y_axis}, //  2 D
    {d_still,  d_moving,  -1, y_axis}, //  3 d
    {l_still,  l_moving,  +1, x_axis}, //  4 L
    {l_still,  l_moving,  -1, x_axis}, //  5 l
    {r_still,  r_moving,  -1, x_axis}, //  6 R
    {r_still,  r_moving,  +1, x_axis}, //  7 r
    {f_still,  f_moving,  -1, z_axis}, //  8 F
    {f_still,  f_moving,  +1, z_axis}, //  9 f
    {b_still,  b_moving,  +1, z_axis}, // 10 B
    {b_still,  b_moving,  -1, z_axis}, // 11 b
    {fb_still, fb_moving, -1, z_axis}, // 12 *F
    {fb_still, fb_moving, +1, z_axis}, // 13 *B
    {ls_still, lr_moving, +1, x_axis}, // 14 *L
    {rs_still, lr_moving, -1, x_axis}, // 15 *R
    {ud_still, ud_moving, -1, y_axis}, // 16 *U
    {ud_still, ud_moving, +1, y_axis}, // 17 *D
};

// A turn of the whole cube leaves nothing behind, so that it needs no lists.
struct whole_row {
    int code; // turn code
    int sign;
    axis about;
};

constexpr int facecount = 6;

// ORDER FACE: row = face.
constexpr whole_row whole_table[facecount] = {
    {20, -1, y_axis}, // 0 U
    {19, +1, x_axis}, // 1 L
    {22, -1, z_axis}, // 2 F
    {18, -1, x_axis}, // 3 R
    {23, +1, z_axis}, // 4 B
    {21, +1, y_axis}, // 5 D
};

// Every cubie once, be it still or moving.
constexpr bool complete(std::span<const cubie> still, std::span<const cubie> moving) {
    int seen[cubiecount] = {};
    for (const cubie c : still) {
        seen[static_cast<int>(c)]++;
    }
    for (const cubie c : moving) {
        seen[static_cast<int>(c)]++;
    }
    for (const int times : seen) {
        if (times != 1) {
            return false;
        }
    }
    return true;
}

// A layer and its inverse are also drawn alike, but for the sign.
constexpr bool layerscomplete() {
    for (int code = 0; code < layercount; code++) {
        const layer_row& row = layer_table[code];
        const layer_row& inverse = layer_table[code ^ 1];
        if (!complete(row.still, row.moving) || row.sign != -inverse.sign ||
            row.about != inverse.about) {
            return false;
        }
    }
    return true;
}

static_assert(layerscomplete());
static_assert(complete(all, {}));

// One frame

void drawcubies(std::span<const cubie> list) {
    for (const cubie c : list) {
        drawcubie(c);
    }
}

// The angle grows with the frames and stops short of 90 degrees: after the frame t = T - 1 the turn
// is a part of the cube, and the next frame draws the cube still.
void rotateabout(axis about, int sign) {
    const float angle = 90.0F * static_cast<float>(sign * ttime) / static_cast<float>(TURNTIME);
    Rotatef(angle, about == x_axis ? 1 : 0, about == y_axis ? 1 : 0, about == z_axis ? 1 : 0);
}

// Only the main view hands a turn on, or a frame with a rear view would turn the cube twice.
void handon(int code) {
    if (ttime == TURNTIME - 1 && drawingmain == 1) {
        const char* notation = turn_table[code].notation;
        sparsestring(notation, static_cast<int>(std::strlen(notation)));
    }
}

// Squares are projected when they are emitted: the still ones need the matrix from before the turn.
void drawlayer(int code) {
    const layer_row& row = layer_table[code];
    getmatrix();
    drawcubies(row.still);
    PushMatrix();
    rotateabout(row.about, row.sign);
    getmatrix();
    drawcubies(row.moving);
    PopMatrix();
    handon(code);
}

// One view of the cube as it stands in this frame.
void drawbyturn(int code) {
    if (code == noturn) {
        drawcubegeneric();
    } else if (code >= 0 && code < layercount) {
        drawlayer(code);
    } else if (code >= layercount && code < turncount) {
        drawwholecube(static_cast<int>(turn_table[code].face));
    }
}

// The turn that this frame shows. Between the command and the first pass, and after a new speed cut
// a turn short, ttime is -1: such a frame would show the layer a step the wrong way.
int shownturn() {
    return turnlanded == 1 || ttime < 0 || ttime >= TURNTIME ? noturn : turnmode;
}

// A fifth of the size, in the upper right corner, seen from behind, so that R, B and D show. The
// places are chosen for the viewpoint of view.h.
void drawrear(int code) {
    drawingmain = 0;
    // Deliberate: NOT-BUGS.md, "The rear view runs ahead on the last frame"
    if (ttime == TURNTIME - 1) {
        ttime = TURNTIME;
    }
    PushMatrix();
    Scalef(0.2F, 0.2F, 0.2F);
    Translatef(13, 23, 13);
    Rotatef(180, 0, 1, 0);
    Rotatef(30, 1, 0, 1);
    drawbyturn(code);
    PopMatrix();
    drawingmain = 1;
    if (ttime == TURNTIME) {
        ttime = TURNTIME - 1;
    }
}

} // namespace

void displaycube() {
    const int code = shownturn();
    drawbyturn(code);
    if (showrear != 0) {
        drawrear(code);
    }
}

void drawcubegeneric() {
    getmatrix();
    drawcubies(all);
}

// ORDER TURN
// clang-format off
void drawUcw()    { drawlayer( 0); }
void drawUccw()   { drawlayer( 1); }
void drawDcw()    { drawlayer( 2); }
void drawDccw()   { drawlayer( 3); }
void drawLcw()    { drawlayer( 4); }
void drawLccw()   { drawlayer( 5); }
void drawRcw()    { drawlayer( 6); }
void drawRccw()   { drawlayer( 7); }
void drawFcw()    { drawlayer( 8); }
void drawFccw()   { drawlayer( 9); }
void drawBcw()    { drawlayer(10); }
void drawBccw()   { drawlayer(11); }
void drawFScw()   { drawlayer(12); }
void drawBScw()   { drawlayer(13); }
void drawLScw()   { drawlayer(14); }
void drawRScw()   { drawlayer(15); }
void drawUScw()   { drawlayer(16); }
void drawDScw()   { drawlayer(17); }

// clang-format on

void drawwholecube(int face) {
    const bool turning = face >= 0 && face < facecount;
    PushMatrix();
    if (turning) {
        rotateabout(whole_table[face].about, whole_table[face].sign);
    }
    drawcubegeneric();
    PopMatrix();
    getmatrix();
    if (turning) {
        handon(whole_table[face].code);
    }
}
