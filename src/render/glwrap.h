// SPDX-License-Identifier: MIT
//
// glwrap: the few drawing operations that the rest of the renderer needs, by their own names.
//
// Purpose   the seam between the renderer and OpenGL. OpenGL composes matrices and fills flat
//           polygons; projection, hidden surfaces and colours are the program's own work.
// State     OpenGL's: one current matrix (with a stack) that holds the whole transform, the
//           perspective included, since nobody ever selects a matrix mode; one current colour.
// Units     angles in degrees, colours 0..1, matrices 16 floats in column order (element
//           4 * column + row).
// Callers   projection, animation, view, colors. Nothing else in the program calls OpenGL, but for
//           the clearing and the letters in cube_box, and the questions of glscreen.
// Order     needs a current OpenGL context, which the toolkit gives inside cube_box::draw.
// Defined   in glwrap.cpp over OpenGL; in tests/nullgl.cpp as a software twin that needs no screen.
#pragma once

// The colour of the polygons that follow.
void Color3f(float r, float g, float b);

// The rectangle of the window that the picture fills, in pixels from its lower left corner.
void Viewport(int x, int y, int w, int h);

// The current matrix. All but the first four multiply it from the right, so that the operation
// written last is applied to a point first.

void LoadIdentity();
void PushMatrix(); // OpenGL keeps at least 32 of them; the program needs four
void PopMatrix();
void GetMatrix(float m[4][4]); // does nothing: the matrix is read with readmatrix
void Rotatef(float angle, float x, float y, float z); // counter-clockwise seen from the axis' tip
void Scalef(float x, float y, float z);
void Translatef(float x, float y, float z);
void Frustum(float left, float right, float bottom, float top, float near, float far);

// Copies the current matrix to m, which has room for 16 floats.
void readmatrix(float* m);

// Fills the quadrilateral of four corners in the current colour; z is not used.
void polygon(const float corners[4][3]);
