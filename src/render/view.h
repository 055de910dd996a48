// SPDX-License-Identifier: MIT
//
// view: what the cube view does that needs no window: the viewpoint, the demo spin, the clicks.
//
// State     demomode, below; the two spin angles are kept inside setupview.
// Units     angles in degrees; click positions are fractions of the view's width from its lower
//           left corner, y upwards.
// Callers   cube_box; demomode is shared with the demo, the driver and the dispatcher.
// Viewpoint the steps of standardview.h, with the demo spin among them.
#pragma once

#include "render/standardview.h"

extern int demomode; // 1 while the demo runs, else 0; initially 0. Written by the demo alone

// Sets the viewport to w x h pixels and the matrix to the viewpoint before the tilt.
void setupeye(int w, int h);

// Multiplies the matrix by the tilt, the demo spin and the scale. In the demo each call turns the
// picture on by 24 / TURNTIME degrees about x and 51.6 / TURNTIME degrees about y, beginning with
// none; a call outside the demo puts both angles back to 0.
void setupcube();

// The turn code that a click at (fx, fy) starts, or -1 outside the three regions, whose bounds
// belong to none of them. Each region turns its face; with alt the middle slice behind it; with
// ctrl the whole cube; with both the opposite face, in the clicked face's direction.
//
//     0.9 +  .  .  +------------+ .  .  .
//         .        |  up        |
//     0.7 +  .  .  +------------+ .  .  .
//    0.62 +  +-----+-----------------+  .
//         .  |left |  front          |
//    0.32 +  +-----+                 |  .
//    0.18 +  .  .  +-----------------+  .
//          0.16   0.35         0.7  0.87
int clickturn(float fx, float fy, bool ctrl, bool alt);
