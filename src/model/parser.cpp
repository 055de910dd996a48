// SPDX-License-Identifier: MIT
#include "model/parser.h"

#include "model/notation.h"
#include "model/recording.h"
#include "model/rounds.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "shell.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

// State

constinit int parsing = 0;
constinit int parselevel = 0;
constinit int macorder = 0;
constinit int reversing = 0;
constinit char saveparse[saveparsesize] = "";
constinit int saveparselen = 0;

void initparser() {
    parsing = 0;
    parselevel = 0;
    macorder = 0;
    reversing = 0;
    saveparse[0] = '\0';
    saveparselen = 0;
}

// Parsing. No function here calls itself: the groups around the current place are kept in a list,
// so that the depth of a text is bounded by memory alone. The rules in the order of the code:
//
//   1. Group ends are found first, for a group without an end is not done at all.
//   2. A turn goes to doturn(), which queues or does it, or belongs to the group's round.
//   3. A group is entered once, whatever its count, and multiplied when it is left (rounds.h).
//   4. A full queue ends the parse in whatever depth; what was queued stays.

namespace {

enum class direction { forwards, backwards };

// A group that is being parsed: between begin and end, both exclusive, lie its characters.
struct group {
    int begin, end;
    int resume; // where the text around it goes on
    int count;  // rounds
    bool order; // "s": as many rounds as solve the cube
};

struct parse {
    const char* text;
    int length;
    parse_rounds rounds;
    std::vector<int> partner;  // by place in the text: the other end of the group, or nopartner
    std::vector<group> groups; // those around the current place, the innermost last
};

constexpr int nopartner = -1;

int countdigit(int count, char digit) {
    return samecount(count * 10LL + (digit - '0'));
}

// The bracket that each direction meets first.
char openingbracket(direction way) {
    return way == direction::forwards ? '(' : ')';
}

bool isbracket(char c) {
    return c == '(' || c == ')';
}

// Brackets in a pair begin and end nothing, and it is a matter of direction which characters make a
// pair (notation.h). A group's other end is known at the bracket that the direction meets first.
void matchgroups(parse& p, direction way) {
    const bool forwards = way == direction::forwards;
    std::vector<int> open;
    p.partner.assign(static_cast<size_t>(p.length), nopartner);
    for (int i = forwards ? 0 : p.length - 1; i >= 0 && i < p.length;) {
        const int taken = forwards ? symbolat(p.text, i, p.length) : symbolbefore(p.text, i);
        if (taken == 1 && p.text[i] == openingbracket(way)) {
            open.push_back(i);
        } else if (taken == 1 && isbracket(p.text[i]) && !open.empty()) {
            p.partner[static_cast<size_t>(open.back())] = i;
            open.pop_back();
        }
        i += forwards ? taken : -taken;
    }
}

// Most macros have no group and are spared the search.
parse beginparse(const char* text, int length, direction way) {
    parse p;
    p.text = text;
    p.length = length < 0 ? 0 : length;
    p.rounds.queueing = parsing != 0;
    const size_t bytes = static_cast<size_t>(p.length);
    if (bytes > 0 && memchr(text, openingbracket(way), bytes) != nullptr) {
        matchgroups(p, way);
    }
    return p;
}

// The reset of an "s" belongs to the text around the group and comes before the round.
void entergroup(parse& p, const group& entered) {
    if (entered.order) {
        doreset(p.rounds);
    }
    beginround(p.rounds);
    p.groups.push_back(entered);
    parselevel++;
}

// An order needs a cube that turns: in queueing mode the group of an "s" is one round like another.
// false if the queue is full.
bool leavegroup(parse& p) {
    const group left = p.groups.back();
    p.groups.pop_back();
    parselevel--;
    if (left.order && !p.rounds.queueing) {
        endorder(p.rounds);
        macorder = p.rounds.orders.back();
        return true;
    }
    return endrounds(p.rounds, left.count);
}

// The orders are told when all is done: while a message is up the window goes on drawing, and even
// turns can land.
void tellorders(const std::vector<int>& orders) {
    for (int order : orders) {
        char text[40];
        snprintf(text, sizeof text, "order = %d", order);
        displaystring(text);
    }
}

} // namespace

// Forwards

namespace {

// One level of the parse.
struct forward_place {
    int i;
    int count;  // of the digits directly before i
    bool armed; // an "s" came since the last group of this level
};

int levelend(const parse& p) {
    return p.groups.empty() ? p.length : p.groups.back().end;
}

// Enters the group that begins here, or steps over it when it has neither a count nor an "s".
void openforwards(parse& p, forward_place& at) {
    const int close = p.partner[static_cast<size_t>(at.i)];
    if (close == nopartner) {
        at.i = p.length; // only at top level: inside a group that ends all groups end
    } else if (at.armed || at.count > 0) {
        entergroup(p, {at.i, close, close + 1, at.armed ? 1 : at.count, at.armed});
        at = {at.i + 1, 0, false};
    } else {
        at.i = close + 1;
    }
}

// After an order the rest of the level is not parsed.
bool closeforwards(parse& p, forward_place& at) {
    const group left = p.groups.back();
    const bool good = leavegroup(p);
    at = {left.order ? levelend(p) : left.resume, 0, false};
    return good;
}

// One symbol. false if the queue is full.
bool stepforwards(parse& p, forward_place& at) {
    const char c = p.text[at.i];
    if (c == '(') {
        openforwards(p, at);
        return true;
    }
    if (c == 's') {
        at.armed = true;
    } else if (c == 'x') {
        doreset(p.rounds);
    }
    const int taken = symbolat(p.text, at.i, p.length);
    const int code = symbolcode(p.text + at.i, taken);
    at.i += taken;
    // Deliberate: NOT-BUGS.md, "A count before a single letter is lost"
    at.count = isdecimal(c) ? countdigit(at.count, c) : 0;
    return code == noturn || doturn(p.rounds, code);
}

// At the end of a level the group is left, which leads back to the level around it.
void parseforwards(parse& p) {
    forward_place at = {0, 0, false};
    bool good = true;
    while (good && (at.i < levelend(p) || !p.groups.empty())) {
        good = at.i < levelend(p) ? stepforwards(p, at) : closeforwards(p, at);
    }
    parselevel = 0;
}

// Returns the orders that were found and are yet to be told.
std::vector<int> parsetext(const char* text, int length) {
    parse p = beginparse(text, length, direction::forwards);
    parseforwards(p);
    return p.rounds.orders;
}

} // namespace

