// SPDX-License-Identifier: MIT
//
// nullpreferences: macros/preferences.h without a store. Keeps what was asked of it, in order.
//
// State     below, public to the tests.
// Callers   library_test, macrofile_test.
#pragma once

#include <set>
#include <string>
#include <vector>

extern std::vector<std::string> preferencecalls; // as written, names without quotes
extern std::set<std::string> storednames;        // the macros that isprefmacro knows

void resetpreferences(); // nothing asked, nothing stored
