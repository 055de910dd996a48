// SPDX-License-Identifier: MIT
#include "window/deeds.h"

#include "window/layout.h"

#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace {

// One deed under way: who is acted on, and the words of the line that are still to be read.
struct deed {
    const xserver& screen;
    program& vexel;
    std::istringstream words;

    int number() {
        int n = 0;
        words >> n;
        return n;
    }

    unsigned long key() {
        std::string name;
        words >> name;
        return XStringToKeysym(name.c_str());
    }

    std::string rest() {
        std::string text;
        std::getline(words >> std::ws, text);
        return text;
    }
};

void pressed(const deed& d, unsigned long key, int modifiers) {
    if (key != NoSymbol) {
        d.screen.press(key, modifiers);
    }
}

// A click beside the window would be for the window manager, which can do anything.
bool hits(const deed& d, int x, int y) {
    const rectangle r = d.screen.place(d.vexel.window());
    return d.screen.visible(d.vexel.window()) && x < r.w && y < r.h;
}

void click(deed& d) {
    const int x = d.number();
    const int y = d.number();
    const int modifiers = d.number();
    if (hits(d, x, y)) {
        d.vexel.click(x, y, modifiers, d.number());
    }
}

void drag(deed& d) {
    const rectangle r = d.screen.place(d.vexel.window());
    const int from = d.number();
    d.screen.movemouse(r.x + from, r.y + d.number());
    const int x = d.number();
    const int y = d.number();
    const int button = d.number();
    if (hits(d, x, y)) {
        d.screen.button(button, true);
        d.screen.movemouse(r.x + x, r.y + y);
        d.screen.button(button, false);
    }
}

void push(deed& d) {
    const int modifiers = d.number();
    const rectangle r = findbutton(d.rest()).place;
    if (hits(d, r.x + r.w, r.y + r.h)) {
        d.vexel.click(r.x + r.w / 2, r.y + r.h / 2, modifiers);
    }
}

void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

constexpr int titles[menucount] = {20, 64, 106, 165, 225}; // somewhere on each
constexpr int titlewidth = 70;                             // at most

void presstitle(const deed& d, int menu) {
    const rectangle r = d.screen.place(d.vexel.window());
    d.screen.movemouse(r.x + titles[menu], r.y + menubarplace.h / 2);
    d.screen.button(1, true);
}

void movemouseaway(const deed& d) {
    d.screen.movemouse(screenwidth - 1, screenheight - 1);
}

// The menu below that title, if it is open; else all 0.
rectangle openmenu(const xserver& screen, const program& vexel, int menu) {
    const rectangle r = screen.place(vexel.window());
    rectangle found = {};
    for (windowid popup : screen.popups(vexel.window())) {
        const rectangle p = screen.place(popup);
        const int left = r.x + titles[menu] - p.x;
        const int below = p.y - (r.y + menubarplace.h);
        found = left >= 0 && left < titlewidth && below >= -6 && below <= 6 ? p : found;
    }
    return found;
}

bool marked(const deed& d, rectangle row) {
    const rectangle middle = {row.x + 4, row.y + row.h / 2 - 2, row.w / 2, 4};
    const rectangle unmarked = {menubarplace.w - 20, 8, 8, 4}; // right of the titles
    return d.screen.screenshot(middle).commonest() != d.vexel.part(unmarked).commonest();
}

bool markrow(const deed& d, const menu_place& entry) {
    rectangle rows = {};
    const double patience = d.vexel.dialog() != 0 ? 0.03 : 0.3; // a box keeps menus shut
    waitfor(patience, [&] {
        rows = openmenu(d.screen, d.vexel, entry.menu);
        return rows.h > 0;
    });
    const rectangle row = {rows.x, rows.y + rows.h * entry.row / entry.rows, rows.w,
                           rows.h / entry.rows};
    d.screen.movemouse(row.x + row.w / 2, row.y + row.h / 2 - 1);
    d.screen.movemouse(row.x + row.w / 2, row.y + row.h / 2);
    return rows.h > 0 && waitfor(0.5, [&] { return marked(d, row); });
}

// Not as program.h's choose, which fails where no menu opens. The entry that was meant is chosen or
// none: where its row is not seen marked, the button is let go elsewhere.
void menu(deed& d) {
    const menu_place entry = findmenu(d.rest());
    if (!hits(d, 0, 0)) {
        return;
    }
    presstitle(d, entry.menu);
    if (!markrow(d, entry)) {
        movemouseaway(d);
    }
    d.screen.button(1, false);
    // A motion that comes together with the release would take the choice back.
    waitfor(0.3, [&] { return openmenu(d.screen, d.vexel, entry.menu).h == 0; });
    movemouseaway(d);
}

void title(deed& d) {
    const int menu = d.number();
    if (hits(d, 0, 0)) {
        presstitle(d, menu);
        d.screen.button(1, false);
    }
}

void list(deed& d) {
    if (!hits(d, macroplace.x, choiceplace.y)) {
        return;
    }
    d.vexel.click(choiceplace.x + 100, choiceplace.y + choiceplace.h / 2);
    for (int rows = d.number(); rows > 0; --rows) {
        d.screen.press(XK_Down);
    }
    d.screen.press(XK_Return);
}

void press(deed& d) {
    const unsigned long key = d.key();
    pressed(d, key, d.number());
}

void hold(deed& d) {
    const unsigned long key = d.key();
    if (key != NoSymbol) {
        d.screen.key(key, true);
        pause(d.number());
        d.screen.key(key, false);
    }
}

