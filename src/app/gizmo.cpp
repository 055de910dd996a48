// SPDX-License-Identifier: MIT
#include "app/gizmo.h"

#include "app/desktop.h"
#include "app/label.h"
#include "app/macrochoice.h"
#include "app/mainwindow.h"
#include "app/userdata.h"
#include "macros/library.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Window.H>

constinit Fl_Window* macrowindow = nullptr;

namespace {

constexpr int buttoncount = 16;
constexpr int nomacro = -1;
constexpr int frame = 2; // what a window manager adds to the side of a window, about

// State

Fl_Button* buttons[buttoncount] = {}; // top to bottom; null until the panel is made

// Keys belong to the main window, also while a window manager gives them to the panel or the mouse,
// which the toolkit asks first for shortcuts, is over it. Escape closes the panel alone.
class panelwindow : public Fl_Window {
  public:
    using Fl_Window::Fl_Window;

    int handle(int event) override {
        switch (event) {
        case FL_PUSH: takekeyboard(); return Fl_Window::handle(event);
        case FL_KEYBOARD: return Fl::event_key() != FL_Escape ? handkey() : 0;
        case FL_SHORTCUT: return Fl::event_key() != FL_Escape ? form->handle(event) : 0;
        default: return Fl_Window::handle(event);
        }
    }

  private:
    static int handkey() {
        takekeyboard();
        const int key = Fl::e_keysym;
        Fl::e_keysym = 0; // an arrow would have the window choose another widget than it had
        form->take_focus();
        Fl::e_keysym = key;
        return Fl::handle(FL_KEYBOARD, form);
    }
};

void makepanel(int x, int y) {
    macrowindow = new panelwindow(x, y, 280, 417);
    macrowindow->xclass("Vexel");
    macrowindow->set_non_modal(); // it belongs to the main window from the moment it is seen
    auto* heading = new Fl_Box(0, 5, 280, 22, "Macro Gizmo");
    heading->labelfont(FL_HELVETICA_BOLD);
    heading->labelsize(20);
    for (int i = 0; i < buttoncount; i++) {
        buttons[i] = new Fl_Button(3, 30 + 24 * i, 274, 22);
        // A long name is cut at the button's edges; else it would be written over the neighbours.
        buttons[i]->align(FL_ALIGN_CENTER | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
        buttons[i]->callback(macbut_cb, userdata(i));
        buttons[i]->clear_visible_focus(); // keys are for the main window
    }
    macrowindow->end();
}

// The panel stays above the window that it belongs to and is kept on the screen by the toolkit. So
// that it covers nothing, the window moves to the left as far as the panel would have to.
void makeroom() {
    const int over = macrowindow->x() + macrowindow->w() + frame - (Fl::x() + Fl::w());
    const bool beside = macrowindow->x() == form->x() + paneldistance;
    if (macrowindow->shown() == 0 && beside && over > 0 && form->x() - over >= Fl::x() + frame) {
        form->position(form->x() - over, form->y());
        macrowindow->position(macrowindow->x() - over, macrowindow->y());
    }
}

// The number goes along with the label, so that the two cannot part.
void setbutton(Fl_Button* button, const std::string& label, int macro) {
    button->copy_label(label.c_str());
    button->callback(macbut_cb, userdata(macro));
}

// Gives the buttons the marked macros; returns how many have one.
int fillpanel() {
    int used = 0;
    for (int i = 0; i < maccount && used < buttoncount; i++) {
        if (showmac[i] != 0) {
            setbutton(buttons[used], plainlabel(macnames[i]), i);
            used++;
        }
    }
    for (int i = used; i < buttoncount; i++) {
        setbutton(buttons[i], "*", nomacro);
    }
    return used;
}

} // namespace

void macrodisplay(int x, int y) {
    if (!form->shown()) {
        return; // the file of the command line is read before the window stands
    }
    if (macrowindow == nullptr) {
        makepanel(x, y);
    }
    if (fillpanel() > 0) {
        makeroom();
        macrowindow->show();
        attachwindow(macrowindow, "Macro Gizmo");
        return;
    }
    macrowindow->hide(); // before the message, which would stand behind it
    if (x == 0 && y == 0) {
        showalert("No macros in gizmo");
    }
}

// A change of the table is no reason to open a panel that its user has closed.
void refreshmacrodisplay() {
    if (macrowindow != nullptr && macrowindow->shown() && fillpanel() == 0) {
        macrowindow->hide();
    }
}

void hidemacrodisplay() {
    if (macrowindow != nullptr) {
        macrowindow->hide();
    }
}

void macbut_cb(Fl_Widget* w, void* data) {
    if (data != userdata(nomacro)) {
        choice_cbx(w, data);
    }
}
