// SPDX-License-Identifier: MIT
//
// fuzz: what the fuzz targets share. A target is a program of one function that takes any bytes; it
// ends the process when something is wrong with what the bytes led to.
//
// Run       as a test over its corpus (runcorpus.cpp), or by libFuzzer, which makes up bytes
//           (script/fuzz).
// Order     each call starts from the program's initial state: what one input left behind must not
//           be what makes the next one fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Ends the process unless it holds; libFuzzer keeps the input then.
inline void must(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "it does not hold that %s\n", what);
        std::abort();
    }
}

// The bytes from the first on as a text.
inline std::string textfrom(const std::uint8_t* data, std::size_t size, std::size_t first = 0) {
    return first >= size ? ""
                         : std::string(reinterpret_cast<const char*>(data) + first, size - first);
}
