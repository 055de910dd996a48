// SPDX-License-Identifier: MIT
#include "model/modeltest.h"

namespace {

class Recording : public ModelTest {
  protected:
    // The Undo command, and the landing of what it started.
    static void commandundo() {
        undoing = 1;
        undo();
        undorecord();
    }

    static void landundo() {
        if (turnmode != noturn) {
            land(turn_table[turnmode].notation);
        }
    }
};

TEST_F(Recording, NothingIsRecordedBeforeItStarts) {
    shell.line = "typed";
    land("U");
    EXPECT_EQ(0, facecount);
    EXPECT_EQ("typed", shell.line);
    EXPECT_EQ(0, shell.linechanges);
}

TEST_F(Recording, StartingClearsTheLine) {
    shell.line = "typed";
    shell.readout = "5";
    facecount = 3;
    recordstart();
    EXPECT_EQ(1, recording);
    EXPECT_EQ(0, facecount);
    EXPECT_EQ("", shell.line);
    EXPECT_EQ("", shell.readout);
    EXPECT_EQ(1, shell.linechanges);
    EXPECT_EQ("Record Off", shell.recordbutton);
}

TEST_F(Recording, LandedTurnsAppearInTheLine) {
    recordstart();
    land("U");
    land("*F");
    land("r");
    land(">U");
    EXPECT_EQ("U*Fr>U", shell.line);
    EXPECT_STREQ("U*Fr>U", facemoves);
    EXPECT_EQ(6, facecount);
    EXPECT_EQ("4", shell.readout);
    EXPECT_EQ(5, shell.linechanges);
    EXPECT_EQ(4, shell.readoutchanges);
}

TEST_F(Recording, StoppingKeepsTheLine) {
    recordstart();
    land("U");
    recordstop();
    land("F");
    EXPECT_EQ(0, recording);
    EXPECT_EQ("Record On", shell.recordbutton);
    EXPECT_EQ("U", shell.line);
}

TEST_F(Recording, UndoneTurnsLeaveTheRecordingAndNoInverse) {
    recordstart();
    land("U");
    land("F");
    land("R");
    for (const char* left : {"UF", "U", ""}) {
        commandundo();
        EXPECT_STREQ(left, shell.line.c_str());
        landundo();
        EXPECT_STREQ(left, shell.line.c_str());
    }
    EXPECT_EQ("", shell.readout);
    EXPECT_EQ(0, undoptr);
    EXPECT_EQ(0, undoing);
    EXPECT_EQ(1, solved());
    land("D");
    EXPECT_EQ("D", shell.line);
}

// The first inverse turn is then stored like any other, but not recorded.
TEST_F(Recording, ASecondUndoTakesOneMoreCharacter) {
    recordstart();
    land("U");
    land("F");
    commandundo();
    commandundo();
    EXPECT_EQ("", shell.line);
    landundo();
    EXPECT_EQ("", shell.line);
    EXPECT_EQ(0, undoing);
    ASSERT_EQ(2, undoptr);
    EXPECT_EQ(0, undobuf[0]);
    EXPECT_EQ(9, undobuf[1]);
}

TEST_F(Recording, AnUndoMarksTheLine) {
    recordstart();
    land("U");
    land("F");
    const int before = shell.linechanges;
    undorecord();
    EXPECT_EQ(before + 1, shell.linechanges);
    EXPECT_EQ("1", shell.readout);
}

TEST_F(Recording, AnUndoneSliceLeavesItsStar) {
    recordstart();
    land("U");
    land("*F");
    commandundo();
    landundo();
    EXPECT_EQ("U*", shell.line);
    land("R");
    EXPECT_EQ("U*R", shell.line);
}

TEST_F(Recording, AnUndoOfNothingSilencesTheNextTurn) {
    recordstart();
    land("U");
    initundo();
    commandundo();
    EXPECT_EQ("", shell.line); // undorecord takes its character all the same
    land("F");
    EXPECT_EQ("", shell.line);
    land("R");
    EXPECT_EQ("R", shell.line);
}

TEST_F(Recording, AnUndoOutsideARecordingTouchesNoLine) {
    shell.line = "typed";
    land("U");
    commandundo();
    landundo();
    EXPECT_EQ("typed", shell.line);
    recordstart();
    const int before = shell.linechanges;
    undorecord(); // empty
    EXPECT_EQ(before, shell.linechanges);
}

TEST_F(Recording, ItHolds496Characters) {
    recordstart();
    for (int i = 0; i < 496; i++) {
        record("U");
    }
    EXPECT_EQ(496, facecount);
    EXPECT_EQ(1, recording);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(Recording, AnOverflowEndsTheRecording) {
    for (const char* last : {"R", "*R"}) { // 497 and 498 characters
        SCOPED_TRACE(last);
        resetshell();
        recordstart();
        for (int i = 0; i < 496; i++) {
            record("U");
        }
        const int line = shell.linechanges;
        const int readout = shell.readoutchanges;
        record(last);
        EXPECT_EQ(line + 1, shell.linechanges);
        EXPECT_EQ(readout + 1, shell.readoutchanges);
        const std::string all = std::string(496, 'U') + last;
        EXPECT_EQ(messages{"alert: Too many recorded moves"}, shell.messages);
        EXPECT_EQ(0, recording);
        EXPECT_EQ(0, facecount);
        EXPECT_EQ(all, facemoves);
        EXPECT_EQ(all, shell.line);
        EXPECT_EQ("497", shell.readout);
        EXPECT_EQ("Record Off", shell.recordbutton);
        record("D");
        EXPECT_EQ(all, facemoves);
        recordstart();
        record("D");
        EXPECT_STREQ("D", facemoves);
    }
}

TEST_F(Recording, ATurnBehindTheAlertIsNotRecorded) {
    recordstart();
    for (int i = 0; i < 496; i++) {
        record("U");
    }
    shell.whilemessage = [] { record("D"); };
    record("R");
    EXPECT_EQ(std::string(496, 'U') + "R", facemoves);
}

TEST_F(Recording, OnlyTwoCharactersOfATurnAreTaken) {
    recordstart();
    record("*FR");
    EXPECT_STREQ("*F", facemoves);
    record("");
    EXPECT_STREQ("*F", facemoves);
}

} // namespace
