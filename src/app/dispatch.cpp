// SPDX-License-Identifier: MIT
#include "app/dispatch.h"

#include "app/driver.h"
#include "app/mainwindow.h"
#include "app/menu.h"
#include "app/messages.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/recording.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/animation.h"
#include "render/cube_box.h"

#include <FL/Fl.H>

#include <cstdlib>
#include <string>

constinit int solvingcube = 0;
constinit int tryhard = 0;

namespace {

constexpr int manyturns = 200; // a longer macro is played only after a question

void resetcube() {
    initcubies();
    initundo();
    recordstop();
}

void quit() {
    std::exit(0);
}

void apply() {
    applymacro();
    recordstop();
}

void jumble() {
    jumblecube();
    recordstop();
}

void togglerear() {
    showrear = 1 - showrear;
}

struct command_row {
    long number;
    void (*action)();
};

// A number without a row is free.
constexpr command_row command_table[] = {
    {100, resetcube }, // Reset Cube
    {105, quit      }, // Quit
    {106, apply     }, // Apply Macro
    {107, setspeed  }, // Set Cube Speed
    {112, jumble    }, // Jumble Cube
    {113, togglerear}, // Show Rear Cube
};

} // namespace

void b_cb(Fl_Widget*, long cmd) {
    needsredraw = 1;
    if (alt_q() != 0) {
        return;
    }
    if (cmd >= 0 && cmd < turncount) {
        const int code = static_cast<int>(cmd);
        startturn(Fl::event_state(FL_SHIFT) != 0 ? inversemove[code] : code);
        return;
    }
    for (const command_row& row : command_table) {
        if (row.number == cmd) {
            row.action();
            return;
        }
    }
}

int alt_q() {
    return Fl::get_key('q') != 0 && (Fl::get_key(FL_Alt_L) != 0 || Fl::get_key(FL_Alt_R) != 0);
}

void interpretkey(int key) {
    constexpr char letters[] = "udlrfb"; // ORDER TURN: letter i turns with code 2 i
    for (int i = 0; letters[i] != '\0'; ++i) {
        if (key == letters[i]) {
            b_cb(nullptr, 2 * i);
        }
    }
}

void inp_cb(Fl_Widget*, long) {
    needsredraw = 1;
    recordstop();
    const std::optional<std::string> macro = checkedmacro();
    if (!macro) {
        return;
    }
    const int length = static_cast<int>(macro->size());
    const int steps = maclen(macro->c_str(), length);
    const std::string question = "Really?  Macro has " + std::to_string(steps) + " steps.";
    if (steps > manyturns && !askyesno(question.c_str())) {
        return;
    }
    parsing = 1;
    if (Fl::event_state(FL_SHIFT) != 0) {
        revparsestring(macro->c_str(), length);
    } else {
        parsestring(macro->c_str(), length);
    }
    parsing = 0;
}
