// SPDX-License-Identifier: MIT
#include "window/xserver.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

constexpr double patience = 30; // seconds for a server or a window manager to come up

// The toolkit tells the repeats of a held key from real presses by their times being equal, so two
// key events must not fall into one millisecond; from a person's hand they never do.
constexpr std::chrono::microseconds typingpause(1200);

// A window may vanish between being listed and being asked about; that is no mistake of the test.
int ignoreerror(Display*, XErrorEvent*) {
    return 0;
}

// The number that the server writes into the pipe once it can be reached; "" if it never does.
std::string readnumber(int pipe) {
    std::string number;
    const double end = now() + patience;
    while (number.empty() || number.back() != '\n') {
        pollfd ready = {pipe, POLLIN, 0};
        char byte = 0;
        const int left = static_cast<int>((end - now()) * 1000);
        if (left <= 0 || poll(&ready, 1, left) <= 0 || read(pipe, &byte, 1) != 1) {
            return "";
        }
        number += byte;
    }
    number.pop_back();
    return number;
}

// The windows directly in w, bottom first.
std::vector<windowid> inside(Display* display, windowid w) {
    Window root = 0;
    Window parent = 0;
    Window* list = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, w, &root, &parent, &list, &count) == 0) {
        return {};
    }
    std::vector<windowid> found(list, list + count);
    if (list != nullptr) {
        XFree(list);
    }
    return found;
}

// A window that a program opened for itself says which messages of a window manager it takes. It
// lies on the screen itself or, with a window manager, in a frame.
void findwindows(Display* display, windowid w, int depth, std::vector<windowid>& found) {
    for (windowid child : inside(display, w)) {
        XWindowAttributes attributes = {};
        Atom* protocols = nullptr;
        int count = 0;
        if (XGetWindowAttributes(display, child, &attributes) == 0 ||
            attributes.map_state != IsViewable) {
            continue;
        }
        if (XGetWMProtocols(display, child, &protocols, &count) != 0) {
            XFree(protocols);
            found.push_back(child);
        } else if (depth > 0) {
            findwindows(display, child, depth - 1, found);
        }
    }
}

// 0..255. Nearly every screen has eight bits a channel, and a picture many pixels.
int channel(unsigned long pixel, unsigned long mask) {
    const unsigned long most = mask >> std::countr_zero(mask);
    const unsigned long value = (pixel & mask) >> std::countr_zero(mask);
    return static_cast<int>(most == 255 ? value : value * 255 / most);
}

// The key and the Shift state that make keysym on this keyboard; key 0 if none does.
std::pair<KeyCode, bool> findkey(Display* display, KeySym keysym) {
    const KeyCode code = XKeysymToKeycode(display, keysym);
    if (code == 0) {
        return {code, false};
    }
    for (unsigned level : {0U, 1U}) {
        if (XkbKeycodeToKeysym(display, code, 0, level) == keysym) {
            return {code, level == 1};
        }
    }
    return {0, false};
}

constexpr std::pair<int, KeySym> modifierkeys[] = {
    {shift_key, XK_Shift_L  },
    {ctrl_key,  XK_Control_L},
    {alt_key,   XK_Alt_L    },
    {super_key, XK_Super_L  },
};

// Openbox opens this menu on a click beside all windows; its own has an entry that ends openbox.
void writeemptymenu(const std::string& homepath) {
    const std::filesystem::path folder = std::filesystem::path(homepath) / ".config" / "openbox";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "menu.xml") << R"(<openbox_menu xmlns="http://openbox.org/3.4/menu">)"
                                       << R"(<menu id="root-menu" label="none"/></openbox_menu>)";
}

} // namespace

xserver::xserver(const xserver_settings& settings)
    : width(settings.width), height(settings.height) {
    startserver(settings);
    XSetErrorHandler(ignoreerror);
    connection = XOpenDisplay(display_name.c_str());
    if (connection == nullptr) {
        throw std::runtime_error("cannot open the display " + display_name);
    }
    const Window root = DefaultRootWindow(connection);
    own = XCreateSimpleWindow(connection, root, -10, -10, 1, 1, 0, 0, 0);
    if (settings.windowmanager) {
        startmanager();
    }
    movemouse(width - 1, height - 1);
}

xserver::~xserver() {
    endserver();
}

void xserver::endserver() {
    manager.reset();
    if (connection != nullptr) {
        XCloseDisplay(connection);
        connection = nullptr;
    }
    server.reset();
}

