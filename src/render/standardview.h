// SPDX-License-Identifier: MIT
//
// standardview: the steps from model space to the screen for the still cube, and the matrix that
// they make.
//
// Purpose   one list for two readers: view.cpp takes the steps in OpenGL, the EPS export reckons
//           their matrix and needs no OpenGL for it, in a program without a screen either.
// State     none.
// Units     model space as in projection.h; angles in degrees.
// Callers   view, eps.
#pragma once

// What a step multiplies the matrix by, from the right: the last step is applied to a point first.
enum class viewmove {
    perspective, // through a window from -1 to 1 at distance x, up to distance y
    shift,       // by x, y, z
    tilt,        // by angle about x, y, z
    enlargement, // by x, y, z
};

struct view_step {
    viewmove move;
    float x, y, z;
    float angle; // of a tilt, else 0
};

// The eye is 32 units in front of the cube's centre. The cube is scaled by 1.5 and tilted by 25
// degrees about x and y, so that U, F and L face the viewer.
constexpr int viewstepcount = 5;
constexpr int eyesteps = 2;  // the first ones, which belong to the eye
constexpr int tiltsteps = 2; // those after them; the demo spin comes behind these
inline constexpr view_step viewsteps[viewstepcount] = {
    {viewmove::perspective, 4,    80,   0,    0 },
    {viewmove::shift,       0,    0,    -32,  0 },
    {viewmove::tilt,        1,    0,    0,    25},
    {viewmove::tilt,        0,    1,    0,    25},
    {viewmove::enlargement, 1.5F, 1.5F, 1.5F, 0 },
};

// The matrix of all steps, in single precision and by OpenGL's own formulas, so that the numbers
// are the same to the last digit. In its order: column, then row.
void standardview(float m[4][4]);
