// SPDX-License-Identifier: MIT
//
// prefstore: the toolkit's per-user store, read without being written and changed safely.
//
// Store     the group "Vexelprefs" of vendor org.vexel, application vexel/preferences:
//           $HOME/.fltk/org.vexel/vexel/preferences.prefs. It belongs to all runs of the program.
// Reading   is done here and not by the toolkit, which writes what it has read (base/storetext.h).
// Changing  the toolkit changes a copy, which is read back and takes the store's place then
//           (base/safestore.h). Everything else that is in the store stays.
// State     none.
// Callers   preferences.
#pragma once

#include "base/storetext.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

[[nodiscard]] std::string storepath(); // "" without a HOME to lie in

// What our group says; nothing where there is no store, or none that can be read.
[[nodiscard]] storeentries stored();

// A key and its new value, or none if the key goes.
using storeedit = std::pair<std::string, std::optional<std::string>>;
using storeedits = std::vector<storeedit>;

// What is to be changed in a store that says this. It is asked more than once.
using storedecision = std::function<storeedits(const storeentries&)>;

// Changes the store. "" if it says now what it should; otherwise why not, in the system's words if
// it has some, and the store is as it was. A store that says so already is not touched.
[[nodiscard]] std::string changestored(const storedecision& decide);
