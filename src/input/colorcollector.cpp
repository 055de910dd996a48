// SPDX-License-Identifier: MIT
#include "input/colorcollector.h"

#include "input/collectorlayout.h"
#include "input/coloring.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Multiline_Output.H>
#include <FL/Fl_Window.H>

#include <string>

constinit int sanecube = 1;
constinit Fl_Button* buts[placecount] = {};
constinit Fl_Button* facecolors[cubefacecount] = {};

namespace collector {

namespace {

static_assert(namedblack == FL_BLACK);

// The dialog's window. All it adds is that every key goes to handlekeystroke: no button ever has
// the keyboard focus.
class color_gizmo : public Fl_Window {
  public:
    using Fl_Window::Fl_Window;
    int handle(int event) override;
};

// State

constinit color_gizmo* gizmo = nullptr;           // null until the first use
constinit Fl_Multiline_Output* message = nullptr; // the verdict
constinit int highlighted = -1;                   // place of the highlighted button; -1 for none

// The label too, or it could not be read on some of the thirteen colours.
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
        facecolors[face]->label(facenames[face]);
        paint(facecolors[face], flcubecolors[face]);
    }
}

void isvalidcube() {
    std::string text;
    sanecube = judge(text);
    if (sanecube == 0) {
        message->wrap(1); // for good: the short text is not changed by it
    }
    message->value(text.c_str());
}

void setlabel(Fl_Button* button, int size, Fl_Font font) {
    button->labelsize(static_cast<uchar>(size));
    button->labelfont(font);
    button->redraw();
}

// Marks button i as the selected one, in place of the one marked before.
void highlightbutton(int i) {
    if (highlighted >= 0) {
        setlabel(buts[highlighted], plainsize, FL_HELVETICA);
    }
    setlabel(buts[i], boldsize, FL_HELVETICA_BOLD);
    highlighted = i;
}

// Callbacks. Mouse and keyboard end in the same ones; none of them refuses a colouring.

void selectcubie(Fl_Widget*, long place) {
    currentface = static_cast<int>(place);
    highlightbutton(currentface);
}

// Made for 54 letters typed in a row: the selection moves on by itself, and the verdict is there
// with the last one.
void color_cb(Fl_Widget*, long face) {
    cubecolors[currentface] = static_cast<unsigned char>(face);
    paintfacelet(currentface);
    selectnext();
    highlightbutton(currentface);
    isvalidcube();
}

// A centre is left alone, and with it the verdict, which may be an older one.
void flip_cb(Fl_Widget*, void*) {
    if (flip(currentface)) {
        setcolors(); // two or three buttons have changed; which, only flip() knows
        isvalidcube();
    }
}

// The only way out of the dialog: a cube that cannot be solved stays inside it.
void closecollector(Fl_Widget*, void*) {
    std::string reason;
    sanecube = finish(reason);
    if (sanecube != 0) {
        needsredraw = 1; // the view has not followed the entries
        gizmo->hide();
        return;
    }
    setcolors(); // finish() may have recoloured the cube
    showalert(("Cube coloration is invalid:\n" + reason).c_str());
}

// The solved cube is legal: the verdict says so without being told.
void resetcube(Fl_Widget*, void*) {
    initcubies();
    setcolors();
    isvalidcube();
}

// The letters come first. None of them can be a blank: what is no valid letter is typed as "?".
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

// Building. All places are those of collectorlayout.h.

Fl_Button* makebutton(const area& at, const char* label) {
    auto* button = new Fl_Button(at.x, at.y, at.w, at.h, label);
    button->clear_visible_focus(); // a focused button would take the space key for a click
    return button;
}

// The toolkit keeps pointers to labels: butnames and facenames are never moved, and a new letter in
// facenames is a new label.
void makebuttons() {
    for (int place = 0; place < placecount; place++) {
        buts[place] = makebutton(faceletarea(place), butnames[static_cast<unsigned>(place)].text);
        buts[place]->callback(selectcubie, place);
    }
    for (int face = 0; face < cubefacecount; face++) {
        facecolors[face] = makebutton(colorarea(face), facenames[face]);
        facecolors[face]->callback(color_cb, face);
    }
    makebutton(fliparea, fliptext)->callback(flip_cb);
}

Fl_Box* makebox(const area& at, const char* text) {
    return new Fl_Box(FL_NO_BOX, at.x, at.y, at.w, at.h, text);
}

void makehelp(const area& at, const char* text) {
    makebox(at, text)->align(FL_ALIGN_WRAP | FL_ALIGN_INSIDE);
}

void maketitle() {
    Fl_Box* title = makebox(titlearea, titletext);
    title->labelfont(FL_HELVETICA_BOLD);
    title->labelsize(titlesize);
}

void makemessage() {
    const area& at = messagearea;
    message = new Fl_Multiline_Output(at.x, at.y, at.w, at.h);
    message->clear_visible_focus(); // it would beep at backspace and keep it
}

void makegizmo() {
    setrgbfacecolors();
    gizmo = new color_gizmo(dialogwidth, dialogheight, titletext);
    maketitle();
    makebutton(finisharea, finishtext)->callback(closecollector);
    makebutton(resetarea, resettext)->callback(resetcube);
    makebuttons();
    makehelp(colorhelparea, colorhelp);
    makehelp(selecthelparea, selecthelp);
    makemessage();
    gizmo->end();
    gizmo->callback(closecollector); // of the window manager's button
    gizmo->set_modal();              // turns by hand would change what is being entered
}

void opengizmo() {
    if (gizmo == nullptr) {
        makegizmo();
    }
    setcolors();
    message->value(""); // the verdict of an earlier use is about another cube
    gizmo->show();
    currentface = 0; // also after an earlier use
    highlightbutton(currentface);
}

} // namespace

} // namespace collector

void colorcollector() {
    collector::opengizmo();
}
