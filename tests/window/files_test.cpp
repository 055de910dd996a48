// SPDX-License-Identifier: MIT
//
// The program and the files of its user: what it must not write, what it must tell, and several
// programs on one store.
#include "base/scratch.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
  protected:
    std::unique_ptr<program> run(xserver& where, const std::vector<std::string>& arguments = {}) {
        program_settings settings;
        settings.home = home.path();
        settings.arguments = arguments;
        return std::make_unique<program>(where, settings);
    }

    std::unique_ptr<program> run(const std::vector<std::string>& arguments = {}) {
        return run(screen, arguments);
    }

    // Answers the question for a name, whose answer opens an alert; then leaves that.
    void defineandbetold(program& vexel, const std::string& name, const std::string& picture) {
        vexel.choose("Define Macro");
        const windowid question = vexel.waitdialog();
        screen.type(name + "\n");
        ASSERT_TRUE(waitfor(20, [&] {
            const windowid box = vexel.dialog();
            return box != 0 && box != question;
        }));
        vexel.keeppicture(picture);
        vexel.answer(XK_Return);
    }

    std::string file(const std::string& name) const { return home.path() + "/" + name; }

    static void define(program& vexel, const std::string& name) {
        vexel.choose("Define Macro");
        vexel.answer(name);
    }

    bool stored(const std::string& name) const {
        return readfile(store).find(":" + name + "\n") != std::string::npos;
    }

    scratchfolder home;
    std::string store = file(".fltk/org.vexel/vexel/preferences.prefs");
    xserver screen;
};

// What a command that only reads opens is left by Escape.
void readall(program& vexel) {
    for (const char* entry : {"About Vexel", "Define Macro", "Delete Macro", "Load Macro File",
                              "Dump Macro File", "Print EPS File", "Set Cube Colors"}) {
        vexel.choose(entry);
        vexel.answer(XK_Escape);
        EXPECT_TRUE(vexel.waitnodialog()) << entry;
    }
    for (const char* entry : {"Show Rear Cube", "Long Solve", "Apply Macro", "Reset Cube"}) {
        vexel.choose(entry);
    }
    vexel.pushbutton("Rcw");
    EXPECT_TRUE(vexel.waitquiet());
}

} // namespace

TEST_F(Files, AStartCommandsThatReadAndAQuitWriteNothing) {
    writefile(store, ";\n;\n;\n[./Vexelprefs]\nspeed:5\nmac0:one\nval0:R\n+U\n");
    writefile(file("m.macros"), "two\nRU\n");
    const auto before = fs::last_write_time(store);
    program_settings settings;
    settings.home = home.path();
    settings.path = VEXEL_WATCHCALLS;
    settings.arguments = {file("calls.log"), VEXEL_PROGRAM, file("m.macros")};
    {
        program vexel(screen, settings);
        readall(vexel);
        vexel.choose("Quit");
        ASSERT_EQ(0, vexel.child().waitexit(30));
    }
    EXPECT_EQ(before, fs::last_write_time(store));
    std::ifstream log(file("calls.log"));
    int lines = 0;
    for (std::string line; std::getline(log, line); lines++) {
        const bool ours = line.find(home.path()) != std::string::npos;
        const bool cache = line.find(file(".cache")) != std::string::npos; // of the system's parts
        EXPECT_FALSE(ours && !cache) << line;
    }
    EXPECT_GT(lines, 0) << "nothing was watched";
}

TEST_F(Files, MacrosDefinedInTwoProgramsAreBothKept) {
    const auto first = run();
    xserver other;
    const auto second = run(other);
    define(*first, "one");
    define(*second, "two");
    define(*first, "three");
    EXPECT_TRUE(waitfor(10, [&] { return stored("one") && stored("two") && stored("three"); }));
}

TEST_F(Files, TooManyMacrosOnTheCommandLineAreToldOnceTheWindowStands) {
    std::string macros;
    for (int i = 0; i < 600; i++) {
        macros += "macro " + std::to_string(i) + "\nRU\n";
    }
    writefile(file("m.macros"), macros);
    const auto vexel = run({file("m.macros")});
    vexel->waitdialog();
    EXPECT_TRUE(screen.visible(vexel->window()));
    vexel->keeppicture("too-many-macros");
    vexel->answer(XK_Return);
    EXPECT_TRUE(vexel->waitnodialog());
    initcubies();
    EXPECT_TRUE(vexel->waitforcube(cubecolors).good);
}

TEST_F(Files, APipeOnTheCommandLineDoesNotHoldTheProgramUp) {
    makepipe(file("pipe"));
    const auto vexel = run({file("pipe")});
    initcubies();
    EXPECT_TRUE(vexel->waitforcube(cubecolors).good);
}

TEST_F(Files, AMacroThatCouldNotBeStoredIsToldAndStaysInTheList) {
    writefile(store, ";\n;\n;\n[broken]\n");
    const auto vexel = run();
    vexel->typemacro("RU");
    defineandbetold(*vexel, "mine", "not-stored");
    defineandbetold(*vexel, "mine", "in-use"); // it is in the list
}

TEST_F(Files, AKilledProgramLosesNothing) {
    auto vexel = run();
    define(*vexel, "one");
    ASSERT_TRUE(waitfor(10, [&] { return stored("one"); }));
    define(*vexel, "two");
    kill(vexel->child().pid(), SIGKILL);
    vexel->child().waitexit(10);
    EXPECT_TRUE(stored("one"));
    vexel = run();
    define(*vexel, "three");
    EXPECT_TRUE(waitfor(10, [&] { return stored("three"); }));
    EXPECT_TRUE(stored("one"));
}
