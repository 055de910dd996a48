// SPDX-License-Identifier: MIT
//
// tour: shows the program where there is no display, on a virtual one, and proves it right.
//
// Usage     tour program folder [macro file]
// Purpose   a short scripted session: turns by button, key and click, a scramble, a macro, a
//           report, the colour dialog. At each stop a picture goes into the folder and its name to
//           standard output.
// Status    0 if the cube on the screen was what the model said at every stop, 1 if not, 2 for a
//           wrong call.
// Callers   script/run, script/tour.
#include "model/cube.h"
#include "model/parser.h"
#include "window/program.h"

#include <X11/keysym.h>

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace {

void domacro(const char* macro) {
    parsing = 0;
    parsestring(macro, static_cast<int>(std::string_view(macro).size()));
}

class tour {
  public:
    tour(const program_settings& settings, const std::string& keepin)
        : folder(keepin), shown(screen, settings) {}

    // Whether the screen was right at every stop.
    bool travel() {
        initcubies();
        lookat("1-start");
        shown.pushbutton("Ucw");
        domacro("U");
        lookat("2-button");
        shown.altletter('r');
        domacro("R");
        lookat("3-key");
        shown.clickview(0.6, 0.4);
        domacro("F");
        lookat("4-click");
        shown.pushbutton("Jumble Cube");
        jumblecube();
        lookat("5-scramble");
        shown.playmacro("3(R*Uf)");
        domacro("3(R*Uf)");
        lookat("6-macro");
        shown.pushbutton("Reset Cube");
        initcubies();
        lookat("7-reset");
        shown.playmacro("RU");
        domacro("RU");
        lookat("8-short-macro");
        shown.choose("Display Permutation");
        lookatdialog("9-permutation");
        shown.answer(XK_Return); // closes it
        shown.pushbutton("Reset Cube");
        initcubies();
        shown.waitforcube(cubecolors);
        shown.choose("Input Cube");
        lookatdialog("10-collector");
        return right;
    }

  private:
    // The dialog that comes up, alone. It is left open.
    void lookatdialog(const char* name) {
        const windowid dialog = shown.waitdialog();
        picture before;
        waitfor(10, [&] {
            const picture now = screen.screenshot(screen.place(dialog));
            const bool still = now == before;
            before = now;
            return still;
        });
        keep(name, before);
    }

    void keep(const char* name, const picture& seen) {
        const std::string path = folder + "/" + name + ".png";
        const bool saved = seen.save(path);
        std::printf("%s%s\n", path.c_str(), saved ? "" : " cannot be written");
        right = right && saved;
    }

    void lookat(const char* name) {
        const verdict seen = shown.waitforcube(cubecolors);
        keep(name, screen.screenshot(screen.place(shown.window())));
        if (!seen) {
            std::printf("    is not what the model says:%s\n", seen.why.c_str());
        }
        right = right && seen.good;
    }

    std::string folder;
    xserver screen;
    program shown;
    bool right = true;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("usage: tour program folder [macro file]\n", stderr);
        return 2;
    }
    try {
        program_settings settings;
        settings.path = argv[1];
        settings.arguments.assign(argv + 3, argv + argc);
        return tour(settings, argv[2]).travel() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "tour: %s\n", problem.what());
        return 1;
    }
}
