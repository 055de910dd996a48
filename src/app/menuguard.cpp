// SPDX-License-Identifier: MIT
#include "app/menuguard.h"

#include "app/mainwindow.h"

#include <FL/Fl.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Menu_Window.H>
#include <FL/Fl_Window.H>

namespace {

constexpr int frame = 4;      // pixels around the rows of a menu that may belong to none
constexpr int titleroom = 16; // what the toolkit leaves around each title of a menu bar

bool within(const Fl_Window& w, int x, int y, int margin) {
    return x >= w.x() + margin && x < w.x() + w.w() - margin && y >= w.y() + margin &&
           y < w.y() + w.h() - margin;
}

// Where the titles of the bar end, from its left edge.
int titlesend() {
    int end = 0;
    for (const Fl_Menu_Item* title = menubar->menu(); title->text != nullptr;
         title = title->next()) {
        end += title->measure(nullptr, menubar) + titleroom;
    }
    return end;
}

bool goesback() {
    const int key = Fl::event_key();
    constexpr int backtab = 0xfe20;
    return key == FL_Up || key == FL_BackSpace || key == backtab ||
           (key == FL_Tab && Fl::event_state(FL_SHIFT) != 0);
}

bool endsmenu() {
    const int key = Fl::event_key();
    return key == FL_Escape || key == FL_Enter || key == FL_KP_Enter || key == ' ';
}

class menu_guard : public Fl_Window {
  public:
    menu_guard() : Fl_Window(1, 1) { end(); }

    void guard(Fl_Window* open) {
        menu = open;
        unmarked = false;
        leaving = false;
        Fl::grab(this);
    }

    // As the toolkit does with a menu that goes.
    void letgo() {
        menu = nullptr;
        if (Fl::pushed() == this) {
            Fl::pushed(nullptr);
        }
    }

    // What began in a menu may end when it is gone: a button that closed it is let go.
    int handle(int event) override {
        if (Fl::grab() != this) {
            letgo();
            return 0;
        }
        switch (event) {
        case FL_MOVE: return onrow() ? pointed(event) : 1;
        case FL_PUSH:
        case FL_DRAG: return pointed(event);
        case FL_KEYBOARD: return leaving || (unmarked && goesback()) ? 1 : typed();
        default: return menu->handle(event);
        }
    }

  private:
    // Whether the mouse is on a row or on a title, for certain.
    bool onrow() const {
        const int x = Fl::event_x_root();
        const int y = Fl::event_y_root();
        if (menu->shown() == 0 && within(*menu, x, y, 0)) { // the bar, which needs no window
            return x - menu->x() < titlesend();
        }
        for (Fl_Window* w = Fl::first_window(); w != nullptr; w = Fl::next_window(w)) {
            if (dynamic_cast<Fl_Menu_Window*>(w) != nullptr && within(*w, x, y, frame)) {
                return true;
            }
        }
        return false;
    }

    // A press outside closes the menu. What is typed until the toolkit's loop sees that is for
    // nobody.
    int pointed(int event) {
        unmarked = !onrow();
        leaving = leaving || (unmarked && event == FL_PUSH);
        return menu->handle(event);
    }

    int typed() {
        leaving = endsmenu();
        return menu->handle(FL_KEYBOARD);
    }

    Fl_Window* menu = nullptr;
    bool unmarked = false; // perhaps no row is
    bool leaving = false;
};

// State

constinit menu_guard* guarding = nullptr;

} // namespace

void guardmenu() {
    Fl_Window* open = Fl::grab();
    if (open == nullptr && guarding != nullptr) {
        guarding->letgo();
    }
    if (open == nullptr || open == guarding) {
        return;
    }
    if (guarding == nullptr) {
        Fl_Group* const built = Fl_Group::current();
        Fl_Group::current(nullptr);
        guarding = new menu_guard;
        Fl_Group::current(built);
    }
    guarding->guard(open);
}
