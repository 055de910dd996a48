// SPDX-License-Identifier: MIT
#include "app/icon.h"

#include <cmath>

namespace {

struct point {
    double x, y;
};

struct icon_face {
    point corner, right, down; // one corner, and the edges that begin there
    std::uint32_t color;
};

// In a square of 64 x 64, as in the drawing: the top, the left and the right face.
constexpr double canvas = 64;
constexpr icon_face faces[] = {
    {{32, 4},  {26, 13},  {-26, 13}, 0xffffff},
    {{6, 17},  {26, 13},  {0, 29},   0x00ff00},
    {{32, 30}, {26, -13}, {0, 29},   0xff0000},
};
constexpr double halfline = 0.75; // of the black lines between the stickers
constexpr int stickers = 3;       // along an edge
constexpr int samples = 4;        // along each side of a pixel
constexpr std::uint32_t nothing = 0xffffffff;

double cross(point a, point b) {
    return a.x * b.y - a.y * b.x;
}

// How far t, in stickers from the edge of a face, is from the nearest line; a sticker is `width`
// wide. Negative outside the face and its outer line.
double fromline(double t, double width) {
    const double line = std::fmin(std::fmax(std::round(t), 0), stickers);
    const double distance = std::fabs(t - line) * width;
    return t < 0 || t > stickers ? -distance : distance;
}

// The colour of the drawing at p: black on a line, or nothing.
std::uint32_t colorat(point p) {
    for (const icon_face& face : faces) {
        const double area = cross(face.right, face.down);
        const point from = {p.x - face.corner.x, p.y - face.corner.y};
        const double along = stickers * cross(from, face.down) / area;
        const double across = stickers * cross(face.right, from) / area;
        const double a =
            fromline(along, std::fabs(area) / stickers / std::hypot(face.down.x, face.down.y));
        const double b =
            fromline(across, std::fabs(area) / stickers / std::hypot(face.right.x, face.right.y));
        if (a >= -halfline && b >= -halfline) {
            return a <= halfline || b <= halfline ? 0 : face.color;
        }
    }
    return nothing;
}

// The mean of several points of the drawing: in the smallest icon a line is half a pixel wide, and
// with one point would be there or not by chance. Points outside count for the transparency alone.
std::uint32_t pixel(int x, int y, int size) {
    std::uint32_t count = 0;
    std::uint32_t sum[3] = {};
    for (int i = 0; i < samples * samples; i++) {
        const int column = i % samples;
        const int row = i / samples;
        const double u = x + (column + 0.5) / samples;
        const double v = y + (row + 0.5) / samples;
        const std::uint32_t color = colorat({u * canvas / size, v * canvas / size});
        if (color != nothing) {
            count++;
            for (int channel = 0; channel < 3; channel++) {
                sum[channel] += color >> (8 * channel) & 255;
            }
        }
    }
    std::uint32_t argb = count * 255 / (samples * samples) << 24;
    for (int channel = 0; channel < 3 && count > 0; channel++) {
        argb |= sum[channel] / count << (8 * channel);
    }
    return argb;
}

} // namespace

std::vector<std::uint32_t> makeicon(int size) {
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    for (int i = 0; i < size * size; i++) {
        pixels.push_back(pixel(i % size, i / size, size));
    }
    return pixels;
}
