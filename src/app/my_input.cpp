// SPDX-License-Identifier: MIT
#include "app/my_input.h"

#include "app/dispatch.h"
#include "app/latinkey.h"
#include "app/macroline.h"
#include "model/notation.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl.H>

namespace {

// Whether an arrow is held. By what is held and not by what was pressed: any event that comes while
// the key is down, a repeat or a move of the mouse, steps on if the turn is over.
bool arrowheld() {
    const bool right = Fl::get_key(FL_Right) != 0;
    const bool left = !right && Fl::get_key(FL_Left) != 0;
    if (right && turnmode == noturn) {
        singlestepmacro();
    } else if (left && turnmode == noturn) {
        revsinglestepmacro();
    }
    return right || left;
}

} // namespace

int my_input::handle(int event) {
    if (event == FL_FOCUS) {
        return 1; // not the toolkit's: by Tab or an arrow it would move the cursor of the steps
    }
    if (solvingcube != 0) { // what came into the line now would give way to the solution
        return event == FL_UNFOCUS ? Fl_Input::handle(event) : 0;
    }
    if (arrowheld()) {
        return 1;
    }
    const bool ctrl = Fl::event_state(FL_CTRL) != 0;
    const bool alt = Fl::event_state(FL_ALT) != 0;
    const int key = ctrl ? latinkey(Fl::event_key()) : Fl::event_key();
    const bool apply = ctrl && Fl::event_key() == 'a';
    const bool undo = ctrl && !alt && key == 'z';
    const bool foreign = ctrl && !alt && key != Fl::event_key(); // its letter would be typed
    if (event == FL_SHORTCUT && (apply || alt)) {
        return 0; // pressed elsewhere: the menu and the view answer these keys
    }
    if (event == FL_KEYDOWN && (undo || foreign)) {
        return 0; // the menu's: it undoes a turn, where the toolkit would undo what was typed
    }
    if (apply) {
        if (event != FL_KEYDOWN) {
            return 1;
        }
        b_cb(nullptr, 106); // Apply Macro
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
    if (apply) {
        position(0); // a newer toolkit marks the whole text, for the next letter to wipe out
    }
    loadout(value()); // after any event: a paste changes the line without a key
    // Done, whatever the toolkit made of it: a key that is not used is the menu's, which would
    // apply the macro once more.
    return apply ? 1 : used;
}
