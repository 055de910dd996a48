// SPDX-License-Identifier: MIT
#include "app/driver.h"

#include "app/demo.h"
#include "app/mainwindow.h"
#include "app/menuguard.h"
#include "model/parser.h"
#include "model/turns.h"
#include "render/cube_box.h"
#include "render/view.h"
#include "shell.h"

#include <FL/Fl.H>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// State

constinit int rests = 0;        // how often it was told to rest and not yet to wake
constinit bool resting = false; // it was at work before the first of them
constinit bool inmenu = false;  // a menu is open, and has it rest

void takequeuedturn() {
    startturn(turns[turn]);
    turn++;
    if (turns[turn] == noturn) {
        clearqueue(); // the next macro has all of its room again
    }
    needsredraw = 1;
}

// An idle callback keeps the toolkit from sleeping: with nothing to do it goes, and a tenth of a
// second is soon enough for what is asked for meanwhile.
void waitfortimeout() {
    Fl::remove_idle(IdleFunc, nullptr);
    Fl::add_timeout(0.1, timeoutfunc, nullptr);
}

void quietpass() {
    Fl::wait(); // does not sleep: while it calls us the toolkit only handles what is there
    watchmenus(nullptr);
    if (needsredraw != 0) {
        cube->redraw();
        needsredraw = 0;
    }
    if (demomode != 0) {
        rundemo();
        return;
    }
    waitfortimeout();
}

// The frame of ttime = TURNTIME - 1 applies the turn. The toolkit paints it when the pass
// that asked for it is over, but nobody asked for it where a turn starts on its last frame (the
// first turn at speed 1) or where the speed was changed to just this frame. And none is painted in
// a window that is out of sight. No turn may be lost.
void makesureitlands() {
    if (ttime == TURNTIME - 1 && turnlanded == 0) {
        cube->redraw();
        Fl::flush();
    }
    if (ttime == TURNTIME - 1 && turnlanded == 0) {
        const char* notation = turn_table[turnmode].notation;
        sparsestring(notation, static_cast<int>(std::strlen(notation)));
        doparsestring();
    }
}

void endturn() {
    ttime = -1; // Deliberate: NOT-BUGS.md, "The first turn is a pass shorter"
    startturn(noturn);
    needsredraw = 1;
}

void animationpass() {
    if (alt_q() != 0) {
        // Deliberate: NOT-BUGS.md, "The interrupt takes the turn under way back"
        ttime = TURNTIME - 1;
        clearqueue();
    } else {
        makesureitlands();
    }
    ttime++;
    cube->redraw();
    if (ttime == TURNTIME) {
        endturn();
    }
    needsredraw = 1;
}

} // namespace

void IdleFunc(void*) {
    delay();
    watchmenus(nullptr); // one that came and went in the delay would leave the driver at rest
    if (cube->visible_r() == 0) {
        waitfortimeout(); // out of sight: turns and demo go on when it is back
    } else if (turnmode != noturn) {
        animationpass();
    } else if (turns[turn] != noturn) {
        takequeuedturn(); // its first frame comes with the next pass
    } else {
        quietpass();
    }
}

void timeoutfunc(void*) {
    Fl::add_idle(IdleFunc, nullptr);
}

void restdriver() {
    if (rests++ == 0) {
        resting =
            Fl::has_idle(IdleFunc, nullptr) != 0 || Fl::has_timeout(timeoutfunc, nullptr) != 0;
        Fl::remove_idle(IdleFunc, nullptr);
        Fl::remove_timeout(timeoutfunc, nullptr);
    }
    // What the command has done shows behind its box. A driver that rests already has not asked for
    // it: the command of a menu runs before the menu is seen closed.
    if (resting && needsredraw != 0) {
        cube->redraw();
    }
}

// The driver comes back at once, also where it was waiting for its time: the next pass looks at
// what the box has changed.
void wakedriver() {
    if (--rests == 0 && resting && Fl::has_idle(IdleFunc, nullptr) == 0) {
        Fl::add_idle(IdleFunc, nullptr);
    }
}

// An open menu runs the toolkit's loop as a box does, but tells nobody. It grabs the mouse.
void watchmenus(void*) {
    guardmenu();
    const bool open = Fl::grab() != nullptr;
    if (open != inmenu) {
        inmenu = open;
        open ? restdriver() : wakedriver();
    }
}

void finishturn() {
    if (turnmode == noturn) {
        return;
    }
    ttime = TURNTIME - 1;
    makesureitlands();
    endturn();
}

void delay() {
    Fl::wait(0.001);
}

void setspeed() {
    const std::string current = std::to_string(TURNTIME);
    const char* answer = askline("New speed -- larger means slower", current.c_str());
    if (answer == nullptr) {
        return;
    }
    const long speed = std::strtol(answer, nullptr, 10);
    if (speed >= 1 && speed <= 999) {
        TURNTIME = static_cast<int>(speed);
    }
    if (ttime >= TURNTIME) {
        ttime = TURNTIME - 2; // a turn beyond its new end goes on before the frame that lands it
    }
}
