// SPDX-License-Identifier: MIT
//
// cube_box: the square OpenGL view in which the cube is shown.
//
// Purpose   the toolkit's side of the renderer: paints a frame when the toolkit asks for one, lets
//           the model apply a turn that this frame has finished, and turns clicks and Alt+letter
//           into commands. The view cannot be dragged; its viewpoint (view.h) is fixed.
// State     none of its own.
// Callers   the main window, which makes the one instance at 436 x 436 pixels; the toolkit.
// Order     initdrawface (projection.h) before the first draw. The caller sets mode(FL_DOUBLE):
//           colours, two buffers, no depth buffer.
#pragma once

#include "render/view.h"

#include <FL/Fl_Gl_Window.H>

class cube_box : public Fl_Gl_Window {
  public:
    using Fl_Gl_Window::Fl_Gl_Window;
    ~cube_box() override = default;

    // Paints and shows one frame; then, if it was the last one of a turn, the cube changes.
    void draw() override;

    // FL_HIDE ends the program with status 0 once the view's window is gone; while there is one, it
    // has only been taken out of sight by the window manager, and is refused. FL_FOCUS is accepted.
    // FL_SHORTCUT goes to interpretkey if Alt is held, else it is refused. FL_PUSH of any button
    // is accepted anywhere and takes the keyboard; it goes to b_cb if it hits one of the regions of
    // clickturn, Super counting as Alt. All else is refused.
    int handle(int event) override;
};
