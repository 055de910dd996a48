// SPDX-License-Identifier: MIT
//
// macrorig: the program's window with a table of macros that a test knows, and dialogs that are
// answered from a list.
//
// Purpose   the panel is a second window beside the main one, so that a dialog cannot be told by
//           being the second; it is told by being modal, and answered from inside.
// Callers   gizmo_test, macrochoice_test.
#pragma once

#include "app/rig.h"
#include "base/scratch.h"

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

class Fl_Button;

// Calls command, which opens dialogs one after the other, and answers each: with a text typed into
// its line and "OK", or, without a text, with "Cancel" or "Close". Returns the messages that the
// dialogs showed, no two alike. Fails the test if there was another number of them.
std::vector<std::string> answering(const std::vector<std::optional<std::string>>& answers,
                                   const std::function<void()>& command);

class macrowindowtest : public testing::Test {
  protected:
    macrowindowtest();

    // Puts macros "a", "b", ... into the table, macro i turning one face of the cube; the ones in
    // `marked` are marked.
    static void filltable(int count, const std::vector<int>& marked = {});

    static std::string nameof(int i);  // "a", "b", ...
    static std::string movesof(int i); // "U", "u", "D", ...

    static Fl_Button* button(int i);    // of the panel, 0..15
    static bool appliedonly(int macro); // whether the cube is what that macro makes of a solved one
    static std::vector<int> paneldata(); // the macro numbers of the buttons

    scratchhome home;
};
