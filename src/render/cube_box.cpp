// SPDX-License-Identifier: MIT
#include "render/cube_box.h"

#include "model/parser.h"
#include "render/animation.h"
#include "render/glscreen.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/gl.h>

#include <cstdlib>

namespace {

void label(float x, float y, float z, const char* text) {
    glRasterPos3f(x, y, z);
    gl_draw(text);
}

// The letters are painted last and so lie on top of everything. Their places are points of model
// space: the middle of F, just in front of the middle of U, just outside the middle of L.
void drawlabels() {
    gl_font(0, 14);
    glColor3f(0, 0, 0);
    label(0, 0, 3, "F");
    label(0, 2.8F, 0, "U");
    label(-3.1F, 0, 0, "L");
}

// Paints what the face list holds into the back buffer.
void paintframe() {
    glClearColor(0.5F, 0.5F, 0.5F, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    nongldisplay();
    if (demomode == 0) {
        drawlabels();
    }
}

int click(const Fl_Widget* view, int state) {
    const float w = static_cast<float>(view->w());
    // Deliberate: NOT-BUGS.md, "Clicks are measured from a shifted corner"
    const float fx = static_cast<float>(Fl::event_x() - view->x()) / w;
    const float fy = 1 - static_cast<float>(Fl::event_y() - view->y()) / w;
    // Many window managers keep Alt with a click to themselves, others Super: either will do.
    return clickturn(fx, fy, (state & FL_CTRL) != 0, (state & (FL_ALT | FL_META)) != 0);
}

} // namespace

void cube_box::draw() {
    if (context_valid() == 0) {
        dontwaitforbeam();
    }
#if FL_MINOR_VERSION >= 4
    setupeye(pixel_w(), pixel_h()); // the toolkit's own units may be larger
#else
    setupeye(w(), h());
#endif
    PushMatrix();
    setupcube();
    facelistcount = 0;
    displaycube();
    paintframe();
    swap_buffers();
    // The toolkit swaps once more when draw returns, and what a swap leaves in the back buffer is
    // undefined: it may be the frame before. So the same frame is painted into the other buffer
    // too, and whichever one is shown, it is this frame.
    paintframe();
    PopMatrix();
    // Last, since a turn that lands changes the colours that paintframe reads.
    doparsestring();
}

int cube_box::handle(int event) {
    const int state = Fl::event_state();
    switch (event) {
    case FL_HIDE:
        if (shown() != 0) {
            return 0; // out of sight only: minimised, say, or on another desktop
        }
        // Deliberate: NOT-BUGS.md, "Closing the window ends the program"
        std::exit(0);
    case FL_FOCUS: return 1;
    case FL_SHORTCUT:
        if ((state & FL_ALT) == 0) {
            return 0;
        }
        interpretkey(Fl::event_key());
        return 1;
    case FL_PUSH: {
        take_focus();
        const int code = click(this, state);
        if (code != -1) {
            b_cb(nullptr, code);
        }
        return 1;
    }
    default: return 0;
    }
}
