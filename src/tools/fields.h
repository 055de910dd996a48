// SPDX-License-Identifier: MIT
//
// fields: answers as a table with tabs or as JSON, one object a line.
//
// State     none.
// Callers   vexel-solve, vexel-macro.
#pragma once

#include <string>
#include <string_view>
#include <vector>

enum field_kind { textfield, numberfield, nofield };

struct field {
    const char* title;
    field_kind kind;   // nofield: nothing is to be told, null in JSON
    std::string value; // numberfield: digits and at most one point
};

// The values with tabs between and a newline; in them a tab, a newline and a backslash are written
// \t, \n and \\. And the titles alike.
std::string tablerow(const std::vector<field>& fields);
std::string titlerow(const std::vector<field>& fields);

// An object on a line of its own. Bytes that are no UTF-8 become U+FFFD.
std::string jsonobject(const std::vector<field>& fields);
