// SPDX-License-Identifier: MIT
#include "app/label.h"
#include "app/macrochoice.h"
#include "app/macrorig.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "app/userdata.h"
#include "macros/library.h"
#include "model/cube.h"
#include "model/recording.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Output.H>

#include <gtest/gtest.h>
#include <string>

namespace {

class Macrochoice : public macrowindowtest {
  protected:
    static void expectlist() {
        for (int i = 0; i < maccount; i++) {
            ASSERT_EQ(plainlabel(macnames[i]), choices[i].text);
            ASSERT_EQ(i, choices[i].argument());
        }
        ASSERT_EQ(nullptr, choices[maccount].text);
        ASSERT_EQ(choices, choice->menu());
    }
};

} // namespace

TEST_F(Macrochoice, ListsTheBuiltInMacrosFromTheStart) {
    EXPECT_EQ(7, maccount);
    expectlist();
    EXPECT_EQ(8, choice->size()); // the end counts
    EXPECT_STREQ("Flip UF, UL", choice->text());
}

TEST_F(Macrochoice, AnAdditionChoosesTheFirstEntry) {
    choosemacro(5);
    choice->clear_changed();
    addmacro("new", "R");
    expectlist();
    EXPECT_EQ(0, choice->value());
    EXPECT_NE(0, choice->changed());
    EXPECT_EQ(reinterpret_cast<void*>(choice_cb), reinterpret_cast<void*>(choice->callback()));
}

TEST_F(Macrochoice, EndsProperlyWhenTheTableIsFull) {
    initlibrary();
    for (int i = 0; i < 500; i++) {
        addmacro("n", "R");
    }
    expectlist();
    EXPECT_EQ("Too many macro definitions",
              answering({std::nullopt}, [] { addmacro("n", "R"); }).back());
    EXPECT_EQ(501, choice->size());
    choosemacro(499);
    EXPECT_EQ(499, chosenmacro());
}

TEST_F(Macrochoice, AnEmptyTableIsOneEmptyEntry) {
    deleteallmacros();
    EXPECT_STREQ("", choices[0].text);
    EXPECT_EQ(0, choices[0].argument());
    EXPECT_EQ(nullptr, choices[1].text);
    EXPECT_EQ(0, chosenmacro());
    inp->value("RU");
    choice->do_callback();
    EXPECT_STREQ("", inp->value());
    addmacro("new", "R");
    expectlist();
}

TEST_F(Macrochoice, DeletingMovesTheLaterNamesUp) {
    filltable(5);
    answering({"b"}, deletedefinedmacro);
    EXPECT_EQ("c", macnames[1]);
    expectlist();
}

TEST_F(Macrochoice, DeletingTheOnlyMacroLeavesOneEmptyEntry) {
    filltable(1);
    answering({"a"}, deletedefinedmacro);
    EXPECT_STREQ("", choices[0].text);
    EXPECT_EQ(nullptr, choices[1].text);
}

TEST_F(Macrochoice, ChoosingAppliesAtOnce) {
    filltable(5);
    choice->value(3);
    choice->clear_changed();
    needsredraw = 0;
    recording = 1;
    choice_cb(choice, nullptr);
    EXPECT_EQ(movesof(3), inp->value());
    EXPECT_STREQ("1", out->value());
    EXPECT_NE(0, choice->changed());
    EXPECT_EQ(1, needsredraw);
    EXPECT_EQ(0, recording);
    EXPECT_TRUE(appliedonly(3));
}

TEST_F(Macrochoice, ChoosingWithShiftAppliesTheInverse) {
    filltable(5);
    Fl::e_state = FL_SHIFT;
    choice_cbx(choice, userdata(2));
    Fl::e_state = 0;
    EXPECT_TRUE(appliedonly(inversemove[2]));
}

TEST_F(Macrochoice, ChoosingByNumberAlsoMovesTheList) {
    filltable(5);
    choice_cbx(nullptr, userdata(4));
    EXPECT_EQ(4, choice->value());
    EXPECT_NE(0, choice->changed());
    EXPECT_TRUE(appliedonly(4));
}

TEST_F(Macrochoice, ANumberBeyondTheTableIsNotChosen) {
    filltable(3);
    choosemacro(1);
    for (const long number : {3L, 500L, -1L}) {
        choice_cbx(nullptr, userdata(number));
        EXPECT_EQ(1, choice->value());
    }
    EXPECT_EQ(1, solved());
}

TEST_F(Macrochoice, DefiningChoosesTheNewMacro) {
    filltable(3);
    inp->value("RUF");
    answering({"mine"}, definemacro);
    EXPECT_EQ(3, choice->value());
    EXPECT_EQ("mine", macnames[3]);
    EXPECT_EQ("RUF", macstrs[3]);
}

TEST_F(Macrochoice, QuestionsShowNamesLetterForLetter) {
    filltable(1);
    const std::string name = "@> 100%s & so";
    EXPECT_EQ("No macro named: @@> 100%s & so",
              answering({name, std::nullopt}, deletedefinedmacro).back());
}
