// SPDX-License-Identifier: MIT
//
// colorcollector: the dialog's widgets, looked at from inside: what is written where, in which
// letters and colours, and what each of them does. Texts and places are written down a second time:
// those of the 60 buttons in collectorlayout_test, all others here.
#include "input/collectorlayout.h"
#include "input/colorcollector.h"
#include "input/coloring.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "nullshell.h"
#include "window/xserver.h"

#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Multiline_Output.H>
#include <FL/Fl_Window.H>
#include <FL/x.H>

// X takes names that the test framework has, too.
#undef None
#undef Bool

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace collector {

namespace {

// One screen for the whole program: the toolkit opens a display once.
class Colorcollector : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        screen = std::make_unique<xserver>();
        setenv("DISPLAY", screen->name().c_str(), 1);
    }

    static void TearDownTestSuite() {
        fl_close_display();
        screen.reset();
    }

    void SetUp() override {
        resetshell();
        resetmodel();
        needsredraw = 0;
        sanecube = 1;
        std::strcpy(colortable, "WGRBOY");
        colorcollector();
        dialog = buts[0]->window();
        find("Reset")->do_callback();
    }

    void TearDown() override { dialog->hide(); }

    Fl_Widget* find(const char* label) const {
        for (int i = 0; i < dialog->children(); i++) {
            const char* text = dialog->child(i)->label();
            if (text != nullptr && std::strcmp(text, label) == 0) {
                return dialog->child(i);
            }
        }
        ADD_FAILURE() << "nothing is called " << label;
        return dialog->child(0);
    }

    // The message area is the only widget that holds a value.
    Fl_Multiline_Output* message() const {
        for (int i = 0; i < dialog->children(); i++) {
            if (auto* output = dynamic_cast<Fl_Multiline_Output*>(dialog->child(i))) {
                return output;
            }
        }
        return nullptr;
    }

    std::string verdict() const { return message()->value(); }

    static void select(int place) { buts[place]->do_callback(); }

    static void color(int face) { facecolors[face]->do_callback(); }

    void flipat(int place) const {
        select(place);
        find("Flip/Rotate")->do_callback();
    }

    int key(int keysym) const {
        Fl::e_keysym = keysym;
        return dialog->handle(FL_KEYDOWN);
    }

    // The one facelet in bold, or -1 if there is none or more.
    static int highlighted() {
        int found = -1;
        for (int place = 0; place < placecount; place++) {
            const bool bold = buts[place]->labelfont() == FL_HELVETICA_BOLD;
            EXPECT_EQ(buts[place]->labelsize(), bold ? 18 : 14) << place;
            EXPECT_TRUE(bold || buts[place]->labelfont() == FL_HELVETICA) << place;
            if (bold) {
                found = found == -1 ? place : -2;
            }
        }
        return found < 0 ? -1 : found;
    }

    static inline std::unique_ptr<xserver> screen;
    Fl_Window* dialog = nullptr;
};

// As a number: the toolkit's type for it names few of the values that it takes.
unsigned colorof(const Fl_Widget* widget) {
    return static_cast<unsigned>(widget->color());
}

struct widget_row {
    const char* label;
    int x, y, w, h;
};

constexpr char howtocolor[] =
    "Set the color of the highlighted cubie face by clicking the appropriate button at the bottom "
    "of this window or by typing the letter labeling that button.";
constexpr char howtoselect[] =
    "To set the color of a particular cubie face, click on it to select it and then set its color "
    "as described above.  To move the selection forward or back type the space and backspace keys.";

constexpr widget_row widgets[] = {
    {"Set Cube Face Colors", 120, 5,   250, 22 },
    {"Finish",               10,  420, 75,  35 },
    {"Reset",                90,  420, 80,  35 },
    {"Flip/Rotate",          175, 420, 75,  35 },
    {howtocolor,             260, 35,  240, 115},
    {howtoselect,            260, 285, 240, 115},
};

void expectplace(const Fl_Widget* widget, const widget_row& row) {
    EXPECT_EQ(widget->x(), row.x);
    EXPECT_EQ(widget->y(), row.y);
    EXPECT_EQ(widget->w(), row.w);
    EXPECT_EQ(widget->h(), row.h);
}

TEST_F(Colorcollector, EachTextStandsAtItsPlace) {
    for (const widget_row& row : widgets) {
        SCOPED_TRACE(row.label);
        expectplace(find(row.label), row);
    }
    ASSERT_NE(message(), nullptr);
    expectplace(message(), {"", 10, 285, 115, 115});
    EXPECT_EQ(dialog->children(), 54 + 6 + 7);
}

TEST_F(Colorcollector, WindowIsModalAndHasItsTitleAndSize) {
    EXPECT_STREQ(dialog->label(), "Set Cube Face Colors");
    EXPECT_EQ(dialog->w(), 510);
    EXPECT_EQ(dialog->h(), 470);
    EXPECT_TRUE(dialog->modal());
    EXPECT_TRUE(dialog->shown());
}

