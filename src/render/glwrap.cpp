// SPDX-License-Identifier: MIT
#include "render/glwrap.h"

#include <GL/gl.h>

// The names without "gl" keep the rest of the renderer free of OpenGL's own.

void Color3f(float r, float g, float b) {
    glColor3f(r, g, b);
}

void Viewport(int x, int y, int w, int h) {
    glViewport(x, y, w, h);
}

void LoadIdentity() {
    glLoadIdentity();
}

void PushMatrix() {
    glPushMatrix();
}

void PopMatrix() {
    glPopMatrix();
}

// Deliberate: NOT-BUGS.md, "GetMatrix does nothing"
void GetMatrix(float[4][4]) {}

void Rotatef(float angle, float x, float y, float z) {
    glRotatef(angle, x, y, z);
}

void Scalef(float x, float y, float z) {
    glScalef(x, y, z);
}

void Translatef(float x, float y, float z) {
    glTranslatef(x, y, z);
}

// OpenGL wants doubles here and nowhere else.
void Frustum(float left, float right, float bottom, float top, float near, float far) {
    glFrustum(left, right, bottom, top, near, far);
}

// Nobody selects a matrix mode, so that this one holds the perspective too.
void readmatrix(float* m) {
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
}

// The depth is not handed over: what is painted later lies on top.
void polygon(const float corners[4][3]) {
    glBegin(GL_POLYGON);
    for (int i = 0; i < 4; i++) {
        glVertex2fv(corners[i]);
    }
    glEnd();
}
