// SPDX-License-Identifier: MIT
//
// solvecube: the command "Solve Cube", between the cube, the solver and the macro line.
//
// State     none to share; whether the solver's tables are built is remembered here.
// Callers   dispatch, which keeps it from running twice at a time.
//
// It stands with the window, not with the solver: it reads the model and moves widgets, so from the
// solver's floor nearly all of its includes would point upwards.
#pragma once

// Builds the solver's tables on first use, a step at a time with the window alive; solves the cube
// as it stands (a turn in progress is landed first, queued turns are dropped); puts the solution
// into the macro line, the cursor at its start. Alt+Q interrupts: while tables are built, the next
// call goes on from there; in the search, the best solution so far counts. A solved cube, and a
// search without a result, leave an empty line and no message.
void solvecube();
