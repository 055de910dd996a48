// SPDX-License-Identifier: MIT
#include "window/program.h"

#include "viewpoints.h"
#include "window/layout.h"

#include <X11/keysym.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

constexpr double patience = 30; // seconds for a window or a menu to come up

struct letter_color {
    char letter;
    rgb colour;
};

constexpr letter_color lettercolors[] = {
    {'W', {255, 255, 255}},
    {'G', {0, 255, 0}    },
    {'R', {255, 0, 0}    },
    {'B', {0, 0, 255}    },
    {'Y', {255, 255, 0}  },
    {'O', {255, 128, 0}  },
    {'K', {8, 8, 8}      },
    {'S', {230, 230, 230}},
    {'V', {204, 0, 204}  },
    {'D', {230, 153, 0}  },
    {'P', {255, 128, 128}},
    {'C', {0, 255, 255}  },
    {'X', {153, 153, 153}},
};

constexpr int wordspace = 8; // pixels of background that part two menu titles at least

} // namespace

rgb lettercolor(char letter) {
    for (const letter_color& row : lettercolors) {
        if (row.letter == letter) {
            return row.colour;
        }
    }
    throw std::runtime_error(std::string("no colour ") + letter);
}

program::program(xserver& server, const program_settings& settings) : screen(server) {
    if (settings.home.empty()) {
        own_home = std::make_unique<scratchfolder>();
    }
    home_path = own_home ? own_home->path() : settings.home;
    output_path = output_folder.path() + "/output.txt";
    process_settings start;
    const std::string path = settings.path.empty() ? VEXEL_PROGRAM : settings.path;
    start.command = {std::filesystem::absolute(path)}; // it is started in its home folder
    start.command.insert(start.command.end(), settings.arguments.begin(), settings.arguments.end());
    start.environment = {
        {"DISPLAY",         screen.name()   },
        {"HOME",            home_path       },
        {"XDG_CACHE_HOME",  ""              },
        {"XDG_CONFIG_HOME", ""              },
        {"XMODIFIERS",      ""              },
        {"LD_PRELOAD",      settings.preload},
    };
    for (const auto& more : settings.environment) {
        start.environment.push_back(more);
    }
    start.output = output_path;
    start.folder = home_path;
    if (settings.confined) {
        start.writable = {home_path, "/dev/null", "/dev/shm", "/dev/dri"};
    }
    running = std::make_unique<process>(start);
    if (settings.wait) {
        waitforwindow();
    }
}

void program::waitforwindow() {
    const bool up = waitfor(patience, [this] {
        for (windowid w : screen.windows()) {
            if (screen.title(w) == "Vexel's Cube Simulator") {
                main = w;
            }
        }
        for (windowid w : main != 0 ? screen.children(main) : std::vector<windowid>()) {
            cubeview = screen.visible(w) ? w : cubeview;
        }
        return painted() || !running->running();
    });
    if (!up || !painted()) {
        throw std::runtime_error("the window does not come up: " + output() + "; see " +
                                 keeppicture("no-window"));
    }
    front();
}

// The view shows the grey behind the cube, the menu bar all its titles.
bool program::painted() {
    if (cubeview == 0) {
        return false;
    }
    const picture seen = view_picture();
    return near(seen.at(1, seen.h() - 2), {128, 128, 128}) && findtitles();
}

std::string program::output() const {
    std::ostringstream all;
    all << std::ifstream(output_path).rdbuf();
    return all.str();
}

windowid program::dialog() const {
    windowid found = 0;
    for (windowid w : screen.windows()) {
        found = w != main ? w : found;
    }
    return found;
}

windowid program::waitdialog(double seconds) const {
    windowid found = 0;
    waitfor(seconds, [this, &found] {
        found = dialog();
        return found != 0;
    });
    if (found == 0) {
        throw std::runtime_error("no dialog opens; see " + keeppicture("no-dialog"));
    }
    screen.focus(found);
    return found;
}

