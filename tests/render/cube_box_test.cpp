// SPDX-License-Identifier: MIT
//
// The events are made up. The frames are painted by the real OpenGL on a virtual screen, and looked
// at as a person would, by a picture of it.
#include "model/cube.h"
#include "model/parser.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "nullshell.h"
#include "render/animation.h"
#include "render/colors.h"
#include "render/cube_box.h"
#include "render/glscreen.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "viewpoints.h"
#include "window/xserver.h"

#include <FL/Fl.H>
#include <FL/Fl_Window.H>
#include <FL/gl.h>
#include <FL/x.H>
#include <GL/glx.h>

// X takes names that the test framework has, too.
#undef None
#undef Bool

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

bool spoilbuffer = false; // a swap leaves rubbish in the back buffer, as it may
std::vector<rgb> swapped; // what each swap brings up at the middle of the sticker of place 20

rgb backbuffer(int place) {
    const viewpoint at = lookat(place);
    unsigned char pixel[3] = {};
    glReadPixels(static_cast<int>(at.x), viewsize - 1 - static_cast<int>(at.y), 1, 1, GL_RGB,
                 GL_UNSIGNED_BYTE, pixel);
    return {pixel[0], pixel[1], pixel[2]};
}

} // namespace

// Stands between the toolkit and OpenGL.
extern "C" void glXSwapBuffers(Display* dpy, GLXDrawable drawable) {
    using swap = void (*)(Display*, GLXDrawable);
    static const swap real = reinterpret_cast<swap>(dlsym(RTLD_NEXT, "glXSwapBuffers"));
    swapped.push_back(backbuffer(20));
    real(dpy, drawable);
    if (spoilbuffer) {
        glClearColor(1, 0, 1, 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }
}

namespace {

// One screen for the whole program, which the toolkit opens once and never lets go.
const xserver& screen() {
    static const xserver server;
    return server;
}

// Some toolkits ask the screen about its window manager when a widget takes the keyboard.
class CubeBoxEvents : public testing::Test {
  protected:
    void SetUp() override {
        setenv("DISPLAY", screen().name().c_str(), 1);
        resetshell();
        Fl::e_state = 0;
        Fl_Group::current(nullptr); // a new window would become a part of this one
    }

    // A press at the fractions fx, fy of the width, reckoned as the view does.
    int press(double fx, double fy, int state) {
        Fl::e_x = view.x() + static_cast<int>(std::lround(fx * view.w()));
        Fl::e_y = view.y() + static_cast<int>(std::lround((1 - fy) * view.w()));
        Fl::e_state = state;
        return view.handle(FL_PUSH);
    }

    Fl_Window window{735, 462};
    cube_box view{2, 24, 436, 436};
};

TEST_F(CubeBoxEvents, FocusIsAccepted) {
    EXPECT_EQ(view.handle(FL_FOCUS), 1);
}

TEST_F(CubeBoxEvents, ShortcutWithAltGoesToInterpretkey) {
    Fl::e_keysym = 'r';
    for (const int state : {FL_ALT, FL_ALT | FL_SHIFT, FL_ALT | FL_CTRL}) {
        resetshell();
        Fl::e_state = state;
        EXPECT_EQ(view.handle(FL_SHORTCUT), 1);
        EXPECT_EQ(shell.keys, std::vector<int>{'r'});
    }
}

TEST_F(CubeBoxEvents, ShortcutWithoutAltIsRefused) {
    Fl::e_keysym = 'r';
    for (const int state : {0, FL_SHIFT, FL_CTRL, FL_META}) {
        Fl::e_state = state;
        EXPECT_EQ(view.handle(FL_SHORTCUT), 0);
    }
    EXPECT_TRUE(shell.keys.empty());
}

struct press_row {
    double fx, fy;
    int state;
    long command;
};

constexpr press_row presses[] = {
    {0.25, 0.50, 0,                4 },
    {0.25, 0.50, FL_ALT,           14},
    {0.25, 0.50, FL_CTRL,          19},
    {0.25, 0.50, FL_CTRL | FL_ALT, 7 },
    {0.60, 0.40, 0,                8 },
    {0.60, 0.40, FL_ALT,           12},
    {0.60, 0.40, FL_CTRL,          22},
    {0.60, 0.40, FL_CTRL | FL_ALT, 11},
    {0.50, 0.80, 0,                0 },
    {0.50, 0.80, FL_ALT,           16},
    {0.50, 0.80, FL_CTRL,          20},
    {0.50, 0.80, FL_CTRL | FL_ALT, 3 },
    {0.60, 0.40, FL_SHIFT,         8 }, // the dispatcher looks at Shift
    {0.60, 0.40, FL_BUTTON1,       8 },
    {0.60, 0.40, FL_BUTTON2,       8 },
    {0.60, 0.40, FL_BUTTON3,       8 },
};

TEST_F(CubeBoxEvents, PressInARegionStartsItsTurn) {
    for (const press_row& row : presses) {
        SCOPED_TRACE(row.command);
        resetshell();
        EXPECT_EQ(press(row.fx, row.fy, row.state), 1);
        EXPECT_EQ(shell.commands, std::vector<long>{row.command});
    }
}

TEST_F(CubeBoxEvents, PressElsewhereIsAcceptedAndDoesNothing) {
    EXPECT_EQ(press(0.05, 0.05, 0), 1);
    EXPECT_EQ(press(0.9, 0.95, FL_ALT), 1);
    EXPECT_TRUE(shell.commands.empty());
}

// The toolkit gives positions inside the view, and the view takes its own place in the window off
// them once more.
TEST_F(CubeBoxEvents, PressIsMeasuredFromAShiftedCorner) {
    Fl::e_x = 2 + 70; // 70 / 436 is just inside the left face, 69 / 436 just outside
    Fl::e_y = 24 + 218;
    view.handle(FL_PUSH);
    EXPECT_EQ(shell.commands, std::vector<long>{4});
    Fl::e_x = 2 + 69;
    view.handle(FL_PUSH);
    EXPECT_EQ(shell.commands.size(), 1U);
}

TEST_F(CubeBoxEvents, HeightIsMeasuredInWidths) {
    view.size(436, 872);
    Fl::e_x = 2 + 218;
    Fl::e_y = 24 + 87; // fy 0.8
    view.handle(FL_PUSH);
    EXPECT_EQ(shell.commands, std::vector<long>{0});
}

TEST_F(CubeBoxEvents, AllOtherEventsAreRefused) {
    for (const int event : {FL_RELEASE, FL_DRAG, FL_MOVE, FL_ENTER, FL_LEAVE, FL_KEYDOWN, FL_KEYUP,
                            FL_UNFOCUS, FL_SHOW, FL_MOUSEWHEEL, FL_PASTE, FL_NO_EVENT}) {
        EXPECT_EQ(view.handle(event), 0) << event;
    }
    EXPECT_TRUE(shell.commands.empty());
}

// The windows stay, since hiding the view ends the program.
class CubeBox : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        setenv("DISPLAY", screen().name().c_str(), 1);
        Fl_Group::current(nullptr);
        initdrawface();
        window = new Fl_Window(0, 0, 500, 500);
        view = new cube_box(2, 24, viewsize, viewsize);
        view->mode(FL_DOUBLE);
        window->end();
        window->show();
        view->show();
    }

    void SetUp() override {
        resetshell();
        resetmodel();
        demomode = 0;
        showrear = 1;
        spoilbuffer = false;
        ASSERT_TRUE(waitfor(10, [] {
            Fl::wait(0.01);
            return screen().visible(fl_xid(view));
        }));
    }

    static void frame() {
        view->redraw();
        Fl::flush();
        glFinish();
        XSync(fl_display, 0);
    }

    // Leaves in glmat what OpenGL makes of the still view.
    static void takerealmatrix() {
        view->make_current();
        setupeye(viewsize, viewsize);
        PushMatrix();
        setupcube();
        getmatrix();
        PopMatrix();
    }

    static picture seen() { return screen().screenshot(screen().place(fl_xid(view))); }

    static rgb screencolor(char letter) {
        const letter_row* row = findletter(letter);
        const auto byte = [](float c) { return static_cast<int>(std::lround(255 * c)); };
        return {byte(row->r), byte(row->g), byte(row->b)};
    }

    // That each sticker from first to last has the colour that its place has in the model.
    static void expectcube(const picture& p, int first, int last) {
        for (int place = first; place <= last; place++) {
            const viewpoint at = lookat(place);
            const rgb shown = p.at(static_cast<int>(at.x), static_cast<int>(at.y));
            EXPECT_TRUE(near(shown, screencolor(colortable[cubecolors[place]])))
                << "place " << place << " is " << text(shown);
        }
    }

    // How many pixels of the letter right of and above a point of model space are black.
    static int ink(const picture& p, modelpoint where) {
        const viewpixel at = project(where, false);
        const rectangle letter = {static_cast<int>(at.x), static_cast<int>(at.y) - 12, 11, 12};
        return p.part(letter).count({0, 0, 0});
    }

    static bool black(const picture& p, int x, int y) { return p.at(x, y) == rgb{0, 0, 0}; }

    // The smallest rectangle round the black pixels of the letter at a point of model space.
    static rectangle inkbox(const picture& p, modelpoint where) {
        const viewpixel at = project(where, false);
        int left = viewsize;
        int right = -1;
        int top = viewsize;
        int bottom = -1;
        for (int y = static_cast<int>(at.y) - 15; y < static_cast<int>(at.y) + 3; y++) {
            for (int x = static_cast<int>(at.x) - 3; x < static_cast<int>(at.x) + 11; x++) {
                if (black(p, x, y)) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                    top = std::min(top, y);
                    bottom = std::max(bottom, y);
                }
            }
        }
        return {left, top, right - left + 1, bottom - top + 1};
    }

    // 'F', 'L' or 'U', whichever stands at a point of model space; '?' if it is none of them.
    static char letter(const picture& p, modelpoint where) {
        const rectangle box = inkbox(p, where);
        int top = 0;
        int bottom = 0;
        int right = 0;
        for (int x = box.x; x < box.x + box.w; x++) {
            top += black(p, x, box.y) ? 1 : 0;
            bottom += black(p, x, box.y + box.h - 1) ? 1 : 0;
        }
        for (int y = box.y; y < box.y + box.h; y++) {
            right += black(p, box.x + box.w - 1, y) ? 1 : 0;
        }
        const bool stem = right > box.h / 2;
        const bool bar = top > box.w / 2;
        const bool foot = bottom > box.w / 2;
        return stem && !bar ? 'U' : !stem && bar && !foot ? 'F' : !stem && foot && !bar ? 'L' : '?';
    }

    static inline Fl_Window* window;
    static inline cube_box* view;
};