void xserver::startserver(const xserver_settings& settings) {
    int pipe[2];
    if (pipe2(pipe, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe for the virtual display");
    }
    const std::string screen =
        std::to_string(width) + "x" + std::to_string(height) + "x" + std::to_string(settings.depth);
    process_settings xvfb;
    xvfb.command = {"Xvfb",
                    "-displayfd",
                    std::to_string(pipe[1]),
                    "-screen",
                    "0",
                    screen,
                    "-noreset",
                    "-nolisten",
                    "tcp",
                    settings.keyrepeat ? "r" : "-r"};
    xvfb.command.insert(xvfb.command.end(), settings.arguments.begin(), settings.arguments.end());
    xvfb.kept = pipe[1];
    server = std::make_unique<process>(xvfb);
    ::close(pipe[1]);
    const std::string number = readnumber(pipe[0]);
    ::close(pipe[0]);
    if (number.empty()) {
        throw std::runtime_error("Xvfb does not start; is it installed?");
    }
    display_name = ":" + number;
}

void xserver::startmanager() {
    const char* other = std::getenv("VEXEL_MANAGER");
    const std::string command = other != nullptr ? other : "openbox --sm-disable";
    home = std::make_unique<scratchfolder>();
    writeemptymenu(home->path());
    process_settings settings;
    settings.command = {"sh", "-c", "exec " + command};
    settings.environment = {
        {"DISPLAY",         display_name},
        {"HOME",            home->path()},
        {"XDG_CONFIG_HOME", ""          }
    };
    manager = std::make_unique<process>(settings);
    const bool up = waitfor(patience, [this] {
        return !property(DefaultRootWindow(connection), "_NET_SUPPORTING_WM_CHECK").empty();
    });
    if (!up) {
        throw std::runtime_error("the window manager does not start: " + command);
    }
}

void xserver::endmanager() {
    manager.reset();
    // Some leave it behind.
    XDeleteProperty(connection, DefaultRootWindow(connection),
                    XInternAtom(connection, "_NET_SUPPORTING_WM_CHECK", 0));
    XSync(connection, 0);
}

std::vector<windowid> xserver::windows() const {
    std::vector<windowid> found;
    findwindows(connection, DefaultRootWindow(connection), 2, found);
    return found;
}

std::vector<windowid> xserver::popups(windowid window) const {
    constexpr windowid clientmask = ~0x1fffffUL; // what the ids of one program have in common
    std::vector<windowid> found;
    for (windowid w : inside(connection, DefaultRootWindow(connection))) {
        XWindowAttributes attributes = {};
        if ((w & clientmask) == (window & clientmask) &&
            XGetWindowAttributes(connection, w, &attributes) != 0 &&
            attributes.map_state == IsViewable && attributes.override_redirect != 0) {
            found.push_back(w);
        }
    }
    return found;
}

std::vector<windowid> xserver::children(windowid window) const {
    return inside(connection, window);
}

std::string xserver::property(windowid window, const char* name) const {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const Atom atom = XInternAtom(connection, name, 0);
    if (XGetWindowProperty(connection, window, atom, 0, 4096, 0, AnyPropertyType, &type, &format,
                           &count, &left, &data) != Success ||
        data == nullptr) {
        return "";
    }
    const unsigned long itemsize = format == 32 ? sizeof(long) : format / 8;
    std::string value(reinterpret_cast<char*>(data), count * itemsize);
    XFree(data);
    return value;
}

unsigned long xserver::number(windowid window, const char* name) const {
    const std::string value = property(window, name);
    unsigned long first = 0;
    std::memcpy(&first, value.data(), std::min(sizeof first, value.size()));
    return first;
}

windowid xserver::focused() const {
    Window has = 0;
    int revert = 0;
    XGetInputFocus(connection, &has, &revert);
    return has;
}

std::string xserver::title(windowid window) const {
    return property(window, "WM_NAME");
}

rectangle xserver::place(windowid window) const {
    XWindowAttributes attributes = {};
    Window child = 0;
    rectangle r = {0, 0, 0, 0};
    if (XGetWindowAttributes(connection, window, &attributes) == 0) {
        return r;
    }
    XTranslateCoordinates(connection, window, attributes.root, 0, 0, &r.x, &r.y, &child);
    return {r.x, r.y, attributes.width, attributes.height};
}

bool xserver::visible(windowid window) const {
    XWindowAttributes attributes = {};
    return XGetWindowAttributes(connection, window, &attributes) != 0 &&
           attributes.map_state == IsViewable;
}

void xserver::askmanager(windowid window, const char* what, long first, long second) const {
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(connection, what, 0);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = second;
    XSendEvent(connection, DefaultRootWindow(connection), 0,
               SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XSync(connection, 0);
}

void xserver::move(windowid window, int x, int y) const {
    XMoveWindow(connection, window, x, y);
    XSync(connection, 0);
}

void xserver::minimise(windowid window) const {
    XIconifyWindow(connection, window, DefaultScreen(connection));
    XSync(connection, 0);
}

void xserver::rollup(windowid window, bool up) const {
    const auto shaded = static_cast<long>(XInternAtom(connection, "_NET_WM_STATE_SHADED", 0));
    askmanager(window, "_NET_WM_STATE", up ? 1 : 0, shaded);
}

void xserver::activate(windowid window) const {
    askmanager(window, "_NET_ACTIVE_WINDOW", 2); // as a pager asks
}

void xserver::todesktop(windowid window, int number) const {
    askmanager(window, "_NET_WM_DESKTOP", number, 2); // as a pager asks
}

void xserver::godesktop(int number) const {
    askmanager(DefaultRootWindow(connection), "_NET_CURRENT_DESKTOP", number);
}

// A window manager would take its own idea of the focus back, so it is asked for the favour.
void xserver::focus(windowid window) const {
    if (managed()) {
        activate(window);
    } else {
        XSetInputFocus(connection, window, RevertToParent, CurrentTime);
    }
    const bool done = waitfor(5, [this, window] { return focused() == window; });
    if (!done && visible(window)) {
        throw std::runtime_error("a window does not get the keyboard: " + title(window));
    }
}

void xserver::close(windowid window) const {
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(connection, "WM_PROTOCOLS", 0);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(connection, "WM_DELETE_WINDOW", 0));
    XSendEvent(connection, window, 0, NoEventMask, &event);
    XSync(connection, 0);
}

void xserver::resize(windowid window, int w, int h) const {
    XResizeWindow(connection, window, static_cast<unsigned>(w), static_cast<unsigned>(h));
    XSync(connection, 0);
}

windowid xserver::cover(rectangle r) const {
    XSetWindowAttributes attributes = {};
    attributes.override_redirect = 1;
    attributes.background_pixel = WhitePixel(connection, DefaultScreen(connection));
    const Window window =
        XCreateWindow(connection, DefaultRootWindow(connection), r.x, r.y,
                      static_cast<unsigned>(r.w), static_cast<unsigned>(r.h), 0, CopyFromParent,
                      InputOutput, nullptr, CWOverrideRedirect | CWBackPixel, &attributes);
    XMapRaised(connection, window);
    XSync(connection, 0);
    return window;
}

void xserver::uncover(windowid window) const {
    XDestroyWindow(connection, window);
    XSync(connection, 0);
}

void xserver::movemouse(int x, int y) const {
    XTestFakeMotionEvent(connection, -1, x, y, CurrentTime);
    XSync(connection, 0);
}

bool xserver::buttonheld(int number) const {
    Window root = 0;
    Window child = 0;
    int x = 0;
    int y = 0;
    unsigned held = 0;
    XQueryPointer(connection, own, &root, &child, &x, &y, &x, &y, &held);
    return (held & (Button1Mask << (number - 1))) != 0;
}

// A window manager may look at a press before the program does, and the server keeps the events of
// the mouse back so long; those of the keyboard would overtake them.
void xserver::button(int number, bool down) const {
    XTestFakeButtonEvent(connection, static_cast<unsigned>(number), down, CurrentTime);
    XSync(connection, 0);
    waitfor(patience, [=, this] { return buttonheld(number) == down; });
}

void xserver::key(unsigned long keysym, bool down) const {
    const KeyCode code = findkey(connection, keysym).first;
    if (code == 0) {
        throw std::runtime_error(std::string("no such key: ") + XKeysymToString(keysym));
    }
    holdkey(code, down);
}

void xserver::hold(int modifiers) const {
    for (const auto& [bit, keysym] : modifierkeys) {
        if ((modifiers & bit) != 0) {
            key(keysym, true);
        }
    }
}

void xserver::release(int modifiers) const {
    for (const auto& [bit, keysym] : modifierkeys) {
        if ((modifiers & bit) != 0) {
            key(keysym, false);
        }
    }
}

void xserver::click(int x, int y, int modifiers, int number) const {
    movemouse(x, y);
    hold(modifiers);
    button(number, true);
    button(number, false);
    release(modifiers);
}

void xserver::press(unsigned long keysym, int modifiers) const {
    hold(modifiers);
    key(keysym, true);
    key(keysym, false);
    release(modifiers);
}

void xserver::presskey(unsigned char code, int modifiers) const {
    hold(modifiers);
    holdkey(code, true);
    holdkey(code, false);
    release(modifiers);
}

void xserver::holdkey(unsigned char code, bool down) const {
    std::this_thread::sleep_until(lastkey + typingpause);
    XTestFakeKeyEvent(connection, code, down, CurrentTime);
    XSync(connection, 0);
    lastkey = std::chrono::steady_clock::now();
}

unsigned char xserver::place(char letter) const {
    Display* fresh = XOpenDisplay(display_name.c_str()); // an older one knows the layout of then
    const KeyCode code = XKeysymToKeycode(fresh, static_cast<KeySym>(letter));
    XCloseDisplay(fresh);
    return code;
}

void xserver::setlayout(const std::string& layout) const {
    process_settings settings;
    settings.command = {"setxkbmap", "-display", display_name, "-layout", layout};
    process change(settings);
    if (change.waitexit(patience) != 0) {
        throw std::runtime_error("no keyboard layout " + layout);
    }
}

void xserver::lockgroup(unsigned group) const {
    XkbLockGroup(connection, XkbUseCoreKbd, group);
    XSync(connection, 0);
}

void xserver::emptyline() const {
    press(XK_End);
    press(XK_Home, shift_key);
    press(XK_BackSpace);
}

void xserver::type(const std::string& ascii) const {
    for (char c : ascii) {
        const KeySym keysym = c == '\n'   ? XK_Return
                              : c == '\t' ? XK_Tab
                                          : static_cast<KeySym>(c & 127);
        const auto [code, shifted] = findkey(connection, keysym);
        if (code != 0) {
            press(keysym, shifted ? shift_key : 0);
        }
    }
}

void xserver::ownselection() const {
    XSetSelectionOwner(connection, XA_PRIMARY, own, CurrentTime);
    XSync(connection, 0);
}

// Answers one waiting request for the selection; false if there is none.
bool xserver::answerselection(const std::string& text) const {
    XEvent event = {};
    if (XCheckTypedWindowEvent(connection, own, SelectionRequest, &event) == 0) {
        return false;
    }
    const XSelectionRequestEvent request = event.xselectionrequest;
    XChangeProperty(connection, request.requestor, request.property, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
    XEvent answer = {};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = request.requestor;
    answer.xselection.selection = request.selection;
    answer.xselection.target = XA_STRING;
    answer.xselection.property = request.property;
    answer.xselection.time = request.time;
    XSendEvent(connection, request.requestor, 0, NoEventMask, &answer);
    XSync(connection, 0);
    return true;
}

bool xserver::serveselection(const std::string& text, double seconds) const {
    return waitfor(seconds, [this, &text] { return answerselection(text); });
}

picture xserver::screenshot() const {
    return screenshot({0, 0, width, height});
}

picture xserver::screenshot(rectangle r) const {
    const int left = std::clamp(r.x, 0, width - 1);
    const int top = std::clamp(r.y, 0, height - 1);
    const int w = std::clamp(r.x + r.w - left, 1, width - left);
    const int h = std::clamp(r.y + r.h - top, 1, height - top);
    XImage* image =
        XGetImage(connection, DefaultRootWindow(connection), left, top, static_cast<unsigned>(w),
                  static_cast<unsigned>(h), AllPlanes, ZPixmap);
    if (image == nullptr) {
        throw std::runtime_error("no picture of the screen");
    }
    picture taken(w, h);
    for (int y = 0; y < h; y++) {
        for (int x = 0; x < w; x++) {
            const unsigned long pixel = XGetPixel(image, x, y);
            taken.set(x, y,
                      {channel(pixel, image->red_mask), channel(pixel, image->green_mask),
                       channel(pixel, image->blue_mask)});
        }
    }
    XDestroyImage(image);
    return taken;
}
