// SPDX-License-Identifier: MIT
//
// xserver: a private screen without a monitor, with a mouse and a keyboard that tests hold.
//
// Purpose   an Xvfb of the test's own, on the first free display number, so that tests run side by
//           side and on machines without a screen. Events are real ones (XTest): they reach the
//           program as those of a person do, through the window manager if there is one.
// Units     pixels from the top left corner of the screen.
// Waiting   an event is delivered when the call returns, but not yet acted on by the program: wait
//           for what it should lead to (waitfor, process.h).
// Errors    throws std::runtime_error when the server cannot be started.
// Callers   program (program.h) for all that is special to one program; tests for the rest.
//
// Keys do not repeat while held, unless asked for, so that a test sees exactly the presses it made.
// Without a window manager nobody gives the keyboard to a new window: focus() does.
#pragma once

#include "window/picture.h"
#include "window/process.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

struct _XDisplay;

using windowid = unsigned long; // an X window; 0 is none

enum modifier { shift_key = 1, ctrl_key = 2, alt_key = 4, super_key = 8 }; // to be added up

struct xserver_settings {
    bool windowmanager = false; // openbox, too
    bool keyrepeat = false;     // held keys repeat
    int depth = 24;             // bits of a pixel
    int width = 1280;           // of the screen
    int height = 800;
    std::vector<std::string> arguments = {}; // more arguments for Xvfb
};

class xserver {
  public:
    explicit xserver(const xserver_settings& settings = {});
    ~xserver(); // ends the server; what still runs on it loses its display
    xserver(const xserver&) = delete;
    xserver& operator=(const xserver&) = delete;

    void endserver(); // only the destructor may be called after this

    const std::string& name() const { return display_name; } // ":99"

    bool managed() const { return manager != nullptr; } // whether a window manager runs

    // Starts openbox, or what the environment variable VEXEL_MANAGER holds: a command by which any
    // test can be tried under another window manager.
    void startmanager();
    void endmanager();

    // Windows

    // The visible windows that programs opened for themselves, bottom first; no menus, no tooltips.
    std::vector<windowid> windows() const;

    // The visible menus, tooltips and the like of the program that owns window.
    std::vector<windowid> popups(windowid window) const;

    std::vector<windowid> children(windowid window) const; // bottom first
    std::string title(windowid window) const;
    std::string property(windowid window, const char* name) const; // a text property; "" for none
    unsigned long number(windowid window,
                         const char* name) const; // first of a property; 0 for none
    windowid focused() const;                     // the window that has the keyboard
    rectangle place(windowid window) const;       // on the screen; all 0 when it is gone
    bool visible(windowid window) const;

    void focus(windowid window) const; // gives it the keyboard
    void close(windowid window) const; // asks it to close, as the button in its frame does
    void resize(windowid window, int w, int h) const;
    void move(windowid window, int x, int y) const;

    // What a person has the window manager do. Each is only asked for: wait for visible().
    void minimise(windowid window) const;
    void rollup(windowid window, bool up) const;       // leaves only the title bar
    void activate(windowid window) const;              // brings it back and gives it the keyboard
    void godesktop(int number) const;                  // shows desktop 0.. of several
    void todesktop(windowid window, int number) const; // puts the window there

    // A plain window of the test's own on top of everything; uncover() takes it away again.
    windowid cover(rectangle r) const;
    void uncover(windowid window) const;

    // Mouse and keyboard

    void movemouse(int x, int y) const;
    void button(int number, bool down) const;        // 1 left, 2 middle, 3 right
    void key(unsigned long keysym, bool down) const; // keysym of <X11/keysymdef.h>; must be there

    void hold(int modifiers) const;    // presses the keys asked for, the left ones
    void release(int modifiers) const; // and lets them go
    void click(int x, int y, int modifiers = 0, int number = 1) const;
    void press(unsigned long keysym, int modifiers = 0) const;  // and lets go
    void presskey(unsigned char code, int modifiers = 0) const; // by its place on the keyboard
    void holdkey(unsigned char code, bool down) const;
    unsigned char place(char letter) const;          // of the key that types it now
    void setlayout(const std::string& layout) const; // "us", "ru", "us,ru": two groups
    void lockgroup(unsigned group) const;            // which of them types
    void emptyline() const; // of the line of text that has the keyboard, by keys of either toolkit
    void type(const std::string& ascii) const; // "\n" is Enter, "\t" Tab; what no key makes is out

    // Offers text as the selection that a middle click pastes, and serves it until it was taken or
    // the time is over. Returns whether it was taken. Call it with the click already made.
    bool serveselection(const std::string& text, double seconds) const;

    void ownselection() const; // becomes the owner of the selection, before the click

    // Looking

    picture screenshot() const;
    picture screenshot(rectangle r) const; // cut to the screen

  private:
    void startserver(const xserver_settings& settings);
    void askmanager(windowid window, const char* what, long first, long second = 0) const;
    bool answerselection(const std::string& text) const;
    bool buttonheld(int number) const; // as the programs have been told

    std::unique_ptr<process> server;
    std::unique_ptr<process> manager;
    std::unique_ptr<scratchfolder> home; // of the window manager
    std::string display_name;
    _XDisplay* connection = nullptr;
    windowid own = 0;                                           // holds the selection
    mutable std::chrono::steady_clock::time_point lastkey = {}; // when a key was moved last
    int width;                                                  // of the screen
    int height;
};

// Of a screen for which no other size was asked.
constexpr int screenwidth = 1280;
constexpr int screenheight = 800;
