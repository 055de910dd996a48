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

// Records "kind: question [preset]"; returns the next answer of the script, null without one.
const char* nextanswer(const std::string& question, const char* preset) {
    static std::string answer;
    shell.messages.push_back(question + (preset == nullptr ? "" : " [" + textof(preset) + "]"));
    if (shell.answers.empty()) {
        return nullptr;
    }
    answer = shell.answers.front();
    shell.answers.pop_front();
    return answer.c_str();
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

bool askyesno(const char* question) {
    return nextanswer("yesno: " + textof(question), nullptr) != nullptr;
}

const char* askline(const char* prompt, const char* preset) {
    return nextanswer("line: " + textof(prompt), preset == nullptr ? "" : preset);
}

const char* askfile(const char* title, const char* pattern, const char* preset) {
    const std::string kind = "file: " + textof(title) + " " + textof(pattern);
    return nextanswer(kind, preset == nullptr ? "" : preset);
}

void showmacros() {
    shell.requests.emplace_back("showmacros()");
    shell.chosen = 0;
}

int chosenmacro() {
    return shell.chosen;
}

void choosemacro(int macro) {
    shell.requests.push_back("choosemacro(" + std::to_string(macro) + ")");
    shell.chosen = macro;
}

void applymacro() {
    shell.requests.emplace_back("applymacro()");
}

void macrodisplay(int x, int y) {
    shell.requests.push_back("macrodisplay(" + std::to_string(x) + ", " + std::to_string(y) + ")");
}

void refreshmacrodisplay() {
    shell.requests.emplace_back("refreshmacrodisplay()");
}

void hidemacrodisplay() {
    shell.requests.emplace_back("hidemacrodisplay()");
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
