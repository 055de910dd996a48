// SPDX-License-Identifier: MIT
//
// nullshell: src/shell.h without a window. Keeps what was asked of it, in order, and answers from a
// script.
//
// State     the one `shell`, public to the tests.
// Callers   every test program that links the target nullshell.
// Order     resetshell() in each fixture's SetUp.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct null_shell {
    // Asked so far
    std::vector<std::string> messages; // "inform: ..." and "alert: ...", in order
    std::vector<long> commands;        // numbers given to b_cb
    std::vector<int> keys;             // keys given to interpretkey
    int linechanges = 0;               // calls of macrolinechanged
    int readoutchanges = 0;            // calls of lengthreadoutchanged
    int delays = 0;                    // calls of delay
    int polls = 0;                     // calls of alt_q

    // Widgets
    std::string line;    // the macro line
    std::string readout; // the macro's length
    std::string recordbutton = "Record On";
    std::string savebutton = "Save Cube";

    // Script
    int interruptat = 0; // alt_q is 1 from this poll on, counted from 1; 0 for never
    std::function<void()>
        whilemessage;                 // what goes on while a message is up; runs after recording it
    std::function<void()> whiledelay; // what the toolkit does in delay
};

extern null_shell shell;

void resetshell(); // nothing asked, empty line, no script
