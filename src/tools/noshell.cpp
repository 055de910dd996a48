// SPDX-License-Identifier: MIT
//
// noshell: src/shell.h for programs without a window. There is a macro line, since the notation
// works on it, and nothing else: no message is shown, every question is cancelled,
// no button is labelled, nobody interrupts.
#include "shell.h"

#include <string>

namespace {

// State

std::string line; // the macro line

} // namespace

const char* macroline() {
    return line.c_str();
}

void setmacroline(const char* text) {
    line = text == nullptr ? "" : text;
}

void macrolinechanged() {}

void setlengthreadout(const char* /*text*/) {}

void lengthreadoutchanged() {}

void labelrecordbutton(const char* /*text*/) {}

void labelsavebutton(const char* /*text*/) {}

void displaystring(const char* /*text*/) {}

void showalert(const char* /*text*/) {}

bool askyesno(const char* /*question*/) {
    return false;
}

const char* askline(const char* /*prompt*/, const char* /*preset*/) {
    return nullptr;
}

const char* askfile(const char* /*title*/, const char* /*pattern*/, const char* /*preset*/) {
    return nullptr;
}

void showmacros() {}

int chosenmacro() {
    return 0;
}

void choosemacro(int /*macro*/) {}

void applymacro() {}

void macrodisplay(int /*x*/, int /*y*/) {}

void refreshmacrodisplay() {}

void hidemacrodisplay() {}

void delay() {}

int alt_q() {
    return 0;
}

void b_cb(Fl_Widget* /*w*/, long /*cmd*/) {}

void interpretkey(int /*key*/) {}