int parsestring(const char* text, int length) {
    if (parsing != 0 && parselevel == 0 && reversing == 0) {
        clearqueue();
    }
    const int queueing = parsing;
    tellorders(parsetext(text, length));
    return queueing != 0 ? turnptr : 0;
}

// Backwards. The place i goes down; a level ends at its "(", or before the first character. At each
// place, in this order:
//
//   1. A character with "*" or ">" before it is taken with that, as the turn of the opposite face.
//   2. A face letter is turned the other way.
//   3. A ")" leads into its group, if digits stand before the "(".
//   4. Anything else is stepped over.

namespace {

// Deliberate: NOT-BUGS.md, "Only five digits of a count are reversed"
constexpr int countdigits = 5;

// The place before the first of the level.
int levelbegin(const parse& p) {
    return p.groups.empty() ? -1 : p.groups.back().begin;
}

// The count whose last digit is before the "(" at open.
int countbefore(const char* text, int first, int open) {
    int count = 0;
    for (int d = open - first > countdigits ? open - countdigits : first; d < open; d++) {
        count = countdigit(count, text[d]);
    }
    return count;
}

// Goes into the group that ends at i, or steps over it. false if the level ends here.
bool openbackwards(parse& p, int& i) {
    const int open = p.partner[static_cast<size_t>(i)];
    if (open == nopartner) {
        i = -1; // only at top level
        return true;
    }
    int first = open;
    while (first > 0 && isdecimal(p.text[first - 1])) {
        first--;
    }
    if (first == open) {
        return false;
    }
    const int count = countbefore(p.text, first, open);
    if (count < 1) {
        i = first - 1;
    } else {
        entergroup(p, {open, i, first - 1, count, false});
        i--;
    }
    return true;
}

// The turn that takes back the symbol of taken characters that ends at i, or noturn.
int inversecode(const char* text, int i, int taken) {
    if (taken == 1) {
        const int code = symbolcode(text + i, 1);
        return code == noturn ? noturn : inversemove[code];
    }
    const char opposite[] = {text[i - 1], flipdir(text[i])};
    return symbolcode(opposite, 2);
}

// One symbol that is no group. false if the queue is full.
bool stepbackwards(parse& p, int& i) {
    const int taken = symbolbefore(p.text, i);
    const int code = inversecode(p.text, i, taken);
    i -= taken;
    return code == noturn || doturn(p.rounds, code);
}

// false if a group without digits ended it, true if it ended as it should.
bool parsebackwards(parse& p) {
    int i = p.length - 1;
    bool good = true;
    while (good && (i > levelbegin(p) || !p.groups.empty())) {
        if (i <= levelbegin(p)) {
            i = p.groups.back().resume;
            good = leavegroup(p);
        } else if (p.text[i] != ')' || symbolbefore(p.text, i) > 1) {
            good = stepbackwards(p, i);
        } else if (!openbackwards(p, i)) {
            // Deliberate: NOT-BUGS.md, "A group without digits ends a reversal"
            if (p.groups.empty()) {
                return false;
            }
            i = levelbegin(p);
        }
    }
    parselevel = 0;
    return true;
}

} // namespace

void revparsestring(const char* text, int length) {
    reversing = 1;
    if (parsing != 0) {
        clearqueue();
    }
    parse p = beginparse(text, length, direction::backwards);
    if (parsebackwards(p)) {
        reversing = 0;
    }
}

// Orders

// The brackets are put around the macro as it is: one that closes them early gets the order of what
// comes before, one that never closes them none. Nothing of what follows is left to do when the
// order is told: while the message is up turns land on the cube, which has to be the user's again.
int calcorder(const char* macro) {
    const std::string text = "s(" + std::string(macro) + ")";
    const int mode = parsing;
    savecubex();
    macrolinechanged();
    parsing = 0;
    // Deliberate: NOT-BUGS.md, "The Singmaster form is converted by the check alone"
    const std::vector<int> orders = parsetext(text.c_str(), static_cast<int>(text.size()));
    parsing = mode;
    // Deliberate: NOT-BUGS.md, "An order brings back the colours only"
    restorecubex();
    const int order = macorder;
    tellorders(orders);
    return order;
}

// Landing

void sparsestring(const char* text, int length) {
    saveparselen = 0;
    while (saveparselen < length && saveparselen < saveparsesize - 1) {
        saveparse[saveparselen] = text[saveparselen];
        saveparselen++;
    }
    saveparse[saveparselen] = '\0';
}

// Everything is in order before record() is called: its alert lets the window draw and turns land.
void doparsestring() {
    if (saveparselen == 0) {
        return;
    }
    const std::string landed = saveparse;
    const int mode = parsing;
    parsing = 0;
    parsestring(saveparse, saveparselen);
    parsing = mode;
    sparsestring("", 0);
    if (turnmode != noturn) {
        turnlanded = 1;
    }
    record(landed.c_str());
}
