// SPDX-License-Identifier: MIT
//
// picture: a piece of the screen as pixels, to be looked at and to be kept as a PNG file.
//
// Units     pixels, x to the right and y down from the top left corner; colour values 0..255.
// Callers   xserver takes pictures, the window tests and the tour read and keep them.
#pragma once

#include <string>
#include <vector>

struct rgb {
    int red, green, blue;

    bool operator==(const rgb&) const = default;
};

// Whether no channel differs by more than tolerance; a screen of 16 bits rounds by up to 8.
[[nodiscard]] bool near(rgb a, rgb b, int tolerance = 8);

std::string text(rgb colour); // "#ff8000"

struct rectangle {
    int x, y, w, h;

    bool operator==(const rectangle&) const = default;
};

class picture {
  public:
    picture() = default;

    picture(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * h) {}

    int w() const { return width; }

    int h() const { return height; }

    // The pixel at (x, y), which must lie inside.
    rgb at(int x, int y) const { return pixels[index(x, y)]; }

    void set(int x, int y, rgb colour) { pixels[index(x, y)] = colour; }

    picture part(rectangle r) const; // a copy of the part inside r, which must lie inside
    int count(rgb colour) const;     // how many pixels are exactly so
    rgb commonest() const;           // the colour that most pixels have: the background

    bool operator==(const picture&) const = default;

    // Writes a PNG file, making its folder; false if that fails.
    bool save(const std::string& path) const;

  private:
    std::size_t index(int x, int y) const;

    int width = 0;
    int height = 0;
    std::vector<rgb> pixels;
};
