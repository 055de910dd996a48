// SPDX-License-Identifier: MIT
#include "tools/movewriting.h"

#include "model/turns.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

constexpr int facecodes = 12; // the turn codes below are of faces

// ORDER TURN: by the number of a face's pair of codes, the slice that turns with it.
constexpr int slicecodes[facecodes / 2] = {16, 17, 14, 15, 12, 13};

// By the code of a slice or of the cube, less 12: its name in books.
constexpr const char* upperbooknames[] = {
    "S",  // 12 *F
    "S'", // 13 *B
    "M",  // 14 *L
    "M'", // 15 *R
    "E'", // 16 *U
    "E",  // 17 *D
    "x",  // 18 >R
    "x'", // 19 >L
    "y",  // 20 >U
    "y'", // 21 >D
    "z",  // 22 >F
    "z'", // 23 >B
};

// Goes through the pieces in the order in which they are done, groups once. begin and end get the
// rounds of a group. The groups around the place are a list and not calls, since they may be
// nested very deep. Backwards through a group that is inverted is forwards again, hence the steps.
template <class turn_function, class begin_function, class end_function>
void walk(const move_text& moves, bool inverse, turn_function turn, begin_function begin,
          end_function end) {
    struct level {
        int open; // the group
        int step; // of the walk around it
    };

    const std::vector<piece>& pieces = moves.pieces;
    std::vector<level> around;
    int step = inverse ? -1 : 1;
    int i = inverse ? static_cast<int>(pieces.size()) - 1 : 0;
    while (i >= 0 && i < static_cast<int>(pieces.size())) {
        const piece& met = pieces[static_cast<std::size_t>(i)];
        if (met.kind == turnpiece) {
            turn(step > 0 ? met.code : met.code ^ 1);
            i += step;
            continue;
        }
        const int open = met.kind == openpiece ? i : met.partner;
        const piece& group = pieces[static_cast<std::size_t>(open)];
        if (around.empty() || around.back().open != open) {
            begin(moves.counts[static_cast<std::size_t>(group.count)]);
            around.push_back({open, step});
            step = group.inverted ? -step : step;
            i = step > 0 ? open + 1 : group.partner - 1;
        } else {
            end(moves.counts[static_cast<std::size_t>(group.count)]);
            step = around.back().step;
            around.pop_back();
            i = step > 0 ? group.partner + 1 : open - 1;
        }
    }
}

} // namespace

// A group of one round needs no brackets.
std::string macrotext(const move_text& moves, bool inverse) {
    std::string text;
    text.reserve(moves.pieces.size());
    walk(
        moves, inverse, [&](int code) { text += turn_table[code].notation; },
        [&](const std::string& count) { text += count == "1" ? "" : count + "("; },
        [&](const std::string& count) { text += count == "1" ? "" : ")"; });
    return text;
}

namespace {

// The number of a count, or most if it is larger: no number holds all that digits can say.
std::size_t roundsupto(const std::string& count, std::size_t most) {
    std::size_t rounds = 0;
    for (const char digit : count) {
        rounds = std::min(rounds * 10 + static_cast<std::size_t>(digit - '0'), most);
    }
    return rounds;
}

} // namespace

// Each group is written once and then copied behind itself. One that would pass the limit is not
// copied: groups in groups would fill the memory before the end could be told.
bool expandedmacro(const move_text& moves, std::size_t limit, std::string& to) {
    struct mark {
        std::size_t length; // of the text before the group
        std::size_t turns;
    };

    std::vector<mark> marks;
    std::size_t written = 0; // turns
    bool good = true;
    to.clear();
    walk(
        moves, false,
        [&](int code) {
            to += turn_table[code].notation;
            written++;
        },
        [&](const std::string&) {
            marks.push_back({to.size(), written});
        },
        [&](const std::string& count) {
            const mark before = marks.back();
            marks.pop_back();
            const std::size_t rounds = roundsupto(count, limit + 1);
            const std::string round = to.substr(before.length);
            const std::size_t inround = written - before.turns;
            good = good && (inround == 0 || rounds <= limit / inround);
            to.resize(before.length);
            written = before.turns + (good ? inround * rounds : 0);
            for (std::size_t i = 0; good && inround > 0 && i < rounds; i++) {
                to += round;
            }
            good = good && written <= limit;
        });
    return good && written <= limit;
}

namespace {

// Moves that are being written, and the codes since the last bracket, which are not yet.
struct book_writing {
    std::string text;
    std::vector<int> codes;
};

void addword(book_writing& to, std::string_view word) {
    if (!to.text.empty() && to.text.back() != '(') {
        to.text += ' ';
    }
    to.text += word;
}

// Of the face code, how often it comes from i on.
std::size_t runlength(const std::vector<int>& codes, std::size_t i) {
    std::size_t end = i;
    while (end < codes.size() && codes[end] == codes[i]) {
        end++;
    }
    return end - i;
}

// The slice beside a face that turns as its code says.
int slicewith(int code) {
    const int slice = slicecodes[code / 2];
    return code % 2 == 0 ? slice : slice ^ 1;
}

std::string bookname(int code, bool wide) {
    if (code >= facecodes) {
        return upperbooknames[code - facecodes];
    }
    return std::string(1, movelist[code / 2]) + (wide ? "w" : "") + (code % 2 == 0 ? "" : "'");
}

// A move done twice: the 2 stands before the apostrophe.
std::string twice(std::string name) {
    return name.insert(name.back() == '\'' ? name.size() - 1 : name.size(), "2");
}

// A face and its slice, once or twice, make one wide turn; all else goes by twos and ones. Face and
// slice must come equally often, or the wide turn would take a layer along too far.
void writecodes(book_writing& to) {
    const std::vector<int>& codes = to.codes;
    for (std::size_t i = 0; i < codes.size();) {
        const int code = codes[i];
        const std::size_t run = runlength(codes, i);
        const bool wide = code < facecodes && run <= 2 && i + run < codes.size() &&
                          codes[i + run] == slicewith(code) && runlength(codes, i + run) == run;
        const std::string name = bookname(code, wide);
        const std::size_t taken = std::min<std::size_t>(run, 2);
        addword(to, taken == 2 ? twice(name) : name);
        i += wide ? 2 * taken : taken;
    }
    to.codes.clear();
}

} // namespace

// Codes wait until a bracket or the end comes: a wide turn and a double one are several of them.
std::string bookmoves(const move_text& moves) {
    book_writing to;
    walk(
        moves, false, [&](int code) { to.codes.push_back(code); },
        [&](const std::string& count) {
            if (count != "1") {
                writecodes(to);
                addword(to, "(");
            }
        },
        [&](const std::string& count) {
            if (count != "1") {
                writecodes(to);
                to.text += ")" + count;
            }
        });
    writecodes(to);
    return to.text;
}
