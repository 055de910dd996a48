// SPDX-License-Identifier: MIT
#include "tools/noshell.h"

#include "shell.h"

namespace {

// State

std::string line; // the macro line

} // namespace

std::string lastalert;
constinit interrupt_question interrupted = nullptr;

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

void showalert(const char* text) {
    lastalert = text == nullptr ? "" : text;
}

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
    return interrupted != nullptr && interrupted() ? 1 : 0;
}

void b_cb(Fl_Widget* /*w*/, long /*cmd*/) {}

void interpretkey(int /*key*/) {}
