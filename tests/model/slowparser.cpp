// SPDX-License-Identifier: MIT
#include "model/slowparser.h"

#include <algorithm>
#include <cctype>

namespace {

bool over(const slow_run& run) {
    return run.full || run.budget < 0;
}

bool ispair(char c) {
    return c == '*' || c == '>';
}

void landslow(slow_run& run, const std::string& notation) {
    const int code = slowcode(notation);
    run.budget--;
    if (code < 0) {
        return;
    }
    if (run.queueing) {
        run.full = run.queue.size() == 999;
        if (!run.full) {
            run.queue.push_back(code);
        }
        return;
    }
    slowturn(run.cube, notation);
    if (run.undounderway) {
        run.undounderway = false;
        return;
    }
    run.undo.push_back(code);
    if (run.undo.size() > 800) {
        run.undo.erase(run.undo.begin(), run.undo.begin() + 500);
    }
}

// Where the group that opens at i closes, or npos.
size_t closing(const std::string& text, size_t i) {
    int depth = 0;
    for (; i < text.size(); i++) {
        if (ispair(text[i])) {
            i++;
        } else if (text[i] == '(') {
            depth++;
        } else if (text[i] == ')' && --depth == 0) {
            return i;
        }
    }
    return std::string::npos;
}

size_t opening(const std::string& text, size_t close) {
    int depth = 0;
    for (long i = static_cast<long>(close); i >= 0; i--) {
        if (i > 0 && ispair(text[i - 1])) {
            i--;
        } else if (text[i] == ')') {
            depth++;
        } else if (text[i] == '(' && --depth == 0) {
            return static_cast<size_t>(i);
        }
    }
    return std::string::npos;
}

void findorder(slow_run& run, const std::string& inside) {
    run.cube = slowsolved();
    if (run.queueing) {
        slowparse(run, inside);
        return;
    }
    slow_cube before = {};
    int order = 0;
    do {
        before = run.cube;
        slowparse(run, inside);
        order++;
        if (order > 1 && run.cube == before && !slowuniform(run.cube)) {
            order = 0;
            break;
        }
    } while (!slowuniform(run.cube) && !over(run));
    run.order = order;
}

} // namespace

void slowparse(slow_run& run, const std::string& text) {
    int count = 0;
    bool armed = false;
    for (size_t i = 0; i < text.size() && !over(run); i++, run.budget--) {
        const char c = text[i];
        if (isdigit(static_cast<unsigned char>(c))) {
            count = std::min(count, 100000000) * 10 + (c - '0'); // more than any budget
            continue;
        }
        if (c == '(') {
            const size_t close = closing(text, i);
            if (close == std::string::npos) {
                return;
            }
            const std::string inside = text.substr(i + 1, close - i - 1);
            if (armed) {
                findorder(run, inside);
                return;
            }
            for (int round = 0; round < count && !over(run); round++, run.budget--) {
                slowparse(run, inside);
            }
            i = close;
        } else if (c == 's') {
            armed = true;
        } else if (c == 'x') {
            run.cube = slowsolved();
        } else if (ispair(c)) {
            landslow(run, text.substr(i, 2));
            i++;
        } else {
            landslow(run, text.substr(i, 1));
        }
        count = 0;
    }
}

namespace {

std::string opposite(char c) {
    const std::string from = "FBUDRL";
    const std::string to = "BFDULR";
    const size_t at = from.find(c);
    return at == std::string::npos ? " " : to.substr(at, 1);
}

// False if a group without digits ended it.
bool reverselevel(slow_run& run, const std::string& text) {
    for (long i = static_cast<long>(text.size()) - 1; i >= 0 && !over(run); i--, run.budget--) {
        const char c = text[i];
        if (i > 0 && ispair(text[i - 1])) {
            landslow(run, text[i - 1] + opposite(c));
            i--;
        } else if (std::string("UDLRFBudlrfb").find(c) != std::string::npos) {
            landslow(run, std::string(1, static_cast<char>(c ^ 32)));
        } else if (c == ')') {
            const size_t open = opening(text, i);
            if (open == std::string::npos) {
                return true;
            }
            size_t digits = open;
            while (digits > 0 && isdigit(static_cast<unsigned char>(text[digits - 1]))) {
                digits--;
            }
            if (digits == open) {
                return false;
            }
            const size_t used = open - digits > 5 ? open - 5 : digits;
            const int count = std::stoi(text.substr(used, open - used));
            for (int round = 0; round < count && !over(run); round++, run.budget--) {
                reverselevel(run, text.substr(open + 1, i - open - 1));
            }
            i = static_cast<long>(digits);
        }
    }
    return true;
}

} // namespace

void slowreverse(slow_run& run, const std::string& text) {
    run.stuck = !reverselevel(run, text);
}
