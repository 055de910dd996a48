// SPDX-License-Identifier: MIT
//
// Feeds bytes to everything that reads a macro. The first byte chooses the mode, so that one corpus
// serves them all. Found crashes become cases of notation_test.
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/turns.h"
#include "nullshell.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const int length = static_cast<int>(text.size());
    initcubies();
    initturns();
    initparser();
    shell.line = text;
    parsing = data[0] & 1;
    if ((data[0] & 2) != 0) {
        revparsestring(text.c_str(), length);
    } else {
        parsestring(text.c_str(), length);
    }
    const int steps = maclen(text.c_str(), length);
    const int good = sanitycheckmacro(text.c_str(), length);
    if (steps < -1 || (good != 0 && good != 1) || turnptr >= queuesize) {
        std::abort();
    }
    return 0;
}
