// SPDX-License-Identifier: MIT
#include "model/parser.h"

#include "model/recording.h"
#include "model/rounds.h"
#include "model/turns.h"
#include "shell.h"

#include <climits>
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

void initnotation() {
    parsing = 0;
    parselevel = 0;
    macorder = 0;
    reversing = 0;
    saveparse[0] = '\0';
    saveparselen = 0;
}

// Characters

char flipcase(char c) {
    return static_cast<char>(c > 'Z' ? c - 32 : c + 32);
}

char flipdir(char c) {
    switch (c) {
    case 'F': return 'B';
    case 'B': return 'F';
    case 'U': return 'D';
    case 'D': return 'U';
    case 'R': return 'L';
    case 'L': return 'R';
    default: return ' ';
    }
}

int istwist(char c) {
    return flipdir(c) != ' ' ? 1 : 0;
}

namespace {

// The character that takes the next one with it, whatever that is.
bool ispair(char c) {
    return c == '*' || c == '>';
}

// Without the locale, and safe for characters below zero.
bool isdecimal(char c) {
    return c >= '0' && c <= '9';
}

// Turn codes by character; one that is no turn has noturn. Tables and not searches, for each
// character of each text goes through them.
struct code_table {
    signed char code[UCHAR_MAX + 1];
};

// step: how far apart the codes of neighbouring letters are.
constexpr void enter(code_table& table, const char* letters, int first, int step) {
    for (int i = 0; letters[i] != '\0'; i++) {
        const unsigned char letter = static_cast<unsigned char>(letters[i]);
        table.code[letter] = static_cast<signed char>(first + step * i);
    }
}

constexpr code_table emptytable() {
    code_table table = {};
    for (signed char& code : table.code) {
        code = noturn;
    }
    return table;
}

// ORDER TURN: a string of letters is in the order of their codes.
constexpr code_table facecodes = [] {
    code_table table = emptytable();
    enter(table, "UDLRFB", 0, 2);
    enter(table, "udlrfb", 1, 2);
    return table;
}();
constexpr code_table slicecodes = [] {
    code_table table = emptytable();
    enter(table, "FBLRUD", 12, 1);
    return table;
}();
constexpr code_table cubecodes = [] {
    code_table table = emptytable();
    enter(table, "RLUDFB", 18, 1);
    return table;
}();

// The turn code of a face letter of either case, or -1.
int facecode(char c) {
    return facecodes.code[static_cast<unsigned char>(c)];
}

// The turn code of a pair, or -1.
int paircode(char kind, char c) {
    return (kind == '*' ? slicecodes : cubecodes).code[static_cast<unsigned char>(c)];
}

// A count of many digits stops at the largest int: no macro can tell the difference in a lifetime.
int countdigit(int count, char digit) {
    const long long grown = count * 10LL + (digit - '0');
    return static_cast<int>(grown < INT_MAX ? grown : INT_MAX);
}

} // namespace

// Parsing. No function here calls itself: the groups around the current place are kept in a list,
// so that the depth of a text is bounded by memory alone. The rules in the order of the code:
//
//   1. Group ends are found first, for a group without an end is not done at all.
//   2. A turn goes to landturn(), which queues or does it, or belongs to the group's round.
//   3. A group is entered once, whatever its count, and multiplied when it is left (rounds.h).
//   4. A full queue ends the parse in whatever depth; what was queued stays.

