// SPDX-License-Identifier: MIT
//
// Any bytes as a line of the tools. The first byte chooses the form, so that one corpus serves them
// all. What is accepted must come back through every form that can tell it.
#include "fuzz/fuzz.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "nullshell.h"
#include "tools/forms.h"
#include "tools/messages.h"
#include "tools/movewriting.h"

#include <string>

namespace {

void checkrefusal(const std::string& text, const read_line& line) {
    must(!line.error.text.empty(), "a refusal says why");
    must(line.error.column <= text.size() + 1, "the column is one of the line");
    must(escaped(notetext(line.error)).find('\x1b') == std::string::npos, "messages are escaped");
}

std::string cubeof(const std::string& text, line_form form) {
    read_line line;
    must(readform(text, form, line), "what was written can be read");
    makecube(line);
    return faceletstext();
}

void checkturns(const read_line& line, const std::string& facelets) {
    const std::string macro = macrotext(line.moves, false);
    must(cubeof(macro, macroform) == facelets, "the macro makes the cube");
    must(cubeof(bookmoves(line.moves), movesform) == facelets, "the moves make the cube");
    read_line again;
    must(readform(macrotext(line.moves, true), macroform, again), "the inverse is a macro");
    makecube(line);
    parsestring(again.macro.c_str(), static_cast<int>(again.macro.size()));
    must(solved() == 1, "the inverse takes the macro back");
    std::string expanded;
    if (expandedmacro(line.moves, 10'000, expanded)) {
        must(cubeof(expanded, macroform) == facelets, "the expanded macro makes the cube");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    resetshell();
    resetmodel();
    const auto form = static_cast<line_form>(size == 0 ? 0 : data[0] % formcount);
    const std::string text = textfrom(data, size, 1);
    read_line line;
    if (!readform(text, form, line)) {
        checkrefusal(text, line);
        return 0;
    }
    must(form == anyform || line.form == form || line.form == movesform, "the form is as told");
    makecube(line);
    const std::string facelets = faceletstext();
    must(cubeof(facelets, anyform) == facelets, "facelets come back");
    const std::string cubies = cubiestext();
    cubeof(cubies, cubiesform);
    must(cubiestext() == cubies, "cubies come back");
    if ((line.form == macroform || line.form == movesform) && !line.moves.resets) {
        checkturns(line, facelets);
    }
    return 0;
}