TEST_F(CubeBox, All54StickersShowTheModelOfFiftyCubes) {
    std::srand(7);
    for (int i = 0; i < 50; i++) {
        SCOPED_TRACE(i);
        jumblecube();
        frame();
        expectcube(seen(), 0, 53);
    }
}

TEST_F(CubeBox, OutOfSightIsNoEnd) {
    EXPECT_EQ(view->handle(FL_HIDE), 0);
    EXPECT_NE(view->shown(), 0);
}

TEST_F(CubeBox, BackgroundIsMidGrey) {
    frame();
    const picture p = seen();
    EXPECT_TRUE(near(p.at(3, 3), {128, 128, 128}));
    EXPECT_TRUE(near(p.at(430, 430), {128, 128, 128}));
    view->make_current();
    GLfloat cleared[4] = {};
    glGetFloatv(GL_COLOR_CLEAR_VALUE, cleared);
    EXPECT_EQ(cleared[0], 0.5F);
    EXPECT_EQ(cleared[3], 0); // a screen that mixes windows would see it
}

// The letters of the three faces are told apart by where their ink is: F has a bar at the top and
// none at the bottom, L the other way round, U a second stem on its right.
TEST_F(CubeBox, EachLetterStandsOnItsFace) {
    frame();
    const picture p = seen();
    EXPECT_EQ(letter(p, {0, 0, 3}), 'F');
    EXPECT_EQ(letter(p, {0, 2.8, 0}), 'U');
    EXPECT_EQ(letter(p, {-3.1, 0, 0}), 'L');
}

