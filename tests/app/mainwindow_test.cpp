// SPDX-License-Identifier: MIT
#include "app/dispatch.h"
#include "app/mainwindow.h"
#include "app/menu.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "render/cube_box.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Window.H>

#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace {

class Mainwindow : public testing::Test {
  protected:
    void SetUp() override { openwindow(); }
};

struct widget_row {
    int x, y, w, h;
    const char* label;
    long command; // -1 for a heading
    const char* tooltip;
};

// Headings and buttons in the order in which they are made.
// clang-format off
constexpr widget_row widgets[] = {
    {450,  25, 280, 22, "Face Moves", -1, nullptr},
    {443,  50,  43, 20, "Ucw", 0, "Rotate up face clockwise"},
    {491,  50,  43, 20, "Rcw", 6, "Rotate right face clockwise"},
    {539,  50,  43, 20, "Fcw", 8, "Rotate front face clockwise"},
    {587,  50,  43, 20, "Lcw", 4, "Rotate left face clockwise"},
    {635,  50,  43, 20, "Bcw", 10, "Rotate back face clockwise"},
    {683,  50,  43, 20, "Dcw", 2, "Rotate down face clockwise"},
    {443,  72,  43, 20, "Uccw", 1, "Rotate up face counter-clockwise"},
    {491,  72,  43, 20, "Rccw", 7, "Rotate right face counter-clockwise"},
    {539,  72,  43, 20, "Fccw", 9, "Rotate front face counter-clockwise"},
    {587,  72,  43, 20, "Lccw", 5, "Rotate left face counter-clockwise"},
    {635,  72,  43, 20, "Bccw", 11, "Rotate back face counter-clockwise"},
    {683,  72,  43, 20, "Dccw", 3, "Rotate down face counter-clockwise"},
    {443,  94, 280, 22, "Slice Moves", -1, nullptr},
    {443, 116,  43, 20, "UScw", 16, "Rotate up slice clockwise"},
    {491, 116,  43, 20, "LScw", 14, "Rotate left slice clockwise"},
    {539, 116,  43, 20, "FScw", 12, "Rotate front slice clockwise"},
    {587, 116,  43, 20, "RScw", 15, "Rotate right slice clockwise"},
    {635, 116,  43, 20, "BScw", 13, "Rotate back slice clockwise"},
    {683, 116,  43, 20, "DScw", 17, "Rotate down slice clockwise"},
    {443, 138, 280, 22, "Whole Cube Moves", -1, nullptr},
    {443, 160,  43, 20, "UCcw", 20, "Rotate cube clockwise about up face"},
    {491, 160,  43, 20, "LCcw", 19, "Rotate cube clockwise about left face"},
    {539, 160,  43, 20, "FCcw", 22, "Rotate cube clockwise about front face"},
    {587, 160,  43, 20, "RCcw", 18, "Rotate cube clockwise about right face"},
    {635, 160,  43, 20, "BCcw", 23, "Rotate cube clockwise about back face"},
    {683, 160,  43, 20, "DCcw", 21, "Rotate cube clockwise about down face"},
    {443, 182, 280, 22, "Basic Commands", -1, nullptr},
    {443, 204,  92, 20, "Reset Cube", 100, "Initialize cube and undo buffer"},
    {539, 204,  92, 20, "Jumble Cube", 112, "Jumble cube to valid configuration"},
    {635, 204,  92, 20, "Solve Cube", 108, "Put solution into current macro"},
    {443, 226,  92, 20, "Start Demo", 111, "Toggle demonstration mode"},
    {539, 226,  92, 20, "Save Cube", 117, "Save/restore current cube"},
    {635, 226,  92, 20, "Record On", 116, "Record moves"},
    {443, 248, 280, 22, "Macro Controls", -1, nullptr},
    {488, 270,  92, 20, "Macro Order", 101, "Calculate order of current macro"},
    {584, 270,  92, 20, "Apply Macro", 106, "Apply current macro instantly"},
    {447, 293, 110, 20, "Current Macro:", -1, nullptr},
    {465, 335, 235, 20, "Defined Macros:", -1, nullptr},
    {467, 389, 231, 20, "U = Up   L = Left   F = Front", -1, nullptr},
    {467, 410, 231, 20, "R = Right   B = Back   D = Down", -1, nullptr},
    {467, 431, 231, 20, "Shift = Inverse     Ctrl = Whole Cube", -1, nullptr},
};

