// SPDX-License-Identifier: MIT
#include "window/stickers.h"

#include "model/cube.h"
#include "model/permutation.h"
#include "solver/cubecheck.h"
#include "viewpoints.h"
#include "window/program.h"

#include <string_view>

namespace {

char letterof(rgb colour) {
    for (const char letter : std::string_view("WGRBOYKSVDPCX")) {
        if (near(colour, lettercolor(letter))) {
            return letter;
        }
    }
    return '?';
}

} // namespace

std::string stickers(const picture& view) {
    std::string letters;
    for (int place = 0; place < placecount; place++) {
        const viewpoint point = lookat(place, view.w());
        letters += letterof(view.at(static_cast<int>(point.x), static_cast<int>(point.y)));
    }
    return letters;
}

std::string whynotlegal(const std::string& letters) {
    std::string centres;
    for (std::size_t face = 0; face < cubefacecount; face++) {
        const char letter = letters[9 * face + 4];
        if (letter == '?' || centres.find(letter) != std::string::npos) {
            return "the centres are " + centres + letter;
        }
        centres += letter;
    }
    initcubies();
    for (std::size_t place = 0; place < placecount; place++) {
        const std::size_t colour = centres.find(letters[place]);
        if (colour == std::string::npos) {
            return "a sticker is " + std::string(1, letters[place]);
        }
        cubecolors[place] = static_cast<unsigned char>(colour);
    }
    return sanitycheckcube(dumpcube()) == 1 ? "" : geterrorstring();
}
