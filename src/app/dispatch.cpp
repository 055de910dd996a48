// SPDX-License-Identifier: MIT
#include "app/dispatch.h"

#include "app/demo.h"
#include "app/driver.h"
#include "app/latinkey.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/menu.h"
#include "app/messages.h"
#include "app/ownrandom.h"
#include "app/solvecube.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/permutation.h"
#include "model/recording.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/animation.h"
#include "render/eps.h"
#include "render/view.h"

#include <FL/Fl.H>

#include <cstdlib>

constinit int solvingcube = 0;
constinit int tryhard = 0;

namespace {

// The turns that were done are not those of the new cube: undoing one of them would scramble it.
void resetcube() {
    initcubies();
    initundo();
}

void order() {
    calcorder(macroline());
}

void undoturn() {
    undoing = 1;
    undo();
    undorecord();
}

void quit() {
    if (demomode != 0) {
        stopdemo();
    }
    std::exit(0);
}

void askspeed() {
    setspeed();
    writeprefs(); // Deliberate: NOT-BUGS.md, "A cancelled speed is stored"
}

void jumble() {
    const ownrandom numbers;
    jumblecube();
}

void togglerear() {
    showrear = 1 - showrear;
}

void solve() {
    if (solvingcube != 0) {
        return; // the solver lets the window live while it works
    }
    solvingcube = 1;
    solvecube();
    solvingcube = 0;
    recordstop();
    singlestepptr = 0;
}

void togglerecording() {
    if (recording != 0) {
        recordstop();
    } else {
        recordstart();
    }
}

void longsolve() {
    tryhard = tryhard == 0 ? 1 : 0;
    settryhardmenu();
}

// Of the two toggles at most one is on: each sets what the other one shows.
void verylongsolve() {
    tryhard = tryhard != 2 ? 2 : 0;
    settryhardmenu();
}

void inputcube() {
    loadcube();
    needsredraw = 1;
}

void showgizmo() {
    macrodisplay(0, 0);
}

// What a command does while the demo runs: its work, or nothing but end the demo.
enum demo_guard { runs, endsdemo };

// Whether a recording goes on after its work.
enum recording_end { records, endsrecord };

struct command_row {
    long number;
    demo_guard guard;
    recording_end record;
    void (*action)();
};

// A number without a row is free. Start Demo and Solve Cube end a recording themselves: not when
// the one stops a demo, nor when the other finds itself at work.
// Deliberate: NOT-BUGS.md, "Fewer commands end a demo than one would think"
constexpr command_row command_table[] = {
    {100, endsdemo, endsrecord, resetcube         }, // Reset Cube
    {101, endsdemo, endsrecord, order             }, // Macro Order
    {102, endsdemo, records,    undoturn          }, // Undo
    {104, endsdemo, endsrecord, definemacro       }, // Define Macro
    {105, runs,     records,    quit              }, // Quit
    {106, endsdemo, endsrecord, applymacro        }, // Apply Macro
    {107, endsdemo, records,    askspeed          }, // Set Cube Speed
    {108, runs,     records,    solve             }, // Solve Cube
    {109, runs,     records,    setcubecolors     }, // Set Cube Colors
    {111, runs,     records,    toggledemo        }, // Start Demo, Stop Demo
    {112, endsdemo, endsrecord, jumble            }, // Jumble Cube
    {113, runs,     records,    togglerear        }, // Show Rear Cube
    {114, runs,     endsrecord, inputcube         }, // Input Cube
    {115, runs,     records,    deletedefinedmacro}, // Delete Macro
    {116, runs,     records,    togglerecording   }, // Record On, Record Off
    {117, runs,     records,    savecube          }, // Save Cube, Restore Cube
    {118, runs,     records,    snarfmacros       }, // Load Macro File
    {119, runs,     records,    about             }, // About Vexel
    {120, runs,     records,    longsolve         }, // Long Solve
    {121, runs,     records,    verylongsolve     }, // Very Long Solve
    {122, runs,     records,    deleteallmacros   }, // Delete All Macros
    {123, runs,     records,    dumpcubeperm      }, // Display Permutation
    {124, runs,     records,    showgizmo         }, // Show Macro Gizmo
    {125, runs,     records,    addmactogizmo     }, // Add Macro to Gizmo
    {126, runs,     records,    deletemacfromgizmo}, // Delete Macro from Gizmo
    {127, runs,     records,    clearmacrogizmo   }, // Clear Macro Gizmo
    {128, runs,     records,    dumpmacfile       }, // Dump Macro File
    {129, runs,     records,    printeps          }, // Print EPS File
};

void runcommand(const command_row& row) {
    if (row.guard == endsdemo && demomode != 0) {
        stopdemo();
        return;
    }
    row.action();
    if (row.record == endsrecord) {
        recordstop();
    }
}

} // namespace

void b_cb(Fl_Widget*, long cmd) {
    needsredraw = 1;
    // An interrupt that is still held must not start anything new.
    if (alt_q() != 0) {
        return;
    }
    if (cmd >= 0 && cmd < turncount) {
        // Deliberate: NOT-BUGS.md, "A turn takes the place of the one under way"
        const int code = static_cast<int>(cmd);
        // Deliberate: NOT-BUGS.md, "A turn button during the demo changes the cube for good"
        startturn(Fl::event_state(FL_SHIFT) != 0 ? inversemove[code] : code);
        return;
    }
    for (const command_row& row : command_table) {
        if (row.number == cmd) {
            runcommand(row);
            return;
        }
    }
}

int alt_q() {
    return letterheld('q') && (Fl::get_key(FL_Alt_L) != 0 || Fl::get_key(FL_Alt_R) != 0);
}

void interpretkey(int key) {
    const int letter = latinkey(key);
    constexpr char letters[] = "udlrfb"; // ORDER TURN: letter i turns with code 2 i
    for (int i = 0; letters[i] != '\0'; i++) {
        if (letter == letters[i]) {
            b_cb(nullptr, 2 * i);
        }
    }
}