// clang-format on

struct menu_row {
    const char* menu;
    const char* text;
    int shortcut;
    long command;
    int flags;
};

constexpr menu_row menus[] = {
    {"File",   "Reset Cube",              FL_CTRL + 'r', 100, 0                             },
    {"File",   "Load Macro File",         0,             118, 0                             },
    {"File",   "Dump Macro File",         0,             128, 0                             },
    {"File",   "Display Permutation",     0,             123, 0                             },
    {"File",   "Print EPS File",          0,             129, 0                             },
    {"File",   "Quit",                    FL_CTRL + 'q', 105, 0                             },
    {"Edit",   "Undo",                    FL_CTRL + 'z', 102, 0                             },
    {"Edit",   "Input Cube",              0,             114, 0                             },
    {"Edit",   "Long Solve",              0,             120, FL_MENU_TOGGLE                },
    {"Edit",   "Very Long Solve",         0,             121, FL_MENU_TOGGLE                },
    {"View",   "Show Macro Gizmo",        0,             124, 0                             },
    {"View",   "Show Rear Cube",          0,             113, FL_MENU_TOGGLE | FL_MENU_VALUE},
    {"View",   "Set Cube Speed",          0,             107, 0                             },
    {"View",   "Set Cube Colors",         0,             109, 0                             },
    {"Macros", "Define Macro",            0,             104, 0                             },
    {"Macros", "Apply Macro",             FL_CTRL + 'a', 106, 0                             },
    {"Macros", "Delete Macro",            0,             115, 0                             },
    {"Macros", "Delete All Macros",       0,             122, 0                             },
    {"Macros", "Add Macro to Gizmo",      0,             125, 0                             },
    {"Macros", "Delete Macro from Gizmo", 0,             126, 0                             },
    {"Macros", "Clear Macro Gizmo",       0,             127, 0                             },
    {"Help",   "About Vexel",             0,             119, 0                             },
};

void expectplace(const Fl_Widget* widget, int x, int y, int w, int h) {
    EXPECT_EQ(widget->x(), x);
    EXPECT_EQ(widget->y(), y);
    EXPECT_EQ(widget->w(), w);
    EXPECT_EQ(widget->h(), h);
}

// The toolkit keeps every callback as one type and casts it back when it calls.
bool callsdispatcher(const Fl_Widget* widget) {
    void* kept = reinterpret_cast<void*>(widget->callback());
    return kept == reinterpret_cast<void*>(b_cb);
}

bool islabelled(const Fl_Widget* widget) {
    return widget->label() != nullptr &&
           (dynamic_cast<const Fl_Button*>(widget) != nullptr ||
            (dynamic_cast<const Fl_Box*>(widget) != nullptr && widget->box() == FL_NO_BOX));
}

} // namespace

TEST_F(Mainwindow, HeadingsAndButtonsAreMadeAsLaidOut) {
    int next = 0;
    for (int i = 0; i < form->children(); i++) {
        const Fl_Widget* widget = form->child(i);
        if (!islabelled(widget)) {
            continue;
        }
        ASSERT_LT(next, std::ssize(widgets));
        const widget_row& row = widgets[next++];
        SCOPED_TRACE(row.label);
        EXPECT_STREQ(widget->label(), row.label);
        expectplace(widget, row.x, row.y, row.w, row.h);
        EXPECT_STREQ(widget->tooltip(), row.tooltip);
        if (row.command == -1) {
            EXPECT_EQ(widget->labelfont(), FL_HELVETICA_BOLD);
        } else {
            EXPECT_EQ(widget->argument(), row.command);
            EXPECT_TRUE(callsdispatcher(widget));
        }
    }
    EXPECT_EQ(next, std::ssize(widgets));
}

