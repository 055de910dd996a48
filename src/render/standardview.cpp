// SPDX-License-Identifier: MIT
#include "render/standardview.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

struct matrix {
    float at[4][4]; // column, row
};

constexpr matrix identity = {
    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}
};

// The window is as wide as high and lies around the middle, which leaves four numbers of the
// general formula.
matrix perspective(float near, float far) {
    const float depth = far - near;
    matrix m = {};
    m.at[0][0] = near;
    m.at[1][1] = near;
    m.at[2][2] = -(far + near) / depth;
    m.at[2][3] = -1;
    m.at[3][2] = -(2 * far * near) / depth;
    return m;
}

// About a unit vector, counter-clockwise seen from its tip.
matrix tilt(float degrees, float x, float y, float z) {
    const float radians = degrees * (std::numbers::pi_v<float> / 180);
    const float s = std::sin(radians);
    const float c = std::cos(radians);
    const float d = 1 - c;
    return {
        {{x * x * d + c, y * x * d + z * s, z * x * d - y * s, 0},
         {x * y * d - z * s, y * y * d + c, z * y * d + x * s, 0},
         {x * z * d + y * s, y * z * d - x * s, z * z * d + c, 0},
         {0, 0, 0, 1}}
    };
}

// A case left out would be told by the compiler.
matrix matrixof(const view_step& step) {
    matrix m = identity;
    switch (step.move) {
    case viewmove::perspective: return perspective(step.x, step.y);
    case viewmove::tilt: return tilt(step.angle, step.x, step.y, step.z);
    case viewmove::shift:
        m.at[3][0] = step.x;
        m.at[3][1] = step.y;
        m.at[3][2] = step.z;
        break;
    case viewmove::enlargement:
        m.at[0][0] = step.x;
        m.at[1][1] = step.y;
        m.at[2][2] = step.z;
        break;
    }
    return m;
}

// The sum of a product's element is taken in OpenGL's order, on which its last digit depends.
matrix operator*(const matrix& left, const matrix& right) {
    matrix product = {};
    for (int column = 0; column < 4; column++) {
        for (int row = 0; row < 4; row++) {
            const float* r = right.at[column];
            product.at[column][row] = left.at[0][row] * r[0] + left.at[1][row] * r[1] +
                                      left.at[2][row] * r[2] + left.at[3][row] * r[3];
        }
    }
    return product;
}

} // namespace

// Five products of which most terms are zero, once a printed picture: nothing to save here.
void standardview(float m[4][4]) {
    matrix whole = identity;
    for (const view_step& step : viewsteps) {
        whole = whole * matrixof(step);
    }
    std::copy_n(&whole.at[0][0], 16, &m[0][0]);
}
