// SPDX-License-Identifier: MIT
#include "tools/properties.h"

#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/permutation.h"
#include "tools/movewriting.h"
#include "tools/noshell.h"

#include <cstdint>
#include <numeric>

namespace {

property_value told(std::string text) {
    return {true, std::move(text)};
}

property_value nameof(const subject& of) {
    return told(of.name);
}

property_value macroof(const subject& of) {
    return told(of.read.macro);
}

// What is not good is refused before it comes here.
property_value checkof(const subject& /*of*/) {
    return told("good");
}

// As the window's read-out shows it.
property_value lengthof(const subject& of) {
    const std::string& macro = of.read.macro;
    const int length = maclen(macro.c_str(), static_cast<int>(macro.size()));
    return length < 0 ? property_value{false, "*****"} : told(std::to_string(length));
}

property_value orderof(const subject& of) {
    initcubies();
    return told(std::to_string(calcorder(of.read.macro.c_str())));
}

// The least common multiple of the cycles of all 54 places, at most 54 long and with a sum of 54:
// it is far from overflowing.
property_value faceletorderof(const subject& of) {
    if (of.read.moves.resets) {
        return told("0");
    }
    makecube(of.read);
    std::uint64_t order = 1;
    for (int start = 0; start < placecount; start++) {
        std::uint64_t length = 1;
        for (int p = cubefaces[start]; p != start; p = cubefaces[p]) {
            length++;
        }
        order = std::lcm(order, length);
    }
    return told(std::to_string(order));
}

// What has an "s" in it does not only turn.
property_value turnsonly(const subject& of, std::string text) {
    return of.read.moves.resets ? property_value{false, "resets the cube"} : told(std::move(text));
}

property_value inverseof(const subject& of) {
    return turnsonly(of, macrotext(of.read.moves, true));
}

property_value expandedof(const subject& of) {
    std::string text;
    if (!expandedmacro(of.read.moves, mostexpanded, text)) {
        return {false, "more than " + std::to_string(mostexpanded) + " turns"};
    }
    return turnsonly(of, text);
}

property_value movesof(const subject& of) {
    return turnsonly(of, bookmoves(of.read.moves));
}

property_value conjugateof(const subject& of) {
    return turnsonly(of, macrotext(of.with, false) + macrotext(of.read.moves, false) +
                             macrotext(of.with, true));
}

property_value commutatorof(const subject& of) {
    return turnsonly(of, macrotext(of.with, false) + macrotext(of.read.moves, false) +
                             macrotext(of.with, true) + macrotext(of.read.moves, true));
}

property_value reportof(const subject& of) {
    makecube(of.read);
    dumpcubeperm();
    return told(lastalert);
}

// The line of the report that tells the cubies' cycles, without its title.
property_value cyclesof(const subject& of) {
    constexpr std::string_view title = "\nCycle structure: ";
    const std::string report = reportof(of).text;
    const std::size_t from = report.find(title) + title.size();
    std::string cycles = report.substr(from, report.find('\n', from) - from);
    if (!cycles.empty()) {
        cycles.pop_back(); // the blank behind the last
    }
    return told(cycles);
}

property_value faceletsof(const subject& of) {
    makecube(of.read);
    return told(faceletstext());
}

property_value cubiesof(const subject& of) {
    makecube(of.read);
    return told(cubiestext());
}

property_value netof(const subject& of) {
    makecube(of.read);
    return told(nettext());
}

} // namespace

const property_row property_table[propertycount] = {
    {"name",           false, false, textfield,   false, nameof        },
    {"macro",          false, true,  textfield,   false, macroof       },
    {"check",          false, false, textfield,   false, checkof       },
    {"moves",          false, true,  textfield,   false, movesof       },
    {"length",         false, true,  numberfield, false, lengthof      },
    {"order",          false, true,  numberfield, false, orderof       },
    {"order-facelets", false, true,  numberfield, false, faceletorderof},
    {"inverse",        false, true,  textfield,   false, inverseof     },
    {"expand",         false, true,  textfield,   false, expandedof    },
    {"conjugate",      true,  true,  textfield,   false, conjugateof   },
    {"commutator",     true,  true,  textfield,   false, commutatorof  },
    {"cycles",         false, false, textfield,   false, cyclesof      },
    {"facelets",       false, false, textfield,   false, faceletsof    },
    {"cubies",         false, false, textfield,   false, cubiesof      },
    {"permutation",    false, false, textfield,   true,  reportof      },
    {"net",            false, false, textfield,   true,  netof         },
};

property_value propertyof(const property_row& row, const subject& of) {
    const bool macro = of.read.form == macroform || of.read.form == movesform;
    return row.ofmacro && !macro ? property_value{false, "a cube and no macro"} : row.value(of);
}
