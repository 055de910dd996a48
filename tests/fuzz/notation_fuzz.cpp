// SPDX-License-Identifier: MIT
//
// Any bytes as a macro: checked, counted and converted as a second, slow reading of the rules does,
// parsed forwards or backwards as the slow parser does. The first byte chooses the way.
#include "fuzz/fuzz.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/resetmodel.h"
#include "model/savedcube.h"
#include "model/singmaster.h"
#include "model/slowparser.h"
#include "model/turns.h"
#include "model/undo.h"
#include "nullshell.h"

#include <climits>
#include <vector>

namespace {

bool isface(char c) {
    return c != '\0' && std::string("UDLRFBudlrfb").find(c) != std::string::npos;
}

bool isdigit(char c) {
    return c >= '0' && c <= '9';
}

bool slowcheck(const std::string& text) {
    int open = 0;
    for (std::size_t i = 0; i < text.size(); i++) {
        const char c = text[i];
        const char last = i == 0 ? ' ' : text[i - 1];
        // What was taken by a "*" is no longer there for a "(".
        if (c == '*' || c == '>') {
            if (++i == text.size()) {
                return false;
            }
        } else if (c == '(') {
            if (!isdigit(last) && last != 's') {
                return false;
            }
            open++;
        } else if (c == ')') {
            if (--open < 0) {
                return false;
            }
        } else if (!isface(c) && !isdigit(c) && c != 's') {
            return false;
        }
    }
    return open == 0;
}

// The turns in one bracketed stretch of text from i on; -1 for a macro without a length.
long long slowlength(const std::string& text, std::size_t& i, bool inside) {
    long long sum = 0;
    const auto add = [&sum](long long more) { sum = std::min<long long>(INT_MAX, sum + more); };
    while (i < text.size()) {
        const char c = text[i++];
        if (c == ')' && inside) {
            return sum;
        }
        long long times = 1;
        if (isdigit(c)) {
            times = c - '0';
            while (i < text.size() && isdigit(text[i])) {
                times = std::min<long long>(INT_MAX, times * 10 + (text[i++] - '0'));
            }
            if (i == text.size() || text[i++] != '(') {
                return -1;
            }
        }
        if (isdigit(c) || c == '(') {
            const long long group = slowlength(text, i, true);
            if (group < 0) {
                return -1;
            }
            add(times * group);
        } else if (isface(c)) {
            add(1);
        }
    }
    return inside ? -1 : sum;
}

// What becomes of a line in the other notation; without a "]" it stays.
std::string slowconverted(const std::string& line) {
    std::string macro;
    for (std::size_t i = 0; i < line.size(); i++) {
        const char next = i + 1 < line.size() ? line[i + 1] : ' ';
        if (line[i] == ']') {
            return macro;
        }
        if (std::string("UDLRFB").find(line[i]) != std::string::npos) {
            macro += next == '\'' ? flipcase(line[i]) : line[i];
            macro += next == '2' ? std::string(1, line[i]) : "";
            i += next == '\'' || next == '2' ? 1 : 0;
        }
    }
    return line;
}

void compareparses(const std::string& text, bool queueing, bool backwards) {
    slow_run run;
    run.queueing = queueing;
    run.budget = 5000;
    (backwards ? slowreverse : slowparse)(run, text);
    parsing = queueing ? 1 : 0;
    (backwards ? revparsestring : [](const char* t, int n) {
        static_cast<void>(parsestring(t, n));
    })(text.data(), static_cast<int>(text.size()));
    must(turnptr >= 0 && turnptr < queuesize, "the queue is not overrun");
    must(undoptr >= 0 && undoptr <= undolimit, "the undo buffer is not overrun");
    must(parselevel == 0, "the parse has come to its end");
    if (run.budget < 0) {
        return; // too long for the slow parser
    }
    must(run.cube == modelcube(), "the cube is the slow parser's");
    must(run.queue == std::vector<int>(turns, turns + turnptr), "so is the queue");
    must(run.undo == std::deque<int>(undobuf, undobuf + undoptr), "so is the undo buffer");
    must(run.order == macorder, "so is the order");
    must(run.stuck == (reversing != 0), "so is how it ended");
}

void comparecounts(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::size_t i = 0;
    must(maclen(text.data(), length) == slowlength(text, i, false), "the length is right");
    // A conversion reads the macro line, which ends at a NUL.
    shell.line = text.substr(0, text.find('\0'));
    const std::string line = shell.line;
    const bool good = sanitycheckmacro(text.data(), length) != 0;
    if (text.starts_with('[')) {
        must(shell.line == slowconverted(line), "the conversion is right");
        must(good == (line.find(']') != std::string::npos && slowcheck(shell.line)),
             "the converted line is checked");
    } else {
        must(good == slowcheck(text), "the check is right");
        must(shell.line == line, "a check changes nothing");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textfrom(data, size, 1);
    const int way = size == 0 ? 0 : data[0];
    if (text.size() > 4000) {
        return 0; // the slow reading goes as deep as the brackets do
    }
    resetshell();
    resetmodel();
    comparecounts(text);
    compareparses(text, (way & 1) != 0, (way & 2) != 0);
    return 0;
}