// A letter begins at its point: nothing of it lies left of it or below it, and its stem is near.
TEST_F(CubeBox, LettersBeginAtTheirPlaces) {
    frame();
    const picture p = seen();
    for (const modelpoint where : {
             modelpoint{0,    0,   3},
             {0,    2.8, 0},
             {-3.1, 0,   0}
    }) {
        const viewpixel at = project(where, false);
        const rectangle box = inkbox(p, where);
        EXPECT_GE(box.x, std::floor(at.x));
        EXPECT_LE(box.x, std::ceil(at.x) + 2);
        EXPECT_NEAR(box.y + box.h, at.y, 1.5);
        EXPECT_TRUE(box.h >= 9 && box.h <= 14)
            << box.h; // whatever font stands in for the right one
    }
}

TEST_F(CubeBox, DemoShowsNoLabels) {
    demomode = 1;
    frame(); // the first one of a demo is not turned yet
    const picture p = seen();
    EXPECT_EQ(ink(p, {0, 0, 3}), 0);
    EXPECT_EQ(ink(p, {0, 2.8, 0}), 0);
    EXPECT_EQ(ink(p, {-3.1, 0, 0}), 0);
    expectcube(p, 0, 53);
}

TEST_F(CubeBox, DemoTurnsThePictureAndLeavesItStraight) {
    frame();
    const picture straight = seen();
    demomode = 1;
    TURNTIME = 3;
    frame();
    frame();
    frame();
    EXPECT_FALSE(near(seen().at(175, 140), straight.at(175, 140)) &&
                 near(seen().at(150, 355), straight.at(150, 355)));
    demomode = 0;
    frame();
    EXPECT_TRUE(seen() == straight);
}

