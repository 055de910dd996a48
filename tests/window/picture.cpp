// SPDX-License-Identifier: MIT
#include "window/picture.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <png.h>
#include <tuple>

bool near(rgb a, rgb b, int tolerance) {
    return std::abs(a.red - b.red) <= tolerance && std::abs(a.green - b.green) <= tolerance &&
           std::abs(a.blue - b.blue) <= tolerance;
}

std::string text(rgb colour) {
    char hex[8];
    std::snprintf(hex, sizeof hex, "#%02x%02x%02x", colour.red & 255, colour.green & 255,
                  colour.blue & 255);
    return hex;
}

std::size_t picture::index(int x, int y) const {
    assert(x >= 0 && x < width && y >= 0 && y < height);
    return static_cast<std::size_t>(y) * width + x;
}

picture picture::part(rectangle r) const {
    picture copy(r.w, r.h);
    for (int y = 0; y < r.h; y++) {
        for (int x = 0; x < r.w; x++) {
            copy.set(x, y, at(r.x + x, r.y + y));
        }
    }
    return copy;
}

int picture::count(rgb colour) const {
    int found = 0;
    for (const rgb& pixel : pixels) {
        found += pixel == colour;
    }
    return found;
}

rgb picture::commonest() const {
    std::map<std::tuple<int, int, int>, int> counts;
    rgb best = {0, 0, 0};
    int most = 0;
    for (const rgb& pixel : pixels) {
        const int seen = ++counts[{pixel.red, pixel.green, pixel.blue}];
        if (seen > most) {
            most = seen;
            best = pixel;
        }
    }
    return best;
}

bool picture::save(const std::string& path) const {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::error_code ignored; // the write below tells
    std::filesystem::create_directories(folder, ignored);
    std::vector<unsigned char> bytes;
    bytes.reserve(pixels.size() * 3);
    for (const rgb& pixel : pixels) {
        for (int value : {pixel.red, pixel.green, pixel.blue}) {
            bytes.push_back(static_cast<unsigned char>(value));
        }
    }
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}
