// SPDX-License-Identifier: MIT
//
// mainwindow: the one main window: its widgets, where they lie and what they say.
//
// State     the widgets, below: null until makeform, then good until the process ends. They belong
//           to the toolkit's widget tree and are never deleted.
// Units     pixels from the top left corner of the window, 735 x 462. The window keeps this size
//           where it can. Where it must be smaller, all in it shrinks in proportion, letters too;
//           where it is made larger, what is in it stays.
// Callers   main builds it; dispatch, driver, shell and the dialogs read and set the widgets.
//
//     0  +--------------------------------------------------------------+
//        | menubar                                                      |
//    24  +--------------------------+-----------------------------------+
//        |                          | Face Moves         6 x 2 buttons  |
//        |                          | Slice Moves        6              |
//        |   cube                   | Whole Cube Moves   6              |
//        |   (2, 24) 436 x 436      | Basic Commands     3 x 2          |
//        |                          | Macro Controls     2              |
//        |                          | Current Macro:     out, inp       |
//        |                          | Defined Macros:    choice         |
//        |                          | legend                            |
//   462  +--------------------------+-----------------------------------+
//        0                         443                               735
#pragma once

class Fl_Button;
class Fl_Choice;
class Fl_Menu_Bar;
class Fl_Output;
class Fl_Window;
class cube_box;
class my_input;

extern Fl_Window* form;      // the main window
extern cube_box* cube;       // the cube view
extern Fl_Menu_Bar* menubar; // the menus of menu.h
extern my_input* inp;        // the current macro: the move string edited, applied or stepped
extern Fl_Output* out;       // "Macro length:", filled by loadout
extern Fl_Choice* choice;    // the list of named macros
extern Fl_Button* demo;      // "Start Demo" or "Stop Demo"
extern Fl_Button* recbut;    // "Record On" or "Record Off"
extern Fl_Button* solvebut;  // "Solve Cube"
extern Fl_Button* bsave;     // "Save Cube" or "Restore Cube"

// Builds form with the given title, the controls and the view. Called once, by main, before show.
void makeform(const char* title);

// Makes the window as small as a screen of that size needs, frame and title bar included. After
// makeform, before show.
void fitform(int screenwidth, int screenheight);

// Builds the controls into the open group; part of makeform.
void makeui();
