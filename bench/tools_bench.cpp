// SPDX-License-Identifier: MIT
//
// The tools from outside, as scripts use them. Prints its own table: the seconds that each took,
// and during how many of them a processor worked; on a busy machine the latter tell more.
//
//     tools_bench [CUBES]    1000 cubes for the jobs, or so many
#include "tools/drawing.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;

double seconds(const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
}

double childseconds() {
    rusage used = {};
    getrusage(RUSAGE_CHILDREN, &used);
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

// Runs the command times over and prints the mean; the seconds of the clock.
double measure(const char* title, const std::string& command, int times = 1) {
    const double before = childseconds();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < times; i++) {
        if (std::system(command.c_str()) != 0) {
            std::fprintf(stderr, "tools_bench: %s failed\n", command.c_str());
            std::exit(1);
        }
    }
    const std::chrono::duration<double> clock = std::chrono::steady_clock::now() - start;
    const double busy = childseconds() - before;
    std::printf("%-48s %9.4f %9.4f\n", title, clock.count() / times, busy / times);
    std::fflush(stdout);
    return clock.count();
}

// Macros of 4 to 16 turns.
void writemacros(const fs::path& path, int count, lot& from) {
    std::ofstream file(path);
    for (int i = 0; i < count; i++) {
        for (std::uint64_t turns = 4 + drawnumber(from, 13); turns > 0; turns--) {
            file << "UDLRFBudlrfb"[drawnumber(from, 12)];
        }
        file << '\n';
    }
}

void writecubes(const fs::path& path, int count, lot& from) {
    std::ofstream file(path);
    for (int i = 0; i < count; i++) {
        file << drawcubies(from) << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::string solve = VEXEL_SOLVE;
    const std::string macro = VEXEL_MACRO;
    const int cubes = argc > 1 ? std::atoi(argv[1]) : 1000;
    std::string folder = fs::temp_directory_path() / "tools_bench.XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) {
        std::perror("tools_bench");
        return 1;
    }
    lot from(1);
    writemacros(folder + "/million", 1'000'000, from);
    writemacros(folder + "/reports", 100'000, from);
    writecubes(folder + "/cubes", cubes, from);

    std::printf("%-48s %9s %9s\n", "", "seconds", "busy");
    measure("vexel-macro starts, a macro's length", macro + " --length -e RU > /dev/null", 100);
    measure("a million macros checked, counted, reversed",
            macro + " --check --length --inverse " + folder + "/million > /dev/null");
    measure("their orders", macro + " --order " + folder + "/million > /dev/null");
    measure("100,000 reports", macro + " --permutation " + folder + "/reports > /dev/null");
    measure("100,000 cubes drawn", macro + " --scramble=100000 --seed=1 --facelets > /dev/null");
    const double one =
        measure("cubes solved by one job", solve + " " + folder + "/cubes > /dev/null");
    const double two =
        measure("cubes solved by two", solve + " --jobs=2 " + folder + "/cubes > /dev/null");
    std::printf("two jobs are %.2f times as fast as one\n", one / two);
    fs::remove_all(folder);
    return 0;
}
