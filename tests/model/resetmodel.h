// SPDX-License-Identifier: MIT
//
// resetmodel: the model as a start of the program finds it; start_test holds that it is the same.
//
// Callers   the fixtures of all tests that turn a cube, the fuzz targets.
// Order     what stands above the model is reset apart: the shell, the view, the table of macros.
#pragma once

#include "model/cube.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "model/undo.h"

inline void resetmodel() {
    initturns();
    initcubies();
    initundo();
    initparser();
    initrecording();
    initsavedcube();
}
