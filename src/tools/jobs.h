// SPDX-License-Identifier: MIT
//
// jobs: lines answered by several processes at once, for the solver's tables and search are one to
// a process.
//
// The answers are written in the order of the lines, each as soon as all before it are; at most
// jobsahead of them wait for their turn, so that memory does not grow with the number of lines. A
// worker whose master is gone, however that came, ends its search and itself.
//
// State     the workers and the answers that wait, private.
// Callers   vexel-solve.
// Order     startjobs(), then givejob() for each line with waitforinput() between, then endjobs().
#pragma once

#include "tools/inputs.h"

constexpr int mostjobs = 256;

// Starts count workers, 1..mostjobs, which answer lines with the function. What they are to share
// has been made before.
void startjobs(int count, const answer_function& answer);

// Has a worker answer the line; waits for one that is idle, and writes answers meanwhile.
void givejob(const asked_line& line);

// Writes answers as they come until the reader's file has something to read.
void waitforinput(const line_reader& reader);

// Waits for all answers and for the workers' end. Whether all answers were good.
bool endjobs();
