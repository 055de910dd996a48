// SPDX-License-Identifier: MIT
//
// dispatch: the one function every button, menu entry, key and click ends in.
//
// Numbers   a command is a long: 0..23 is a turn code (model/turns.h), 100..129 a command of the
//           table in dispatch.cpp; any other number does nothing.
// State     the flags below.
// Callers   the toolkit, through the widgets and menus; the view and the macro line. b_cb,
//           interpretkey and alt_q are declared in shell.h, so that the view may call them.
#pragma once

#include "shell.h"

extern int solvingcube; // 1 while the solver runs, so that it does not start twice; initially 0
extern int tryhard;     // 0, 1 or 2: how much longer than usual to search; initially 0
