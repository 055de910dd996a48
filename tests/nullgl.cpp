// SPDX-License-Identifier: MIT
#include "nullgl.h"

#include "render/glwrap.h"

#include <algorithm>
#include <cassert>
#include <cmath>

painted paintedlist[paintedlimit];
int paintedcount = 0;
float currentcolor[3] = {-1, -1, -1};
float currentmatrix[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
int matrixdepth = 0;
int viewport[4] = {};

namespace {

constexpr int stacklimit = 32; // what OpenGL promises at least

float stack[stacklimit][16];

constexpr float identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// From the right, like OpenGL: what is multiplied last is applied to a point first.
void multiply(const float* right) {
    float product[16];
    for (int column = 0; column < 4; column++) {
        for (int row = 0; row < 4; row++) {
            float sum = 0;
            for (int k = 0; k < 4; k++) {
                sum += currentmatrix[4 * k + row] * right[4 * column + k];
            }
            product[4 * column + row] = sum;
        }
    }
    std::copy(product, product + 16, currentmatrix);
}

} // namespace

void initnullgl() {
    paintedcount = 0;
    std::fill(currentcolor, currentcolor + 3, -1.0F);
    std::copy(identity, identity + 16, currentmatrix);
    matrixdepth = 0;
    std::fill(viewport, viewport + 4, 0);
}

// A point is inside a convex polygon if it lies on the same side of all edges, whichever way round.
const painted* paintedat(double x, double y) {
    for (int i = paintedcount - 1; i >= 0; i--) {
        const painted& p = paintedlist[i];
        int left = 0; // edges that have the point on their left
        for (int a = 0; a < 4; a++) {
            const int b = (a + 1) % 4;
            const double ex = p.x[b] - p.x[a];
            const double ey = p.y[b] - p.y[a];
            left += ex * (y - p.y[a]) - ey * (x - p.x[a]) > 0 ? 1 : 0;
        }
        if (left == 0 || left == 4) {
            return &p;
        }
    }
    return nullptr;
}

void Color3f(float r, float g, float b) {
    currentcolor[0] = r;
    currentcolor[1] = g;
    currentcolor[2] = b;
}

void Viewport(int x, int y, int w, int h) {
    viewport[0] = x;
    viewport[1] = y;
    viewport[2] = w;
    viewport[3] = h;
}

void LoadIdentity() {
    std::copy(identity, identity + 16, currentmatrix);
}

void PushMatrix() {
    assert(matrixdepth < stacklimit);
    std::copy(currentmatrix, currentmatrix + 16, stack[matrixdepth]);
    matrixdepth++;
}

void PopMatrix() {
    assert(matrixdepth > 0);
    matrixdepth--;
    std::copy(stack[matrixdepth], stack[matrixdepth] + 16, currentmatrix);
}

void GetMatrix(float[4][4]) {}

// About any axis; OpenGL makes it a unit vector, too.
void Rotatef(float angle, float x, float y, float z) {
    const float length = std::sqrt(x * x + y * y + z * z);
    x /= length;
    y /= length;
    z /= length;
    const float radians = angle * (std::acos(-1.0F) / 180);
    const float s = std::sin(radians);
    const float c = std::cos(radians);
    const float d = 1 - c;
    const float m[16] = {x * x * d + c,
                         y * x * d + z * s,
                         z * x * d - y * s,
                         0,
                         x * y * d - z * s,
                         y * y * d + c,
                         z * y * d + x * s,
                         0,
                         x * z * d + y * s,
                         y * z * d - x * s,
                         z * z * d + c,
                         0,
                         0,
                         0,
                         0,
                         1};
    multiply(m);
}

void Scalef(float x, float y, float z) {
    const float m[16] = {x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1};
    multiply(m);
}

void Translatef(float x, float y, float z) {
    const float m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
    multiply(m);
}

void Frustum(float left, float right, float bottom, float top, float near, float far) {
    const float width = right - left;
    const float height = top - bottom;
    const float depth = far - near;
    const float a = (right + left) / width;
    const float b = (top + bottom) / height;
    const float c = -(far + near) / depth;
    const float d = -2 * far * near / depth;
    const float m[16] = {
        2 * near / width, 0, 0, 0, 0, 2 * near / height, 0, 0, a, b, c, -1, 0, 0, d, 0};
    multiply(m);
}

void readmatrix(float* m) {
    std::copy(currentmatrix, currentmatrix + 16, m);
}

// OpenGL transforms the corners, so that a matrix left over from the cube would show.
void polygon(const float corners[4][3]) {
    assert(paintedcount < paintedlimit);
    painted& p = paintedlist[paintedcount];
    paintedcount++;
    p.r = currentcolor[0];
    p.g = currentcolor[1];
    p.b = currentcolor[2];
    for (int i = 0; i < 4; i++) {
        const float x = corners[i][0];
        const float y = corners[i][1];
        const float* m = currentmatrix;
        const float w = m[3] * x + m[7] * y + m[15];
        p.x[i] = (m[0] * x + m[4] * y + m[12]) / w;
        p.y[i] = (m[1] * x + m[5] * y + m[13]) / w;
    }
}
