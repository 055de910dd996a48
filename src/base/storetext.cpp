// SPDX-License-Identifier: MIT
#include "base/storetext.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t linesize = 1023; // bytes the toolkit reads at a time
constexpr int headerlines = 3;
constexpr std::size_t groupsize = 120; // the toolkit makes its paths in a buffer of 128
constexpr std::size_t keysize = 127;   // the same for a key

// Calls use with each line behind the heading and its number from 1, without its end, as the
// toolkit reads it. Stops when use returns false.
template <typename use_type> void foreachline(const std::string& text, const use_type& use) {
    std::size_t begin = 0;
    for (int number = 1; begin < text.size(); number++) {
        const std::string_view rest = std::string_view(text).substr(begin, linesize);
        const std::size_t size = std::min(rest.find('\n'), rest.size() - 1) + 1;
        // A NUL, too, ends what the toolkit sees of a line.
        const std::size_t end = rest.substr(0, size).find_first_of(std::string_view("\n\r\0", 3));
        if (number > headerlines && !use(rest.substr(0, std::min(end, size)), number)) {
            return;
        }
        begin += size;
    }
}

// Soundness

// How far an escape has come: not begun, behind its "\", behind the first and the second digit.
enum escape { none, begun, digit1, digit2 };

// What the lines so far have left open.
struct reading {
    bool inentry = false; // the last line was an entry or more of its value
    escape end = none;    // where its value stands
};

bool digit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

escape followescape(escape state, char c) {
    switch (state) {
    case none: return c == '\\' ? begun : none;
    case begun: return digit(c) ? digit1 : none;
    case digit1: return digit2;
    case digit2: return none;
    }
    return none;
}

void followvalue(reading& r, std::string_view text) {
    for (const char c : text) {
        r.end = followescape(r.end, c);
    }
}

// What stands behind the colon, if there is one.
std::string_view valueof(std::string_view line) {
    const std::size_t colon = line.find(':');
    return colon == std::string_view::npos ? "" : line.substr(colon + 1);
}

bool iscomment(std::string_view line) {
    return line[0] == ';' || line[0] == '#';
}

// The toolkit looks for the group from its root, ".", and takes what it does not find as found.
bool soundgroup(std::string_view group) {
    return (group == "." || group.starts_with("./")) && group.size() <= groupsize;
}

// Between the brackets; the second one may be missing.
std::string_view groupof(std::string_view line) {
    return line.substr(1, line.find(']') - 1);
}

// What a "+" line adds to is the entry set last, by its position, whatever group has come since; a
// comment is an entry with a null value.
bool soundline(reading& r, std::string_view line) {
    if (line.empty()) {
        return true; // an empty line ends nothing
    }
    if (line[0] == '+') {
        followvalue(r, line.substr(1));
        return r.inentry;
    }
    const bool valueended = r.end == none; // of the entry before this line
    r = reading();
    if (line[0] == '[') {
        return valueended && soundgroup(groupof(line));
    }
    if (!iscomment(line)) {
        r.inentry = true;
        followvalue(r, valueof(line));
    }
    // The toolkit puts a colon behind a key without a value, and the line must not get too long.
    const bool fits = line.size() + 1 < linesize || iscomment(line) || line.find(':') < line.size();
    return valueended && fits;
}

// Values

char letterof(char escaped) {
    return escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped;
}

// The value without its escapes. The toolkit drops an escape that it does not know; a NUL ends the
// text.
std::string plain(const std::string& value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); i++) {
        if (value[i] != '\\') {
            text += value[i];
        } else if (digit(value[++i])) {
            const int code = (value[i] - '0') * 64 + (value[i + 1] - '0') * 8 + value[i + 2] - '0';
            text += static_cast<char>(code);
            i += 2;
        } else if (std::strchr("nr\\", value[i]) != nullptr) {
            text += letterof(value[i]);
        }
    }
    return text.c_str();
}

} // namespace

std::string storefault(const std::string& text) {
    reading r;
    int faulty = 0;
    int last = 0;
    foreachline(text, [&](std::string_view line, int number) {
        last = number;
        faulty = soundline(r, line) ? 0 : number;
        return faulty == 0;
    });
    faulty = faulty == 0 && r.end != none ? last : faulty;
    return faulty == 0 ? "" : "Line " + std::to_string(faulty) + " is damaged";
}

std::map<std::string, storeentries> readgroups(const std::string& text) {
    std::map<std::string, storeentries> groups;
    std::string group = ".";
    std::string* value = nullptr; // of the entry that "+" lines go on with
    foreachline(text, [&](std::string_view line, int /*number*/) {
        if (line.empty()) {
            return true;
        }
        if (line[0] == '[') {
            group = groupof(line);
        } else if (line[0] == '+') {
            *value += line.substr(1);
        } else {
            const std::string_view key = iscomment(line) ? line : line.substr(0, line.find(':'));
            value = &groups[group][std::string(key.substr(0, keysize))];
            *value = iscomment(line) ? "" : valueof(line);
        }
        return true;
    });
    for (auto& [name, entries] : groups) {
        for (auto& [key, raw] : entries) {
            raw = plain(raw);
        }
    }
    return groups;
}
