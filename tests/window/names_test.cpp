// SPDX-License-Identifier: MIT
//
// Names of files typed into the program's question, letter by letter, with and without a window
// manager; worth the most under the sanitizers.
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace {

namespace fs = std::filesystem;

class Names : public windowtest {
  protected:
    explicit Names(const xserver_settings& settings = {}) : windowtest(settings) {}

    void ask() const {
        vexel.choose("Dump Macro File");
        vexel.waitdialog();
    }

    bool written(const std::string& name) const {
        return waitfor(10, [&] { return fs::exists(vexel.home() + "/" + name); });
    }

    // Whether the program is still there, has no complaint and follows.
    void expectwell() const {
        EXPECT_EQ("", vexel.output());
        vexel.pushbutton("Rcw");
        applyturn(6);
        EXPECT_TRUE(showsmodel());
    }
};

class Managednames : public Names {
  protected:
    Managednames() : Names({.windowmanager = true}) {}
};

// Any letters, and often those that mean something to a shell or to the toolkit.
std::string anyname(int size) {
    const std::string letters = "~$/@&%.{*abcdefghijklmnopqrstuvwxyzHOME0123456789 _-\\\"'";
    std::string name;
    for (int i = 0; i < size; i++) {
        name += letters[static_cast<std::size_t>(std::rand()) % letters.size()];
    }
    return name;
}

} // namespace

TEST_F(Names, ATypedNameIsTheNameOfTheFile) {
    for (const std::string name : {"hello.mac", "a", "$HOME", "x~y @&%s{*"}) {
        SCOPED_TRACE(name);
        ask();
        screen.type(name + "\n");
        EXPECT_TRUE(written(name));
        EXPECT_TRUE(vexel.waitnodialog());
    }
    ask();
    screen.type("~/home.mac\n");
    EXPECT_TRUE(written("home.mac"));
    expectwell();
}

TEST_F(Names, ANameGrowsLetterByLetterToFourThousand) {
    ask();
    std::string name = "~$x";
    screen.type(name);
    while (name.size() < 4000) {
        const std::string more = anyname(97);
        screen.type(more);
        screen.press(XK_Tab); // looks for what begins like this, and finds nothing
        name += more;
        ASSERT_TRUE(vexel.child().running()) << vexel.output();
    }
    screen.type("\n"); // too long for the system
    ASSERT_TRUE(waitfor(60, [&] { return vexel.child().isquiet(); }));
    screen.press(XK_Escape);
    if (vexel.dialog() != 0) {
        vexel.answer(XK_Escape);
    }
    expectwell();
}

TEST_F(Names, LongNamesAreRefusedWithAMessage) {
    for (int size : {1, 254, 255, 256, 1003, 1023, 1024, 1025}) {
        SCOPED_TRACE(size);
        ask();
        screen.type(std::string(static_cast<std::size_t>(size), 'n') + "\n");
        if (size <= 250) { // short enough, and for the name of a file written beside it
            EXPECT_TRUE(written(std::string(static_cast<std::size_t>(size), 'n')));
            EXPECT_TRUE(vexel.waitnodialog());
        } else if (size > 255) {
            ASSERT_TRUE(waitfor(20, [&] {
                return vexel.dialog() != 0 &&
                       screen.title(vexel.dialog()).find("Save") == std::string::npos;
            }));
            vexel.keeppicture("long-name");
            vexel.answer(XK_Return);
        } else {
            vexel.waitquiet();
            if (vexel.dialog() != 0) {
                vexel.answer(XK_Return);
            }
        }
    }
    expectwell();
}

TEST_F(Managednames, TheQuestionHasTheKeyboardAtOnce) {
    vexel.choose("Dump Macro File");
    ASSERT_TRUE(waitfor(10, [&] { return vexel.dialog() != 0; }));
    vexel.waitquiet(); // until the window manager has seen to it
    vexel.keeppicture("file-question");
    screen.type("managed.mac\n");
    EXPECT_TRUE(written("managed.mac"));
    EXPECT_TRUE(vexel.waitnodialog());
    vexel.choose("Print EPS File");
    ASSERT_TRUE(waitfor(10, [&] { return vexel.dialog() != 0; }));
    screen.close(vexel.dialog());
    EXPECT_TRUE(vexel.waitnodialog());
    expectwell();
}

TEST(Toolkitstore, IsNeitherReadNorWritten) {
    initturns();
    initcubies();
    const scratchfolder home;
    const std::string path = home.path() + "/.fltk/fltk.org/filechooser.prefs";
    fs::create_directories(fs::path(path).parent_path());
    const std::string toolong = "; a\n; b\n; c\n[./" + std::string(3000, 'a') + "]\nx:y\n";
    std::ofstream(path) << toolong;
    xserver screen;
    program vexel(screen, {.home = home.path()});
    EXPECT_TRUE(vexel.waitforcube(cubecolors));
    vexel.choose("Quit");
    EXPECT_EQ(0, vexel.child().waitexit(30));
    EXPECT_EQ("", vexel.output());
    std::ifstream file(path);
    EXPECT_EQ(toolong, std::string(std::istreambuf_iterator<char>(file), {}));
}
