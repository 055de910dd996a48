// SPDX-License-Identifier: MIT
#include "macros/preferences.h"

#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/prefstore.h"
#include "model/turns.h"
#include "render/colors.h"
#include "shell.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

namespace {

constexpr int maxprefmacros = 200;        // the numbers that are read
constexpr std::size_t filenamesize = 499; // bytes read of "macrofilename", the NUL among them
constexpr std::size_t textsize = 199;     // the same of "mac%d" and "val%d"
constexpr int standardspeed = 100;        // without a good "speed"
constexpr int maxspeed = 999;

// Changes the store. False, after a message, if it could not be changed.
bool change(const storedecision& decide) {
    const std::string reason = changestored(decide);
    if (!reason.empty()) {
        const std::string name = storepath().empty() ? "the preferences" : storepath();
        showalert(("Couldn't write " + name + "\n" + reason).c_str());
    }
    return reason.empty();
}

// Keys

std::string key(const char* kind, int n) {
    return kind + std::to_string(n);
}

// As much of a text as is read: so many bytes, with the NUL that the toolkit counts.
std::string text(const storeentries& store, const std::string& name, std::size_t size) {
    const auto entry = store.find(name);
    return entry == store.end() ? "" : entry->second.substr(0, size - 1);
}

int number(const storeentries& store, const std::string& name, int standard) {
    const auto entry = store.find(name);
    if (entry == store.end()) {
        return standard;
    }
    const long value = std::strtol(entry->second.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp(value, -1L * INT_MAX, 1L * INT_MAX));
}

// Also a macro without a name is one: only a key that is missing makes a gap.
bool hasmacro(const storeentries& store, int n) {
    return store.contains(key("mac", n));
}

// Whether macro n has that name: as it stands in the store, or as the table has it after reading.
bool isnamed(const storeentries& store, int n, const std::string& name) {
    return store.at(key("mac", n)) == name ||
           plainname(text(store, key("mac", n), textsize)) == name;
}

// The number of the first macro of that name; -1 if there is none.
int findnumber(const storeentries& store, const std::string& name) {
    for (int n = 0; n < maxprefmacros; n++) {
        if (hasmacro(store, n) && isnamed(store, n, name)) {
            return n;
        }
    }
    return -1;
}

int firstfree(const storeentries& store) {
    int n = 0;
    while (hasmacro(store, n)) {
        // Deliberate: NOT-BUGS.md, "Macros beyond the two hundredth are stored and not read"
        n++;
    }
    return n;
}

storeedits editmark(const storeentries& store, const std::string& name,
                    const std::optional<std::string>& mark) {
    const int n = findnumber(store, name);
    // Deliberate: NOT-BUGS.md, "Only a stored macro's mark is remembered"
    return n < 0 ? storeedits() : storeedits(1, {key("gizmo", n), mark});
}

void readmacro(const storeentries& store, int n) {
    const std::string name = text(store, key("mac", n), textsize);
    const std::string moves = text(store, key("val", n), textsize);
    if (addmacro(name.c_str(), moves.c_str()) != 0) {
        // Deliberate: NOT-BUGS.md, "A stored string's "$" does not mark the macro"
        showmac[maccount - 1] = number(store, key("gizmo", n), -1) == 1 ? 1 : 0;
    }
}

void readcolors(const storeentries& store) {
    const std::string letters =
        store.contains("colors") ? text(store, "colors", sizeof colortable) : "WGRBOY";
    colortable[letters.copy(colortable, sizeof colortable - 1)] = '\0';
}

// Told at once, since the next start would do it without a word.
void tellcut(std::size_t name, std::size_t moves) {
    if (name >= textsize || moves >= textsize) {
        const std::string most = std::to_string(textsize - 1);
        showalert(("The next start will read " + most + " characters of a macro's name and " +
                   most + " of its moves.\nThis name has " + std::to_string(name) +
                   ", these moves have " + std::to_string(moves) + ".")
                      .c_str());
    }
}

} // namespace

void readprefs() {
    const storeentries store = stored();
    const int speed = number(store, "speed", standardspeed);
    TURNTIME = speed >= 1 && speed <= maxspeed ? speed : standardspeed;
    lastmacrofilename = text(store, "macrofilename", filenamesize);
    for (int n = 0; n < maxprefmacros; n++) {
        if (hasmacro(store, n)) {
            readmacro(store, n);
            // Deliberate: NOT-BUGS.md, "Colours are read only with a stored macro"
            readcolors(store);
        }
    }
}

void writeprefs() {
    change([](const storeentries&) {
        return storeedits{
            {"macrofilename", lastmacrofilename       },
            {"speed",         std::to_string(TURNTIME)},
            {"colors",        colortable              },
        };
    });
}

void addprefmacro(const char* name, const char* text) {
    const bool good = change([=](const storeentries& store) {
        const int n = firstfree(store);
        return storeedits{
            {key("mac", n), name},
            {key("val", n), text},
        };
    });
    if (good) {
        // Deliberate: NOT-BUGS.md, "A long macro is stored whole and read cut"
        tellcut(std::strlen(name), std::strlen(text));
    }
}

int isprefmacro(const char* name) {
    return findnumber(stored(), name) >= 0 ? 1 : 0;
}

int deleteprefmacro(const char* name) {
    bool found = false;
    const bool good = change([&](const storeentries& store) {
        storeedits changes;
        const int n = findnumber(store, name);
        found = n >= 0;
        if (found) {
            changes = {
                {key("mac",   n), {}},
                {key("val",   n), {}},
                {key("gizmo", n), {}},
            };
        }
        return changes;
    });
    return found && good ? 1 : 0;
}

void addgizmomac(const char* name) {
    change([=](const storeentries& store) { return editmark(store, name, "1"); });
}

void deletegizmomac(const char* name) {
    change([=](const storeentries& store) { return editmark(store, name, std::nullopt); });
}

void deleteallgizmoprefs() {
    change([](const storeentries& store) {
        storeedits changes;
        for (int n = 0; n < maxprefmacros; n++) {
            const std::string mark = key("gizmo", n);
            if (number(store, mark, -1) != 0) {
                changes.emplace_back(mark, std::nullopt);
            }
        }
        return changes;
    });
}
