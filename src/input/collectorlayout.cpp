// SPDX-License-Identifier: MIT
#include "input/collectorlayout.h"

#include <cassert>

namespace collector {

namespace {

constexpr int buttonsize = 35; // width and height of a facelet's and of a colour's button
constexpr int buttonstep = 40; // from one to the next

struct spot {
    int x, y;
};

// ORDER FACE (ULFRBD): where the first button of each face lies.
constexpr spot facespots[cubefacecount] = {
    {135, 35 }, // 0 U
    {10,  160}, // 1 L
    {135, 160}, // 2 F
    {260, 160}, // 3 R
    {385, 160}, // 4 B
    {135, 285}, // 5 D
};

// Between faces of the middle band lie five pixels more than between buttons, so that each face is
// seen as one; U and D lie over and under F, where they would be folded on.
constexpr bool netisregular() {
    for (int face = 1; face <= 4; face++) {
        if (facespots[face].x != 10 + (3 * buttonstep + 5) * (face - 1)) {
            return false;
        }
    }
    return facespots[0].x == facespots[2].x && facespots[5].x == facespots[2].x;
}

static_assert(netisregular());

} // namespace

// ORDER FACE
constexpr std::array<button_name, placecount> butnames = [] {
    std::array<button_name, placecount> names = {};
    for (unsigned place = 0; place < names.size(); place++) {
        names[place].text[0] = "ULFRBD"[place / faceplaces];
        names[place].text[1] = static_cast<char>('1' + place % faceplaces);
    }
    return names;
}();

area faceletarea(int place) {
    assert(place >= 0 && place < placecount);
    const spot& first = facespots[place / faceplaces];
    const int inface = place % faceplaces;
    return {first.x + buttonstep * (inface % 3), first.y + buttonstep * (inface / 3), buttonsize,
            buttonsize};
}

area colorarea(int face) {
    assert(face >= 0 && face < cubefacecount);
    return {260 + buttonstep * face, 420, buttonsize, buttonsize};
}

} // namespace collector
