// SPDX-License-Identifier: MIT
//
// view: what the cube view does that needs no window: the viewpoint, the demo spin, the clicks.
//
// State     demomode, below; the two spin angles are kept inside setupview.
// Units     angles in degrees; click positions are fractions of the view's width from its lower
//           left corner, y upwards.
// Callers   cube_box; eps (standardview); demomode is shared with the demo, the driver and the
//           dispatcher.
//
// The eye is 32 units in front of the cube's centre. The cube is scaled by 1.5 and tilted by 25
// degrees about x and y, so that U, F and L face the viewer.
#pragma once

extern int demomode; // 1 while the demo runs, else 0; initially 0. Written by the demo alone

// Sets the viewport to w x h pixels and the matrix to the viewpoint before the tilt.
void setupeye(int w, int h);

// Multiplies the matrix by the tilt, the demo spin and the scale. In the demo each call turns the
// picture on by 24 / TURNTIME degrees about x and 51.6 / TURNTIME degrees about y, beginning with
// none; a call outside the demo puts both angles back to 0.
void setupcube();

// Works out the matrix that setupeye and setupcube make for the still view, in single precision and
// in OpenGL's own steps, so that the numbers are the same; needs no OpenGL. In its order: column,
// then row.
void standardview(float m[4][4]);

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