TEST_F(CubeBox, TurnLandsAfterItsLastFrameAndOnce) {
    turnmode = 6;
    ttime = TURNTIME - 2;
    frame();
    EXPECT_EQ(cubecolors[29], 3);
    EXPECT_TRUE(solved());
    ttime = TURNTIME - 1;
    frame();
    EXPECT_FALSE(solved());
    const int landed = cubecolors[2];
    EXPECT_EQ(landed, 2); // R brings the front's column up
    expectcube(seen(), 27, 53);
    frame(); // asked for again, before the driver ends the turn
    EXPECT_EQ(cubecolors[2], landed);
    expectcube(seen(), 0, 53);
    EXPECT_EQ(turnlanded, 1);
}

TEST_F(CubeBox, FrameShowsTheCubeBeforeItLands) {
    TURNTIME = 1;
    turnmode = 8;
    ttime = 0;
    showrear = 0;
    frame();
    const picture p = seen();
    initcubies();
    expectcube(p, 0, 26);
}

TEST_F(CubeBox, PictureThatStaysIsTheFrameJustPainted) {
    frame();
    spoilbuffer = true;
    applyturn(6);
    applyturn(1);
    frame();
    expectcube(seen(), 0, 53);
    EXPECT_GT(ink(seen(), {0, 0, 3}), 8);
}

// None of them may flash what was there before, be it for a moment.
TEST_F(CubeBox, EverySwapBringsUpTheFrameJustPainted) {
    frame();
    spoilbuffer = true;
    applyturn(6); // D's yellow comes to place 20
    swapped.clear();
    frame();
    ASSERT_FALSE(swapped.empty());
    for (const rgb& shown : swapped) {
        EXPECT_TRUE(near(shown, screencolor('Y'))) << text(shown);
    }
}

TEST_F(CubeBox, StackOfMatricesIsEvenAfterAFrame) {
    turnmode = 22;
    ttime = 40;
    frame();
    view->make_current();
    while (glGetError() != GL_NO_ERROR) {
        // the toolkit leaves one behind when it first loads the font of the labels
    }
    frame();
    GLint depth = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(CubeBox, RealMatricesProjectAsTheTwinDoes) {
    takerealmatrix();
    for (int place = 0; place < placecount; place++) {
        const modelpoint c = stickercenter(place);
        const viewpixel wanted = project(c, false);
        float p[3] = {static_cast<float>(c.x), static_cast<float>(c.y), static_cast<float>(c.z)};
        xformvect(p);
        EXPECT_NEAR((p[0] + 1) * viewsize / 2, wanted.x, 1e-3);
        EXPECT_NEAR((1 - p[1]) * viewsize / 2, wanted.y, 1e-3);
    }
}

TEST_F(CubeBox, StandardViewIsTheStillViewOfTheRealMatrices) {
    takerealmatrix();
    float m[4][4];
    standardview(m);
    for (int i = 0; i < 16; i++) {
        EXPECT_FLOAT_EQ(glmat[i], m[i / 4][i % 4]);
    }
}

TEST_F(CubeBox, GetMatrixDoesNothing) {
    view->make_current();
    float m[4][4] = {
        {7, 7, 7, 7},
        {7, 7, 7, 7},
        {7, 7, 7, 7},
        {7, 7, 7, 7}
    };
    GetMatrix(m);
    EXPECT_EQ(std::count(&m[0][0], &m[0][0] + 16, 7.0F), 16);
}

int possible(const std::string& display) {
    setenv("DISPLAY", display.c_str(), 1);
    return viewpossible() ? 10 : 11;
}

// Each in a child of its own, before this process has a screen, which their end would take along.
// For the other half, a view whose window is there, see CubeBox.OutOfSightIsNoEnd.
TEST(CubeBoxDeathTest, HidingEndsTheProgram) {
    cube_box view(2, 24, viewsize, viewsize);
    EXPECT_EXIT(view.handle(FL_HIDE), testing::ExitedWithCode(0), "");
}

TEST(CubeBoxDeathTest, ScreenWithOpenglWillDo) {
    const xserver screen;
    EXPECT_EXIT(std::exit(possible(screen.name())), testing::ExitedWithCode(10), "");
}

TEST(CubeBoxDeathTest, ScreenWithoutOpenglWillNotDo) {
    xserver_settings settings;
    settings.arguments = {"-extension", "GLX"};
    const xserver screen(settings);
    EXPECT_EXIT(std::exit(possible(screen.name())), testing::ExitedWithCode(11), "");
}

} // namespace
