// SPDX-License-Identifier: MIT
#include "tools/movetext.h"

#include "model/notation.h"
#include "model/turns.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <utility>

namespace {

constexpr int nopiece = -1;

// Tables

struct book_letter {
    char letter;
    bool lone; // shows that the text is no macro with blanks
    int code;  // the clockwise turn
    int also;  // and one of a second layer with it, or noturn
};

// ORDER TURN is where the codes come from. The small letters stand letterfaces rows behind their
// capitals: the layers of "Uw" are those of "u".
constexpr book_letter book_table[] = {
    {'U', false, 0,  noturn},
    {'D', false, 2,  noturn},
    {'L', false, 4,  noturn},
    {'R', false, 6,  noturn},
    {'F', false, 8,  noturn},
    {'B', false, 10, noturn},
    {'u', false, 0,  16    },
    {'d', false, 2,  17    },
    {'l', false, 4,  14    },
    {'r', false, 6,  15    },
    {'f', false, 8,  12    },
    {'b', false, 10, 13    },
    {'M', true,  14, noturn},
    {'E', true,  17, noturn},
    {'S', true,  12, noturn},
    {'x', true,  18, noturn},
    {'y', true,  20, noturn},
    {'z', true,  22, noturn},
};

constexpr int letterfaces = 6;

// What may stand for an apostrophe, and for a blank.
constexpr std::string_view apostrophes[] = {"'", "\xe2\x80\x99", "\xe2\x80\xb2"};
constexpr std::string_view blanks[] = {" ", "\t", "\v", "\f", "\r", "\xc2\xa0"};

// By character: a line of megabytes asks this for each of its letters.
constexpr auto booktable = [] {
    std::array<signed char, UCHAR_MAX + 1> table{};
    table.fill(nopiece);
    for (std::size_t i = 0; i < std::size(book_table); i++) {
        table[static_cast<unsigned char>(book_table[i].letter)] = static_cast<signed char>(i);
    }
    return table;
}();

const book_letter* findletter(char c) {
    const signed char row = booktable[static_cast<unsigned char>(c)];
    return row == nopiece ? nullptr : &book_table[row];
}

// Reading

struct text_place {
    std::string_view text;
    std::size_t i;
};

bool atend(const text_place& at) {
    return at.i >= at.text.size();
}

char here(const text_place& at) {
    return atend(at) ? '\0' : at.text[at.i];
}

// Steps over one of the words if it stands here.
template <std::size_t n> bool skipone(text_place& at, const std::string_view (&words)[n]) {
    for (const std::string_view word : words) {
        if (at.text.substr(at.i).starts_with(word)) {
            at.i += word.size();
            return true;
        }
    }
    return false;
}

void skipblanks(text_place& at) {
    while (skipone(at, blanks)) {
        continue;
    }
}

// The digits that stand here, without zeros in front; "1" if there are none. They stay digits: a
// count may be of any size, and nothing is reckoned with it here.
std::string readcount(text_place& at) {
    const std::size_t from = at.i;
    while (isdecimal(here(at))) {
        at.i++;
    }
    std::string_view digits = at.text.substr(from, at.i - from);
    while (digits.size() > 1 && digits.front() == '0') {
        digits.remove_prefix(1);
    }
    return digits.empty() ? "1" : std::string(digits);
}

bool refuse(misfit& bad, const text_place& at, std::size_t i, const char* why) {
    bad.at = i;
    bad.reached = std::max(i, at.i);
    bad.why = "\"" + std::string(at.text.substr(i, characterat(at.text, i))) + "\" " + why;
    return false;
}

// Groups that are open, by the index of their openpiece and by their place in the text.
struct open_group {
    int opened;
    std::size_t at;
};

void empty(move_text& to) {
    to.pieces.clear();
    to.counts.clear();
    to.resets = false;
}

void addturn(move_text& to, int code) {
    to.pieces.push_back({turnpiece, false, static_cast<signed char>(code), 0, nopiece});
}

// Steps over the bracket here.
bool opengroup(move_text& to, std::vector<open_group>& open, text_place& at, std::string count,
               misfit& bad) {
    if (open.size() == deepestgroup) {
        return refuse(bad, at, at.i, "is nested too deep");
    }
    open.push_back({static_cast<int>(to.pieces.size()), at.i});
    to.pieces.push_back({openpiece, false, noturn, static_cast<int>(to.counts.size()), nopiece});
    to.counts.push_back(std::move(count));
    at.i++;
    return true;
}

// The group that ends.
piece& closegroup(move_text& to, std::vector<open_group>& open) {
    const int opened = open.back().opened;
    open.pop_back();
    to.pieces[static_cast<std::size_t>(opened)].partner = static_cast<int>(to.pieces.size());
    to.pieces.push_back({closepiece, false, noturn, 0, opened});
    return to.pieces[static_cast<std::size_t>(opened)];
}

bool allclosed(const std::vector<open_group>& open, const text_place& at, misfit& bad) {
    return open.empty() || refuse(bad, at, open.back().at, "is not closed");
}

// A pair, whose letter may be any.
void readpair(text_place& at, move_text& to) {
    // Deliberate: NOT-BUGS.md, "The letter of a pair is not checked"
    const int code = symbolcode(at.text.data() + at.i, 2);
    if (code != noturn) {
        addturn(to, code);
    }
    at.i += 2;
}

// The window's check lets a group pass behind the letter of a pair, if that is a digit or an "s";
// the parser sees no count there and skips it.
bool skippedgroup(const text_place& at) {
    return at.i > 0 && (isdecimal(at.text[at.i - 1]) || at.text[at.i - 1] == 's');
}

// Digits, and the bracket behind them.
bool readcounted(text_place& at, bool strict, move_text& to, std::vector<open_group>& open,
                 misfit& bad) {
    const std::size_t from = at.i;
    std::string count = readcount(at);
    if (here(at) != '(') {
        return !strict || refuse(bad, at, from, "counts no group");
    }
    return opengroup(to, open, at, std::move(count), bad);
}

// A character of a macro, or two of a pair, or a count with its bracket. A small letter of the
// table is a turn back here, and a wide turn in books.
bool readsymbol(text_place& at, bool strict, move_text& to, std::vector<open_group>& open,
                misfit& bad) {
    const char c = here(at);
    const book_letter* letter = findletter(c);
    if (letter != nullptr && !letter->lone) {
        addturn(to, letter->also == noturn ? letter->code : letter->code ^ 1);
        at.i++;
    } else if ((c == '*' || c == '>') && at.i + 1 < at.text.size()) {
        readpair(at, to);
    } else if (c == 's') {
        to.resets = true;
        at.i++;
        return here(at) != '(' || opengroup(to, open, at, "1", bad);
    } else if (c == ')' && !open.empty()) {
        closegroup(to, open);
        at.i++;
    } else if (isdecimal(c)) {
        return readcounted(at, strict, to, open, bad);
    } else if (c == '(' && !strict && skippedgroup(at)) {
        return opengroup(to, open, at, "0", bad);
    } else {
        const char* why = c == '(' ? "has no count" : c == ')' ? "closes nothing" : "does not fit";
        return refuse(bad, at, at.i, why);
    }
    return true;
}

} // namespace

