// SPDX-License-Identifier: MIT
//
// The macros: what a file of 500 pairs costs to load, the list on the screen made anew for each
// (less than 20 ms), and what stored macros cost at start-up (200 of them less than 50 ms).
#include "app/mainwindow.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"

#include <FL/Fl_Choice.H>

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

// A home folder of the benchmark's own.
const fs::path& home() {
    static const fs::path path = [] {
        std::string name = fs::temp_directory_path() / "vexelXXXXXX";
        setenv("HOME", mkdtemp(name.data()), 1);
        std::atexit([] { fs::remove_all(home()); });
        return fs::path(name);
    }();
    return path;
}

void makelist() {
    home();
    if (choice == nullptr) {
        choice = new Fl_Choice(0, 0, 270, 20);
    }
    initlibrary();
}

std::string macroname(int i) {
    return "Cycle number " + std::to_string(i) + ": UF->UB->DF & back";
}

void loadfile(benchmark::State& state) {
    makelist();
    const std::string path = home() / "m.macros";
    std::ofstream file(path);
    for (int i = 0; i < state.range(0); i++) {
        file << macroname(i) << "\nRlUUrLFFRlUUrLFF\n";
    }
    file.close();
    for ([[maybe_unused]] auto _ : state) {
        initlibrary();
        loadmacrofile(path.c_str());
    }
    state.counters["macros"] = maccount;
}

void readstore(benchmark::State& state) {
    makelist();
    const fs::path path = home() / ".fltk/org.vexel/vexel/preferences.prefs";
    fs::create_directories(path.parent_path());
    std::ofstream file(path);
    file << "; \n; \n; \n\n[./Vexelprefs]\n\nspeed:100\ncolors:WGRBOY\n";
    for (int i = 0; i < state.range(0); i++) {
        file << "mac" << i << ":" << macroname(i) << "\nval" << i << ":RlUUrLFFRlUUrLFF\n";
        file << "gizmo" << i << ":" << i % 2 << "\n";
    }
    file.close();
    for ([[maybe_unused]] auto _ : state) {
        initlibrary();
        readprefs();
    }
    state.counters["macros"] = maccount;
}

} // namespace

BENCHMARK(loadfile)->Arg(7)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(readstore)->Arg(0)->Arg(50)->Arg(200)->Unit(benchmark::kMillisecond);
