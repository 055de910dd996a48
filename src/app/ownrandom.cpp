// SPDX-License-Identifier: MIT
#include "app/ownrandom.h"

#include <cstdlib>

namespace {

// State

constinit char otherstate[128] = {}; // as large as the one that the C library begins with
constinit char* ownstate = nullptr;  // the one it began with; null while there is but one stream

} // namespace

void partrandom() {
    ownstate = initstate(1, otherstate, sizeof otherstate);
}

void ownrandom() {
    if (ownstate != nullptr) {
        setstate(ownstate);
    }
}

void otherrandom() {
    if (ownstate != nullptr) {
        setstate(otherstate);
    }
}
