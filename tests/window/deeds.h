// SPDX-License-Identifier: MIT
//
// deeds: what a person may do to the program, written as lines of text, so that a chance sequence
// of them can be kept and done again.
//
//   click X Y MODIFIERS BUTTON     in the main window
//   drag X Y X Y BUTTON            in the main window
//   push MODIFIERS LABEL           a button of the main window
//   menu ENTRY                     an entry of the menu bar, or none where it does not open
//   title N                        opens menu 0.. of the menu bar and leaves it open
//   list ROW                       a row of the list of macros
//   press KEY MODIFIERS            a key, by its X name, wherever the keyboard is
//   hold KEY MILLISECONDS          the same, held
//   type TEXT                      letters, wherever the keyboard is
//   macro TEXT                     replaces the text of the macro line
//   paste SEED SIZE                the same by a middle click, any bytes
//   box X Y MODIFIERS BUTTON       a click in the window on top beside the main one, in thousandths
//   key KEY MODIFIERS              a key for that window, which gets the keyboard first
//   text TEXT                      letters for that window
//   fetchbox                       that window to the middle of the screen
//   shut                           asks that window to close
//   move X Y, size W H             the main window
//   minimise, restore, desktop N, rollup, unroll, cover
//   fetch                          the main window to the desktop that is shown first
//   keyboard                       gives the keyboard to the main window
//   end                            asks the main window to close
//
// MODIFIERS is a sum of xserver.h's; ENTRY, LABEL and TEXT go to the end of the line.
//
// Errors    none: a deed for which there is no window does nothing.
// Callers   monkey.
#pragma once

#include "window/program.h"

#include <string>

void dodeed(const xserver& screen, program& vexel, const std::string& line);

// Whether the menu that holds "Quit" is open.
[[nodiscard]] bool filemenuopen(const xserver& screen, const program& vexel);

// What a deed has to do with the designed ends of the program.
enum class wayout {
    none,
    asked,        // it asks for the end: "Quit", its key, closing the main window
    opensmenu,    // it leaves a menu open, from which keys and clicks find to "Quit"
    choosesinmenu // in an open menu it may choose an entry
};

[[nodiscard]] wayout wayoutof(const std::string& line);
