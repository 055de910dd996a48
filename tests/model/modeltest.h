// SPDX-License-Identifier: MIT
//
// modeltest: what all tests of the model stand on: a fixture that starts each test from the initial
// state of the program, and the two ways in which a turn comes to the cube.
//
// Order     a fixture of its own that overrides SetUp calls ModelTest::SetUp first.
#pragma once

#include "model/cube.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/resetmodel.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "model/undo.h"
#include "nullshell.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using codes = std::vector<int>;
using messages = std::vector<std::string>; // as in shell.messages

inline int lengthof(const std::string& text) {
    return static_cast<int>(text.size());
}

class ModelTest : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetmodel();
    }

    // At once, in direct mode.
    static void apply(const std::string& text) {
        parsing = 0;
        EXPECT_EQ(0, parsestring(text.data(), lengthof(text)));
    }

    // What the driver and the view do on a turn's last frame: it lands and ends.
    static void land(const std::string& notation) {
        sparsestring(notation.data(), lengthof(notation));
        doparsestring();
        startturn(noturn);
    }

    static codes held() { return {undobuf, undobuf + undoptr}; }

    static codes colors() { return {cubecolors, cubecolors + placecount}; }

    static codes places() { return {cubefaces, cubefaces + placecount}; }
};