TEST_F(Mainwindow, TheOtherWidgetsAreAtTheirPlaces) {
    expectplace(menubar, 0, 0, 735, 22);
    EXPECT_EQ(menubar->menu(), menutable);
    expectplace(out, 667, 293, 50, 20);
    EXPECT_STREQ(out->label(), "Macro length:");
    expectplace(inp, 447, 314, 270, 20);
    EXPECT_STREQ(inp->tooltip(), "Current macro");
    EXPECT_EQ(inp->when(), FL_WHEN_ENTER_KEY_ALWAYS);
    expectplace(choice, 447, 355, 270, 20);
    EXPECT_STREQ(choice->tooltip(), "List of named macros");
    expectplace(cube, 2, 24, 436, 436);
    EXPECT_EQ(cube->label(), nullptr);
    EXPECT_EQ(form->w(), 735);
    EXPECT_EQ(form->h(), 462);
    EXPECT_STREQ(form->label(), "Vexel's Cube Simulator");
    const Fl_Widget* frame = form->child(form->children() - 5);
    EXPECT_EQ(frame->box(), FL_UP_FRAME);
    expectplace(frame, 455, 383, 260, 72);
    EXPECT_EQ(form->child(form->children() - 1), cube);
}

TEST_F(Mainwindow, TextsGrowAndShrinkWithTheWindow) {
    constexpr struct {
        int w, h, letters;
    } rows[] = {
        {735,  462, 14},
        {600,  377, 11},
        {368,  900, 7 },
        {900,  231, 7 },
        {1,    1,   3 }, // no smaller than a quarter
        {1200, 900, 14}, // and no larger than it was made
    };

    for (const auto& row : rows) {
        SCOPED_TRACE(row.w);
        form->size(row.w, row.h);
        for (const Fl_Menu_* menu :
             {static_cast<Fl_Menu_*>(menubar), static_cast<Fl_Menu_*>(choice)}) {
            EXPECT_EQ(menu->textsize(), row.letters);
            EXPECT_EQ(menu->labelsize(), row.letters);
        }
        for (const Fl_Input_* line : {static_cast<Fl_Input_*>(inp), static_cast<Fl_Input_*>(out)}) {
            EXPECT_EQ(line->textsize(), row.letters);
            EXPECT_EQ(line->labelsize(), row.letters);
        }
        EXPECT_EQ(solvebut->labelsize(), row.letters);
    }
    form->size(735, 462);
    expectplace(menubar, 0, 0, 735, 22); // as it was made
    expectplace(cube, 2, 24, 436, 436);
}

TEST_F(Mainwindow, HandlesNameTheButtonsTheyStandFor) {
    EXPECT_STREQ(solvebut->label(), "Solve Cube");
    EXPECT_STREQ(demo->label(), "Start Demo");
    EXPECT_STREQ(bsave->label(), "Save Cube");
    EXPECT_STREQ(recbut->label(), "Record On");
}

TEST_F(Mainwindow, AnEmptyLineHasTheLengthNought) {
    EXPECT_STREQ(out->value(), "0");
}

TEST_F(Mainwindow, MenusAreAsListed) {
    int record = 0;
    int row = 0;
    while (menutable[record].text != nullptr) {
        EXPECT_EQ(menutable[record].flags, FL_SUBMENU);
        const std::string title = menutable[record++].text;
        for (; menutable[record].text != nullptr; record++, row++) {
            ASSERT_LT(row, std::ssize(menus));
            SCOPED_TRACE(menus[row].text);
            EXPECT_EQ(title, menus[row].menu);
            EXPECT_STREQ(menutable[record].text, menus[row].text);
            EXPECT_EQ(menutable[record].shortcut(), menus[row].shortcut);
            EXPECT_EQ(menutable[record].argument(), menus[row].command);
            EXPECT_EQ(menutable[record].flags, menus[row].flags);
            EXPECT_EQ(menutable[record].callback(), menucallback);
        }
        ++record; // the empty record that closes the menu
    }
    EXPECT_EQ(row, std::ssize(menus));
    EXPECT_EQ(record + 1, menusize);
}
