// SPDX-License-Identifier: MIT
#include "tools/fields.h"

#include "tools/movetext.h"

#include <cstdio>

namespace {

// A value must not end its cell or its row; the escapes can be undone, as the backslash is one.
std::string celltext(std::string_view value) {
    std::string text;
    for (const char c : value) {
        switch (c) {
        case '\t': text += "\\t"; break;
        case '\n': text += "\\n"; break;
        case '\\': text += "\\\\"; break;
        default: text += c; break;
        }
    }
    return text;
}

// One byte of a text; more than one are a character already. A byte above ASCII that stands alone
// belongs to no character, and JSON must be UTF-8: a whole line would be refused for it.
void appendjson(std::string& text, char c) {
    if (c == '"' || c == '\\') {
        text += '\\';
        text += c;
    } else if (c == '\n') {
        text += "\\n";
    } else if (c == '\t') {
        text += "\\t";
    } else if (c >= 0 && (c < ' ' || c > '~')) {
        char code[7];
        std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
        text += code;
    } else if (c < 0) {
        text += "\\ufffd";
    } else {
        text += c;
    }
}

std::string jsontext(std::string_view value) {
    std::string text = "\"";
    for (std::size_t i = 0; i < value.size();) {
        const std::size_t bytes = characterat(value, i);
        if (bytes > 1) {
            text += value.substr(i, bytes);
        } else {
            appendjson(text, value[i]);
        }
        i += bytes;
    }
    return text + "\"";
}

std::string jsonvalue(const field& f) {
    switch (f.kind) {
    case textfield: return jsontext(f.value);
    case numberfield: return f.value;
    default: return "null";
    }
}

} // namespace

std::string tablerow(const std::vector<field>& fields) {
    std::string row;
    for (const field& f : fields) {
        // The first value may be empty: that the row is does not yet say that it begins.
        row += (row.empty() && &f == fields.data() ? "" : "\t") + celltext(f.value);
    }
    return row + "\n";
}

std::string titlerow(const std::vector<field>& fields) {
    std::string row;
    for (const field& f : fields) {
        row += (row.empty() ? "" : "\t") + std::string(f.title);
    }
    return row + "\n";
}

std::string jsonobject(const std::vector<field>& fields) {
    std::string object;
    for (const field& f : fields) {
        object += (object.empty() ? "{" : ", ") + jsontext(f.title) + ": " + jsonvalue(f);
    }
    return (object.empty() ? "{" : object) + "}\n";
}
