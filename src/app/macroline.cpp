// SPDX-License-Identifier: MIT
#include "app/macroline.h"

#include "app/mainwindow.h"
#include "app/my_input.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/turns.h"
#include "shell.h"
#include "solver/cubecheck.h"

#include <FL/Fl.H>

#include <cstring>
#include <optional>
#include <string>

constinit int singlestepptr = 0;

namespace {

constexpr int manyturns = 200; // a longer macro is played only after a question

bool shiftheld() {
    return Fl::event_state(FL_SHIFT) != 0;
}

// The line's text, ready to be parsed: checked, and converted when it was in the Singmaster form.
// Nothing, after the message, when it fails the check.
std::optional<std::string> checkedmacro() {
    const std::string text = macroline();
    if (sanitycheckmacro(text.c_str(), static_cast<int>(text.size())) == 0) {
        // Deliberate: NOT-BUGS.md, "A message that belongs to something else"
        const char* reason = geterrorstring();
        showalert(("Macro screwed up:\n" + std::string(reason == nullptr ? "" : reason)).c_str());
        return std::nullopt;
    }
    return macroline(); // the check converts a Singmaster form in place
}

// Whether the macro is to be played, be it because the user says so.
bool playable(const std::string& macro) {
    const int steps = maclen(macro.c_str(), static_cast<int>(macro.size()));
    const std::string question = "Really?  Macro has " + std::to_string(steps) + " steps.";
    return steps <= manyturns || askyesno(question.c_str());
}

void showstep() {
    inp->position(singlestepptr, singlestepptr);
    inp->redraw();
}

} // namespace

void parsemacro(const char* text, int length, parse_mode mode, bool backwards) {
    parsing = mode;
    if (backwards) {
        revparsestring(text, length);
    } else {
        parsestring(text, length);
    }
    parsing = direct; // a turn that lands is parsed, too, and must reach the cube
}

void inp_cb(Fl_Widget*, long) {
    const bool backwards = shiftheld();
    needsredraw = 1;
    recordstop();
    const std::optional<std::string> macro = checkedmacro();
    if (macro && playable(*macro)) {
        parsemacro(macro->c_str(), static_cast<int>(macro->size()), queued, backwards);
    }
}

void applymacro() {
    const bool backwards = shiftheld();
    const std::optional<std::string> macro = checkedmacro();
    if (!macro) {
        return;
    }
    macrolinechanged();
    parsemacro(macro->c_str(), static_cast<int>(macro->size()), direct, backwards);
}

// The place may lie behind the end: the line can be shortened between two steps.
void singlestepmacro() {
    const char* text = macroline();
    const int length = static_cast<int>(std::strlen(text));
    if (singlestepptr >= length) {
        singlestepptr = 0;
    }
    const char* token = text + singlestepptr;
    const int tokenlength = length == 0 ? 0 : symbolat(text, singlestepptr, length);
    singlestepptr += tokenlength;
    parsemacro(token, tokenlength, queued, false);
    showstep();
}

void revsinglestepmacro() {
    const char* text = macroline();
    const int length = static_cast<int>(std::strlen(text));
    if (singlestepptr > length) {
        singlestepptr = length; // the text was shortened since the last step
    }
    if (singlestepptr == 0) {
        return;
    }
    const int tokenlength = symbolbefore(text, singlestepptr - 1);
    singlestepptr -= tokenlength;
    parsemacro(text + singlestepptr, tokenlength, queued, true);
    if (tokenlength == 2) {
        // Deliberate: NOT-BUGS.md, "A step back over a slice leaves the parser queueing"
        parsing = queued;
    }
    showstep();
}
