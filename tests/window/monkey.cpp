// SPDX-License-Identifier: MIT
//
// monkey SEED EVENTS: works the program at random, under a window manager, with everything that a
// person can reach, and looks now and then whether it is well: that it runs, has printed nothing
// (a sanitizer would), comes to rest and shows a cube that turns can make.
// monkey replay FILE: does the deeds of a file again.
//
// On a failure the last deeds are printed, and all since the program was started kept in a file for
// "replay". What the windows are at the time of a deed depends on the machine's speed, so that a
// seed alone does not always find the same again; the file does.
//
// Where the system cannot confine the program to its scratch folder nothing is done: status 77.
#include "window/confine.h"
#include "window/deeds.h"
#include "window/layout.h"
#include "window/stickers.h"

#include <X11/keysym.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <unistd.h>
#include <vector>

namespace {

constexpr int checkevery = 100; // deeds between two looks at the cube
constexpr int lastdeeds = 40;   // of them the failure's report is made
constexpr int slowness = 8;     // deeds that a busy program may be behind

// Chance

class dice {
  public:
    explicit dice(unsigned seed) : random(seed) {}

    int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }

    bool onein(int n) { return below(n) == 0; }

    const std::string& of(const std::vector<std::string>& words) {
        return words[static_cast<std::size_t>(below(static_cast<int>(words.size())))];
    }

    std::string letters(const std::string& from, int atmost) {
        std::string text;
        for (int n = below(atmost + 1); n > 0; --n) {
            text += from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
        }
        return text;
    }

  private:
    std::mt19937 random;
};

std::string words(std::initializer_list<int> numbers) {
    std::string text;
    for (int n : numbers) {
        text += " " + std::to_string(n);
    }
    return text;
}

const std::vector<std::string> entries = {"Reset Cube",
                                          "Load Macro File",
                                          "Dump Macro File",
                                          "Display Permutation",
                                          "Print EPS File",
                                          "Quit",
                                          "Undo",
                                          "Input Cube",
                                          "Long Solve",
                                          "Very Long Solve",
                                          "Show Macro Gizmo",
                                          "Show Rear Cube",
                                          "Set Cube Speed",
                                          "Set Cube Colors",
                                          "Define Macro",
                                          "Apply Macro",
                                          "Delete Macro",
                                          "Delete All Macros",
                                          "Add Macro to Gizmo",
                                          "Delete Macro from Gizmo",
                                          "Clear Macro Gizmo",
                                          "About Vexel"};

const std::vector<std::string> keys = {
    "Left",   "Right",     "Up",      "Down",      "Return", "Tab",   "Home", "End",
    "Delete", "BackSpace", "Page_Up", "Page_Down", "Escape", "space", "F10",  "KP_Enter",
    "a",      "b",         "c",       "d",         "f",      "l",     "n",    "q",
    "r",      "s",         "u",       "x",         "y",      "z",     "3",    "8"};

const std::vector<std::string> answers = {"one",
                                          "two",
                                          "my macro",
                                          "Flip UF, UL",
                                          "WGRBOY",
                                          "KSVDPC",
                                          "wgrboy",
                                          "WWGRBO",
                                          "3",
                                          "1",
                                          "7",
                                          "20",
                                          "999",
                                          "0",
                                          "-5",
                                          "file",
                                          "one.macros",
                                          "~",
                                          "~/home.macros",
                                          "deep/in",
                                          "$HOME",
                                          "x@y&%s",
                                          ""};

constexpr char macroletters[] = "UDLRFBudlrfb*>()0123456789sx[]'2 ";
constexpr char nameletters[] = "abcdefghijklmnopqrstuvwxyz 0123456789@&%$~{*-_"; // no way out

// Deeds by chance

std::string anyplace(dice& chance, int top) {
    return words({chance.below(windowwidth), top + chance.below(windowheight - top)});
}

std::string inmainwindow(dice& chance) {
    const std::string modifiers = words({chance.onein(3) ? chance.below(8) : 0});
    switch (chance.below(16)) {
    case 0:
    case 1: return "click" + anyplace(chance, 24) + modifiers + words({1 + chance.below(5)});
    case 2:
        return "drag" + anyplace(chance, 24) + anyplace(chance, 0) + words({1 + chance.below(3)});
    case 3:
    case 4:
    case 5:
    case 6: return "push" + modifiers + " " + buttonplaces[chance.below(buttoncount)].label;
    case 7:
    case 8: return "menu " + chance.of(entries);
    case 9:
        if (chance.onein(3)) {
            return "title" + words({chance.below(menucount)});
        }
        return "menu " + chance.of(entries);
    case 10: return "list" + words({chance.below(12)});
    case 11:
    case 12: return "macro " + chance.letters(macroletters, chance.onein(9) ? 200 : 14);
    case 13: return "paste" + words({chance.below(1 << 20), 1 << chance.below(15)});
    case 14: return "hold " + chance.of({"Left", "Right", "u", "a"}) + words({chance.below(60)});
    default: return "press " + chance.of(keys) + modifiers;
    }
}

