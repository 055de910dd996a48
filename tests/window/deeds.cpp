// SPDX-License-Identifier: MIT
#include "window/deeds.h"

#include "window/layout.h"

#include <X11/Xlib.h>
#include <X11/keysym.h>

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

// Not as program.h's choose, which waits until it has seen each step: a box may keep the menu shut.
void menu(deed& d) {
    constexpr int titles[menucount] = {20, 64, 106, 165, 225}; // somewhere on each
    const menu_place entry = findmenu(d.rest());
    const rectangle r = d.screen.place(d.vexel.window());
    if (!hits(d, 0, 0)) {
        return;
    }
    d.screen.movemouse(r.x + titles[entry.menu], r.y + menubarplace.h / 2);
    d.screen.button(1, true);
    rectangle rows = {};
    waitfor(0.3, [&] {
        for (windowid popup : d.screen.popups(d.vexel.window())) {
            const rectangle p = d.screen.place(popup);
            rows = p.h > menubarplace.h + 4 ? p : rows;
        }
        return rows.h > 0;
    });
    if (rows.h > 0) {
        const int y = rows.y + rows.h * (2 * entry.row + 1) / (2 * entry.rows);
        d.screen.movemouse(rows.x + rows.w / 2, y - 1);
        pause(15); // motions that come at once are one
        d.screen.movemouse(rows.x + rows.w / 2, y);
        pause(15);
    }
    d.screen.button(1, false);
    pause(15);
    d.screen.movemouse(screenwidth - 1, screenheight - 1);
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
    {"list",     list    },
    {"press",    press   },
    {"hold",     hold    },
    {"type",     type    },
    {"macro",    macro   },
    {"paste",    paste   },
    {"box",      box     },
    {"key",      key     },
    {"text",     text    },
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

// Keys may reach "Quit" by the menu bar, and Ctrl+Q is its shortcut. On a busy machine the button
// may be let go on another row of the same menu than was meant.
bool mayend(const std::string& line) {
    constexpr int filemenu = 0;
    const bool nearquit =
        line.starts_with("menu ") && findmenu(line.substr(sizeof "menu")).menu == filemenu;
    return nearquit || line == "end" || line.starts_with("press F10") ||
           line.starts_with("key F10") || line.starts_with("press q") || line.starts_with("key q");
}
