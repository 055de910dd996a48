// SPDX-License-Identifier: MIT
//
// noshell: src/shell.h for programs without a window. There is a macro line, since the notation
// works on it, and little else: an alert is kept and not shown, every question is cancelled, no
// button is labelled.
//
// State     below.
// Callers   the tools; shell.h is called by the rooms below.
#pragma once

#include <string>

extern std::string lastalert; // what the last alert said; initially nothing

// Asked in place of the interrupt chord whether a search is to end; null, as initially, for no.
using interrupt_question = bool (*)();
extern interrupt_question interrupted;
