// SPDX-License-Identifier: MIT
#include "app/desktop.h"

#include "app/icon.h"
#include "app/mainwindow.h"

#include <FL/Fl.H>
#include <FL/Fl_Window.H>
#include <FL/x.H>
#include <X11/Xatom.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cstring>
#include <unistd.h>
#include <vector>

namespace {

// State

std::vector<Window> introduced; // of the windows that are shown

Atom atom(const char* name) {
    return XInternAtom(fl_display, name, False);
}

void setproperty(Window window, const char* name, Atom type, int format, const void* data,
                 std::size_t count) {
    XChangeProperty(fl_display, window, atom(name), type, format, PropModeReplace,
                    static_cast<const unsigned char*>(data), static_cast<int>(count));
}

// The sizes that lists of windows, panels and switchers ask for.
std::vector<unsigned long> allicons() {
    std::vector<unsigned long> numbers; // X wants longs, whatever their size
    for (const unsigned long size : {16UL, 32UL, 48UL, 64UL}) {
        numbers.insert(numbers.end(), {size, size});
        for (const std::uint32_t pixel : makeicon(static_cast<int>(size))) {
            numbers.push_back(pixel);
        }
    }
    return numbers;
}

// By class and icon a desktop tells windows apart; by host and process it can end a program that no
// longer answers.
void introduce(Window window) {
    static const std::vector<unsigned long> icons = allicons();
    static const char name[] = "vexel\0Vexel"; // the program and its class
    char host[256] = {};
    gethostname(host, sizeof host - 1);
    const unsigned long pid = static_cast<unsigned long>(getpid());
    setproperty(window, "WM_CLASS", XA_STRING, 8, name, sizeof name);
    setproperty(window, "WM_CLIENT_MACHINE", XA_STRING, 8, host, std::strlen(host));
    setproperty(window, "_NET_WM_PID", XA_CARDINAL, 32, &pid, 1);
    setproperty(window, "_NET_WM_ICON", XA_CARDINAL, 32, icons.data(), icons.size());
}

// Runs whenever the toolkit is about to wait, and so before a new window is seen by anybody.
void introducenew(void*) {
    if (Fl::grab() != nullptr) {
        return; // a menu is open, whose windows no manager sees
    }
    static std::vector<Window> shown; // kept for its room: this runs at each turn of the loop
    shown.clear();
    for (Fl_Window* w = Fl::first_window(); w != nullptr; w = Fl::next_window(w)) {
        if (w->parent() == nullptr && w->override() == 0) {
            shown.push_back(fl_xid(w));
            if (std::ranges::count(introduced, shown.back()) == 0) {
                introduce(shown.back());
            }
        }
    }
    introduced.swap(shown);
}

} // namespace

void introducewindows() {
    Fl::add_check(introducenew);
}

// Both names: the newer property is the one in UTF-8, and the older one is all that some managers
// know. A window that is transient for another stays above it and has no place of its own in lists.
void attachwindow(Fl_Window* window, const char* name) {
    const Window id = fl_xid(window);
    setproperty(id, "_NET_WM_NAME", atom("UTF8_STRING"), 8, name, std::strlen(name));
    XStoreName(fl_display, id, name);
    XSetTransientForHint(fl_display, id, fl_xid(form));
}

// Asked of the manager and not taken from it: one that keeps programs from stealing the keyboard
// looks at who asks and when the user last did something there.
void takekeyboard() {
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = fl_xid(form);
    event.xclient.message_type = atom("_NET_ACTIVE_WINDOW");
    event.xclient.format = 32;
    event.xclient.data.l[0] = 1; // the message comes from a program, not from a pager
    event.xclient.data.l[1] = static_cast<long>(fl_event_time);
    const long mask = SubstructureRedirectMask | SubstructureNotifyMask;
    XSendEvent(fl_display, RootWindow(fl_display, fl_screen), False, mask, &event);
}
