// SPDX-License-Identifier: MIT
//
// The program: builds the one window and enters the toolkit's loop.
//
// The random generator is never seeded: scrambles repeat from run to run, so that two people can
// talk about "the third scramble".
#include "app/desktop.h"
#include "app/driver.h"
#include "app/gizmo.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/my_input.h"
#include "app/ownrandom.h"
#include "app/toolkitstore.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"
#include "model/cube.h"
#include "render/cube_box.h"
#include "render/glscreen.h"
#include "render/projection.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Window.H>
#include <FL/x.H>

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// The toolkit's last words, for instance about a display that cannot be opened.
[[noreturn]] void failure(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::fputs("vexel: ", stderr);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start has done it
    std::vfprintf(stderr, format, arguments);
    std::fputs(".\n", stderr);
    va_end(arguments);
    std::exit(1);
}

// The X server is gone. The process leaves at once: libraries might still want to talk to it.
int lostdisplay(Display*) {
    std::fputs("vexel: The connection to the display was lost.\n", stderr);
    std::_Exit(1);
}

void opendisplay() {
    Fl::fatal = failure;
    setenv("FLTK_BACKEND", "x11", 1); // a newer toolkit would rather have Wayland, and we ask X
    fl_open_display();
    XSetIOErrorHandler(lostdisplay);
    if (!viewpossible()) {
        failure("This display offers no double-buffered OpenGL, which the cube view needs");
    }
}

constexpr char help[] =
    "usage: vexel [macro file]\n"
    "       vexel --help | --version\n"
    "\n"
    "A simulator of the 3x3x3 twisting cube. The macro file is loaded at the start.\n"
    "The manual page vexel(6) tells the rest.\n";

// The two words that are answered without a window, if they are all there is.
bool answered(int argc, char** argv) {
    const std::string_view word = argc == 2 ? argv[1] : "";
    if (word == "--help") {
        std::fputs(help, stdout);
    } else if (word == "--version") {
        std::puts("vexel " VEXEL_VERSION);
    } else {
        return false;
    }
    return true;
}

// One macro file is loaded. What is passed over is told to whoever looks at standard error.
void readarguments(int argc, char** argv) {
    if (argc > 2) {
        std::fprintf(stderr, "vexel: %d arguments are passed over; one may name a macro file.\n",
                     argc - 1);
    } else if (argc == 2 && loadmacrofile(argv[1]) == 0) {
        std::string path = argv[1];
        std::ranges::replace_if(
            path, [](unsigned char c) { return c < ' '; }, '?');
        std::fprintf(stderr, "vexel: The macro file %s cannot be read.\n", path.c_str());
    }
}

// The window is laid out for Helvetica. The toolkit's own choice for it is the system's plain sans
// serif, often a wider face that runs over the frames; asked for by name, Helvetica is matched by a
// face of the same widths where there is one.
void choosefonts() {
#if FL_MINOR_VERSION >= 4
    Fl::set_font(FL_HELVETICA, "Helvetica");
    Fl::set_font(FL_HELVETICA_BOLD, "Helvetica bold");
#else
    Fl::set_font(FL_HELVETICA, " Helvetica");
    Fl::set_font(FL_HELVETICA_BOLD, "BHelvetica");
#endif
}

// Waits until the window is painted, and so on the screen: not before is it known where a window
// manager puts it. One that is not shown, on another desktop for instance, is waited for a second.
void waitforwindow() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    while (form->damage() != 0 && std::chrono::steady_clock::now() < end) {
        Fl::wait(0.01);
    }
}

// A window manager gave the keyboard to the window that came last, the panel. The view gets it
// back, unless the hasty have it by now in the macro line, or in a dialog, which some versions of
// the toolkit would put the window in front of.
void regainkeyboard() {
    if (Fl::modal() != nullptr) {
        return;
    }
    takekeyboard();
    if (Fl::focus() != inp) {
        cube->take_focus();
    }
}

} // namespace

int main(int argc, char** argv) {
    if (answered(argc, argv)) {
        return 0;
    }
    givehomeback();
    partrandom();
    opendisplay();
    introducewindows();
    choosefonts();
    initdrawface();
    initcubies();
    makeform("Vexel's Cube Simulator");
    form->xclass("Vexel");
    holdalerts();
    readprefs();
    readarguments(argc, argv);
    fitform(Fl::w(), Fl::h());
    form->show();
    cube->show();
    cube->take_focus();
    initcubies();
    waitforwindow();
    macrodisplay(form->x() + paneldistance, form->y());
    regainkeyboard();
    Fl::add_idle(IdleFunc, nullptr);
    tellheldalerts();
    return Fl::run();
}
