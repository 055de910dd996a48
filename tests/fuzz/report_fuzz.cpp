// SPDX-License-Identifier: MIT
//
// Any 54 bytes as the colours of a cube: listed, checked, reported on and handed to the solver's
// front. A report changes no legal cube; the cycles that it tells are those of the facelets.
#include "fuzz/fuzz.h"
#include "model/cube.h"
#include "model/permutation.h"
#include "model/turns.h"
#include "nullshell.h"
#include "solver/cubecheck.h"

#include <algorithm>
#include <set>
#include <vector>

namespace {

using colouring = std::vector<unsigned char>;

colouring colors() {
    return {cubecolors, cubecolors + placecount};
}

// The places of each cycle, by walking them; the report must tell as many of each length.
std::multiset<int> cyclelengths() {
    std::multiset<int> lengths;
    bool done[placecount] = {};
    for (int start = 0; start < placecount; start++) {
        int length = 0;
        for (int p = start; !done[p]; p = cubefaces[p]) {
            done[p] = true;
            length++;
        }
        if (length > 1) {
            lengths.insert(length);
        }
    }
    return lengths;
}

// The numbers of facelet names in the brackets of a report.
std::multiset<int> toldlengths(const std::string& report) {
    std::multiset<int> lengths;
    int names = 0;
    bool inside = false;
    for (char c : report.substr(0, report.find("Cycle"))) {
        if (c == '(') {
            inside = true;
            names = 1;
        } else if (c == ' ' && inside) {
            names++;
        } else if (c == ')') {
            inside = false;
            lengths.insert(names);
        }
    }
    return lengths;
}

bool onecolourtwice() {
    std::set<int> centres;
    for (int face = 0; face < cubefacecount; face++) {
        centres.insert(cubecolors[9 * face + 4]);
    }
    return centres.size() < cubefacecount;
}

// A cube that can be made by turns, from the bytes as turns.
void makelegal(const std::uint8_t* data, std::size_t size) {
    for (std::size_t i = 0; i < size; i++) {
        applyturn(data[i] % turncount);
    }
}

void makeany(const std::uint8_t* data, std::size_t size) {
    for (std::size_t i = 0; i < placecount; i++) {
        cubecolors[i] = i < size ? data[i] % cubefacecount : 0;
    }
}

void report() {
    const bool invertible = !onecolourtwice(); // else the colours are not those of one cube
    const colouring before = colors();
    dumpcubeperm();
    must(shell.messages.size() == 1, "there is one message");
    if (shell.messages[0] != "alert: Invalid cube coloring") {
        must(!invertible || colors() == before, "the report leaves the cube as it is");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    resetshell();
    initcubies();
    const bool legal = size > placecount;
    if (legal) {
        makelegal(data, size);
        must(toldlengths(faceperm()) == cyclelengths(), "the cycles told are those of the cube");
    } else {
        makeany(data, size);
    }
    report();
    must(!legal || shell.messages[0].starts_with("alert: Current"), "a legal cube is reported on");
    if (!legal) {
        return 0;
    }
    muckcube();
    must(sanitycheckcube(dumpcube()) == 1, "turns lead to a cube that can be solved");
    unmuckcube();
    return 0;
}
