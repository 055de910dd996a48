// SPDX-License-Identifier: MIT
//
// Named macros as a person uses them: chosen, defined, deleted, saved, loaded, kept for the next
// run.
#include "base/scratch.h"
#include "model/resetmodel.h"
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& text) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

class Macros : public testing::Test {
  protected:
    Macros() { resetmodel(); }

    // A run of the program in the test's home folder, at the fastest speed.
    void start(const std::vector<std::string>& arguments = {}) {
        vexel.reset();
        program_settings settings;
        settings.home = home.path();
        settings.arguments = arguments;
        vexel = std::make_unique<program>(screen, settings);
        initcubies();
    }

    // As the user ends it.
    void quit() const {
        vexel->choose("Quit");
        ASSERT_EQ(0, vexel->child().waitexit(30));
    }

    // Chooses a row of the list, which has so many.
    void chooseentry(int row, int rows) const {
        const rectangle w = screen.place(vexel->window());
        screen.click(w.x + choiceplace.x + 100, w.y + choiceplace.y + choiceplace.h / 2);
        windowid list = 0;
        ASSERT_TRUE(waitfor(10, [&] {
            const std::vector<windowid> popups = screen.popups(vexel->window());
            list = popups.empty() ? 0 : popups.back();
            return list != 0;
        }));
        const rectangle m = screen.place(list);
        const int y = m.y + m.h * (2 * row + 1) / (2 * rows);
        screen.movemouse(m.x + m.w / 2, y);
        ASSERT_TRUE(waitfor(10, [&] {
            return screen.screenshot({m.x + 4, y - 4, m.w - 8, 8}).commonest() == marked;
        })) << vexel->keeppicture("no-list-row");
        screen.click(m.x + m.w / 2, y);
        ASSERT_TRUE(waitfor(10, [&] { return !screen.visible(list); }));
        screen.movemouse(screenwidth - 1, screenheight - 1);
    }

    void settle() const {
        ASSERT_TRUE(waitfor(10, [&] { return vexel->child().isquiet(); }));
    }

    // Answers the toolkit's file dialog. It completes what is typed, so the name is pasted.
    void answerfile(const std::string& path) const {
        const rectangle r = screen.place(vexel->waitdialog());
        settle();
        screen.emptyline();
        screen.ownselection();
        screen.click(r.x + r.w / 2, r.y + r.h - 59, 0, 2);
        ASSERT_TRUE(screen.serveselection(path, 10));
        settle();
        clickok();
    }

    void clickok() const {
        const rectangle r = screen.place(vexel->waitdialog());
        vexel->clickdialog(r.w - 110, r.h - 24);
        ASSERT_TRUE(waitfor(10, [&] { return screen.place(vexel->dialog()).h != r.h; }))
            << vexel->keeppicture("file-dialog");
    }

    static void domacro(const std::string& macro) {
        parsing = 0;
        parsestring(macro.c_str(), static_cast<int>(macro.size()));
    }

    testing::AssertionResult showsmodel() const {
        const verdict seen = vexel->waitforcube(cubecolors);
        return seen ? testing::AssertionSuccess() : testing::AssertionFailure() << seen.why;
    }

    // Where the text inside a frame of the main window is dark, as far as it goes in the list.
    std::vector<std::pair<int, int>> ink(rectangle frame, int width) const {
        const picture seen = vexel->part({frame.x + 3, frame.y + 2, frame.w - 30, frame.h - 4});
        std::vector<std::pair<int, int>> dark;
        for (int x = 0; x < seen.w(); x++) {
            for (int y = 0; y < seen.h(); y++) {
                if (seen.at(x, y).green < 128) {
                    dark.emplace_back(x, y);
                }
            }
        }
        const int left = dark.empty() ? 0 : dark.front().first;
        std::erase_if(dark, [&](const auto& at) { return at.first >= left + width; });
        for (auto& at : dark) {
            at.first -= left;
        }
        return dark;
    }

