// SPDX-License-Identifier: MIT
//
// program: the real program in its window, worked by mouse and keyboard and judged by its picture.
//
// Purpose   everything a window test does with the program under test, in the words of its window:
//           a button by its label, a menu entry by its text, a click on the view, a macro typed.
//           Nothing is read from inside the program: the tests turn a second cube (model/cube.h)
//           and ask whether the picture shows it.
// State     one child process with a home folder of its own, in which it works. It ends with the
//           object.
// Waiting   Actions return at once; waitforcube and waitfor (process.h) tell when the program has
//           followed. A turn that comes while another is animated replaces it, by design: wait for
//           one before asking for the next.
// Errors    throws std::runtime_error when the window does not come up or a dialog does not open.
// Callers   window tests, tour, bench. Uses no test framework.
//
//     xserver screen;
//     program vexel(screen);
//     initcubies();                        // the model, in the test's own process
//     vexel.pushbutton("Ucw");
//     applyturn(0);
//     const verdict seen = vexel.waitforcube(cubecolors);    // seen.why tells what was wrong
#pragma once

#include "window/picture.h"
#include "window/process.h"
#include "window/xserver.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct verdict {
    bool good = true;
    std::string why = ""; // empty when good

    explicit operator bool() const { return good; }
};

struct program_settings {
    std::string path = "";                   // the program; "" is the one that was built
    std::vector<std::string> arguments = {}; // of the command line
    std::string home = "";                   // its home folder; "" makes one for this run
    std::string preload = "";                // a library to load before all others
    std::vector<std::pair<std::string, std::string>> environment = {}; // more of it; "" removes
    bool confined = false; // it can write nothing outside its home folder (confine.h)
    bool wait = true;      // until the window shows; a program that must fail has none
};

class program {
  public:
    explicit program(xserver& screen, const program_settings& settings = {});

    // The process

    process& child() { return *running; }

    std::string output() const; // all it has written to standard output and standard error

    const std::string& home() const { return home_path; }

    // The windows

    void waitforwindow(); // for a program that was started without waiting

    windowid window() const { return main; }

    windowid view() const { return cubeview; }

    void front() const { screen.focus(main); } // gives the main window the keyboard

    // The topmost window of the program beside the main one; 0 if there is none.
    windowid dialog() const;

    windowid waitdialog(double seconds = 10) const; // until one is open; it gets the keyboard
    bool waitnodialog(double seconds = 10) const;   // false if one stays open
    void answer(unsigned long keysym) const;        // waits for a dialog, presses a key, waits
    void answer(const std::string& text) const;     // the same for a line of text and Enter
    void clickdialog(int x, int y) const;           // inside the dialog that is open

    // Acting. The modifiers are held around the action.

    void click(int x, int y, int modifiers = 0, int number = 1) const; // inside the main window
    void pushbutton(const std::string& label, int modifiers = 0) const;

    // Chooses from the menu bar: presses on the title, lets go on the entry.
    void choose(const std::string& entry) const;
    windowid openmenu(const std::string& entry) const; // only presses, on the title above it

    // Clicks where the view sees the fractions fx (to the right) and fy (upwards) of its width, as
    // src/render reckons them: it subtracts its place in the window from a position that is its
    // own already, so what is seen at (fx, fy) lies 2 pixels further left and 24 further up.
    void clickview(double fx, double fy, int modifiers = 0, int number = 1) const;
    void clickpixel(int x, int y, int modifiers = 0, int number = 1) const; // of the view

    void altletter(char letter, int modifiers = 0) const; // Alt with a letter

    void typemacro(const std::string& ascii) const; // replaces the text of the macro line
    void pastemacro(const std::string& text) const; // the same by a middle click; any bytes
    void playmacro(const std::string& ascii, int modifiers = 0) const; // typed, then Enter

    // Holds a key until colors show. Waits before for a quiet program: what was typed and not yet
    // seen to would find the key held already.
    void holdkey(unsigned long keysym, const unsigned char* colors) const;

    void setspeed(int frames); // by the menu and its dialog

    // Looking

    picture window_picture() const; // the main window
    picture view_picture() const;
    picture part(rectangle r) const; // of the main window

    // Whether the middle of each of the 54 stickers has the colour of the model, colors[place] =
    // 0..5, in the colours of the letters (WGRBOYKSVDPCX) set for the six faces. With rear false
    // the 27 stickers of the rear view are left out.
    verdict shows(const unsigned char* colors, bool rear = true) const;

    // Waits until it does and nothing moves any more. A cube that is not shown in time is kept as
    // a picture in the build folder, whose name the verdict tells.
    verdict waitforcube(const unsigned char* colors, double seconds = 30, bool rear = true) const;

    void setcolors(const std::string& letters) { colorletters = letters; } // initially "WGRBOY"

    // Waits until the program has nothing to do: no turn moves, none is about to start. False if it
    // stays busy.
    bool waitquiet(double seconds = 30) const;

    // Keeps the screen as build/pictures/<name>.png and returns that path.
    std::string keeppicture(const std::string& name) const;

  private:
    double scale() const; // of the main window, which is smaller on a small screen
    bool painted();
    bool findtitles();
    bool still() const;
    bool rests(double seconds) const;

    xserver& screen;
    std::unique_ptr<scratchfolder> own_home;
    std::string home_path;
    scratchfolder output_folder; // not the home, where a file of any name may be saved
    std::string output_path;
    std::unique_ptr<process> running;
    windowid main = 0;
    windowid cubeview = 0;
    std::vector<int> titles; // of the menus, from the left edge of the window
    int speed = 999;         // frames a turn, as far as known
    std::string colorletters = "WGRBOY";
};

// The colour of a letter on the screen; throws for a letter that has none.
rgb lettercolor(char letter);
