// SPDX-License-Identifier: MIT
#include "app/toolkitstore.h"

#include <FL/Fl.H>

#include <cstring>

namespace {

// State. No memory is asked for: the C library itself may not have been started yet.

constinit char nohome[] = "HOME=/dev/null"; // no file lies below it, and none can be made there
constinit char** entry = nullptr;           // in the environment; null while nothing is hidden
constinit char* home = nullptr;             // what stood there

// The entry itself is exchanged: whoever asks for HOME looks through this very array.
void hidehome(int, char**, char** environment) {
    for (char** at = environment; *at != nullptr; at++) {
        if (std::strncmp(*at, "HOME=", 5) == 0) {
            entry = at;
            home = *at;
            *at = nohome;
            return;
        }
    }
}

[[gnu::section(".preinit_array"), gnu::used]] void (*const beforelibraries)(int, char**,
                                                                            char**) = hidehome;

} // namespace

void givehomeback() {
#if FL_MINOR_VERSION >= 3
    Fl::option(Fl::OPTION_VISIBLE_FOCUS); // whichever: the first one asked for has all of them read
#endif
    if (entry != nullptr) {
        *entry = home;
        entry = nullptr;
    }
}
