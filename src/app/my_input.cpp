// SPDX-License-Identifier: MIT
#include "app/my_input.h"

#include "app/macroline.h"
#include "model/notation.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl.H>

int my_input::handle(int event) {
    if (event == FL_FOCUS) {
        return 1;
    }
    if (Fl::get_key(FL_Right) != 0) {
        if (turnmode == noturn) {
            singlestepmacro();
        }
        return 1;
    }
    if (Fl::get_key(FL_Left) != 0) {
        if (turnmode == noturn) {
            revsinglestepmacro();
        }
        return 1;
    }
    const bool apply = Fl::event_state(FL_CTRL) != 0 && Fl::event_key() == 'a';
    const bool alt = Fl::event_state(FL_ALT) != 0;
    if (event == FL_SHORTCUT && (apply || alt)) {
        return 0; // pressed elsewhere: the menu and the view answer these keys
    }
    if (apply) {
        if (event != FL_KEYDOWN) {
            return 1;
        }
        b_cb(nullptr, 106);
    }
    if (alt) {
        if (event == FL_KEYDOWN) {
            interpretkey(Fl::event_key());
        }
        return 1;
    }
    if (event == FL_KEYUP) {
        return 1;
    }
    const int used = Fl_Input::handle(event);
    loadout(value());
    return used;
}