namespace {

// A group that is being parsed: between begin and end, both exclusive, lie its characters.
struct group {
    int begin, end;
    int resume; // where the text around it goes on
    int count;  // rounds; 0 for "s"
};

struct parse {
    const char* text;
    int length;
    landing to;
    std::vector<int> partner;  // by place in the text: where the group that starts there ends
    std::vector<group> groups; // those around the current place, the innermost last
};

constexpr int nopartner = -1;

// Each direction finds the groups in its own way, for it is a matter of direction which characters
// make a pair: in "*>F" the pair is "*>" from the left and ">F" from the right.

void matchforwards(parse& p) {
    std::vector<int> open;
    p.partner.assign(static_cast<size_t>(p.length), nopartner);
    for (int i = 0; i < p.length; i++) {
        if (ispair(p.text[i])) {
            i++;
        } else if (p.text[i] == '(') {
            open.push_back(i);
        } else if (p.text[i] == ')' && !open.empty()) {
            p.partner[static_cast<size_t>(open.back())] = i;
            open.pop_back();
        }
    }
}

void matchbackwards(parse& p) {
    std::vector<int> open;
    p.partner.assign(static_cast<size_t>(p.length), nopartner);
    for (int i = p.length - 1; i >= 0; i--) {
        if (i > 0 && ispair(p.text[i - 1])) {
            i--;
        } else if (p.text[i] == ')') {
            open.push_back(i);
        } else if (p.text[i] == '(' && !open.empty()) {
            p.partner[static_cast<size_t>(open.back())] = i;
            open.pop_back();
        }
    }
}

// Most macros have no group and are spared the search.
parse beginparse(const char* text, int length, char bracket) {
    parse p;
    p.text = text;
    p.length = length < 0 ? 0 : length;
    p.to.queueing = parsing != 0;
    if (p.length > 0 && memchr(text, bracket, static_cast<size_t>(p.length)) != nullptr) {
        bracket == '(' ? matchforwards(p) : matchbackwards(p);
    }
    return p;
}

// The reset of an "s" belongs to the text around the group and comes before the round.
void entergroup(parse& p, const group& entered) {
    if (entered.count == 0) {
        landreset(p.to);
    }
    beginround(p.to);
    p.groups.push_back(entered);
    parselevel++;
}

// An order needs a cube that turns: in queueing mode the group of an "s" is one round like another.
// 1, or 0 if the queue is full.
int leavegroup(parse& p) {
    const int count = p.groups.back().count;
    p.groups.pop_back();
    parselevel--;
    if (count == 0 && !p.to.queueing) {
        endorder(p.to);
        macorder = p.to.orders.back();
        return 1;
    }
    return endrounds(p.to, count == 0 ? 1 : count);
}

// The orders are told when all is done: while a message is up the window goes on drawing, and even
// turns can land.
void endparse(const parse& p) {
    parselevel = 0;
    for (int order : p.to.orders) {
        char text[40];
        snprintf(text, sizeof text, "order = %d", order);
        displaystring(text);
    }
}

// One level of the forward parse.
struct forward_place {
    int i;
    int count;  // of the digits directly before i
    bool armed; // an "s" came since the last group of this level
};

int levelend(const parse& p) {
    return parselevel == 0 ? p.length : p.groups.back().end;
}

// Enters the group that begins here, or steps over it when it has neither a count nor an "s".
void openforwards(parse& p, forward_place& at) {
    const int close = p.partner[static_cast<size_t>(at.i)];
    if (close == nopartner) {
        at.i = p.length; // only at top level: inside a group that ends all groups end
    } else if (at.armed || at.count > 0) {
        entergroup(p, {at.i, close, close + 1, at.armed ? 0 : at.count});
        at = {at.i + 1, 0, false};
    } else {
        at.i = close + 1;
    }
}

// After an order the rest of the level is not parsed.
int closeforwards(parse& p, forward_place& at) {
    const group left = p.groups.back();
    const int good = leavegroup(p);
    at = {left.count == 0 ? levelend(p) : left.resume, 0, false};
    return good;
}

// One character, or two for a pair. 1, or 0 if the queue is full.
int stepforwards(parse& p, forward_place& at) {
    const char c = p.text[at.i];
    int code = facecode(c);
    switch (c) {
    case '(': openforwards(p, at); return 1;
    case 's': at.armed = true; break;
    case 'x': landreset(p.to); break;
    case '*':
    case '>':
        at.i++;
        code = at.i < levelend(p) ? paircode(c, p.text[at.i]) : noturn;
        break;
    default: break;
    }
    at.i++;
    // Deliberate: NOT-BUGS.md, "A count before a single letter is lost"
    at.count = isdecimal(c) ? countdigit(at.count, c) : 0;
    return code == noturn ? 1 : landturn(p.to, code);
}

// At the end of a level the group is left, which leads back to the level around it.
void parseforwards(parse& p) {
    forward_place at = {0, 0, false};
    int good = 1;
    while (good != 0 && (at.i < levelend(p) || parselevel > 0)) {
        good = at.i < levelend(p) ? stepforwards(p, at) : closeforwards(p, at);
    }
}

} // namespace