bool program::waitnodialog(double seconds) const {
    const bool gone = waitfor(seconds, [this] { return dialog() == 0; });
    if (gone && screen.visible(main)) {
        front();
    }
    return gone;
}

void program::answer(unsigned long keysym) const {
    waitdialog();
    screen.press(keysym);
    if (!waitnodialog()) {
        throw std::runtime_error("a dialog stays open; see " + keeppicture("dialog"));
    }
}

void program::answer(const std::string& text) const {
    waitdialog();
    screen.emptyline();
    screen.type(text);
    answer(XK_Return);
}

void program::clickdialog(int x, int y) const {
    const rectangle r = screen.place(dialog());
    screen.click(r.x + x, r.y + y);
}

double program::scale() const {
    return std::min(1.0, screen.place(main).w / static_cast<double>(windowwidth));
}

void program::click(int x, int y, int modifiers, int number) const {
    const rectangle r = screen.place(main);
    const double s = scale();
    screen.click(r.x + static_cast<int>(s * x), r.y + static_cast<int>(s * y), modifiers, number);
    screen.movemouse(screenwidth - 1, screenheight - 1); // away, so that no tooltip opens
}

void program::pushbutton(const std::string& label, int modifiers) const {
    const rectangle r = findbutton(label).place;
    click(r.x + r.w / 2, r.y + r.h / 2, modifiers);
}

// The titles are found by looking: words of dark pixels with room between them. Returns whether
// all are there.
bool program::findtitles() {
    const picture bar = part({4, 4, menubarplace.w - 8, menubarplace.h - 8});
    const rgb background = bar.commonest();
    int lastink = -wordspace - 1;
    titles.clear();
    for (int x = 0; x < bar.w(); x++) {
        if (bar.part({x, 0, 1, bar.h()}).count(background) == bar.h()) {
            continue;
        }
        if (x - lastink > wordspace) {
            titles.push_back(x + 6);
        }
        lastink = x;
    }
    return titles.size() == menucount;
}

windowid program::openmenu(const std::string& entry) const {
    const int title = titles.at(static_cast<std::size_t>(findmenu(entry).menu));
    const rectangle r = screen.place(main);
    screen.movemouse(r.x + title, r.y + menubarplace.h / 2);
    screen.button(1, true);
    windowid found = 0;
    const bool open = waitfor(patience, [this, &found, r] {
        // One is the title, shown pressed; another may be a tooltip that is about to go.
        for (windowid w : screen.popups(main)) {
            const int below = screen.place(w).y - (r.y + menubarplace.h);
            found = below >= -6 && below <= 6 ? w : found;
        }
        return found != 0;
    });
    if (!open) {
        throw std::runtime_error("no menu opens; see " + keeppicture("no-menu"));
    }
    return found;
}

void program::choose(const std::string& entry) const {
    const menu_place where = findmenu(entry);
    const windowid menu = openmenu(entry);
    const rectangle m = screen.place(menu);
    const int y = m.y + m.h * (2 * where.row + 1) / (2 * where.rows);
    const rgb background = part(menubarplace).commonest();
    const auto unmarked = [&] {
        return screen.screenshot({m.x + 4, y - 4, m.w - 8, 8}).commonest() == background;
    };
    // The toolkit takes several motions for one and may see it after the release. Only a row that
    // is marked, in a menu that is painted, is certain to be chosen.
    bool marked = waitfor(patience, unmarked);
    screen.movemouse(m.x + m.w / 2, y);
    marked = marked && waitfor(patience, [&] { return !unmarked(); });
    screen.button(1, false);
    if (!marked) {
        throw std::runtime_error("no menu row is marked; see " + keeppicture("no-menu-row"));
    }
    // A motion that comes together with the release would take the choice back.
    waitfor(patience, [this, menu] { return !screen.visible(menu); });
    screen.movemouse(screenwidth - 1, screenheight - 1);
}

void program::clickpixel(int x, int y, int modifiers, int number) const {
    click(viewplace.x + x, viewplace.y + y, modifiers, number);
}

