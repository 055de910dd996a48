// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"

#include "app/dispatch.h"
#include "app/driver.h"
#include "app/latinkey.h"
#include "app/macroline.h"
#include "app/menu.h"
#include "app/my_input.h"
#include "macros/library.h"
#include "model/notation.h"
#include "render/cube_box.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Window.H>

#include <algorithm>
#include <vector>

constinit Fl_Window* form = nullptr;
constinit cube_box* cube = nullptr;
constinit Fl_Menu_Bar* menubar = nullptr;
constinit my_input* inp = nullptr;
constinit Fl_Output* out = nullptr;
constinit Fl_Choice* choice = nullptr;
constinit Fl_Button* demo = nullptr;
constinit Fl_Button* recbut = nullptr;
constinit Fl_Button* solvebut = nullptr;
constinit Fl_Button* bsave = nullptr;

namespace {

struct heading_row {
    int x, y, w, h;
    const char* text;
};

struct button_row {
    int x, y, w, h;
    const char* label;
    long command; // dispatch.h; the turn codes come first
    const char* tooltip;
    Fl_Button** handle; // where the program finds the button again, or null
};

// The rows of buttons run U R F L B D, then twice U L F R B D: the orders differ and stay so.
// Headings and buttons are made row after row: the keyboard walks through them in this order.

constexpr heading_row face_heading = {450, 25, 280, 22, "Face Moves"};
constexpr button_row face_buttons[] = {
    {443, 50, 43, 20, "Ucw",  0,  "Rotate up face clockwise",            nullptr},
    {491, 50, 43, 20, "Rcw",  6,  "Rotate right face clockwise",         nullptr},
    {539, 50, 43, 20, "Fcw",  8,  "Rotate front face clockwise",         nullptr},
    {587, 50, 43, 20, "Lcw",  4,  "Rotate left face clockwise",          nullptr},
    {635, 50, 43, 20, "Bcw",  10, "Rotate back face clockwise",          nullptr},
    {683, 50, 43, 20, "Dcw",  2,  "Rotate down face clockwise",          nullptr},
    {443, 72, 43, 20, "Uccw", 1,  "Rotate up face counter-clockwise",    nullptr},
    {491, 72, 43, 20, "Rccw", 7,  "Rotate right face counter-clockwise", nullptr},
    {539, 72, 43, 20, "Fccw", 9,  "Rotate front face counter-clockwise", nullptr},
    {587, 72, 43, 20, "Lccw", 5,  "Rotate left face counter-clockwise",  nullptr},
    {635, 72, 43, 20, "Bccw", 11, "Rotate back face counter-clockwise",  nullptr},
    {683, 72, 43, 20, "Dccw", 3,  "Rotate down face counter-clockwise",  nullptr},
};

constexpr heading_row slice_heading = {443, 94, 280, 22, "Slice Moves"};
constexpr button_row slice_buttons[] = {
    {443, 116, 43, 20, "UScw", 16, "Rotate up slice clockwise",    nullptr},
    {491, 116, 43, 20, "LScw", 14, "Rotate left slice clockwise",  nullptr},
    {539, 116, 43, 20, "FScw", 12, "Rotate front slice clockwise", nullptr},
    {587, 116, 43, 20, "RScw", 15, "Rotate right slice clockwise", nullptr},
    {635, 116, 43, 20, "BScw", 13, "Rotate back slice clockwise",  nullptr},
    {683, 116, 43, 20, "DScw", 17, "Rotate down slice clockwise",  nullptr},
};

constexpr heading_row cube_heading = {443, 138, 280, 22, "Whole Cube Moves"};
constexpr button_row cube_buttons[] = {
    {443, 160, 43, 20, "UCcw", 20, "Rotate cube clockwise about up face",    nullptr},
    {491, 160, 43, 20, "LCcw", 19, "Rotate cube clockwise about left face",  nullptr},
    {539, 160, 43, 20, "FCcw", 22, "Rotate cube clockwise about front face", nullptr},
    {587, 160, 43, 20, "RCcw", 18, "Rotate cube clockwise about right face", nullptr},
    {635, 160, 43, 20, "BCcw", 23, "Rotate cube clockwise about back face",  nullptr},
    {683, 160, 43, 20, "DCcw", 21, "Rotate cube clockwise about down face",  nullptr},
};

constexpr heading_row command_heading = {443, 182, 280, 22, "Basic Commands"};
constexpr button_row command_buttons[] = {
    {443, 204, 92, 20, "Reset Cube",  100, "Initialize cube and undo buffer",    nullptr  },
    {539, 204, 92, 20, "Jumble Cube", 112, "Jumble cube to valid configuration", nullptr  },
    {635, 204, 92, 20, "Solve Cube",  108, "Put solution into current macro",    &solvebut},
    {443, 226, 92, 20, "Start Demo",  111, "Toggle demonstration mode",          &demo    },
    {539, 226, 92, 20, "Save Cube",   117, "Save/restore current cube",          &bsave   },
    {635, 226, 92, 20, "Record On",   116, "Record moves",                       &recbut  },
};

constexpr heading_row macro_heading = {443, 248, 280, 22, "Macro Controls"};
constexpr button_row macro_buttons[] = {
    {488, 270, 92, 20, "Macro Order", 101, "Calculate order of current macro", nullptr},
    {584, 270, 92, 20, "Apply Macro", 106, "Apply current macro instantly",    nullptr},
};

constexpr heading_row current_heading = {447, 293, 110, 20, "Current Macro:"};
constexpr heading_row defined_heading = {465, 335, 235, 20, "Defined Macros:"};

constexpr heading_row legend[] = {
    {467, 389, 231, 20, "U = Up   L = Left   F = Front"        },
    {467, 410, 231, 20, "R = Right   B = Back   D = Down"      },
    {467, 431, 231, 20, "Shift = Inverse     Ctrl = Whole Cube"},
};

constexpr int formwidth = 735;
constexpr int formheight = 462;
constexpr double leastscale = 0.25; // smaller than a quarter nobody could read a thing

// State

// One widget as it was made.
struct place {
    Fl_Widget* widget;
    int x, y, w, h;
    int letters; // size of the label's
};

std::vector<place> places; // of all that is in the window, as makeform has laid it out

int scaled(int length, double scale) {
    return static_cast<int>(length * scale); // downwards, so that texts fit
}

// Texts begin in the size of the labels, so that one number scales both.
void lettersize(Fl_Widget* widget, int size) {
    widget->labelsize(static_cast<uchar>(size));
    if (auto* line = dynamic_cast<Fl_Input_*>(widget)) {
        line->textsize(static_cast<uchar>(size));
    } else if (auto* menu = dynamic_cast<Fl_Menu_*>(widget)) {
        menu->textsize(static_cast<uchar>(size));
    }
}

void layout(double scale) {
    for (const place& p : places) {
        p.widget->resize(scaled(p.x, scale), scaled(p.y, scale), scaled(p.w, scale),
                         scaled(p.h, scale));
        lettersize(p.widget, scaled(p.letters, scale));
    }
}

double fitting(int w, int h) {
    const double scale = std::min(w / double(formwidth), h / double(formheight));
    return std::clamp(scale, leastscale, 1.0);
}

// A window manager may force a window smaller than it says it can be.
class mainwindow : public Fl_Window {
  public:
    using Fl_Window::Fl_Window;

