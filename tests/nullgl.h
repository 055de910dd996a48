// SPDX-License-Identifier: MIT
//
// nullgl: a software twin of glwrap, for tests and benchmarks without a screen.
//
// Purpose   defines every function of render/glwrap.h: a stack of matrices in single precision, as
//           OpenGL keeps them, and a list of the polygons painted. Link it in place of glwrap.cpp.
// State     below; initnullgl resets it.
// Checks    a stack that runs over or under, or a list that runs over, is an assertion.
// Cost      allocates nothing.
#pragma once

struct painted {
    float r, g, b;
    float x[4], y[4]; // the corners in device coordinates, through the current matrix
};

constexpr int paintedlimit = 1024;

extern painted paintedlist[paintedlimit]; // what was painted, in order
extern int paintedcount;

extern float currentcolor[3];   // set by Color3f, initially -1, -1, -1
extern float currentmatrix[16]; // top of the stack, in column order; initially the identity
extern int matrixdepth;         // PushMatrix less PopMatrix
extern int viewport[4];         // x, y, w, h of the last Viewport

void initnullgl(); // back to the initial values

// The polygon seen at (x, y) in device coordinates: the last one painted over that point, or null.
const painted* paintedat(double x, double y);
