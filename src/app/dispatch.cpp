// SPDX-License-Identifier: MIT
#include "app/dispatch.h"

#include "app/demo.h"
#include "app/driver.h"
#include "app/mainwindow.h"
#include "app/menu.h"
#include "app/messages.h"
#include "app/ownrandom.h"
#include "app/solvecube.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"
#include "model/cube.h"
#include "model/notation.h"
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

void order() {
    calcorder(macroline());
    recordstop();
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

void apply() {
    applymacro();
    recordstop();
}

void define() {
    definemacro();
    recordstop();
}

void askspeed() {
    setspeed();
    writeprefs(); // Deliberate: NOT-BUGS.md, "A cancelled speed is stored"
}

void jumble() {
    ownrandom();
    jumblecube();
    otherrandom();
    recordstop();
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

void verylongsolve() {
    tryhard = tryhard != 2 ? 2 : 0;
    settryhardmenu();
}

void inputcube() {
    loadcube();
    recordstop();
    needsredraw = 1;
}

void showgizmo() {
    macrodisplay(0, 0);
}

// What a command does while the demo runs: its work, or nothing but end the demo.
enum demo_guard { runs, endsdemo };

struct command_row {
    long number;
    demo_guard guard;
    void (*action)();
};

// A number without a row is free.
// Deliberate: NOT-BUGS.md, "Fewer commands end a demo than one would think"
constexpr command_row command_table[] = {
    {100, endsdemo, resetcube         }, // Reset Cube
    {101, endsdemo, order             }, // Macro Order
    {102, endsdemo, undoturn          }, // Undo
    {104, endsdemo, define            }, // Define Macro
    {105, runs,     quit              }, // Quit
    {106, endsdemo, apply             }, // Apply Macro
    {107, endsdemo, askspeed          }, // Set Cube Speed
    {108, runs,     solve             }, // Solve Cube
    {109, runs,     setcubecolors     }, // Set Cube Colors
    {111, runs,     toggledemo        }, // Start Demo, Stop Demo
    {112, endsdemo, jumble            }, // Jumble Cube
    {113, runs,     togglerear        }, // Show Rear Cube
    {114, runs,     inputcube         }, // Input Cube
    {115, runs,     deletedefinedmacro}, // Delete Macro
    {116, runs,     togglerecording   }, // Record On, Record Off
    {117, runs,     savecube          }, // Save Cube, Restore Cube
    {118, runs,     snarfmacros       }, // Load Macro File
    {119, runs,     about             }, // About Vexel
    {120, runs,     longsolve         }, // Long Solve
    {121, runs,     verylongsolve     }, // Very Long Solve
    {122, runs,     deleteallmacros   }, // Delete All Macros
    {123, runs,     dumpcubeperm      }, // Display Permutation
    {124, runs,     showgizmo         }, // Show Macro Gizmo
    {125, runs,     addmactogizmo     }, // Add Macro to Gizmo
    {126, runs,     deletemacfromgizmo}, // Delete Macro from Gizmo
    {127, runs,     clearmacrogizmo   }, // Clear Macro Gizmo
    {128, runs,     dumpmacfile       }, // Dump Macro File
    {129, runs,     printeps          }, // Print EPS File
};

} // namespace

void b_cb(Fl_Widget*, long cmd) {
    needsredraw = 1;
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
            if (row.guard == endsdemo && demomode != 0) {
                stopdemo();
            } else {
                row.action();
            }
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
