// SPDX-License-Identifier: MIT
//
// slowparser: the move notation once more, by plain recursion: each round of each group is read and
// done anew. For short macros with small counts.
//
// State     one slow_run a macro, made by the caller.
// Callers   tests, which hold the parser against it.
#pragma once

#include "model/slowcube.h"

#include <deque>
#include <string>
#include <vector>

struct slow_run {
    bool queueing = false;
    slow_cube cube = slowsolved();
    std::vector<int> queue;    // queueing: at most 999
    std::deque<int> undo;      // direct: the undo buffer
    bool undounderway = false; // direct: the next turn that lands is an undo's
    int order = 0;             // the last order
    bool stuck = false;        // a reversal broke off
    bool full = false;         // the queue was full: stop
    long budget = 20000;       // turns and characters that may be done; below 0: given up
};

void slowparse(slow_run& run, const std::string& text);
void slowreverse(slow_run& run, const std::string& text);
