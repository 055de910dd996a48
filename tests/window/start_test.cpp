// SPDX-License-Identifier: MIT
//
// The window as it comes up, and starts that go wrong.
#include "viewpoints.h"
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <sstream>
#include <thread>

namespace {

class Start : public windowtest {};

constexpr rgb grey = {128, 128, 128};

int brightness(rgb colour) {
    return colour.red + colour.green + colour.blue;
}

// Whether a raised box has its edges at r: light above and left, dark below and right.
bool raised(const picture& window, rectangle r, rgb background) {
    const int even = brightness(background);
    const int right = r.x + r.w - 1;
    const int bottom = r.y + r.h - 1;
    const int x = r.x + r.w / 2;
    const int y = r.y + r.h / 2;
    return brightness(window.at(x, r.y)) > even && brightness(window.at(r.x, y)) > even &&
           brightness(window.at(x, bottom)) < even && brightness(window.at(right, y)) < even;
}

// Whether there is anything but background in the middle of r.
bool written(const picture& window, rectangle r) {
    const picture inside = window.part({r.x + 4, r.y + 3, r.w - 8, r.h - 6});
    return inside.count(inside.commonest()) < inside.w() * inside.h();
}

// How many pixels of black stand right of and above the point, where a letter is drawn.
int inkat(const picture& view, modelpoint p) {
    const viewpixel at = project(p, false, view.w());
    const rectangle box = {static_cast<int>(at.x) + 1, static_cast<int>(at.y) - 11, 10, 11};
    return view.part(box).count({0, 0, 0});
}

// The program's window as soon as it is there.
windowid firstwindow(const xserver& screen) {
    windowid window = 0;
    waitfor(30, [&] {
        const std::vector<windowid> all = screen.windows();
        window = all.empty() ? 0 : all.back();
        return window != 0;
    });
    return window;
}

} // namespace

TEST_F(Start, ShowsTheSolvedCubeOnGreyWithThreeLetters) {
    ASSERT_TRUE(showsmodel());
    const picture view = vexel.view_picture();
    ASSERT_EQ(view.w(), viewsize);
    ASSERT_EQ(view.h(), viewsize);
    for (int corner : {0, 1, 2}) {
        const int far = viewsize - 2;
        EXPECT_EQ(view.at(corner == 2 ? far : 1, corner == 0 ? 1 : far), grey);
    }

    const struct {
        const char* letter;
        modelpoint at;
    } letters[] = {
        {"F", {0, 0, 3}   },
        {"U", {0, 2.8, 0} },
        {"L", {-3.1, 0, 0}},
    };

    for (const auto& [letter, at] : letters) {
        SCOPED_TRACE(letter);
        const int ink = inkat(view, at); // of the server's own fonts where the toolkit takes those
        EXPECT_GE(ink, 4);
        EXPECT_LE(ink, 60);
    }
}

TEST_F(Start, EveryWidgetStandsInItsPlace) {
    ASSERT_TRUE(showsmodel());
    const picture window = vexel.window_picture();
    ASSERT_EQ(window.w(), windowwidth);
    ASSERT_EQ(window.h(), windowheight);
    const rgb background = window.at(732, 300);
    for (const button_place& button : buttonplaces) {
        SCOPED_TRACE(button.label);
        EXPECT_TRUE(raised(window, button.place, background));
        EXPECT_TRUE(written(window, button.place));
        EXPECT_EQ(window.at(button.place.x - 1, button.place.y - 1), background);
        EXPECT_EQ(window.at(button.place.x + 2, button.place.y + button.place.h), background);
    }
    for (const rectangle& heading : headingplaces) {
        SCOPED_TRACE(heading.y);
        EXPECT_TRUE(written(window, heading));
    }
    EXPECT_TRUE(raised(window, menubarplace, background));
    EXPECT_TRUE(raised(window, legendplace, background));
    for (const rectangle& line : {lengthplace, macroplace}) {
        EXPECT_FALSE(raised(window, line, background));
        EXPECT_EQ(window.at(line.x + line.w - 4, line.y + 5), (rgb{255, 255, 255}));
    }
    EXPECT_TRUE(written(window, lengthplace)); // "0"
}

// Rows of the legend in the system's plain sans serif, often a wide one, would run over the frame.
TEST_F(Start, TheLegendStaysInsideItsFrame) {
    ASSERT_TRUE(showsmodel());
    const rectangle r = legendplace;
    const picture inside = vexel.part({r.x + 3, r.y + 3, r.w - 6, r.h - 6});
    for (const int x : {0, inside.w() - 4}) {
        const picture margin = inside.part({x, 0, 4, inside.h()});
        EXPECT_EQ(margin.count(inside.commonest()), 4 * inside.h()) << x;
    }
}

