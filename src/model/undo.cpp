// SPDX-License-Identifier: MIT
#include "model/undo.h"

#include "model/turns.h"

#include <cstdint>
#include <cstring>

// State

constinit int undobuf[undosize] = {};
constinit int undoptr = 0;
constinit int redomax = 0;

namespace {

// Not the variable of this name in recording.h, which this file must never include: that one waits
// for record(), this one for undosave().
constinit int undoing = 0;

} // namespace

void initundo() {
    undoptr = 0;
    redomax = -1;
    undoing = 0;
}

void undosave(int code) {
    if (undoing != 0) {
        undoing = 0;
        return;
    }
    undobuf[undoptr++] = code;
    if (undoptr > undolimit) {
        memmove(undobuf, undobuf + undodrop, sizeof(int) * (undosize - undodrop));
        undoptr -= undodrop;
    }
}

void undo() {
    if (undoing != 0) {
        // Deliberate: NOT-BUGS.md, "A second Undo while one is under way"
        undoing = 0;
        return;
    }
    if (undoptr > 0) {
        undoptr--;
        undoing = 1;
        startturn(inversemove[undobuf[undoptr]]);
    }
}

void redo() {}

// Series

namespace {

constexpr size_t keptcodes = undolimit + undodrop;

// Drops from the front what the buffer would have dropped by the end.
void trim(std::string& codes) {
    if (codes.size() > keptcodes) {
        const size_t excess = codes.size() - keptcodes;
        codes.erase(0, (excess + undodrop - 1) / undodrop * undodrop);
    }
}

// The codes times over, trimmed, without writing out those that would be dropped: filled from the
// end, where only the last undolimit + 1 need be exact.
std::string repeated(const std::string& codes, int times) {
    const std::uint64_t total = std::uint64_t{codes.size()} * static_cast<std::uint64_t>(times);
    const auto length = static_cast<size_t>(
        total > keptcodes ? undolimit + 1 + (total - undolimit - 1) % undodrop : total);
    std::string result(length, '\0');
    for (size_t end = length; end > 0;) {
        const size_t taken = end < codes.size() ? end : codes.size();
        result.replace(end - taken, taken, codes, codes.size() - taken, taken);
        end -= taken;
    }
    return result;
}

} // namespace

void addturn(undo_series& series, int code) {
    series.codes.push_back(static_cast<char>(code));
    trim(series.codes);
}

void addseries(undo_series& series, const undo_series& more, int times) {
    series.codes += repeated(more.codes, times);
    trim(series.codes);
}

// An undo that is under way takes the first code for its own, be it the first of the series or the
// first that was kept: either way one code less is stored, and the buffer ends the same.
void undosaveseries(const undo_series& series) {
    for (char code : series.codes) {
        undosave(code);
    }
}
