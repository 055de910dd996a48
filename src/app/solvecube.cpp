// SPDX-License-Identifier: MIT
#include "app/solvecube.h"

#include "app/dispatch.h"
#include "app/driver.h"
#include "app/interlude.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/my_input.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/permutation.h"
#include "model/turns.h"
#include "solver/solver.h"

#include <cstring>
#include <string>

namespace {

// Returns false when Alt+Q interrupted; the steps done so far are kept. On first use and not at the
// start of the program: most runs never solve.
bool initializesolver() {
    static bool initialized = false;
    if (initialized) {
        return true;
    }
    showmessagewindow("Initializing solver ...\n", 0);
    delay();
    paintmessagewindow();
    while (initializesolve() == 0) {
        delay();
        if (alt_q() != 0) {
            hidemessagewindow();
            return false;
        }
    }
    hidemessagewindow();
    initialized = true;
    return true;
}

// The cube in the solver's words. The colours are put back at once, not after the search: whatever
// comes to paint the view must not show the normalised cube.
std::string cubiestring() {
    muckcube();
    std::string listing = dumpcube();
    unmuckcube();
    return listing;
}

void showsolution(const char* solution) {
    setmacroline(solution);
    loadout(solution == nullptr ? "" : solution);
    if (solution == nullptr) {
        showalert("Solve error.  Bad cube definition?");
    } else {
        showalert("Cube solution appears in macro area.\n"
                  "Type the return key to activate the solution.\n"
                  "Single-step slowly with the arrow keys.");
        inp->take_focus(); // for the return key and the arrows of the message
    }
    inp->position(0, 0);
    inp->redraw();
    inp->set_changed();
}

} // namespace

// The cube is taken up when the panel stands: till then turns could still land.
void solvecube() {
    const keptevent event; // the toolkit runs while the tables are built and the panel is painted
    if (!initializesolver()) {
        return;
    }
    setmacroline("");
    loadout("");
    inp->set_changed();
    showmessagewindow("Solving cube ...\nAlt-Q interrupts.", 0);
    delay();
    paintmessagewindow();
    finishturn();
    clearqueue();
    const std::string cubies = cubiestring();
    setsearchdepth(tryhard + 14); // 14 quarter turns unless told to search longer
    const char* solution = my_user_enters_cube(cubies.c_str());
    hidemessagewindow();
    // "error" is also what a solved cube gives: neither is worth a box.
    if (solution == nullptr || std::strcmp(solution, "error") != 0) {
        showsolution(solution);
    }
}
