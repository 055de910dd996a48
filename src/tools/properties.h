// SPDX-License-Identifier: MIT
//
// properties: all that can be told of a macro, or of a cube, each under the name of its option.
//
// State     none of its own; they work on the cube of the model.
// Callers   vexel-macro.
#pragma once

#include "tools/fields.h"
#include "tools/forms.h"

#include <cstddef>
#include <string>

constexpr std::size_t mostexpanded = 1'000'000; // turns

// What is looked at: a good line, and the name that a macro file gives it.
struct subject {
    const read_line& read;
    const std::string& name;
    const move_text& with; // the other sequence of a conjugate or commutator
};

// A value, or why there is none.
struct property_value {
    bool good;
    std::string text;
};

struct property_row {
    const char* name; // also of its option
    bool argument;    // which takes the other sequence
    bool ofmacro;     // for macros and moves alone; else for any cube
    field_kind kind;  // of its value
    bool lines;       // the value may have several lines
    property_value (*value)(const subject& of);
};

constexpr int propertycount = 16;
constexpr int macroproperty = 1;                         // the row of "macro"
extern const property_row property_table[propertycount]; // in the order of a card

// The value, or "a cube and no macro" for one that only a macro has.
property_value propertyof(const property_row& row, const subject& of);
