// SPDX-License-Identifier: MIT
//
// nullshell: src/shell.h without a window. Keeps what was asked of it, in order, and answers from a
// script.
//
// State     the one `shell`, public to the tests.
// Callers   every test program that links the target nullshell.
// Order     resetshell() in each fixture's SetUp.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

struct null_shell {
    // Asked so far
    std::vector<std::string> messages; // "inform: ...", "alert: ..." and questions
    std::vector<long> commands;        // numbers given to b_cb
    std::vector<int> keys;             // keys given to interpretkey
    int linechanges = 0;               // calls of macrolinechanged
    int readoutchanges = 0;            // calls of lengthreadoutchanged
    int delays = 0;                    // calls of delay
    int polls = 0;                     // calls of alt_q
    std::vector<std::string> requests; // calls for the list and the panel of macros, as written

    // Widgets
    std::string line;    // the macro line
    std::string readout; // the macro's length
    std::string recordbutton = "Record On";
    std::string savebutton = "Save Cube";
    int chosen = 0; // the chosen entry of the list of macros

    // Script
    int interruptat = 0; // alt_q is 1 from this poll on, counted from 1; 0 for never
    std::function<void()>
        whilemessage;                 // what goes on while a message is up; runs after recording it
    std::function<void()> whiledelay; // what the toolkit does in delay

    // Answers to the questions to come, in order: a text, or "yes". A question that finds none is
    // cancelled.
    std::deque<std::string> answers;
};

extern null_shell shell;

void resetshell(); // nothing asked, empty line, no script
