// SPDX-License-Identifier: MIT
//
// confine: takes from a process the right to write outside a few folders, for good and for all that
// it starts. What a test does at random to a program that saves files must stay in its scratch
// folder, also when the tests are run as root.
//
// Callers   process (in the child, before the program is started), monkey.
#pragma once

#include <string>
#include <vector>

// Whether this system can do it (Linux 5.13 and later, unless it was built without Landlock).
[[nodiscard]] bool canconfine();

// From now on nothing can be made, changed or removed but below these folders, and nothing written
// but that and these files, existing ones; paths that are not there are left out. Reading stays as
// it was. False, and nothing done, if the system cannot.
[[nodiscard]] bool confine(const std::vector<std::string>& paths);