void program::clickview(double fx, double fy, int modifiers, int number) const {
    const double w = viewplace.w;
    clickpixel(static_cast<int>(std::lround(fx * w)) + viewplace.x,
               static_cast<int>(std::lround((1 - fy) * w)) + viewplace.y, modifiers, number);
}

void program::altletter(char letter, int modifiers) const {
    screen.press(static_cast<unsigned long>(letter), modifiers | alt_key);
}

void program::typemacro(const std::string& ascii) const {
    click(macroplace.x + macroplace.w / 2, macroplace.y + macroplace.h / 2);
    screen.emptyline();
    screen.type(ascii);
}

void program::pastemacro(const std::string& text) const {
    typemacro("");
    screen.ownselection();
    click(macroplace.x + macroplace.w / 2, macroplace.y + macroplace.h / 2, 0, 2);
    if (!screen.serveselection(text, patience)) {
        throw std::runtime_error("nothing is pasted");
    }
}

void program::playmacro(const std::string& ascii, int modifiers) const {
    typemacro(ascii);
    screen.press(XK_Return, modifiers);
}

void program::holdkey(unsigned long keysym, const unsigned char* colors) const {
    waitquiet();
    screen.key(keysym, true);
    const verdict seen = waitforcube(colors);
    screen.key(keysym, false);
    if (!seen) {
        throw std::runtime_error("a held key does not work: " + seen.why);
    }
}

void program::setspeed(int frames) {
    choose("Set Cube Speed");
    answer(std::to_string(frames));
    speed = frames;
}

picture program::window_picture() const {
    return screen.screenshot(screen.place(main));
}

picture program::view_picture() const {
    return screen.screenshot(screen.place(cubeview));
}

picture program::part(rectangle r) const {
    const rectangle at = screen.place(main);
    const auto pixels = [s = scale()](int length) { return static_cast<int>(s * length); };
    return screen.screenshot({at.x + pixels(r.x), at.y + pixels(r.y), pixels(r.w), pixels(r.h)});
}

verdict program::shows(const unsigned char* colors, bool rear) const {
    const picture seen = view_picture();
    verdict result;
    for (int place = 0; place < 54; place++) {
        const viewpoint point = lookat(place, seen.w());
        if (point.rear && !rear) {
            continue;
        }
        const rgb is = seen.at(static_cast<int>(point.x), static_cast<int>(point.y));
        const char letter = colorletters.at(colors[place]);
        if (!near(is, lettercolor(letter))) {
            result.good = false;
            result.why += " place " + std::to_string(place) + " is " + text(is) + ", not " + letter;
        }
    }
    return result;
}

// With one frame a turn the picture changes only once the turn is over; else the last frames look
// almost like the cube at rest.
bool program::still() const {
    return speed == 1 || rests(0.12);
}

// A quiet process alone is no proof: on a busy machine it may be waiting for the server.
bool program::rests(double seconds) const {
    const picture before = view_picture();
    return running->isquiet(seconds) && view_picture() == before;
}

verdict program::waitforcube(const unsigned char* colors, double seconds, bool rear) const {
    verdict result;
    const bool shown = waitfor(seconds, [this, colors, rear, &result] {
        result = shows(colors, rear);
        if (!result || !still()) {
            return false;
        }
        result = shows(colors, rear);
        return result.good;
    });
    if (!shown && result.good) {
        result = {false, " it does not come to rest"};
    }
    if (!shown) {
        result.why += "; see " + keeppicture("wrong-cube");
    }
    return result;
}

bool program::waitquiet(double seconds) const {
    return waitfor(seconds, [this] { return rests(0.3); });
}

std::string program::keeppicture(const std::string& name) const {
    static int number = 0;
    const std::string path = std::string(VEXEL_PICTURES) + "/" + name + "-" +
                             std::to_string(running->pid()) + "-" + std::to_string(++number) +
                             ".png";
    return screen.screenshot().save(path) ? path : "nothing, since " + path + " cannot be written";
}
