// SPDX-License-Identifier: MIT
//
// nogl: src/render/glwrap.h for programs that draw nothing on a screen. The pictures that go into
// files are reckoned without it (render/eps.h, render/colors.h); what draws is never called.
#include "render/glwrap.h"

void Color3f(float /*r*/, float /*g*/, float /*b*/) {}

void Viewport(int /*x*/, int /*y*/, int /*w*/, int /*h*/) {}

void LoadIdentity() {}

void PushMatrix() {}

void PopMatrix() {}

void GetMatrix(float /*m*/[4][4]) {}

void Rotatef(float /*angle*/, float /*x*/, float /*y*/, float /*z*/) {}

void Scalef(float /*x*/, float /*y*/, float /*z*/) {}

void Translatef(float /*x*/, float /*y*/, float /*z*/) {}

void Frustum(float /*left*/, float /*right*/, float /*bottom*/, float /*top*/, float /*near*/,
             float /*far*/) {}

void readmatrix(float* /*m*/) {}

void polygon(const float /*corners*/[4][3]) {}
