// SPDX-License-Identifier: MIT
#include "tools/pictures.h"

#include "model/cube.h"
#include "render/colors.h"
#include "render/eps.h"

#include <cassert>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

// As the EPS file has it: the box, and device coordinates in points. Its lines are 0.01 wide.
constexpr double size = 400;
constexpr double centrex = 187;
constexpr double centrey = 221;
constexpr double scale = 233;

std::string formatted(const char* format, double a, double b) {
    char text[80];
    const int length = std::snprintf(text, sizeof text, format, a, b);
    assert(length > 0 && length < static_cast<int>(sizeof text));
    return text;
}

unsigned webpart(float part) {
    return static_cast<unsigned>(std::lround(part * 255));
}

std::string webcolor(char letter) {
    const letter_row* row = findletter(letter);
    assert(row != nullptr);
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", webpart(row->r) & 0xff,
                  webpart(row->g) & 0xff, webpart(row->b) & 0xff);
    return text;
}

// y grows downwards here.
std::string polygon(const eps_square& square, std::string_view letters) {
    std::string points;
    for (const auto& corner : square.corner) {
        points += formatted(points.empty() ? "%.2f,%.2f" : " %.2f,%.2f",
                            centrex + scale * corner[0], size - centrey - scale * corner[1]);
    }
    return "<polygon fill=\"" + webcolor(letters[cubecolors[square.place]]) + "\" points=\"" +
           points + "\"/>\n";
}

} // namespace

// The window's writer wants a file: this one is in memory.
std::string epstext() {
    char* bytes = nullptr;
    std::size_t count = 0;
    std::FILE* const file = open_memstream(&bytes, &count);
    assert(file != nullptr);
    writeeps(file);
    std::fclose(file);
    std::string text(bytes, count);
    std::free(bytes);
    return text;
}

std::string svgtext(std::string_view letters) {
    std::string text = formatted("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" "
                                 "height=\"%.0f\" ",
                                 size, size) +
                       formatted("viewBox=\"0 0 %.0f %.0f\">\n", size, size) +
                       "<g stroke=\"#000000\" stroke-width=\"2.33\" stroke-linejoin=\"round\">\n";
    eps_square squares[epssquarecount];
    epssquares(squares);
    for (const eps_square& square : squares) {
        text += polygon(square, letters);
    }
    return text + "</g>\n</svg>\n";
}

bool goodcolors(std::string_view letters) {
    for (std::size_t i = 0; i < letters.size(); i++) {
        if (findletter(letters[i]) == nullptr || letters.find(letters[i]) != i) {
            return false;
        }
    }
    return letters.size() == cubefacecount;
}