    // Whether the list shows the text that the macro line shows, which may stand a little higher.
    bool sametexts() const {
        const auto listed = ink(choiceplace, choiceplace.w);
        const auto written = ink(macroplace, listed.back().first + 1); // less the cursor
        return std::ranges::any_of(std::vector{-3, -2, -1, 0, 1, 2, 3}, [&](int dy) {
            return std::ranges::equal(listed, written, [dy](const auto& a, const auto& b) {
                return a.first == b.first && a.second + dy == b.second;
            });
        });
    }

    std::string store() const { return content(home.path() + storename); }

    std::string file(const std::string& name) const { return home.path() + "/" + name; }

    static constexpr rgb marked = {0, 0, 128};
    static constexpr char storename[] = "/.fltk/org.vexel/vexel/preferences.prefs";

    xserver screen;
    scratchfolder home;
    std::unique_ptr<program> vexel;
};

} // namespace

TEST_F(Macros, ChoosingAppliesAtOnceAndAgainWhenChosenAgain) {
    start();
    chooseentry(4, 7);
    domacro("RlUUrLFF");
    EXPECT_TRUE(showsmodel());
    chooseentry(4, 7);
    domacro("RlUUrLFF");
    EXPECT_TRUE(showsmodel());
    chooseentry(3, 7);
    domacro("rdlFFLDRUFFu");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, ADefinedMacroIsFoundInTheNextRun) {
    start();
    vexel->typemacro("RUfLdB");
    vexel->choose("Define Macro");
    vexel->answer("my own");
    quit();
    EXPECT_NE(std::string::npos, store().find("\nmac0:my own\nval0:RUfLdB\n"));
    start();
    chooseentry(7, 8);
    domacro("RUfLdB");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, ADeletedMacroIsGoneForGoodAfterAYes) {
    write(home.path() + storename, ";\n;\n;\n[./Vexelprefs]\nmac0:one\nval0:R\nmac4:two\nval4:U\n");
    start();
    chooseentry(7, 9); // "one"
    domacro("R");
    ASSERT_TRUE(showsmodel());
    vexel->choose("Delete Macro");
    const windowid first = vexel->waitdialog();
    screen.press(XK_Return);
    ASSERT_TRUE(waitfor(10, [&] { return vexel->dialog() != 0 && vexel->dialog() != first; }));
    vexel->answer(XK_Return); // "Yes"
    EXPECT_EQ(std::string::npos, store().find("mac0"));
    EXPECT_NE(std::string::npos, store().find("mac4:two"));
    chooseentry(7, 8);
    domacro("U");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, AllMacrosCanBeDeletedAndTheListStillWorks) {
    start();
    vexel->choose("Delete All Macros");
    vexel->typemacro("RUf");
    vexel->choose("Define Macro");
    vexel->answer("first");
    chooseentry(0, 1);
    domacro("RUf");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, TheArgumentNamesAFileOfMacros) {
    start({VEXEL_EXAMPLES "/edges.macros"});
    chooseentry(7 + 2, 7 + 9); // "Cycle UF->UB->UR"
    domacro("RRUFbRRfBURR");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, AMissingFileAndASecondArgumentAreIgnored) {
    for (const std::vector<std::string>& arguments : {
             std::vector<std::string>{"/nowhere/at/all"},
             std::vector<std::string>{ VEXEL_EXAMPLES "/edges.macros",              "x"}
    }) {
        start(arguments);
        EXPECT_EQ(0UL, vexel->dialog()); // no message, and no panel: nothing was loaded
        EXPECT_TRUE(showsmodel());
        vexel->choose("Dump Macro File");
        answerfile(file("dump"));
        EXPECT_EQ(0, std::ranges::count(content(file("dump")), '*'));
    }
}

