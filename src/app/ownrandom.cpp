// SPDX-License-Identifier: MIT
#include "app/ownrandom.h"

#include <cstdlib>

namespace {

// State

constinit char otherstate[128] = {}; // as large as the one that the C library begins with
constinit char* ownstate = nullptr;  // the one it began with; null while there is but one stream

} // namespace

// The new stream is the libraries', not the program's: so the program goes on with the one that a
// generator which was never seeded has, and its scrambles stay the designed ones.
void partrandom() {
    ownstate = initstate(1, otherstate, sizeof otherstate);
}

ownrandom::ownrandom() {
    if (ownstate != nullptr) {
        setstate(ownstate);
    }
}

ownrandom::~ownrandom() {
    if (ownstate != nullptr) {
        setstate(otherstate);
    }
}