void type(deed& d) {
    d.screen.type(d.rest());
}

void macro(deed& d) {
    if (!hits(d, macroplace.x, choiceplace.y)) {
        return;
    }
    d.vexel.typemacro(d.rest());
}

void paste(deed& d) {
    if (!hits(d, macroplace.x, choiceplace.y)) {
        return;
    }
    std::mt19937 random(static_cast<unsigned>(d.number()));
    std::string bytes;
    for (int size = d.number(); size > 0; --size) {
        bytes += static_cast<char>(1 + random() % 255);
    }
    d.vexel.typemacro("");
    d.screen.ownselection();
    d.vexel.click(macroplace.x + 10, macroplace.y + 10, 0, 2);
    d.screen.serveselection(bytes, 0.3);
}

void box(deed& d) {
    const windowid window = d.vexel.dialog();
    const rectangle r = d.screen.place(window);
    const int x = r.x + r.w * d.number() / 1000;
    const int y = r.y + r.h * d.number() / 1000;
    const int modifiers = d.number();
    const int button = d.number();
    if (window != 0) {
        d.screen.click(x, y, modifiers, button);
    }
}

// Has the keyboard given to the window on top. Nobody waits for it: it may be one that takes none.
bool keyboardtobox(const deed& d) {
    const windowid window = d.vexel.dialog();
    if (window != 0) {
        d.screen.activate(window);
        pause(10);
    }
    return window != 0;
}

void key(deed& d) {
    const unsigned long symbol = d.key();
    if (keyboardtobox(d)) {
        pressed(d, symbol, d.number());
    }
}

void text(deed& d) {
    if (keyboardtobox(d)) {
        d.screen.type(d.rest());
    }
}

void fetchbox(deed& d) {
    if (d.vexel.dialog() != 0) {
        d.screen.move(d.vexel.dialog(), 100, 100);
    }
}

void shut(deed& d) {
    if (d.vexel.dialog() != 0) {
        d.screen.close(d.vexel.dialog());
    }
}

void move(deed& d) {
    const int x = d.number();
    d.screen.move(d.vexel.window(), x, d.number());
}

void size(deed& d) {
    const int w = d.number();
    d.screen.resize(d.vexel.window(), w, d.number());
}

void minimise(deed& d) {
    d.screen.minimise(d.vexel.window());
}

void restore(deed& d) {
    d.screen.activate(d.vexel.window());
}

void desktop(deed& d) {
    d.screen.godesktop(d.number());
}

void fetch(deed& d) {
    d.screen.todesktop(d.vexel.window(), 0);
}

void rollup(deed& d) {
    d.screen.rollup(d.vexel.window(), true);
}

void unroll(deed& d) {
    d.screen.rollup(d.vexel.window(), false);
}

void cover(deed& d) {
    d.screen.uncover(d.screen.cover(d.screen.place(d.vexel.window())));
}

void keyboard(deed& d) {
    d.screen.activate(d.vexel.window());
}

void end(deed& d) {
    d.screen.close(d.vexel.window());
}

struct deed_row {
    const char* name;
    void (*act)(deed&);
};

constexpr deed_row deeds[] = {
    {"click",    click   },
    {"drag",     drag    },
    {"push",     push    },
    {"menu",     menu    },
    {"title",    title   },
    {"list",     list    },
    {"press",    press   },
    {"hold",     hold    },
    {"type",     type    },
    {"macro",    macro   },
    {"paste",    paste   },
    {"box",      box     },
    {"key",      key     },
    {"text",     text    },
    {"fetchbox", fetchbox},
    {"shut",     shut    },
    {"move",     move    },
    {"size",     size    },
    {"minimise", minimise},
    {"restore",  restore },
    {"desktop",  desktop },
    {"fetch",    fetch   },
    {"rollup",   rollup  },
    {"unroll",   unroll  },
    {"cover",    cover   },
    {"keyboard", keyboard},
    {"end",      end     },
};

} // namespace

void dodeed(const xserver& screen, program& vexel, const std::string& line) {
    deed d = {screen, vexel, std::istringstream(line)};
    std::string name;
    d.words >> name;
    for (const deed_row& row : deeds) {
        if (name != row.name) {
            continue;
        }
        try {
            row.act(d);
        } catch (const std::runtime_error&) {
            return; // a menu that a box keeps shut, a window that has just gone
        }
    }
}

bool filemenuopen(const xserver& screen, const program& vexel) {
    return openmenu(screen, vexel, filemenu).h > 0;
}

wayout wayoutof(const std::string& line) {
    std::istringstream words(line);
    std::string deed;
    std::string what;
    int modifiers = 0;
    words >> deed >> what >> modifiers;
    const bool key = deed == "press" || deed == "key";
    const auto oneof = [](const std::string& word, std::initializer_list<const char*> list) {
        return std::find(list.begin(), list.end(), word) != list.end();
    };
    if (line == "menu Quit" || deed == "end" || (key && what == "q" && (modifiers & ctrl_key))) {
        return wayout::asked;
    }
    if (deed == "title" || (key && what == "F10")) {
        return wayout::opensmenu;
    }
    if ((key && oneof(what, {"Return", "KP_Enter", "space"})) ||
        oneof(deed, {"click", "drag", "push", "list", "macro", "paste", "box", "menu"})) {
        return wayout::choosesinmenu;
    }
    return wayout::none;
}