TEST_F(Colorcollector, TitleIsBoldAndTwentyHigh) {
    EXPECT_EQ(find("Set Cube Face Colors")->labelfont(), FL_HELVETICA_BOLD);
    EXPECT_EQ(find("Set Cube Face Colors")->labelsize(), 20);
}

TEST_F(Colorcollector, HelpIsWrappedInsideItsBox) {
    for (const char* text : {howtocolor, howtoselect}) {
        EXPECT_EQ(find(text)->align(), FL_ALIGN_WRAP | FL_ALIGN_INSIDE);
    }
}

void expectarea(const Fl_Widget* widget, const area& at) {
    expectplace(widget, {"", at.x, at.y, at.w, at.h});
}

// Where that is, and how they are named, is held by collectorlayout_test.
TEST_F(Colorcollector, FaceletsStandInTheNetWithTheirNames) {
    for (unsigned place = 0; place < placecount; place++) {
        SCOPED_TRACE(butnames[place].text);
        EXPECT_STREQ(buts[place]->label(), butnames[place].text);
        expectarea(buts[place], faceletarea(static_cast<int>(place)));
    }
}

TEST_F(Colorcollector, ColourButtonsStandInARowWithTheirLetters) {
    for (int face = 0; face < cubefacecount; face++) {
        EXPECT_EQ(facecolors[face]->label(), std::string(1, "WGRBOY"[face]));
        expectarea(facecolors[face], colorarea(face));
        EXPECT_EQ(facecolors[face]->argument(), face);
    }
}

struct shade_row {
    const char* letters; // two tables hold all thirteen
    unsigned colors[6];
};

TEST_F(Colorcollector, ButtonsHaveTheColoursOfTheTable) {
    constexpr shade_row rows[] = {
        {"WGRBOY", {0xffffff00, 0x00ff0000, 0xff000000, 0x0000ff00, 0xff7f0000, 0xffff0000}},
        {"KSVDPC", {0x07070700, 0xe5e5e500, 0xcc00cc00, 0xe5990000, 0xff7f7f00, 0x00ffff00}},
        {"XBKWGR", {0x99999900, 0x0000ff00, 0x07070700, 0xffffff00, 0x00ff0000, 0xff000000}},
    };
    for (const shade_row& row : rows) {
        SCOPED_TRACE(row.letters);
        std::strcpy(colortable, row.letters);
        colorcollector();
        for (int i = 0; i < placecount + cubefacecount; i++) {
            const int face = i < placecount ? i / 9 : i - placecount;
            const Fl_Button* button = i < placecount ? buts[i] : facecolors[face];
            EXPECT_EQ(colorof(button), row.colors[face]) << i;
            const bool white = row.letters[face] == 'K' || row.letters[face] == 'B';
            EXPECT_EQ(button->labelcolor(), white ? FL_WHITE : FL_BLACK) << i;
        }
    }
}

TEST_F(Colorcollector, OpensWithTheFirstFaceletSelected) {
    select(30);
    EXPECT_EQ(highlighted(), 30);
    colorcollector();
    EXPECT_EQ(highlighted(), 0);
    EXPECT_EQ(currentface, 0);
}

// A cube held in another way has been called invalid and taken; since then it may be any other.
TEST_F(Colorcollector, OpensWithoutTheVerdictOfAnEarlierUse) {
    applyturn(20);
    flipat(7);
    flipat(7);
    EXPECT_NE(verdict(), "Valid Cube!");
    find("Finish")->do_callback();
    initcubies();
    colorcollector();
    EXPECT_EQ(verdict(), "");
}

TEST_F(Colorcollector, ColouringMovesTheSelectionOnAndJudges) {
    select(53);
    color(3);
    EXPECT_EQ(cubecolors[53], 3);
    EXPECT_EQ(colorof(buts[53]), 0x0000ff00U);
    EXPECT_EQ(buts[53]->labelcolor(), FL_WHITE);
    EXPECT_EQ(highlighted(), 0);
    EXPECT_EQ(verdict(), "Invalid Cube:\nImproper corner cubie: RBR.");
    EXPECT_EQ(sanecube, 0);
    EXPECT_NE(message()->wrap(), 0);
    select(53);
    color(5);
    EXPECT_EQ(verdict(), "Valid Cube!");
    EXPECT_EQ(sanecube, 1);
}

TEST_F(Colorcollector, KeysActLikeTheButtons) {
    EXPECT_EQ(key(FL_BackSpace), 1);
    EXPECT_EQ(highlighted(), 53);
    EXPECT_EQ(key('b'), 1);
    EXPECT_EQ(cubecolors[53], 3);
    EXPECT_EQ(highlighted(), 0);
    EXPECT_EQ(key(' '), 1);
    EXPECT_EQ(highlighted(), 1);
    for (const int other : {FL_Escape, FL_Enter, FL_Tab, FL_Left, int{'k'}, int{'1'}}) {
        EXPECT_EQ(key(other), 1);
        EXPECT_EQ(highlighted(), 1);
    }
    EXPECT_EQ(dialog->handle(FL_FOCUS), 1);
    EXPECT_EQ(dialog->handle(FL_UNFOCUS), 1);
}