int parsestring(const char* text, int length) {
    if (parsing != 0 && parselevel == 0 && reversing == 0) {
        clearqueue();
    }
    parse p = beginparse(text, length, '(');
    const int queueing = parsing;
    parseforwards(p);
    endparse(p);
    return queueing != 0 ? turnptr : 0;
}

// Parsing backwards. The place i goes down; a level ends at its "(", or before the first character.
// At each place, in this order:
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
    return parselevel == 0 ? -1 : p.groups.back().begin;
}

// The first character of a level has nothing before it that could make it a pair.
bool endspair(const parse& p, int i) {
    return i > levelbegin(p) + 1 && ispair(p.text[i - 1]);
}

// Goes into the group that ends at i. 1 to go on, 0 if the level ends here.
int openbackwards(parse& p, int& i) {
    const int open = p.partner[static_cast<size_t>(i)];
    if (open == nopartner) {
        i = -1; // only at top level
        return 1;
    }
    int before = open - 1;
    while (before >= 0 && isdecimal(p.text[before])) {
        before--;
    }
    if (before == open - 1) {
        return 0;
    }
    int count = 0;
    for (int d = open - before > countdigits ? open - countdigits : before + 1; d < open; d++) {
        count = countdigit(count, p.text[d]);
    }
    if (count < 1) {
        i = before;
    } else {
        entergroup(p, {open, i, before, count});
        i--;
    }
    return 1;
}

// One character, or two for a pair; i is inside the level. 1, or 0 if the queue is full.
int stepbackwards(parse& p, int& i) {
    const char c = p.text[i];
    int code = noturn;
    if (endspair(p, i)) {
        code = paircode(p.text[i - 1], flipdir(c));
        i--;
    } else if (facecode(c) != noturn) {
        code = facecode(flipcase(c));
    }
    i--;
    return code == noturn ? 1 : landturn(p.to, code);
}

// 1 if the reversal ended as it should, 0 if a group without digits ended it at top level.
int parsebackwards(parse& p) {
    int i = p.length - 1;
    int good = 1;
    while (good != 0 && (i > levelbegin(p) || parselevel > 0)) {
        if (i <= levelbegin(p)) {
            i = p.groups.back().resume;
            good = leavegroup(p);
        } else if (p.text[i] != ')' || endspair(p, i)) {
            good = stepbackwards(p, i);
        } else if (openbackwards(p, i) == 0) {
            // Deliberate: NOT-BUGS.md, "A group without digits ends a reversal"
            if (parselevel == 0) {
                return 0;
            }
            i = levelbegin(p);
        }
    }
    return 1;
}

} // namespace

void revparsestring(const char* text, int length) {
    reversing = 1;
    if (parsing != 0) {
        clearqueue();
    }
    parse p = beginparse(text, length, ')');
    if (parsebackwards(p) != 0) {
        reversing = 0;
    }
    endparse(p);
}

// The brackets are put around the macro as it is: one that closes them early gets the order of what
// comes before, one that never closes them none.
int calcorder(const char* macro) {
    const std::string text = "s(" + std::string(macro) + ")";
    const int mode = parsing;
    savecubex();
    macrolinechanged();
    parsing = 0;
    parsestring(text.c_str(), static_cast<int>(text.size()));
    parsing = mode;
    // Deliberate: NOT-BUGS.md, "An order brings back the colours only"
    restorecubex();
    needsredraw = 1;
    return macorder;
}

