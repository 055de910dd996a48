// SPDX-License-Identifier: MIT
#include "nullshell.h"

#include "shell.h"

null_shell shell;

namespace {

std::string textof(const char* text) {
    return text == nullptr ? "" : text;
}

void showmessage(const char* kind, const char* text) {
    shell.messages.push_back(kind + textof(text));
    if (shell.whilemessage) {
        shell.whilemessage();
    }
}

} // namespace

void resetshell() {
    shell = null_shell();
}

const char* macroline() {
    return shell.line.c_str();
}

void setmacroline(const char* text) {
    shell.line = textof(text);
}

void macrolinechanged() {
    shell.linechanges++;
}

void setlengthreadout(const char* text) {
    shell.readout = textof(text);
}

void lengthreadoutchanged() {
    shell.readoutchanges++;
}

void labelrecordbutton(const char* text) {
    shell.recordbutton = textof(text);
}

void labelsavebutton(const char* text) {
    shell.savebutton = textof(text);
}

void displaystring(const char* text) {
    showmessage("inform: ", text);
}

void showalert(const char* text) {
    showmessage("alert: ", text);
}

void delay() {
    shell.delays++;
    if (shell.whiledelay) {
        shell.whiledelay();
    }
}

int alt_q() {
    shell.polls++;
    return shell.interruptat != 0 && shell.polls >= shell.interruptat ? 1 : 0;
}

void b_cb(Fl_Widget* /*w*/, long cmd) {
    shell.commands.push_back(cmd);
}

void interpretkey(int key) {
    shell.keys.push_back(key);
}