TEST_F(Macros, AFileIsSavedAndLoadedByItsName) {
    start();
    vexel->typemacro("RRBB");
    vexel->choose("Define Macro");
    vexel->answer("saved");
    vexel->choose("Dump Macro File");
    answerfile(file("mine.macros"));
    const std::string saved = content(file("mine.macros"));
    EXPECT_EQ(16, std::ranges::count(saved, '\n'));
    EXPECT_TRUE(saved.ends_with("\nsaved\nRRBB\n"));
    vexel->choose("Load Macro File");
    answerfile(file("mine.macros"));
    ASSERT_TRUE(waitfor(10, [&] { return store().find("mine.macros") != std::string::npos; }));
    chooseentry(15, 16);
    domacro("RRBB");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, TheLastFileIsOfferedInTheNextRun) {
    write(file("mine.macros"), "one\nRU\n");
    start();
    vexel->choose("Load Macro File");
    answerfile(file("mine.macros"));
    ASSERT_TRUE(waitfor(10, [&] { return store().find("mine.macros") != std::string::npos; }));
    quit();
    start();
    vexel->choose("Load Macro File");
    clickok();
    chooseentry(7, 8);
    domacro("RU");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, AFullDiskIsReportedAndTheOldFileStays) {
    if (!makedevice(file("full"), "full")) {
        GTEST_SKIP() << "no devices for this user";
    }
    start();
    vexel->choose("Dump Macro File");
    answerfile(file("full"));
    vexel->waitdialog();
    vexel->keeppicture("dump-to-full-disk");
    vexel->answer(XK_Return);
    EXPECT_TRUE(vexel->waitnodialog());
    EXPECT_TRUE(fs::is_character_file(file("full")));
}

TEST_F(Macros, SpeedAndColoursAreFoundInTheNextRun) {
    start();
    vexel->setspeed(3);
    vexel->typemacro("R");
    vexel->choose("Define Macro");
    vexel->answer("mine");
    vexel->choose("Set Cube Colors");
    vexel->answer("KSVDPC");
    vexel->setcolors("KSVDPC");
    EXPECT_TRUE(showsmodel());
    quit();
    EXPECT_NE(std::string::npos, store().find("\nspeed:3\n"));
    start();
    vexel->setcolors("KSVDPC");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, ACancelledSpeedMakesTheStore) {
    start();
    ASSERT_FALSE(fs::exists(home.path() + storename));
    vexel->choose("Set Cube Speed");
    vexel->answer(XK_Escape);
    EXPECT_TRUE(waitfor(10, [&] { return store().find("\nspeed:100\n") != std::string::npos; }));
}

TEST_F(Macros, NamesAreShownLetterForLetter) {
    for (const std::string name : {"R&B && @> 50% /x_y", "@-1+", "a@b@", "(\\\"'*)#"}) {
        SCOPED_TRACE(name);
        write(file("names"), name + "\nR\n");
        start({file("names")});
        chooseentry(7, 8);
        domacro("R");
        ASSERT_TRUE(showsmodel());
        vexel->pastemacro(name); // the macro line shows any text as it is
        EXPECT_TRUE(waitfor(10, [&] { return sametexts(); })) << vexel->keeppicture("letters");
    }
}

TEST_F(Macros, AStoreEditedByHandIsReadAsFarAsItGoes) {
    std::string lines = ";\n;\n;\n[./Vexelprefs]\nspeed:fast\ngizmo9:1\nmac3\nmac7:seven\nval7:U\n"
                        "gizmo7:yes\n";
    for (int i = 300; i < 5000; i++) {
        lines += "mac" + std::to_string(i) + ":x\nval" + std::to_string(i) + ":R\n";
    }
    write(home.path() + storename, lines);
    start();
    chooseentry(8, 9); // behind the one without a name
    domacro("U");
    EXPECT_TRUE(showsmodel());
}

TEST_F(Macros, AStoreTheToolkitWouldDieOfDoesNotKeepTheProgramFromStarting) {
    const std::string broken = ";\n;\n;\n[Vexelprefs]\nspeed:7\n#c\n+x\n";
    write(home.path() + storename, broken);
    start();
    EXPECT_TRUE(showsmodel());
    vexel->choose("Set Cube Speed");
    vexel->waitdialog();
    screen.emptyline();
    screen.type("5\n");
    EXPECT_TRUE(vexel->waitquiet());
    vexel->answer(XK_Return); // to what could not be stored
    quit();
    EXPECT_EQ(broken, store());
}
