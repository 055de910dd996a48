// SPDX-License-Identifier: MIT
//
// A person in the colour dialog: facelets selected and coloured, corners rotated, edges swapped,
// verdicts asked for. Whatever is entered, the colours stay colours, each kind of change changes
// just what it should, and "Finish" takes no cube that cannot be solved.
#include "fuzz/fuzz.h"
#include "input/coloring.h"
#include "model/cube.h"
#include "model/permutation.h"
#include "nullshell.h"
#include "solver/cubecheck.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <set>

namespace {

std::array<int, cubefacecount> counts() {
    std::array<int, cubefacecount> found = {};
    for (unsigned char color : cubecolors) {
        must(color < cubefacecount, "a colour is one of six");
        found[color]++;
    }
    return found;
}

void enter(int key) {
    const int color = collector::colorofkey(key);
    must(color >= -1 && color < cubefacecount, "a key is one of six colours or none");
    if (color >= 0) {
        cubecolors[collector::currentface] = static_cast<unsigned char>(color);
        collector::selectnext();
    }
}

void flip(int place) {
    unsigned char before[placecount];
    std::memcpy(before, cubecolors, placecount);
    const auto kinds = counts();
    const bool centre = place % 9 == 4;
    const int order = centre ? 1 : place % 9 % 2 == 1 ? 2 : 3;
    for (int i = 0; i < order; i++) {
        must(collector::flip(place) == !centre, "all but a centre can be flipped");
        must(counts() == kinds, "a flip only moves colours");
    }
    must(std::memcmp(before, cubecolors, placecount) == 0, "an edge is of order 2, a corner of 3");
}

void judge() {
    unsigned char before[placecount];
    std::memcpy(before, cubecolors, placecount);
    std::string text;
    collector::judge(text);
    must(!text.empty(), "a verdict says something");
    must(std::memcmp(before, cubecolors, placecount) == 0, "a verdict changes nothing");
}

bool solvable() {
    muckcube();
    const bool good = sanitycheckcube(dumpcube()) == 1;
    unmuckcube();
    return good;
}

void finish() {
    std::string reason;
    if (collector::finish(reason) == 1) {
        must(solvable(), "a cube that is taken can be solved");
        for (int n : counts()) {
            must(n == 9, "a cube that is taken has nine of each colour");
        }
    } else {
        must(!reason.empty(), "a refusal has a reason");
    }
    counts();
}

void act(int kind, int value) {
    switch (kind % 6) {
    case 0: enter(value); break;
    case 1: collector::currentface = value % placecount; break;
    case 2: flip(value % placecount); break;
    case 3: collector::selectprevious(); break;
    case 4: judge(); break;
    default: finish(); break;
    }
    must(collector::currentface >= 0 && collector::currentface < placecount,
         "a facelet is selected");
}

} // namespace

// Six bytes are the colour letters, the others pairs of what is done and with what.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    resetshell();
    initcubies();
    collector::currentface = 0;
    std::memcpy(colortable, "WGRBOY", cubefacecount);
    const std::size_t first = std::min<std::size_t>(size, cubefacecount);
    for (std::size_t i = 0; i < first; i++) {
        colortable[i] = validcolors[data[i] % validcolorcount];
    }
    collector::setrgbfacecolors();
    collector::init();
    for (std::size_t i = first; i + 1 < size; i += 2) {
        act(data[i], data[i + 1]);
    }
    finish();
    return 0;
}
