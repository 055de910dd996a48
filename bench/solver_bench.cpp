// SPDX-License-Identifier: MIT
//
// The solver against the plain twin, on fixed cubes, in one run: tables, random cubes at the three
// depths, cubes of the subgroup. A ratio is the twin's time over ours. The sum of the nodes of the
// fixed list is the signature of the search: a commit that changes it quotes it.
//
// VEXEL_BENCH_LONG=1 takes longer lists and adds depth 16: some ten minutes, nearly all of them the
// twin's. The greatest tables are filled during the first cubes of a list, so a long one tells
// more.
#include "solver/samples.h"
#include "solver/search.h"
#include "solver/solver.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using cubes = std::vector<plain::cube>;

// Of the processor, which other work on the machine disturbs less.
double seconds(const auto& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

cubes made(int count, plain::cube (*make)(std::mt19937&)) {
    std::mt19937 random(1980);
    cubes list;
    for (int i = 0; i < count; i++) {
        list.push_back(make(random));
    }
    return list;
}

void tables() {
    const double plainly = seconds(plain::build);
    double ours = 0, longest = 0;
    for (int done = 0; !done;) {
        const double time = seconds([&] { done = initializesolve(); });
        ours += time;
        longest = std::max(longest, time);
    }
    std::printf("tables            plain %8.3f s  ours %8.3f s  ratio %6.2f  longest step %.3f s\n",
                plainly, ours, plainly / ours, longest);
}

// First ours solves the list, then the twin: cube by cube each would find the caches full of the
// other's tables, which costs the faster one more.
long long compare(const char* name, int depth, const cubes& list) {
    std::vector<std::string> found;
    double ours = 0, slowest = 0;
    long long nodes = 0;
    setsearchdepth(depth);
    for (const plain::cube& c : list) {
        const std::string text = plain::listing(c);
        const double time = seconds([&] { found.emplace_back(my_user_enters_cube(text.c_str())); });
        ours += time;
        slowest = std::max(slowest, time);
        nodes += a_node_count + b_node_count;
    }
    double plainly = 0;
    bool same = true;
    for (std::size_t i = 0; i < list.size(); i++) {
        std::string expected;
        plainly += seconds([&] { expected = plain::solve(list[i], depth); });
        same = same && found[i] == expected;
    }
    std::printf("%-9s %2d x %3zu plain %8.3f s  ours %8.3f s  ratio %6.2f  slowest %7.3f s  "
                "nodes %lld%s\n",
                name, depth, list.size(), plainly, ours, plainly / ours, slowest, nodes,
                same ? "" : "  ANSWERS DIFFER");
    std::fflush(stdout);
    return nodes;
}

// Ours alone: the slowest of many.
void slowest_of(const char* name, int depth, const cubes& list) {
    std::vector<double> times;
    setsearchdepth(depth);
    for (const plain::cube& c : list) {
        const std::string text = plain::listing(c);
        times.push_back(seconds([&] { my_user_enters_cube(text.c_str()); }));
    }
    std::sort(times.begin(), times.end());
    std::printf("%-9s %2d x %4zu median %8.4f s  slowest %8.3f s\n", name, depth, list.size(),
                times[times.size() / 2], times.back());
    std::fflush(stdout);
}

long long resident_kilobytes() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
}

} // namespace

int main() {
    const bool longer = std::getenv("VEXEL_BENCH_LONG") != nullptr;
    if (longer) {
        // Before the twin has tables of its own.
        while (!initializesolve()) {
            continue;
        }
        slowest_of("random", 14, made(1000, randomcube));
        slowest_of("random", 16, made(20, randomcube));
        slowest_of("subgroup", 14, made(100, randomsubcube));
        slowest_of("subgroup", 16, made(20, randomsubcube));
        std::printf("resident %lld kB at most\n", resident_kilobytes());
        plain::build();
    } else {
        tables();
    }
    long long nodes = compare("random", 14, made(longer ? 200 : 20, randomcube));
    nodes += compare("random", 15, made(longer ? 30 : 5, randomcube));
    nodes += compare("subgroup", 14, made(longer ? 10 : 2, randomsubcube));
    if (longer) {
        nodes += compare("random", 16, made(10, randomcube));
    }
    std::printf("Nodes: %lld\n", nodes);
}