TEST_F(Colorcollector, FlipRecoloursThePieceAndJudges) {
    flipat(27);
    EXPECT_EQ(colorof(buts[27]), 0xff000000U);
    EXPECT_EQ(colorof(buts[20]), 0xffffff00U);
    EXPECT_EQ(colorof(buts[8]), 0x0000ff00U);
    EXPECT_EQ(buts[8]->labelcolor(), FL_WHITE);
    EXPECT_EQ(highlighted(), 27);
    EXPECT_EQ(sanecube, 0);
    EXPECT_EQ(verdict().find("Invalid Cube:\nTwist any corner cubie"), 0U);
    flipat(27);
    flipat(27);
    flipat(7);
    EXPECT_EQ(verdict(), "Invalid Cube:\nFlip any edge cubie to make a valid configuration.");
}

// The verdict that stands may be an older one: a turn has landed behind the dialog since.
TEST_F(Colorcollector, FlipOnACentreLeavesMessageAndVerdictAlone) {
    flipat(7);
    const std::string stands = verdict();
    flip(7); // not through the dialog
    for (const int given : {0, 1}) {
        sanecube = given;
        for (int face = 0; face < cubefacecount; face++) {
            flipat(9 * face + 4);
            EXPECT_EQ(verdict(), stands);
            EXPECT_EQ(sanecube, given);
        }
    }
}

TEST_F(Colorcollector, FinishClosesWithALegalCubeAndAsksForARedraw) {
    sanecube = 0;
    needsredraw = 0;
    find("Finish")->do_callback();
    EXPECT_FALSE(dialog->shown());
    EXPECT_EQ(sanecube, 1);
    EXPECT_EQ(needsredraw, 1);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(Colorcollector, RefusedFinishTellsWhyAndStaysOpen) {
    flipat(7);
    sanecube = 1;
    needsredraw = 0;
    find("Finish")->do_callback();
    EXPECT_EQ(shell.messages,
              std::vector<std::string>{"alert: Cube coloration is invalid:\nFlip any edge cubie to "
                                       "make a valid configuration."});
    EXPECT_TRUE(dialog->shown());
    EXPECT_EQ(sanecube, 0);
    EXPECT_EQ(needsredraw, 0);
}

TEST_F(Colorcollector, RefusedFinishShowsTheRecolouredCube) {
    applyturn(20);
    flipat(7);
    find("Finish")->do_callback();
    for (int place = 0; place < placecount; place++) {
        EXPECT_EQ(colorof(buts[place]), flcubecolors[cubecolors[place]]) << place;
    }
    EXPECT_EQ(colorof(buts[22]), 0xff000000U);
}

TEST_F(Colorcollector, TwoCentresOfOneColourAreRefusedByVerdictAndFinish) {
    select(4);
    color(1);
    EXPECT_EQ(verdict(), "Invalid Cube:\nTwo centers have the same color.");
    EXPECT_EQ(sanecube, 0);
    sanecube = 1;
    find("Finish")->do_callback();
    EXPECT_EQ(shell.messages,
              std::vector<std::string>{
                  "alert: Cube coloration is invalid:\nTwo centers have the same color."});
    EXPECT_TRUE(dialog->shown());
    EXPECT_EQ(sanecube, 0);
    EXPECT_EQ(cubecolors[4], 1);
    EXPECT_EQ(colorof(buts[4]), 0x00ff0000U);
}

TEST_F(Colorcollector, CloseButtonOfTheWindowIsFinish) {
    dialog->do_callback();
    EXPECT_FALSE(dialog->shown());
    EXPECT_EQ(needsredraw, 1);
}

TEST_F(Colorcollector, ResetShowsTheSolvedCubeAndIsLegal) {
    applyturn(20);
    flipat(7);
    sanecube = 0;
    find("Reset")->do_callback();
    for (int place = 0; place < placecount; place++) {
        EXPECT_EQ(cubecolors[place], place / 9);
        EXPECT_EQ(colorof(buts[place]), flcubecolors[place / 9]);
    }
    EXPECT_EQ(verdict(), "Valid Cube!");
    EXPECT_EQ(sanecube, 1);
}

TEST_F(Colorcollector, NothingInsideTakesTheKeyboard) {
    for (int i = 0; i < dialog->children(); i++) {
        EXPECT_FALSE(dialog->child(i)->visible_focus() != 0 &&
                     dynamic_cast<Fl_Button*>(dialog->child(i)) != nullptr)
            << i;
    }
    EXPECT_EQ(message()->visible_focus(), 0U);
}

} // namespace

} // namespace collector
