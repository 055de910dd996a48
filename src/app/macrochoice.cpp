// SPDX-License-Identifier: MIT
#include "app/macrochoice.h"

#include "app/label.h"
#include "app/mainwindow.h"
#include "app/userdata.h"
#include "model/recording.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl_Choice.H>

#include <algorithm>

Fl_Menu_Item choices[maxmacros + 1] = {};

namespace {

// State

std::string names[maxmacros];  // the names that the list shows
std::string labels[maxmacros]; // as labels: what the entries' texts point to

// A record of its own, not one the toolkit adds: added texts have "/", "_" and "\\" read as marks.
Fl_Menu_Item entry(const char* text, int number) {
    return {text, 0, nullptr, userdata(number), 0, 0, 0, 0, 0};
}

// What the list and the panel have in common.
void applychosen(int macro) {
    needsredraw = 1;
    recordstop();
    applysavedmacro(macro);
}

} // namespace

void showmacros() {
    const int count = std::max(maccount, 1); // row 0 of an empty table holds empty texts
    for (int i = 0; i < count; i++) {
        // A file of macros comes here once for each: only a name that is new costs a label.
        if (names[i] != macnames[i]) {
            names[i] = macnames[i];
            labels[i] = plainlabel(names[i]);
        }
        choices[i] = entry(labels[i].c_str(), i);
    }
    choices[count] = entry(nullptr, 0);
    choice->menu(choices);
    choice->value(0);
    choice->set_changed();
    choice->callback(choice_cb);
    choice->when(FL_WHEN_RELEASE_ALWAYS); // the chosen macro may be chosen, and applied, again
    choice->redraw();
}

// The toolkit says -1 where nothing was ever chosen.
int chosenmacro() {
    return std::max(choice->value(), 0);
}

void choosemacro(int macro) {
    if (macro >= 0 && macro < maccount) {
        choice->value(macro);
        choice->set_changed();
    }
}

void choice_cb(Fl_Widget*, void*) {
    applychosen(static_cast<int>(choice->mvalue() - choices));
    choice->set_changed();
}

void choice_cbx(Fl_Widget*, void* data) {
    const int macro = static_cast<int>(numberof(data));
    applychosen(macro);
    choosemacro(macro);
}
