// SPDX-License-Identifier: MIT
//
// demo: what is queued and which state is left, with the real widgets but no display: the window is
// built and never shown, and the test takes the turns out of the queue as the driver does.
#include "app/demo.h"
#include "app/demomacro.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/resetmodel.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/view.h"
#include "shell.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Output.H>

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

class Demo : public testing::Test {
  protected:
    void SetUp() override {
        if (form == nullptr) {
            makeform("Vexel's Cube Simulator");
        }
        resetmodel();
        demomode = 0;
        demorunning = 0;
        displayorder = 1;
        setmacroline("");
        std::srand(1); // what a generator that was never seeded does
    }

    // Plays the queue to its end without frames. Returns the number of turns.
    static int play() {
        int played = 0;
        while (turns[turn] != noturn) {
            applyturn(turns[turn]);
            turn++;
            played++;
        }
        clearqueue();
        return played;
    }
};

TEST_F(Demo, ButtonAndFlagsFollowTheDemo) {
    setmacroline("R");
    toggledemo();
    EXPECT_STREQ("Stop Demo", demo->label());
    EXPECT_EQ(1, demomode);
    EXPECT_EQ(1, demorunning);
    toggledemo();
    EXPECT_STREQ("Start Demo", demo->label());
    EXPECT_EQ(0, demomode);
    EXPECT_EQ(0, demorunning);
}

TEST_F(Demo, ANewLabelIsDrawn) {
    const auto drawsanew = [](Fl_Button* button, void (*relabel)()) {
        button->clear_damage();
        relabel();
        return button->damage() != 0;
    };
    EXPECT_TRUE(drawsanew(demo, toggledemo));
    EXPECT_TRUE(drawsanew(demo, stopdemo));
    EXPECT_TRUE(drawsanew(recbut, recordstart));
    EXPECT_TRUE(drawsanew(recbut, recordstop));
    EXPECT_TRUE(drawsanew(bsave, savecube));
    EXPECT_TRUE(drawsanew(bsave, savecube));
}

TEST_F(Demo, AnEmptyLineGetsAMacroWithItsLength) {
    toggledemo();
    EXPECT_STREQ("R*BLRFDl*FDrDBBfr*RUduL", macroline());
    EXPECT_STREQ("20", out->value());
    EXPECT_EQ(1, displayorder);
    EXPECT_EQ(0, parsing);
}

TEST_F(Demo, TheMacroOfTheLineIsPlayedFromTheSolvedCube) {
    applyturn(0);
    setmacroline("R*F2(l)");
    toggledemo();
    EXPECT_NE(0, solved());
    EXPECT_EQ(6, turns[0]);
    EXPECT_EQ(12, turns[1]);
    EXPECT_EQ(5, turns[2]);
    EXPECT_EQ(5, turns[3]);
    EXPECT_EQ(noturn, turns[4]);
    EXPECT_STREQ("R*F2(l)", macroline());
}

TEST_F(Demo, TheSingmasterFormIsPlayedAsItsLetters) {
    setmacroline("[R U' F2]");
    toggledemo();
    EXPECT_EQ(6, turns[0]);
    EXPECT_EQ(0, turns[1]);
    EXPECT_EQ(8, turns[2]);
    EXPECT_EQ(noturn, turns[3]);
    EXPECT_STREQ("[R U' F2]", macroline());
}

TEST_F(Demo, EachRoundQueuesTheMacroAgain) {
    setmacroline("RUf");
    toggledemo();
    for (int i = 0; i < 5; i++) {
        EXPECT_EQ(3, play());
        setmacroline("L"); // the user's text gives way
        rundemo();
        EXPECT_STREQ("RUf", macroline());
    }
}

TEST_F(Demo, EachFullCycleEndsSolvedWithoutDrift) {
    for (int run = 0; run < 20; run++) {
        setmacroline("");
        toggledemo();
        const std::string macro = macroline();
        int rounds = 0;
        int sincesolved = 0;
        int cycle = 0;
        while (rounds < 1000) {
            play();
            rounds++;
            sincesolved++;
            if (solved() != 0) {
                cycle = cycle == 0 ? sincesolved : cycle;
                EXPECT_EQ(cycle, sincesolved) << macro;
                sincesolved = 0;
            }
            rundemo();
        }
        EXPECT_GT(cycle, 0) << macro;
        toggledemo();
    }
}

TEST_F(Demo, StoppingDropsTheQueueAndKeepsTheTurn) {
    setmacroline("RUf");
    toggledemo();
    startturn(turns[turn]);
    turn++;
    toggledemo();
    EXPECT_EQ(0, turn);
    EXPECT_EQ(noturn, turns[0]);
    EXPECT_EQ(6, turnmode);
}

TEST_F(Demo, AMacroWithoutATurnQueuesNothing) {
    for (const char* macro : {"22", "x", "2(", "()", "s", "*u"}) {
        SCOPED_TRACE(macro);
        setmacroline(macro);
        toggledemo();
        for (int i = 0; i < 3; i++) {
            EXPECT_EQ(0, play());
            rundemo();
        }
        EXPECT_STREQ(macro, macroline());
        toggledemo();
    }
}

TEST_F(Demo, ALongMacroIsCutToItsBuffer) {
    std::string macro;
    for (int i = 0; i < 300; i++) {
        macro += "*F";
    }
    setmacroline(macro.c_str());
    toggledemo();
    EXPECT_EQ(macro.substr(0, 198), macroline());
    EXPECT_EQ(99, play());
}

TEST_F(Demo, ARecordingEndsWhenItStarts) {
    recordstart();
    toggledemo();
    EXPECT_EQ(0, recording);
    EXPECT_STREQ("Record On", recbut->label());
}

TEST_F(Demo, ASecondDemoPlaysWhatTheFirstLeftInTheLine) {
    toggledemo();
    const std::string macro = macroline();
    toggledemo();
    toggledemo();
    EXPECT_EQ(macro, macroline());
    EXPECT_NE(0, solved());
}

TEST_F(Demo, ThreeRunsMakeUpThreeMacros) {
    std::string before;
    for (int i = 0; i < 3; i++) {
        setmacroline("");
        toggledemo();
        EXPECT_NE(before, macroline());
        before = macroline();
        toggledemo();
    }
}

} // namespace
