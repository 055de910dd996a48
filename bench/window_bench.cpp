// SPDX-License-Identifier: MIT
//
// window_bench: what the window costs while nothing moves, and how long it takes to come up.
//
// Usage     window_bench [seconds]: how long to watch the quiet program, 20 if not given.
// Prints    each figure with its limit; status 1 if one is beyond it.
// Machine   a virtual display without graphics hardware; let nothing else run.
#include "window/program.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

bool report(const char* what, double figure, double limit, const char* unit) {
    const bool good = figure <= limit;
    std::printf("%-40s %8.3f %s (limit %g)%s\n", what, figure, unit, limit, good ? "" : "  BEYOND");
    return good;
}

// Seconds from exec to the first painted frame, the best of several runs. A home folder that was
// used before holds the driver's and the fonts' caches, as that of a user does.
double starttime(xserver& screen) {
    constexpr int runs = 8;
    const scratchfolder home;
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        const double start = now();
        const program vexel(screen, {.home = home.path()});
        best = std::min(best, now() - start);
    }
    return best;
}

bool watchquiet(xserver& screen, double seconds) {
    program vexel(screen);
    vexel.waitquiet();
    const double start = now();
    const double cpu = vexel.child().cpuseconds();
    const long wakes = vexel.child().voluntaryswitches();
    waitfor(seconds, [] { return false; });
    const double took = now() - start;
    const double share = (vexel.child().cpuseconds() - cpu) / took;
    const double rate = static_cast<double>(vexel.child().voluntaryswitches() - wakes) / took;
    // A poll sleeps twice: for the tenth of a second and for the millisecond of its pass.
    const bool cheap = report("idle, share of a core", 100 * share, 1, "%");
    return report("idle, polls a second", rate / 2, 10.5, "") && cheap;
}

} // namespace

int main(int argc, char** argv) {
    const double seconds = argc > 1 ? std::atof(argv[1]) : 20;
    xserver screen;
    const bool quick = report("start, exec to first painted frame", starttime(screen), 0.5, "s");
    return watchquiet(screen, seconds) && quick ? 0 : 1;
}
