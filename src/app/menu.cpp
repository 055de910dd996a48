// SPDX-License-Identifier: MIT
#include "app/menu.h"

#include "app/dispatch.h"
#include "app/interlude.h"
#include "app/latinkey.h"
#include "app/mainwindow.h"
#include "app/userdata.h"
#include "render/animation.h"

#include <FL/Fl.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Menu_Item.H>

namespace {

Fl_Menu_Item title(const char* text, int shortcut = 0) {
    return {text, shortcut, nullptr, nullptr, FL_SUBMENU, 0, 0, 0, 0};
}

Fl_Menu_Item command(const char* text, long cmd, int shortcut = 0) {
    return {text, shortcut, menucallback, userdata(cmd), 0, 0, 0, 0, 0};
}

Fl_Menu_Item toggle(const char* text, long cmd, bool on) {
    const int flags = FL_MENU_TOGGLE | (on ? FL_MENU_VALUE : 0);
    return {text, 0, menucallback, userdata(cmd), flags, 0, 0, 0, 0};
}

Fl_Menu_Item end() {
    return {nullptr, 0, nullptr, nullptr, 0, 0, 0, 0, 0};
}

constexpr long last_command = 119;

// The table is walked up to its last command: an empty record may end a menu or all of it.
void setmark(long cmd, bool on) {
    Fl_Menu_Item* item = menutable;
    for (; item->argument() != last_command; item++) {
        if (item->argument() == cmd) {
            on ? item->set() : item->clear();
        }
    }
}

} // namespace

// clang-format off
Fl_Menu_Item menutable[menusize] = {
    title("File", FL_F + 10), // the key that opens the menus; the arrows walk on from there
        command("Reset Cube",              100, FL_CTRL + 'r'),
        command("Load Macro File",         118),
        command("Dump Macro File",         128),
        command("Display Permutation",     123),
        command("Print EPS File",          129),
        command("Quit",                    105, FL_CTRL + 'q'),
        end(),
    title("Edit"),
        command("Undo",                    102, FL_CTRL + 'z'),
        command("Input Cube",              114),
        toggle ("Long Solve",              120, tryhard == 1),
        toggle ("Very Long Solve",         121, tryhard == 2),
        end(),
    title("View"),
        command("Show Macro Gizmo",        124),
        toggle ("Show Rear Cube",          113, showrear != 0),
        command("Set Cube Speed",          107),
        command("Set Cube Colors",         109),
        end(),
    title("Macros"),
        command("Define Macro",            104),
        command("Apply Macro",             106, FL_CTRL + 'a'),
        command("Delete Macro",            115),
        command("Delete All Macros",       122),
        command("Add Macro to Gizmo",      125),
        command("Delete Macro from Gizmo", 126),
        command("Clear Macro Gizmo",       127),
        end(),
    title("Help"),
        command("About Vexel",             last_command),
        end(),
    end(),
};

// clang-format on

// All marks and not only the chosen one's: of the two searches one ends the other.
void menucallback(Fl_Widget*, void* data) {
    b_cb(nullptr, numberof(data));
    setmark(113, showrear != 0);
    settryhardmenu();
}

int foreignshortcut(int event) {
    if (event != FL_SHORTCUT || Fl::modal() != nullptr) {
        return 0; // behind a box no command is to run
    }
    const int letter = latinkey(Fl::event_key());
    if (letter == Fl::event_key()) {
        return 0;
    }
    const keptevent own; // whom the toolkit asks next finds the key as it was
    Fl::e_keysym = letter;
    return menubar->handle(FL_SHORTCUT);
}

void settryhardmenu() {
    setmark(120, tryhard == 1);
    setmark(121, tryhard == 2);
}
