// SPDX-License-Identifier: MIT
//
// gizmo: the panel with a button for each macro that is marked for it.
//
// State     macrowindow, below. Which macros are marked is the library's showmac.
// Callers   main, dispatch and the library, through shell.h: macrodisplay, refreshmacrodisplay and
//           hidemacrodisplay are defined here. The toolkit calls macbut_cb.
// Order     before the main window is shown macrodisplay does nothing: main makes the panel, where
//           it belongs, once the window stands.
//
//     0  +------------------+
//        |   Macro Gizmo    |
//    30  | [ a marked one ] |  16 buttons of 274 x 22, 24 apart: the first 16 marked macros in
//        | [      *       ] |  the order of the table, then "*", which does nothing
//   417  +------------------+
//        0                280
#pragma once

class Fl_Widget;
class Fl_Window;

constexpr int paneldistance = 740; // from the left edge of the main window to that of the panel

extern Fl_Window* macrowindow; // the panel; null until it is made. It stays where it was made

// Callback of the buttons: ends a recording and applies macro number data, which it also chooses in
// the list; nothing for -1.
void macbut_cb(Fl_Widget* w, void* data);
