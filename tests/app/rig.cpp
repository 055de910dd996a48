// SPDX-License-Identifier: MIT
#include "app/rig.h"

#include "app/dispatch.h"
#include "app/driver.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "model/undo.h"
#include "render/animation.h"
#include "render/cube_box.h"
#include "render/projection.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Window.H>
#include <FL/gl.h>
#include <FL/x.H>
#include <X11/keysym.h>

#include <cstdlib>
#include <cstring>

namespace {

std::function<void()> pendinganswer;

void answerbox(void*) {
    const std::vector<windowid> windows = screen().windows();
    if (Fl::modal() == nullptr || Fl::modal()->shown() == 0 ||
        windows.back() != fl_xid(Fl::modal())) {
        Fl::repeat_timeout(0.01, answerbox);
        return;
    }
    screen().focus(windows.back());
    pendinganswer();
}

struct box_count {
    bool open = false;  // a box is there
    double pressed = 0; // when its key was
    int boxes = 0;
};

// Presses again only after a while: what is pressed twice would close the next box, too.
void leavebox(void* data) {
    constexpr double patience = 2; // seconds
    auto& count = *static_cast<box_count*>(data);
    const bool open = Fl::modal() != nullptr && Fl::modal()->shown() != 0;
    const std::vector<windowid> windows = screen().windows();
    const bool there = open && !windows.empty() && windows.back() == fl_xid(Fl::modal());
    if (there && (!count.open || now() > count.pressed + patience)) {
        count.boxes += count.open ? 0 : 1;
        count.open = true;
        count.pressed = now();
        screen().focus(windows.back());
        screen().press(XK_Escape);
    }
    count.open = count.open && open;
    Fl::repeat_timeout(0.02, leavebox, data);
}

void buildwindow() {
    static scratchfolder home; // for the preferences
    setenv("HOME", home.path().c_str(), 1);
    setenv("DISPLAY", screen().name().c_str(), 1);
    initdrawface();
    makeform("Vexel's Cube Simulator");
    form->show();
    cube->show();
    Fl::add_idle(IdleFunc, nullptr);
    for (int i = 0; i < 50; i++) {
        Fl::wait(0.01);
    }
    screen().focus(screen().windows().back());
}

} // namespace

xserver& screen() {
    static xserver server;
    return server;
}

void openwindow() {
    if (form == nullptr) {
        buildwindow();
    }
    resetmodel();
    singlestepptr = 0;
    tryhard = 0;
    showrear = 1;
    inp->value("");
    cube->take_focus();
    if (Fl::has_idle(IdleFunc, nullptr) == 0) {
        Fl::remove_timeout(timeoutfunc, nullptr);
        Fl::add_idle(IdleFunc, nullptr);
    }
}

void pass() {
    Fl::wait(0.2);
}

int passestoend() {
    int passes = 0;
    while (turnmode != noturn) {
        pass();
        passes++;
    }
    return passes;
}

void settle() {
    while (turnmode != noturn || turns[turn] != noturn || needsredraw != 0) {
        pass();
    }
}

std::string coloursafter(const char* macro) {
    unsigned char savedcolors[54];
    std::memcpy(savedcolors, cubecolors, sizeof savedcolors);
    initcubies();
    parsing = 0;
    parsestring(macro, static_cast<int>(std::strlen(macro)));
    std::string colours(reinterpret_cast<const char*>(cubecolors), 54);
    std::memcpy(cubecolors, savedcolors, sizeof savedcolors);
    return colours;
}

std::string colours() {
    return {reinterpret_cast<const char*>(cubecolors), 54};
}

void queuemacro(const char* macro) {
    parsing = 1;
    parsestring(macro, static_cast<int>(std::strlen(macro)));
    parsing = 0;
}

rectangle viewonscreen() {
    const rectangle window = screen().place(fl_xid(form));
    return {window.x + cube->x(), window.y + cube->y(), cube->w(), cube->h()};
}

picture exposedview() {
    cube->redraw();
    Fl::flush();
    glFinish();
    XSync(fl_display, 0);
    return screen().screenshot(viewonscreen());
}

std::string boxtext() {
    const Fl_Window* box = Fl::modal();
    for (int i = 0; i < box->children(); i++) {
        const char* label = box->child(i)->label();
        if (dynamic_cast<const Fl_Box*>(box->child(i)) != nullptr && label != nullptr &&
            box->child(i)->w() > 50) {
            return label;
        }
    }
    return "no text";
}

std::string shownby(const std::function<void()>& message) {
    std::string text = "no box";
    withdialog(message, [&] {
        text = boxtext();
        screen().press(XK_Return);
    });
    return text;
}

int boxesof(const std::function<void()>& command) {
    box_count count;
    Fl::add_timeout(0.01, leavebox, &count);
    command();
    Fl::remove_timeout(leavebox, &count);
    return count.boxes;
}

void withdialog(const std::function<void()>& dialog, const std::function<void()>& answer) {
    pendinganswer = answer;
    Fl::add_timeout(0.01, answerbox);
    dialog();
}
