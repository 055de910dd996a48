// SPDX-License-Identifier: MIT
//
// Linked into every program where coverage is counted, which has its _exit and _Exit lead here: a
// process that leaves at once, as a fork of another often does, would lose what it has counted.
#include <cstdlib>

extern "C" {
#include <gcov.h> // it does not know that it is read by C++

[[noreturn]] void __real__exit(int status);
[[noreturn]] void __wrap__exit(int status);
[[noreturn]] void __wrap__Exit(int status);
}

void __wrap__exit(int status) {
    __gcov_dump();
    __real__exit(status);
}

void __wrap__Exit(int status) {
    __wrap__exit(status);
}