std::string inbox(dice& chance) {
    const std::string modifiers = words({chance.onein(4) ? chance.below(8) : 0});
    switch (chance.below(10)) {
    case 0:
    case 1: return "text " + chance.of(answers);
    case 2: return "text " + chance.letters(nameletters, chance.onein(9) ? 300 : 9);
    case 3:
    case 4: return "key Return 0";
    case 5: return "key Escape 0";
    case 6: return chance.onein(4) ? "shut" : "key " + chance.of(keys) + modifiers;
    default:
        return "box" + words({chance.below(1000), chance.below(1000)}) + modifiers +
               words({1 + chance.below(3)});
    }
}

std::string withmanager(dice& chance) {
    switch (chance.below(9)) {
    case 0: return "minimise";
    case 1: return "desktop" + words({chance.below(2)});
    case 2: return "rollup";
    case 3: return "unroll";
    case 4: return "move" + words({chance.below(500), chance.below(280)});
    case 5: return "size" + words({600 + chance.below(300), 400 + chance.below(200)});
    case 6: return "cover";
    case 7: return "keyboard";
    default: return chance.onein(30) ? "end" : "restore";
    }
}

std::string anydeed(dice& chance, bool boxopen, bool hidden) {
    if (hidden && chance.onein(3)) {
        return chance.of({"restore", "unroll", "desktop 0"});
    }
    if (boxopen && !chance.onein(6)) {
        return inbox(chance);
    }
    return chance.onein(15) ? withmanager(chance) : inmainwindow(chance);
}

// Whether the program is well

struct session {
    xserver& screen;
    scratchfolder home; // of all the programs of this session, one after another
    std::unique_ptr<program> vexel;
    std::vector<std::string> done; // since the program was started
    int ends = 0;                  // how often it was ended by design
    int asked = 0;                 // deeds in which it may still end as it was asked to
    std::size_t speedset = 0;      // deeds before the usual speed was set last
    int opened = 0;                // deeds in which a menu may still come up
    int chosen = 0;                // deeds in which "Quit" may still act that was met in a menu

    explicit session(xserver& server) : screen(server) { start(); }

    void start() {
        vexel.reset();
        program_settings settings;
        settings.home = home.path();
        settings.environment = {
            {"ASAN_OPTIONS", "detect_leaks=0"}
        }; // the font library's
        settings.confined = true;
        vexel = std::make_unique<program>(screen, settings); // deeds of the one before are kept
        done.clear();
        asked = 0;
        opened = 0;
        chosen = 0;
        usualspeed();
    }

    void usualspeed() {
        perform("menu Set Cube Speed");
        waitfor(10, [this] { return vexel->dialog() != 0; });
        perform("text 3");
        perform("key Return 0");
        speedset = done.size();
    }

    // Whether another speed may have been set: each turn could take seconds.
    bool slowed() const {
        return std::find(done.begin() + static_cast<long>(speedset), done.end(),
                         "menu Set Cube Speed") != done.end();
    }

    void perform(const std::string& line) {
        const wayout way = wayoutof(line);
        opened = way == wayout::opensmenu ? slowness : std::max(0, opened - 1);
        chosen = std::max(0, chosen - 1);
        asked = std::max(0, asked - 1);
        if (way == wayout::choosesinmenu && (opened > 0 || filemenuopen(screen, *vexel))) {
            chosen = slowness;
        }
        done.push_back(line);
        dodeed(screen, *vexel, line);
        if (way == wayout::asked) {
            asked = slowness;
            vexel->child().waitexit(vexel->dialog() == 0 ? 2 : 0);
        }
    }
};

class unwell : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Whether the program goes on. Nothing ends it but what a person does for that.
bool goeson(session& s) {
    if (s.vexel->output() != "") {
        s.vexel->child().waitexit(10); // what it prints may be its last words
        throw unwell("it printed: " + s.vexel->output());
    }
    const std::optional<int> status = s.vexel->child().waitexit(0);
    if (!status) {
        return true;
    }
    if (*status != 0 || (s.asked == 0 && s.chosen == 0)) {
        throw unwell("it ended with status " + std::to_string(*status));
    }
    return false;
}

// The colour dialog closes for a legal cube only.
void leavebox(session& s) {
    const rectangle r = s.screen.place(s.vexel->dialog());
    if (r.x < 0 || r.y < 0 || r.x + r.w > screenwidth || r.y + r.h > screenheight) {
        s.perform("fetchbox");
    }
    if (s.screen.title(s.vexel->dialog()) == "Set Cube Face Colors") {
        s.perform("box 255 925 0 1"); // Reset
        s.perform("box 95 925 0 1");  // Finish
    } else {
        s.perform("key Escape 0");
    }
}

bool inordinary(const session& s) {
    const rectangle r = s.screen.place(s.vexel->window());
    return s.screen.visible(s.vexel->view()) && r.w == windowwidth && r.h == windowheight &&
           r.x >= 0 && r.y >= 0 && r.x + r.w <= screenwidth && r.y + r.h <= screenheight;
}

