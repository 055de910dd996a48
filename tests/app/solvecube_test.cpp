// SPDX-License-Identifier: MIT
#include "app/dispatch.h"
#include "app/driver.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "app/solvecube.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/turns.h"

#include <FL/Fl.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Window.H>
#include <X11/keysym.h>

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

class Solvecube : public testing::Test {
  protected:
    void SetUp() override { openwindow(); }
};

void domacro(const char* macro) {
    parsing = 0;
    parsestring(macro, static_cast<int>(std::strlen(macro)));
}

void solveandclose() {
    withdialog(solvecube, [] { screen().press(XK_Return); });
}

void holdchord(bool down) {
    screen().key(XK_Alt_L, down);
    screen().key(XK_q, down);
}

bool panelshown() {
    return messagewindow != nullptr && messagewindow->shown() != 0;
}

} // namespace

TEST_F(Solvecube, TheSolutionStandsInTheLineAndSolvesTheCube) {
    constexpr const char* scrambles[] = {"RUFBLDrufbld", "RRLLUUDDFFBB", "*F*R*U", ">U*FRb>Rdl*D",
                                         "r"};
    for (const char* scramble : scrambles) {
        SCOPED_TRACE(scramble);
        initcubies();
        domacro(scramble);
        inp->value("FF");
        inp->clear_changed();
        Fl::focus(form);
        EXPECT_EQ(shownby(solvecube), "Cube solution appears in macro area.\n"
                                      "Type the return key to activate the solution.\n"
                                      "Single-step slowly with the arrow keys.");
        EXPECT_STREQ(smessage, "Solving cube ...\nAlt-Q interrupts.");
        EXPECT_FALSE(panelshown());
        EXPECT_EQ(Fl::focus(), static_cast<Fl_Widget*>(inp));
        EXPECT_EQ(inp->position(), 0);
        EXPECT_NE(inp->changed(), 0);
        EXPECT_EQ(std::to_string(maclen(inp->value(), inp->size())), out->value());
        domacro(inp->value());
        EXPECT_EQ(solved(), 1);
    }
}

TEST_F(Solvecube, ASolvedCubeLeavesAnEmptyLineAndNoMessage) {
    inp->value("FF");
    solvecube();
    EXPECT_STREQ(inp->value(), "");
    EXPECT_STREQ(out->value(), "0");
    EXPECT_FALSE(panelshown());
    domacro(">R>U"); // turned as a whole it is as solved as before
    solvecube();
    EXPECT_STREQ(inp->value(), "");
}

TEST_F(Solvecube, TheCubeKeepsItsColoursAndTheUndoBuffer) {
    domacro(">F*LRUb");
    static unsigned char colours[placecount];
    unsigned char places[placecount];
    std::memcpy(colours, cubecolors, sizeof colours);
    std::memcpy(places, cubefaces, sizeof places);
    // A redraw under the panel, which the toolkit may ask for before the search begins.
    static int looks = 0;
    const auto look = [](void*) {
        looks += panelshown();
        EXPECT_EQ(std::memcmp(colours, cubecolors, sizeof colours), 0);
    };
    Fl::add_check(look, nullptr);
    solveandclose();
    Fl::remove_check(look, nullptr);
    EXPECT_GT(looks, 0);
    EXPECT_EQ(std::memcmp(colours, cubecolors, sizeof colours), 0);
    EXPECT_EQ(std::memcmp(places, cubefaces, sizeof places), 0);
}

TEST_F(Solvecube, ATurnInProgressIsLandedAndWhatWaitsIsDropped) {
    TURNTIME = 20;
    parsing = 1;
    parsestring("RUF", 3);
    parsing = 0;
    for (int i = 0; i < 5; i++) {
        pass();
    }
    ASSERT_EQ(turnmode, 6);
    solveandclose();
    EXPECT_STREQ(inp->value(), "r");
    settle();
    domacro(inp->value());
    EXPECT_EQ(solved(), 1);
}

TEST_F(Solvecube, ACubeThatCannotBeIsToldAndLeavesAnEmptyLine) {
    std::swap(cubecolors[7], cubecolors[19]); // an edge, flipped
    inp->value("FF");
    EXPECT_EQ(shownby(solvecube), "Solve error.  Bad cube definition?");
    EXPECT_STREQ(inp->value(), "");
    EXPECT_FALSE(panelshown());
}

// One cube whose answer gets another one with each step deeper; by vexel-solve -d 14, 15 and 16.
TEST_F(Solvecube, TheLongSolvesSearchDeeper) {
    constexpr const char* scramble = "UUDFbuFFUURRDRLLfrbUbDDBBf";

    constexpr struct {
        long cmd;
        const char* answer;
    } rows[] = {
        {100, "FLbublflfLLDFBuFFdRRUUdFFu"}, // no such solve asked for
        {120, "ulfdlFFRBdFdBuluBBDLLFFd"  }, // Long Solve
        {121, "ulflUfdBDRRuLLfbuRRFFu"    }, // Very Long Solve
    };

    for (const auto& row : rows) {
        SCOPED_TRACE(row.cmd);
        b_cb(nullptr, row.cmd);
        initcubies();
        domacro(scramble);
        solveandclose();
        EXPECT_STREQ(inp->value(), row.answer);
        domacro(row.answer);
        EXPECT_EQ(solved(), 1);
    }
    tryhard = 0;
}

TEST_F(Solvecube, AnInterruptedSearchKeepsTheBestAnswerSoFar) {
    domacro("r");
    solveandclose(); // the tables are built
    initcubies();
    domacro("RUFBLDRUFBLDRRUUFLdBB");
    tryhard = 2;
    bool answered = false;
    const double start = now();
    withdialog(
        [] {
            holdchord(true);
            solvecube();
        },
        [&] {
            holdchord(false);
            answered = true;
            screen().press(XK_Return);
        });
    EXPECT_TRUE(answered);
    EXPECT_LT(now() - start, 60);
    domacro(inp->value());
    EXPECT_EQ(solved(), 1);
}

TEST_F(Solvecube, TheCommandDoesNotRunTwiceAtATime) {
    domacro("RU");
    inp->value("FF");
    solvingcube = 1;
    b_cb(nullptr, 108);
    EXPECT_STREQ(inp->value(), "FF");
    solvingcube = 0;
    recordstart();
    singlestepptr = 1;
    withdialog([] { b_cb(nullptr, 108); }, [] { screen().press(XK_Return); });
    EXPECT_EQ(solvingcube, 0);
    EXPECT_EQ(recording, 0);
    EXPECT_EQ(singlestepptr, 0);
    EXPECT_STRNE(inp->value(), "FF");
}