bool readmacro(std::string_view text, bool strict, move_text& to, misfit& bad) {
    empty(to);
    std::vector<open_group> open;
    text_place at = {text, 0};
    while (!atend(at)) {
        if (!readsymbol(at, strict, to, open, bad)) {
            return false;
        }
    }
    return allclosed(open, at, bad);
}

namespace {

struct book_reading {
    text_place at;
    std::vector<open_group> open;
    bool bracketed;
    bool certain;         // no macro with blanks
    std::size_t lonewide; // the first wide turn that was told by its case alone, or npos
};

// The "2" and the apostrophe behind a move: how many quarters, negative for back. Books have them
// in either order.
int readquarters(book_reading& book) {
    text_place& at = book.at;
    bool back = skipone(at, apostrophes);
    const bool twice = here(at) == '2';
    at.i += twice ? 1 : 0;
    back = (!back && twice && skipone(at, apostrophes)) || back;
    book.certain = book.certain || back || twice;
    return (twice ? 2 : 1) * (back ? -1 : 1);
}

void addquarters(move_text& to, int code, int quarters) {
    for (int i = 0; i < std::abs(quarters); i++) {
        addturn(to, quarters < 0 ? code ^ 1 : code);
    }
}

// A letter with all that belongs to it.
void readmove(book_reading& book, const book_letter& letter, move_text& to) {
    const std::size_t from = book.at.i++;
    int also = letter.also;
    if (also == noturn && !letter.lone && here(book.at) == 'w') {
        also = book_table[&letter - book_table + letterfaces].also;
        book.at.i++;
        book.certain = true;
    } else if (also != noturn && book.lonewide == std::string_view::npos) {
        book.lonewide = from;
    }
    book.certain = book.certain || letter.lone;
    const int quarters = readquarters(book);
    addquarters(to, letter.code, quarters);
    if (also != noturn) {
        addquarters(to, also, quarters);
    }
}

// The count and the apostrophe behind a group, in either order like those of a move.
void readrounds(book_reading& book, piece& group, std::string& count) {
    text_place& at = book.at;
    group.inverted = skipone(at, apostrophes);
    count = readcount(at);
    group.inverted = (!group.inverted && skipone(at, apostrophes)) || group.inverted;
}

// One move, bracket or blank.
bool readword(book_reading& book, move_text& to, misfit& bad) {
    text_place& at = book.at;
    const char c = here(at);
    if (const book_letter* letter = findletter(c)) {
        readmove(book, *letter, to);
        return true;
    }
    if (c == '(') {
        book.certain = true;
        return opengroup(to, book.open, at, "1", bad);
    }
    if (c == ')' && !book.open.empty()) {
        at.i++;
        piece& group = closegroup(to, book.open);
        readrounds(book, group, to.counts[static_cast<std::size_t>(group.count)]);
        return true;
    }
    if (c == ']' && book.bracketed) {
        book.bracketed = false;
        at.i++;
        skipblanks(at);
        return atend(at) || refuse(bad, at, at.i, "stands behind the bracket");
    }
    return refuse(bad, at, at.i, c == ')' ? "closes nothing" : "does not fit");
}

} // namespace