void bringback(session& s) {
    s.perform("desktop 0");
    s.perform("fetch");
    s.perform("restore");
    s.perform("unroll");
    s.perform("size" + words({windowwidth, windowheight}));
    s.perform("move 100 100");
    waitfor(5, [&s] { return inordinary(s); });
}

void interrupt(session& s) {
    s.screen.hold(alt_key);
    s.perform("hold q 300");
    s.screen.release(alt_key);
}

// Leaves all boxes, stops what goes on. The gentlest means come first, so that it is not the cube
// of a reset that is looked at.
bool calm(session& s) {
    for (int round = 0; round < 60 && goeson(s); round++) {
        if (!inordinary(s)) {
            bringback(s);
        }
        s.screen.movemouse(screenwidth - 1, screenheight - 1);
        if (!s.screen.popups(s.vexel->window()).empty()) {
            s.perform("press Escape 0"); // a menu that stayed open
        }
        if (s.vexel->dialog() == 0 && s.vexel->waitquiet(0.7 + round) && s.vexel->dialog() == 0 &&
            inordinary(s)) {
            return true;
        }
        if (s.vexel->dialog() != 0 && round % 4 != 3) { // the wait panel is no box
            leavebox(s);
            waitfor(0.1 * round, [&s] { return s.vexel->dialog() == 0; });
        } else {
            interrupt(s);
        }
        if (round % 3 == 2) {
            s.perform("menu Undo"); // ends a demo, which an interrupt does not
        }
        if (round % 12 == 11) {
            s.perform("push 0 Reset Cube");
        }
    }
    return false;
}

// The panel of macros is a window that stays; without it every other one is a box.
void hidepanel(session& s) {
    s.perform("menu Clear Macro Gizmo");
}

void look(session& s) {
    s.perform("unroll"); // a rolled up window counts as shown
    hidepanel(s);
    const bool quiet = calm(s);
    if (!goeson(s)) {
        return;
    }
    if (!quiet) {
        throw unwell("it does not come to rest, or not into sight");
    }
    s.asked = 0;
    if (s.slowed()) {
        s.usualspeed();
        calm(s); // no box stands before the cube
    }
    std::string letters;
    std::string why;
    const auto legal = [&] {
        letters = stickers(s.vexel->view_picture());
        why = whynotlegal(letters);
        return why.empty();
    };
    const auto rearhidden = [&] { return letters.find('?', 27) != std::string::npos; };
    for (int tries = 0; tries < 5 && !waitfor(tries, legal) && rearhidden(); ++tries) {
        s.perform("menu Show Rear Cube");
        calm(s);
    }
    waitfor(10, legal); // the window manager may show something of its own for a while
    if (!goeson(s)) {
        return;
    }
    if (!why.empty()) {
        throw unwell("no cube is " + letters + ": " + why);
    }
}

void run(session& s, dice& chance, int count) {
    for (int i = 1; i <= count; i++) {
        const bool hidden = !s.screen.visible(s.vexel->view());
        s.perform(anydeed(chance, s.vexel->dialog() != 0, hidden));
        if (i % checkevery == 0 || i == count) {
            look(s);
        }
        if (!goeson(s)) {
            s.ends++;
            s.start();
        }
    }
    std::cout << count << " events, " << s.ends << " ends by design, all well\n";
}

void replay(session& s, const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        throw unwell("no such file");
    }
    for (std::string line; std::getline(file, line) && goeson(s);) {
        s.perform(line);
    }
    look(s);
}

// Tells what happened and keeps the deeds that led there.
void report(const session& s, const std::string& why) {
    const std::string path =
        std::string(VEXEL_PICTURES) + "/monkey-" + std::to_string(getpid()) + ".deeds";
    std::filesystem::create_directories(VEXEL_PICTURES);
    std::cerr << "monkey: " << why << "\nThe last events, all of which are in " << path << ":\n";
    std::ofstream file(path);
    const std::size_t shown = std::min<std::size_t>(s.done.size(), lastdeeds);
    for (std::size_t i = 0; i < s.done.size(); i++) {
        file << s.done[i] << "\n";
        if (i >= s.done.size() - shown) {
            std::cerr << "    " << s.done[i] << "\n";
        }
    }
    if (s.vexel) {
        std::cerr << "The screen then: " << s.vexel->keeppicture("monkey") << "\n";
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (arguments.size() != 3) {
        std::cerr << "usage: monkey SEED EVENTS | monkey replay FILE\n";
        return 2;
    }
    if (!canconfine()) {
        std::cerr << "monkey: this system cannot confine the program to its folder; skipped\n";
        return 77;
    }
    xserver screen({.windowmanager = true});
    session s(screen);
    try {
        if (arguments[1] == "replay") {
            replay(s, arguments[2]);
        } else {
            dice chance(static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10)));
            run(s, chance, std::atoi(argv[2]));
        }
    } catch (const std::runtime_error& why) { // also of a program that does not come up again
        std::cerr << "monkey: seed " << arguments[1] << "\n";
        report(s, why.what());
        return 1;
    }
    return 0;
}
