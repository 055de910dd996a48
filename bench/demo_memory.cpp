// SPDX-License-Identifier: MIT
//
// demo_memory [minutes]: lets the program run a demo on a screen of its own and watches its memory.
//
// Prints a line every tenth of the time (10 minutes unless told otherwise): seconds, kilobytes
// resident. Ends with status 1 if the last reading is more than 1% above the first, which is taken
// after a tenth of the time, or if the cube has left the states that the demo's macro goes through.
#include "model/cube.h"
#include "model/parser.h"
#include "model/turns.h"
#include "window/program.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

const std::string macro = "R*BLRFDl*FDrDBBfr*RUduL"; // what the first demo of a run makes up

constexpr int readings = 10;

// Whether the view at rest shows a state of the macro's cycle.
bool isincycle(const program& vexel) {
    initcubies();
    do {
        parsing = 1;
        const int count = parsestring(macro.c_str(), static_cast<int>(macro.size()));
        parsing = 0;
        for (int i = 0; i < count; i++) {
            applyturn(turns[i]);
            if (vexel.shows(cubecolors)) {
                return true;
            }
        }
    } while (solved() == 0);
    return false;
}

bool memoryisconstant(program& vexel, double minutes) {
    const double begin = now();
    long first = 0;
    long last = 0;
    for (int i = 1; i <= readings; i++) {
        waitfor(begin + i * minutes * 60 / readings - now(),
                [&vexel] { return !vexel.child().running(); });
        last = vexel.child().residentkilobytes();
        first = i == 1 ? last : first;
        std::printf("%.0f, %ld\n", now() - begin, last);
        std::fflush(stdout);
    }
    std::printf("growth: %.2f%%\n",
                100.0 * static_cast<double>(last - first) / static_cast<double>(first));
    return last > 0 && (last - first) * 100 <= first;
}

} // namespace

int main(int argc, char** argv) {
    const double minutes = argc > 1 ? std::strtod(argv[1], nullptr) : 10;
    xserver screen;
    program vexel(screen);
    vexel.setspeed(5);
    vexel.pushbutton("Start Demo");
    const bool constant = memoryisconstant(vexel, minutes);
    vexel.pushbutton("Start Demo");
    const bool incycle =
        waitfor(30, [&vexel] { return vexel.child().isquiet(); }) && isincycle(vexel);
    std::printf("cube: %s\n", incycle ? "in its cycle" : "has drifted");
    return constant && incycle ? 0 : 1;
}