// Checking and counting

namespace {

// 1 if the character at i may stand there, with depth groups open; counts them on.
int goodcharacter(const char* text, int i, int& depth) {
    const char c = text[i];
    if (c == '(') {
        depth++;
        return i > 0 && (isdecimal(text[i - 1]) || text[i - 1] == 's') ? 1 : 0;
    }
    if (c == ')') {
        return depth-- > 0 ? 1 : 0;
    }
    return facecode(c) != noturn || isdecimal(c) || c == 's' ? 1 : 0;
}

// Only the depth is kept: as the brackets are all of one kind, it tells whether they match.
int goodmacro(const char* text, int length) {
    int depth = 0;
    for (int i = 0; i < length; i++) {
        if (ispair(text[i])) {
            // Deliberate: NOT-BUGS.md, "The letter of a pair is not checked"
            if (++i >= length) {
                return 0;
            }
        } else if (goodcharacter(text, i, depth) == 0) {
            return 0;
        }
    }
    return depth == 0 ? 1 : 0;
}

} // namespace

// After a conversion nothing but face letters is left; the check goes on over them all the same.
int sanitycheckmacro(const char* text, int length) {
    if (length < 1 || text[0] != '[') {
        return goodmacro(text, length);
    }
    // Deliberate: NOT-BUGS.md, "The check behind "[" reads the macro line"
    if (parsesingmaster() == 0) {
        return 0;
    }
    return goodmacro(macroline(), static_cast<int>(strlen(macroline())));
}

// The line is read to the "]" before anything is written, so that a failure changes nothing.
int parsesingmaster() {
    const char* c = macroline();
    std::string plain;
    for (; *c != '\0' && *c != ']'; c++) {
        if (istwist(*c) == 0) {
            continue;
        }
        plain += c[1] == '\'' ? flipcase(*c) : *c;
        if (c[1] == '2') {
            plain += *c;
        }
        if (c[1] == '\'' || c[1] == '2') {
            c++;
        }
    }
    if (*c != ']') {
        return 0;
    }
    setmacroline(plain.c_str());
    loadout(plain.c_str());
    return 1;
}

namespace {

int saturated(long long turncounted) {
    return static_cast<int>(turncounted < INT_MAX ? turncounted : INT_MAX);
}

// A group that is being counted.
struct counted_group {
    int around; // turns counted before it
    int rounds;
};

constexpr int badlength = -1;

} // namespace

// The groups are kept in a list here too. A group that ends is added to the one around it.
int maclen(const char* text, int length) {
    std::vector<counted_group> groups;
    int turnscounted = 0;
    int count = 0;
    bool counting = false; // digits were just before
    for (int i = 0; i < length; i++) {
        const char c = text[i];
        if (counting && c != '(' && !isdecimal(c)) {
            return badlength;
        }
        if (c == '(') {
            // Deliberate: NOT-BUGS.md, "The length of a group without a count"
            groups.push_back({turnscounted, counting ? count : 1});
            turnscounted = 0;
        } else if (c == ')' && !groups.empty()) {
            const counted_group done = groups.back();
            groups.pop_back();
            turnscounted = saturated(done.around + 1LL * done.rounds * turnscounted);
        } else if (facecode(c) != noturn) {
            turnscounted = saturated(turnscounted + 1LL);
        }
        counting = isdecimal(c);
        count = counting ? countdigit(count, c) : 0;
    }
    return counting || !groups.empty() ? badlength : turnscounted;
}

void loadout(const char* text) {
    const int turnscounted = maclen(text, static_cast<int>(strlen(text)));
    char readout[20] = "*****";
    if (turnscounted != badlength) {
        snprintf(readout, sizeof readout, "%d", turnscounted);
    }
    setlengthreadout(readout);
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
