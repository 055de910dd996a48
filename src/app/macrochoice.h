// SPDX-License-Identifier: MIT
//
// macrochoice: the list of named macros under "Defined Macros:".
//
// State     choices, below; the widget is mainwindow's choice.
// Callers   the library makes the list anew through shell.h (showmacros, chosenmacro, choosemacro
//           are defined here); the toolkit and the gizmo panel call the callbacks.
#pragma once

#include "macros/library.h"

#include <FL/Fl_Menu_Item.H>

class Fl_Widget;

// The entries: item i shows the name of macro i, its user data is i, and an item without a text
// ends the list. An empty table is shown as one entry with the empty text.
extern Fl_Menu_Item choices[maxmacros + 1];

// Callback of the list: ends a recording and applies the macro that was chosen.
void choice_cb(Fl_Widget* w, void*);

// The same for macro number data, which it also chooses in the list.
void choice_cbx(Fl_Widget* w, void* data);
