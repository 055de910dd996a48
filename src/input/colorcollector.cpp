// SPDX-License-Identifier: MIT
#include "input/colorcollector.h"

#include "input/coloring.h"
#include "model/turns.h"
#include "shell.h"
#include "solver/cubecheck.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Multiline_Output.H>
#include <FL/Fl_Window.H>

#include <string>

constinit int sanecube = 1;

namespace {

using namespace collector;

static_assert(namedblack == FL_BLACK);

// The dialog's window. All it adds is that every key goes to handlekeystroke: no button ever has
// the keyboard focus.
class color_gizmo : public Fl_Window {
  public:
    using Fl_Window::Fl_Window;
    int handle(int event) override;
};

// State

constinit color_gizmo* gizmo = nullptr;              // null until the first use
constinit Fl_Button* buts[placecount] = {};          // by place
constinit Fl_Button* facecolors[cubefacecount] = {}; // by colour
constinit Fl_Multiline_Output* message = nullptr;    // the verdict
constinit int highlighted = -1;                      // place of the highlighted button; -1 for none

void paint(Fl_Button* button, unsigned color) {
    button->color(static_cast<Fl_Color>(color));
    button->labelcolor(whitelabel(color) ? FL_WHITE : FL_BLACK);
    button->redraw();
}

void paintfacelet(int place) {
    paint(buts[place], flcubecolors[cubecolors[place]]);
}

// Paints all buttons anew: the colour letters may have been changed since the last time.
void setcolors() {
    init();
    for (int place = 0; place < placecount; place++) {
        paintfacelet(place);
    }
    for (int face = 0; face < cubefacecount; face++) {
        facecolors[face]->label(collector::facenames[face]);
        paint(facecolors[face], flcubecolors[face]);
    }
}

void showmessage(const std::string& text) {
    message->value(text.c_str());
}

void isvalidcube() {
    std::string text;
    sanecube = judge(text);
    if (sanecube == 0) {
        message->wrap(1); // for good: the short text is not changed by it
    }
    showmessage(text);
}

// Marks button i as the selected one, in place of the one marked before.
void highlightbutton(int i) {
    if (highlighted >= 0) {
        buts[highlighted]->labelsize(14);
        buts[highlighted]->labelfont(FL_HELVETICA);
        buts[highlighted]->redraw();
    }
    buts[i]->labelsize(18);
    buts[i]->labelfont(FL_HELVETICA_BOLD);
    buts[i]->redraw();
    highlighted = i;
}

// Callbacks. Mouse and keyboard end in the same ones; none of them refuses a colouring.

void selectcubie(Fl_Widget*, long place) {
    currentface = static_cast<int>(place);
    highlightbutton(currentface);
}

void color_cb(Fl_Widget*, long face) {
    cubecolors[currentface] = static_cast<unsigned char>(face);
    paintfacelet(currentface);
    selectnext();
    highlightbutton(currentface);
    isvalidcube();
}

void flip_cb(Fl_Widget*, void*) {
    flip(currentface);
    setcolors(); // up to three buttons have changed; which, only flip() knows
    isvalidcube();
}

void closecollector(Fl_Widget*, void*) {
    sanecube = finish();
    if (sanecube != 0) {
        needsredraw = 1; // the view has not followed the entries
        gizmo->hide();
        return;
    }
    setcolors(); // finish() has recoloured the cube
    showalert(("Cube coloration is invalid:\n" + std::string(geterrorstring())).c_str());
}

void resetcube(Fl_Widget*, void*) {
    initcubies();
    setcolors();
    sanecube = 1;
    showmessage("Valid Cube!");
}

void handlekeystroke(int key) {
    const int face = colorofkey(key);
    if (face != -1) {
        color_cb(nullptr, face);
    } else if (key == ' ') {
        selectnext();
        highlightbutton(currentface);
    } else if (key == FL_BackSpace) {
        selectprevious();
        highlightbutton(currentface);
    }
}

int color_gizmo::handle(int event) {
    switch (event) {
    // The window itself holds the keyboard, which others pass on to a widget inside.
    case FL_FOCUS:
    case FL_UNFOCUS: return 1;
    case FL_KEYDOWN:
        // Deliberate: NOT-BUGS.md, "Escape does not leave the collector"
        handlekeystroke(Fl::event_key());
        return 1;
    default: return Fl_Window::handle(event);
    }
}

// Building. The net and the colour buttons lie where coloring.h says; all other places are here.

Fl_Button* makebutton(spot where, int w, const char* label) {
    auto* button = new Fl_Button(where.x, where.y, w, buttonsize, label);
    button->clear_visible_focus(); // a focused button would take the space key for a click
    return button;
}

void makebuttons() {
    for (int place = 0; place < placecount; place++) {
        buts[place] =
            makebutton(faceletspot(place), buttonsize, butnames[static_cast<unsigned>(place)].text);
        buts[place]->callback(selectcubie, place);
    }
    for (int face = 0; face < cubefacecount; face++) {
        facecolors[face] = makebutton(colorspot(face), buttonsize, collector::facenames[face]);
        facecolors[face]->callback(color_cb, face);
    }
    makebutton({175, 420}, 75, "Flip/Rotate")->callback(flip_cb);
}

void maketext(int y, const char* text) {
    auto* box = new Fl_Box(FL_NO_BOX, 260, y, 240, 115, text);
    box->align(FL_ALIGN_WRAP | FL_ALIGN_INSIDE);
}

void makegizmo() {
    setrgbfacecolors();
    gizmo = new color_gizmo(510, 470, titletext);
    auto* title = new Fl_Box(FL_NO_BOX, 120, 5, 250, 22, titletext);
    title->labelfont(FL_HELVETICA_BOLD);
    title->labelsize(20);
    makebutton({10, 420}, 75, "Finish")->callback(closecollector);
    makebutton({90, 420}, 80, "Reset")->callback(resetcube);
    makebuttons();
    maketext(35, colorhelp);
    maketext(285, selecthelp);
    message = new Fl_Multiline_Output(10, 285, 115, 115);
    message->clear_visible_focus(); // it would beep at backspace and keep it
    gizmo->end();
    gizmo->callback(closecollector); // of the window manager's button
    gizmo->set_modal();
}

} // namespace

void colorcollector() {
    if (gizmo == nullptr) {
        makegizmo();
    }
    setcolors();
    gizmo->show();
    currentface = 0; // also after an earlier use
    highlightbutton(currentface);
}