bool readmoves(std::string_view text, bool certain, move_text& to, misfit& bad) {
    empty(to);
    const bool bracketed = text.starts_with('[');
    book_reading book = {
        {text,      bracketed ? 1U : 0U},
        {         },
        bracketed, certain || bracketed, std::string_view::npos
    };
    for (skipblanks(book.at); !atend(book.at); skipblanks(book.at)) {
        if (!readword(book, to, bad)) {
            return false;
        }
    }
    if (book.bracketed) {
        return refuse(bad, book.at, 0, "is not closed");
    }
    // Only now: anything in the rest of the text could have shown that these are moves.
    if (!book.certain && book.lonewide != std::string_view::npos) {
        return refuse(bad, book.at, book.lonewide,
                      "is a wide turn in moves and a turn back in a macro: --from tells which");
    }
    return allclosed(book.open, book.at, bad);
}

// Follows the conversion: it knows the letters of faces with one sign behind them and passes over
// all else. Blanks nobody misses.
std::vector<std::size_t> droppedbywindow(std::string_view text) {
    std::vector<std::size_t> dropped;
    text_place at = {text, 1};
    while (!atend(at) && here(at) != ']') {
        if (istwist(here(at)) != 0) {
            at.i++;
            at.i += here(at) == '\'' || here(at) == '2' ? 1 : 0;
        } else if (!skipone(at, blanks)) {
            dropped.push_back(at.i);
            at.i += characterat(text, at.i);
        }
    }
    return dropped;
}

// Characters

// The second byte rules out what could be written shorter, surrogates and what lies beyond the last
// character (The Unicode Standard, table 3-7).
std::size_t characterat(std::string_view text, std::size_t i) {
    const auto byte = [&](std::size_t k) {
        return i + k < text.size() ? static_cast<unsigned char>(text[i + k]) : 0U;
    };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0xc2 || lead > 0xf4 ? 1
                               : lead < 0xe0              ? 2
                               : lead < 0xf0              ? 3
                                                          : 4;
    for (std::size_t k = 1; k < length; k++) {
        if ((byte(k) & 0xc0) != 0x80) {
            return 1;
        }
    }
    const unsigned second = byte(1);
    const bool bad = (lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f) ||
                     (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f);
    return bad ? 1 : length;
}

std::size_t columnof(std::string_view text, std::size_t i) {
    std::size_t column = 1;
    for (std::size_t at = 0; at < i && at < text.size(); at += characterat(text, at)) {
        column++;
    }
    return column;
}