TEST_F(Start, MenusHaveTheirRows) {
    const struct {
        const char* first;
        int rows;
    } menus[] = {
        {"Reset Cube",       6},
        {"Undo",             4},
        {"Show Macro Gizmo", 4},
        {"Define Macro",     7},
        {"About Vexel",      1},
    };

    int heights[5] = {};
    for (int i = 0; i < 5; i++) {
        const windowid menu = vexel.openmenu(menus[i].first);
        heights[i] = screen.place(menu).h;
        screen.button(1, false);
        screen.press(XK_Escape);
        ASSERT_TRUE(waitfor(10, [&] { return !screen.visible(menu); })) << menus[i].first;
    }
    const int row = heights[1] - heights[4]; // of three entries
    for (int i = 0; i < 5; i++) {
        EXPECT_EQ(3 * (heights[i] - heights[4]), row * (menus[i].rows - 1)) << menus[i].first;
    }
}

TEST_F(Start, TheViewHasTheKeyboardAndTheSpaceBarPressesNothing) {
    ASSERT_TRUE(showsmodel());
    screen.press(XK_space);
    screen.press(XK_Return);
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_TRUE(showsmodel());
    EXPECT_EQ(vexel.dialog(), 0UL);
}

// Somebody clicks into the line before the window is painted for the first time.
TEST(StartInHaste, TheKeyboardStaysWhereTheHastyHavePutIt) {
    xserver screen;
    resetmodel();
    program vexel(screen, {.wait = false});
    const windowid window = firstwindow(screen);
    ASSERT_NE(window, 0UL);
    kill(vexel.child().pid(), SIGSTOP);
    const rectangle r = screen.place(window);
    screen.focus(window);
    screen.click(r.x + macroplace.x + 20, r.y + macroplace.y + 9);
    screen.type("RU");
    kill(vexel.child().pid(), SIGCONT);
    ASSERT_TRUE(waitfor(30, [&] { return vexel.child().isquiet(0.5); }));
    screen.type("F\n");
    parsing = 0;
    parsestring("RUF", 3);
    vexel.waitforwindow();
    const verdict seen = vexel.waitforcube(cubecolors);
    EXPECT_TRUE(seen.good) << seen.why;
}

// A window that is covered is not painted, so that the start takes a second.
TEST(StartInHaste, ADialogThatTheHastyHaveOpenedStaysInFront) {
    xserver screen;
    const windowid cover = screen.cover({0, 0, screenwidth, screenheight});
    resetmodel();
    program vexel(screen, {.wait = false});
    const windowid window = firstwindow(screen);
    ASSERT_NE(window, 0UL);
    screen.focus(window);
    // Returns once another menu is open.
    const auto presswaiting = [&](unsigned long key) {
        const std::vector<windowid> before = screen.popups(window);
        screen.press(key);
        ASSERT_TRUE(waitfor(10, [&] { return screen.popups(window) != before; }));
    };
    presswaiting(XK_F10);
    presswaiting(XK_Right);
    screen.press(XK_Down);
    screen.press(XK_Down); // to Input Cube
    screen.press(XK_Return);
    const auto isopen = [&] {
        return std::ranges::any_of(screen.windows(), [&](windowid w) {
            return screen.title(w) == "Set Cube Face Colors";
        });
    };
    ASSERT_TRUE(waitfor(30, isopen)) << vexel.keeppicture("no-dialog");
    std::this_thread::sleep_for(std::chrono::seconds(1));
    screen.uncover(cover);
    const windowid top = screen.windows().back();
    ASSERT_EQ("Set Cube Face Colors", screen.title(top)) << vexel.keeppicture("covered-dialog");

    const rectangle finish = screen.place(top);
    screen.click(finish.x + 47, finish.y + 437);
    vexel.waitforwindow();
    ASSERT_TRUE(vexel.waitnodialog());
    screen.press(XK_space); // the view has the keyboard, and no button is pressed
    screen.press(XK_Return);
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_TRUE(vexel.waitforcube(cubecolors));
    EXPECT_EQ(vexel.dialog(), 0UL);
}

TEST_F(Start, AButtonExplainsItself) {
    const rectangle r = screen.place(vexel.window());
    screen.movemouse(r.x + 460, r.y + 60); // on "Ucw"
    EXPECT_TRUE(waitfor(10, [&] { return !screen.popups(vexel.window()).empty(); }));
}

TEST_F(Start, EveryWindowTellsWhoseItIs) {
    const auto expectintroduced = [this](windowid window) {
        const auto pid = static_cast<unsigned long>(vexel.child().pid());
        EXPECT_TRUE(waitfor(10, [&] { return screen.number(window, "_NET_WM_ICON") == 16; }));
        EXPECT_EQ(screen.number(window, "_NET_WM_PID"), pid);
        EXPECT_EQ(screen.property(window, "WM_CLASS"), std::string("vexel\0Vexel\0", 12));
        EXPECT_NE(screen.property(window, "WM_CLIENT_MACHINE"), "");
    };
    expectintroduced(vexel.window());
    for (const char* entry : {"About Vexel", "Set Cube Speed", "Input Cube", "Dump Macro File"}) {
        SCOPED_TRACE(entry);
        vexel.choose(entry);
        expectintroduced(vexel.waitdialog());
        if (std::string(entry) == "Input Cube") {
            screen.close(vexel.dialog());
        } else {
            vexel.answer(XK_Escape);
        }
        ASSERT_TRUE(vexel.waitnodialog());
    }
}

