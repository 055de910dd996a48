// SPDX-License-Identifier: MIT
#include "app/demo.h"

#include "app/demomacro.h"
#include "app/driver.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/ownrandom.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/turns.h"
#include "render/view.h"
#include "shell.h"

#include <FL/Fl_Button.H>

#include <cstring>
#include <string>

constinit int demorunning = 0;

namespace {

std::string madeupmacro() {
    const ownrandom numbers;
    displayorder = 0; // each macro that is tried has its order reckoned, and told
    std::string macro = makeupmacro();
    displayorder = 1;
    return macro;
}

// Writes the macro of a new demo into s.
void takemacro(char (&s)[demomacrosize]) {
    // A turn that is still under way would land on the reset cube, and the demo would never come
    // back to a solved one.
    finishturn();
    initcubies();
    // Deliberate: NOT-BUGS.md, "A demo leaves its macro in the line"
    std::string macro = macroline();
    if (macro.empty()) {
        macro = madeupmacro();
    }
    s[macro.copy(s, static_cast<unsigned>(demolength(macro)))] = '\0';
}

} // namespace

void toggledemo() {
    if (demomode != 0) {
        stopdemo();
        return;
    }
    demomode = 1;
    demo->copy_label("Stop Demo");
    recordstop(); // the demo's turns would fill it
    rundemo();
}

// Deliberate: NOT-BUGS.md, "A macro without a turn keeps the processor busy"
void rundemo() {
    static char s[demomacrosize] = "";
    if (demorunning == 0) {
        takemacro(s);
        demorunning = 1;
    }
    // Each time anew: a person may have typed into the line, and the demo shows what it plays.
    setmacroline(s);
    loadout(s);
    // Deliberate: NOT-BUGS.md, "The Singmaster form is converted by the check alone"
    parsemacro(s, static_cast<int>(std::strlen(s)), queued, false);
}

void stopdemo() {
    demorunning = 0;
    demomode = 0;
    clearqueue();
    demo->copy_label("Start Demo");
}
