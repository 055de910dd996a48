// SPDX-License-Identifier: MIT
//
// my_input: the macro line, an input field whose arrow keys step through the macro.
//
// Keys      Right, Left      one turn forwards, backwards; refused while a turn is animated, so a
//                            held key steps once per finished turn
//           Enter            the callback, inp_cb (macroline.h)
//           Ctrl+A           applies the macro, once, and takes the cursor to the start
//           Alt+letter       turns a face, as in the view
//           Ctrl+Z           refused, so that the menu undoes a turn
//           anything else    edits; the length read-out follows every event
// Solving   while the solver works the line takes nothing but the focus.
// Callers   mainwindow makes the one instance, inp.
#pragma once

#include <FL/Fl_Input.H>

class my_input : public Fl_Input {
  public:
    using Fl_Input::Fl_Input;

    // 1 when the event was used. The arrows are asked for by their held state at every event that
    // arrives, not only at key events.
    int handle(int event) override;
};