TEST_F(Start, RunsWithoutAnArgumentInSilence) {
    ASSERT_TRUE(showsmodel());
    EXPECT_EQ(vexel.dialog(), 0UL);
    EXPECT_EQ(vexel.output(), "");
}

// The window stands all the same.
TEST(StartWithArguments, WhatIsPassedOverIsToldInOneLine) {
    xserver screen;
    initcubies();

    const std::string two = "vexel: 2 arguments are passed over; one may name a macro file.\n";
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{"/no/such.mac"},              "vexel: The macro file /no/such.mac cannot be read.\n"},
        {{"/no\nsuch"},                 "vexel: The macro file /no?such cannot be read.\n"    },
        {{"/"},                         "vexel: The macro file / cannot be read.\n"           },
        {{"-version"},                  "vexel: The macro file -version cannot be read.\n"    },
        {{"/no/such.mac", "/dev/null"}, two                                                   },
        {{"--help", "--version"},       two                                                   },
    };
    for (const auto& [arguments, told] : rows) {
        SCOPED_TRACE(told);
        program vexel(screen, {.arguments = arguments});
        const verdict seen = vexel.waitforcube(cubecolors);
        EXPECT_TRUE(seen.good) << seen.why;
        EXPECT_EQ(vexel.dialog(), 0UL);
        EXPECT_EQ(vexel.output(), told);
    }
}

// What a command in the shell writes to standard output; its status must be 0.
static std::string answerof(const std::string& arguments) {
    const std::string command = "DISPLAY= " VEXEL_PROGRAM " " + arguments +
                                " 2>&1 1>&3 | "
                                "sed s/^/error:/; exit ${PIPESTATUS[0]}";
    std::FILE* pipe = popen(("bash -c '" + command + "' 3>&1").c_str(), "r");
    std::string all;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        all += static_cast<char>(c);
    }
    EXPECT_EQ(pclose(pipe), 0) << arguments;
    return all;
}

TEST(StartWithArguments, HelpAndVersionAreAnsweredWithoutADisplay) {
    EXPECT_EQ(answerof("--version").rfind("vexel ", 0), 0U);
    EXPECT_EQ(answerof("--help").rfind("usage: vexel [macro file]\n", 0), 0U);
}

TEST(StartAndEnd, TheServersEndIsToldInOneSentence) {
    auto screen = std::make_unique<xserver>();
    program vexel(*screen);
    initcubies();
    ASSERT_TRUE(vexel.waitforcube(cubecolors));
    screen->endserver();
    EXPECT_EQ(vexel.child().waitexit(30), std::optional<int>(1));
    EXPECT_EQ(vexel.output(), "vexel: The connection to the display was lost.\n");
}

namespace {

// What the program said, without the words of OpenGL's own libraries.
std::string ownwords(const std::string& output) {
    std::istringstream lines(output);
    std::string own;
    for (std::string line; std::getline(lines, line);) {
        own += line.rfind("libGL", 0) == 0 ? "" : line + "\n";
    }
    return own;
}

// Runs the program where it cannot show its window.
void expectonesentence(xserver& screen, const std::string& display,
                       const std::vector<std::pair<std::string, std::string>>& more = {}) {
    program_settings settings;
    settings.environment = more;
    settings.environment.emplace_back("DISPLAY", display);
    settings.wait = false;
    program vexel(screen, settings);
    const std::optional<int> status = vexel.child().waitexit(30);
    EXPECT_EQ(status, std::optional<int>(1));
    const std::string said = ownwords(vexel.output());
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    EXPECT_EQ(said.find("vexel: "), 0U) << said;
    EXPECT_NE(said.find("isplay"), std::string::npos) << said;
}

} // namespace

TEST(StartWithoutDisplay, SaysSoInOneSentence) {
    xserver screen;
    expectonesentence(screen, ":9999");
    expectonesentence(screen, "");
}

TEST(StartWithoutOpenGL, SaysSoInOneSentence) {
    xserver screen({
        .arguments = {"-extension", "GLX"}
    });
    expectonesentence(screen, screen.name());
}

// The display offers the visuals of OpenGL, but there is no driver behind them.
TEST(StartWithoutOpenGL, IsNotTakenInByItsVisuals) {
    xserver screen({.arguments = {"-iglx"}}); // it does not draw for others
    expectonesentence(screen, screen.name(),
                      {
                          {"LIBGL_ALWAYS_INDIRECT", "1"}
    });
    for (const char* silence : {"context", "current", "error", "version", "blank"}) {
        SCOPED_TRACE(silence);
        expectonesentence(screen, screen.name(),
                          {
                              {"LD_PRELOAD", VEXEL_DEAF},
                              {"VEXEL_DEAF", silence   }
        });
    }
}
