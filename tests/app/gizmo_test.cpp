// SPDX-License-Identifier: MIT
#include "app/gizmo.h"
#include "app/macrorig.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "macros/library.h"
#include "model/cube.h"
#include "model/recording.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Window.H>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using texts = std::vector<std::string>;

class Gizmo : public macrowindowtest {
  protected:
    // What the panel holds: the numbers given, then "none" on the other buttons.
    static void expectpanel(std::vector<int> numbers) {
        for (std::size_t i = 0; i < numbers.size(); i++) {
            EXPECT_EQ(macnames[numbers[i]], button(static_cast<int>(i))->label());
        }
        for (std::size_t i = numbers.size(); i < 16; i++) {
            EXPECT_STREQ("*", button(static_cast<int>(i))->label());
        }
        numbers.resize(16, -1);
        EXPECT_EQ(numbers, paneldata());
    }

    // Presses every button and looks at what came of it.
    static void presseverybutton() {
        for (int i = 0; i < 16; i++) {
            const int macro = paneldata()[i];
            initcubies();
            inp->value("before");
            button(i)->do_callback();
            ASSERT_LT(macro, maccount);
            if (macro < 0) {
                EXPECT_STREQ("before", inp->value());
                EXPECT_EQ(1, solved());
            } else {
                EXPECT_EQ(macstrs[macro], inp->value());
                EXPECT_EQ(macro, choice->value());
                EXPECT_TRUE(appliedonly(macro));
            }
        }
    }
};

} // namespace

TEST_F(Gizmo, ShowsTheMarkedMacrosInTheOrderOfTheTable) {
    filltable(6, {4, 1, 3});
    macrodisplay(0, 0);
    EXPECT_NE(0, macrowindow->shown());
    expectpanel({1, 3, 4});
}

TEST_F(Gizmo, HasTheDesignedLayout) {
    filltable(1, {0});
    macrodisplay(0, 0);
    EXPECT_EQ(280, macrowindow->w());
    EXPECT_EQ(417, macrowindow->h());
    EXPECT_EQ(nullptr, macrowindow->label());
    ASSERT_EQ(17, macrowindow->children());
    const Fl_Widget* heading = macrowindow->child(0);
    EXPECT_STREQ("Macro Gizmo", heading->label());
    EXPECT_EQ(FL_HELVETICA_BOLD, heading->labelfont());
    EXPECT_EQ(20, heading->labelsize());
    EXPECT_EQ(5, heading->y());
    for (int i = 0; i < 16; i++) {
        EXPECT_EQ(3, button(i)->x());
        EXPECT_EQ(30 + 24 * i, button(i)->y());
        EXPECT_EQ(274, button(i)->w());
        EXPECT_EQ(22, button(i)->h());
    }
}

TEST_F(Gizmo, StaysWhereItWasMade) {
    filltable(1, {0});
    macrodisplay(0, 0);
    const int x = macrowindow->x();
    const int y = macrowindow->y();
    macrodisplay(x + 55, y + 66);
    EXPECT_EQ(x, macrowindow->x());
    EXPECT_EQ(y, macrowindow->y());
}

TEST_F(Gizmo, HasRoomForTheFirstSixteen) {
    std::vector<int> all;
    for (int i = 0; i < 17; i++) {
        all.push_back(i);
    }
    filltable(17, all);
    macrodisplay(0, 0);
    all.pop_back();
    expectpanel(all);
    presseverybutton();
}

TEST_F(Gizmo, AButtonAppliesItsMacroAtOnceAndChoosesIt) {
    filltable(5, {2, 4});
    macrodisplay(0, 0);
    needsredraw = 0;
    recording = 1;
    choice->clear_changed();
    button(1)->do_callback();
    EXPECT_EQ(movesof(4), inp->value());
    EXPECT_TRUE(appliedonly(4));
    EXPECT_EQ(4, choice->value());
    EXPECT_NE(0, choice->changed());
    EXPECT_EQ(1, needsredraw);
    EXPECT_EQ(0, recording);
}

TEST_F(Gizmo, AStarDoesNothing) {
    filltable(2, {1});
    macrodisplay(0, 0);
    needsredraw = 0;
    recording = 1;
    button(1)->do_callback();
    EXPECT_EQ(1, recording);
    EXPECT_EQ(0, needsredraw);
    EXPECT_EQ(1, solved());
    recording = 0;
}

TEST_F(Gizmo, WithoutAMarkItIsHiddenAndSaysSoOnlyWhenAsked) {
    filltable(2, {0});
    macrodisplay(0, 0);
    showmac[0] = 0;
    EXPECT_EQ(texts{}, answering({}, [] { macrodisplay(1, 0); }));
    EXPECT_EQ(0, macrowindow->shown());
    EXPECT_EQ((texts{"No macros in gizmo"}), answering({std::nullopt}, [] { macrodisplay(0, 0); }));
    EXPECT_EQ(0, macrowindow->shown());
}

TEST_F(Gizmo, DeletingAMarkedMacroRenumbersTheButtons) {
    filltable(5, {1, 2, 4});
    macrodisplay(0, 0);
    answering({"c"}, deletedefinedmacro);
    expectpanel({1, 3});
    EXPECT_EQ("e", macnames[3]);
    EXPECT_STREQ("e", button(1)->label());
}

TEST_F(Gizmo, DeletingAnUnmarkedMacroRenumbersTheButtons) {
    filltable(3, {1, 2});
    macrodisplay(0, 0);
    answering({"a"}, deletedefinedmacro);
    expectpanel({0, 1});
    inp->value("");
    button(1)->do_callback();
    EXPECT_EQ(movesof(2), inp->value());
}

TEST_F(Gizmo, DeletingDoesNotOpenAHiddenPanel) {
    filltable(3, {1, 2});
    macrodisplay(0, 0);
    macrowindow->hide();
    answering({"a"}, deletedefinedmacro);
    EXPECT_EQ(0, macrowindow->shown());
    macrodisplay(0, 0);
    expectpanel({0, 1});
}

TEST_F(Gizmo, DeletingTheLastMarkedMacroHidesItWithTheMessage) {
    filltable(3, {1});
    macrodisplay(0, 0);
    EXPECT_EQ("No macros in gizmo", answering({"b", std::nullopt}, deletedefinedmacro).back());
    EXPECT_EQ(0, macrowindow->shown());
}

TEST_F(Gizmo, DeletingAllClearsItWithoutAWord) {
    filltable(3, {1, 2});
    macrodisplay(0, 0);
    EXPECT_EQ(texts{}, answering({}, deleteallmacros));
    EXPECT_EQ(0, macrowindow->shown());
    expectpanel({});
    presseverybutton();
}

TEST_F(Gizmo, NamesAreShownLetterForLetter) {
    initlibrary();
    addmacro("@> R&B && 50% /x", "$U");
    macrodisplay(0, 0);
    EXPECT_STREQ("@@> R&&B &&&& 50% /x", button(0)->label());
}

TEST_F(Gizmo, MarkingShowsItAndUnmarkingTheLastHidesIt) {
    filltable(3);
    answering({"b"}, addmactogizmo);
    EXPECT_NE(0, macrowindow->shown());
    expectpanel({1});
    EXPECT_EQ("No macros in gizmo", answering({"b", std::nullopt}, deletemacfromgizmo).back());
    EXPECT_EQ(0, macrowindow->shown());
}

TEST_F(Gizmo, ClearingHidesItWithoutAWord) {
    filltable(3, {0, 1});
    macrodisplay(0, 0);
    EXPECT_EQ(texts{}, answering({}, clearmacrogizmo));
    EXPECT_EQ(0, macrowindow->shown());
}
