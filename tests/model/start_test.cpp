// SPDX-License-Identifier: MIT
//
// What every variable of the model holds when the program starts, and that the functions which set
// tests up bring the same back: a test that starts from another state proves nothing.
#include "model/modeltest.h"
#include "model/permutation.h"

namespace {

struct model_state {
    std::vector<codes> cubes; // the last two are the saved copies
    codes turning;
    codes parser;
    codes landed;
    messages texts; // the listing, the notation that waits, the recording
};

template <class T, size_t size> codes all(const T (&array)[size]) {
    return {array, array + size};
}

model_state state() {
    model_state now;
    now.cubes = {all(cubecolors), all(cubefaces), all(muck), all(unmuck), all(savedfaces)};
    now.cubes.push_back(all(savecubedata));
    now.cubes.push_back(all(savecubedatax));
    now.turning = {turns[0], turn, turnptr, turnmode, ttime, TURNTIME, needsredraw, turnlanded};
    now.parser = {parsing, parselevel, macorder, reversing, saveparselen};
    now.landed = {undoptr, redomax, undoing, recording, facecount, issavedcube};
    now.texts = {outpat, saveparse, facemoves};
    return now;
}

// Taken before main, and so before any test or function could have changed it.
const model_state atstart = state();

// The private flag of undo shows in what it does.
const bool firstturnstored = [] {
    undosave(5);
    const bool stored = undoptr == 1;
    initundo();
    return stored;
}();

const codes zeros(placecount, 0);

class Start : public ModelTest {};

TEST_F(Start, TheQueueIsEmptyAndTheViewToBeDrawn) {
    EXPECT_EQ((codes{noturn, 0, 0, noturn, 0, 120, 1, 0}), atstart.turning);
}

TEST_F(Start, ThereIsNoCubeBeforeItIsReset) {
    for (const codes& cube : atstart.cubes) {
        EXPECT_EQ(codes(cube.size(), 0), cube);
    }
}

TEST_F(Start, NothingIsParsedUndoneRecordedOrSaved) {
    EXPECT_EQ((codes{0, 0, 0, 0, 0}), atstart.parser);
    EXPECT_EQ((codes{0, 0, 0, 0, 0, 0}), atstart.landed);
    for (const std::string& text : atstart.texts) {
        EXPECT_EQ("", text);
    }
}

TEST_F(Start, TheFirstTurnThatLandsIsStored) {
    EXPECT_TRUE(firstturnstored);
}

// initundo is a command of the program too and sets redomax; the cube is reset at start-up.
TEST_F(Start, SettingUpBringsTheStartBack) {
    apply("R2(s(U)F)");
    parsing = parselevel = macorder = reversing = 1;
    queueturn(3);
    turn = 1;
    ttime = TURNTIME = 7;
    startturn(9);
    needsredraw = 0;
    turnlanded = 1;
    sparsestring("*F", 2);
    recordstart();
    record("U");
    undoing = 1;
    savecube();
    savecubex();
    SetUp();
    const model_state now = state();
    EXPECT_EQ(atstart.turning, now.turning);
    EXPECT_EQ(atstart.parser, now.parser);
    EXPECT_EQ((codes{0, -1, 0, 0, 0, 0}), now.landed);
    EXPECT_EQ(zeros, now.cubes[5]);
    EXPECT_EQ(zeros, now.cubes[6]);
    EXPECT_EQ("", now.texts[1]);
    EXPECT_EQ("", now.texts[2]);
    EXPECT_EQ(1, solved());
}

} // namespace
