// SPDX-License-Identifier: MIT
//
// demomacro: the macros that the demo makes up, and what it takes of a long one.
#include "app/demomacro.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "model/undo.h"
#include "nullshell.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

class DemoMacro : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetmodel();
        std::srand(1); // what a generator that was never seeded does
    }

    static std::string cut(const std::string& text) {
        return text.substr(0, static_cast<unsigned>(demolength(text)));
    }

    static std::string times(int n, const std::string& text) {
        std::string all;
        while (n-- > 0) {
            all += text;
        }
        return all;
    }
};

TEST_F(DemoMacro, TheFirstThreeOfARunAreKnown) {
    EXPECT_EQ("R*BLRFDl*FDrDBBfr*RUduL", makeupmacro());
    EXPECT_EQ("Lbll*URl*BLrF*URd*LBF*BL*BL*RULU", makeupmacro());
    EXPECT_EQ("DDLRfR*BLbbl*RUbb*DFLF", makeupmacro());
}

TEST_F(DemoMacro, TheCycleBringsTheCubeBack) {
    for (int i = 0; i < 100; i++) {
        const std::string macro = makeupmacro();
        SCOPED_TRACE(macro);
        EXPECT_NE(0, solved());
        const int order = calcorder(macro.c_str());
        parsing = 0;
        for (int round = 1; round <= order; round++) {
            parsestring(macro.c_str(), static_cast<int>(macro.size()));
            EXPECT_EQ(round == order, solved() != 0);
        }
        // A slice turn and the face turn after it come from one round and add one; up to twelve
        // rounds may have given nothing.
        const int turnsdrawn = maclen(macro.c_str(), static_cast<int>(macro.size()));
        const int rounds = turnsdrawn - static_cast<int>(std::ranges::count(macro, '*'));
        EXPECT_LE(order * rounds, 250);
        EXPECT_GE(order * (rounds + 12), 60);
        EXPECT_LT(macro.size(), static_cast<unsigned>(demomacrosize));
        initcubies();
    }
}

TEST_F(DemoMacro, IsMadeOfFaceAndSliceTurns) {
    int slices = 0;
    for (int i = 0; i < 100; i++) {
        const std::string macro = makeupmacro();
        SCOPED_TRACE(macro);
        EXPECT_GE(macro.size(), 2U);
        EXPECT_NE(0, istwist(macro.front()));
        EXPECT_NE(0, istwist(macro.back()));
        for (std::size_t k = 0; k < macro.size(); k++) {
            if (macro[k] == '*') {
                EXPECT_NE(0, istwist(macro[k + 1]));
                EXPECT_NE(0, istwist(macro[k + 2])); // a face turn follows it
                slices++;
            } else {
                EXPECT_NE(std::string::npos, std::string("UDLRFBudlrfb").find(macro[k]));
            }
        }
    }
    EXPECT_GT(slices, 100);
}

TEST_F(DemoMacro, NoDrawnTurnUndoesTheOneBeforeIt) {
    for (int i = 0; i < 100; i++) {
        const std::string macro = makeupmacro();
        SCOPED_TRACE(macro);
        // The last turn is not looked at, nor is the letter of a slice one with the face after it.
        for (std::size_t k = 1; k + 1 < macro.size(); k++) {
            const bool afterslice = k >= 2 && macro[k - 2] == '*';
            for (const auto& pair : badpair) {
                EXPECT_FALSE(!afterslice && macro[k - 1] == pair[0] && macro[k] == pair[1]);
            }
        }
    }
}

TEST_F(DemoMacro, AMacroThatFitsIsTakenWhole) {
    EXPECT_EQ(0, demolength(""));
    EXPECT_EQ(2, demolength("22"));
    EXPECT_EQ(199, demolength(times(199, "U")));
    EXPECT_EQ(199, demolength("U" + times(99, "*F")));
}

TEST_F(DemoMacro, ALongMacroIsCutBehindATurn) {
    EXPECT_EQ(times(199, "U"), cut(times(200, "U")));
    EXPECT_EQ(times(99, "*F"), cut(times(100, "*F")));
    EXPECT_EQ(times(99, ">("), cut(times(100, ">(")));
}

TEST_F(DemoMacro, ALongMacroIsCutBetweenGroups) {
    EXPECT_EQ(times(33, "2(FRU)"), cut(times(40, "2(FRU)")));
    EXPECT_EQ(times(190, "U"), cut(times(190, "U") + "123(FRUFRUFRU)"));
    EXPECT_EQ(times(190, "U"), cut(times(190, "U") + "s(FRUFRUFRU)"));
}

TEST_F(DemoMacro, NoDigitIsPartedFromItsGroup) {
    for (char digit = '0'; digit <= '9'; digit++) {
        SCOPED_TRACE(digit);
        EXPECT_EQ(times(198, "U"), cut(times(198, "U") + digit + "(FRU)"));
    }
}

TEST_F(DemoMacro, OneLongGroupIsCutBetweenPairs) {
    EXPECT_EQ("2(" + times(197, "U"), cut("2(" + times(300, "U") + ")"));
    EXPECT_EQ("2(" + times(98, "*F"), cut("2(" + times(300, "*F") + ")"));
}

} // namespace
