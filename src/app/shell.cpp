// SPDX-License-Identifier: MIT
//
// What shell.h asks of the main window, over its widgets. All else stands with its own kind:
// messages.cpp, filequestion.cpp (askfile), macrochoice.cpp (the list), gizmo.cpp (the panel),
// macroline.cpp (applymacro), driver.cpp (delay), dispatch.cpp (b_cb, interpretkey, alt_q).
#include "shell.h"

#include "app/mainwindow.h"
#include "app/my_input.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Output.H>

const char* macroline() {
    return inp->value();
}

void setmacroline(const char* text) {
    inp->value(text);
}

void macrolinechanged() {
    inp->set_changed();
}

void setlengthreadout(const char* text) {
    out->value(text);
}

void lengthreadoutchanged() {
    out->set_changed();
}

void labelrecordbutton(const char* text) {
    recbut->copy_label(text);
}

void labelsavebutton(const char* text) {
    bsave->copy_label(text);
}