    void resize(int x, int y, int w, int h) override {
        // Being moved is the usual case, and needs no new layout.
        const bool other = w != this->w() || h != this->h();
        Fl_Window::resize(x, y, w, h);
        if (other) {
            layout(fitting(w, h));
            redraw();
        }
    }
};

void makeheading(const heading_row& row) {
    auto* heading = new Fl_Box(FL_NO_BOX, row.x, row.y, row.w, row.h, row.text);
    heading->labelfont(FL_HELVETICA_BOLD);
}

void makebutton(const button_row& row) {
    auto* button = new Fl_Button(row.x, row.y, row.w, row.h, row.label);
    button->callback(b_cb, row.command);
    button->tooltip(row.tooltip);
    if (row.handle != nullptr) {
        *row.handle = button;
    }
}

template <int n> void makegroup(const heading_row& heading, const button_row (&rows)[n]) {
    makeheading(heading);
    for (const button_row& row : rows) {
        makebutton(row);
    }
}

void makemacrolines() {
    makeheading(current_heading);
    out = new Fl_Output(667, 293, 50, 20, "Macro length:");
    out->clear_visible_focus(); // it has no use for keys, and would keep Ctrl+Z
    loadout("");
    inp = new my_input(447, 314, 270, 20);
    inp->callback(inp_cb, 0L);
    inp->tooltip("Current macro");
    inp->when(FL_WHEN_ENTER_KEY_ALWAYS); // also without a change: a macro may be played again
    makeheading(defined_heading);
    choice = new Fl_Choice(447, 355, 270, 20);
    choice->tooltip("List of named macros");
    addbuiltinmacros(); // they make the list and give it its callback
    choice->set_changed();
}

void makelegend() {
    new Fl_Box(FL_UP_FRAME, 455, 383, 260, 72, nullptr);
    for (const heading_row& row : legend) {
        makeheading(row);
    }
}

// The toolkit closes a window on Escape. Closing this one ends the program and the cube with it,
// so the key alone must not do it; the window manager's button still does.
void close_cb(Fl_Widget*, void*) {
    if (Fl::event() == FL_SHORTCUT && Fl::event_key() == FL_Escape) {
        return;
    }
    form->hide(); // as a window; a mere widget would be made invisible and its window kept
}

} // namespace

void makeui() {
    menubar = new Fl_Menu_Bar(0, 0, formwidth, 22);
    menubar->menu(menutable);
    Fl::add_handler(foreignshortcut);
    watchkeys();
    makegroup(face_heading, face_buttons);
    makegroup(slice_heading, slice_buttons);
    makegroup(cube_heading, cube_buttons);
    makegroup(command_heading, command_buttons);
    makegroup(macro_heading, macro_buttons);
    makemacrolines();
    makelegend();
}

void makeform(const char* title) {
    form = new mainwindow(formwidth, formheight, title);
    form->callback(close_cb);
    Fl::add_check(watchmenus, nullptr);
    makeui();
    cube = new cube_box(2, 24, 436, 436);
    cube->mode(FL_DOUBLE);
    cube->end();
    form->end();
    // Kept from here on: sizes that were rounded once more with each change would creep.
    for (int i = 0; i < form->children(); i++) {
        Fl_Widget* w = form->child(i);
        places.push_back({w, w->x(), w->y(), w->w(), w->h(), w->labelsize()});
    }
}

// What a frame will add is known only when the window stands, which is too late to fit it.
void fitform(int screenwidth, int screenheight) {
    constexpr int sides = 8; // of a frame, about
    constexpr int titlebar = 32;
    const double scale = fitting(screenwidth - sides, screenheight - titlebar);
    form->size(static_cast<int>(formwidth * scale), static_cast<int>(formheight * scale));
}
