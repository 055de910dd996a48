// SPDX-License-Identifier: MIT
//
// userdata: a number in the pointer that the toolkit carries for a callback.
//
// Callers   menu, macrochoice, gizmo.
#pragma once

inline void* userdata(long number) {
    return reinterpret_cast<void*>(number); // NOLINT(performance-no-int-to-ptr): it is no pointer
}

inline long numberof(void* data) {
    return reinterpret_cast<long>(data);
}
