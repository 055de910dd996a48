// SPDX-License-Identifier: MIT
//
// The notation: what a text of any size costs to check, count and parse, and what a full queue
// does. The first ones must fit N with a small error; a full queue must take less than 20 us.
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/turns.h"

#include <benchmark/benchmark.h>
#include <random>
#include <string>

namespace {

// Random notation that passes the check, with groups within groups.
std::string randommacro(size_t size) {
    std::mt19937 numbers(1);
    std::string text;
    int depth = 0;
    const auto draw = [&numbers](unsigned below) { return numbers() % below; };
    while (text.size() + static_cast<size_t>(depth) + 4 < size) {
        const unsigned kind = draw(16);
        if (kind < 10) {
            text += "UDLRFBudlrfb"[draw(12)];
        } else if (kind < 12) {
            text += "*>"[draw(2)];
            text += "UDLRFB"[draw(6)];
        } else if (kind < 14) {
            text += std::to_string(2 + draw(90)) + "(";
            depth++;
        } else if (depth > 0) {
            text += ')';
            depth--;
        }
    }
    return text.append(static_cast<size_t>(depth), ')');
}

void sizes(benchmark::internal::Benchmark* bench) {
    for (int kilobytes : {256, 512, 1024}) {
        bench->Arg(kilobytes * 1024);
    }
    bench->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
}

void checkandcount(benchmark::State& state) {
    const std::string text = randommacro(static_cast<size_t>(state.range(0)));
    const int length = static_cast<int>(text.size());
    for ([[maybe_unused]] auto _ : state) {
        if (sanitycheckmacro(text.data(), length) != 1 || maclen(text.data(), length) < 0) {
            state.SkipWithError("the macro is not good");
        }
    }
    state.SetComplexityN(length);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * length);
}

BENCHMARK(checkandcount)->Apply(sizes);

void parsedirectly(benchmark::State& state) {
    const std::string text = randommacro(static_cast<size_t>(state.range(0)));
    initcubies();
    parsing = 0;
    for ([[maybe_unused]] auto _ : state) {
        parsestring(text.data(), static_cast<int>(text.size()));
    }
    state.SetComplexityN(static_cast<int64_t>(text.size()));
}

BENCHMARK(parsedirectly)->Apply(sizes);

void queuefull(benchmark::State& state) {
    const std::string text(999, 'R');
    parsing = 1;
    for ([[maybe_unused]] auto _ : state) {
        if (parsestring(text.data(), static_cast<int>(text.size())) != 999) {
            state.SkipWithError("the queue did not take 999 turns");
        }
    }
    parsing = 0;
}

BENCHMARK(queuefull)->Unit(benchmark::kMicrosecond);

void queuegroups(benchmark::State& state) {
    const std::string text = "999(999(RU*F>Ld))";
    parsing = 1;
    for ([[maybe_unused]] auto _ : state) {
        if (parsestring(text.data(), static_cast<int>(text.size())) != 999) {
            state.SkipWithError("the queue did not take 999 turns");
        }
    }
    parsing = 0;
}

BENCHMARK(queuegroups)->Unit(benchmark::kMicrosecond);

void orderofru(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        if (calcorder("RU") != 105) {
            state.SkipWithError("the order is not 105");
        }
    }
}

BENCHMARK(orderofru)->Unit(benchmark::kMicrosecond);

} // namespace
