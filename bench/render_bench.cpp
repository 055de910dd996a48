// SPDX-License-Identifier: MIT
//
// One frame of the cube, from geometry through projection and sort to the list of polygons, over
// the software twin of glwrap. Reports calls of the heap a frame beside the time: there are none.
#include "heapcount.h"
#include "model/cube.h"
#include "model/turns.h"
#include "nullgl.h"
#include "render/animation.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/view.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

constexpr int frames = 120; // of the turn

void startturning(int code) {
    initcubies();
    initturns();
    initnullgl();
    initdrawface();
    turnmode = code;
    TURNTIME = frames;
}

void emit() {
    facelistcount = 0;
    setupeye(436, 436);
    PushMatrix();
    setupcube();
    displaycube();
}

void paint() {
    paintedcount = 0;
    nongldisplay();
    PopMatrix();
}

// A frame of a turn in progress, at another angle each time.
void frame(benchmark::State& state) {
    startturning(static_cast<int>(state.range(0)));
    showrear = static_cast<int>(state.range(1));
    emit();
    paint();
    const long before = heapcalls();
    for ([[maybe_unused]] auto _ : state) {
        ttime = (ttime + 1) % (frames - 1); // never the last frame, which would land the turn
        emit();
        paint();
    }
    const long after = heapcalls();
    state.counters["records"] = facelistcount;
    state.counters["heap"] = static_cast<double>(after - before);
    showrear = 1;
}

BENCHMARK(frame)
    ->ArgNames({"turn", "rear"})
    ->Args({-1, 1})
    ->Args({8, 1})
    ->Args({22, 1})
    ->Args({8, 0});

// What painting the frame a second time, for the second buffer, adds to it.
void repaint(benchmark::State& state) {
    startturning(8);
    ttime = 40;
    emit();
    paint();
    for ([[maybe_unused]] auto _ : state) {
        paintedcount = 0;
        nongldisplay();
    }
    state.counters["records"] = facelistcount;
}

BENCHMARK(repaint);

} // namespace
