// SPDX-License-Identifier: MIT
//
// The file question as a person answers it, with the keys and the mouse of a private screen.
#include "app/filequestion.h"
#include "app/mainwindow.h"
#include "app/rig.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Hold_Browser.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Window.H>
#include <X11/keysym.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>

namespace {

namespace fs = std::filesystem;

using answered = std::optional<std::string>;

// The question's widgets, found as the toolkit lists them.
template <class widget> widget* part(int number = 0) {
    const Fl_Group* window = Fl::modal();
    for (int i = 0; window != nullptr && i < window->children(); i++) {
        auto* found = dynamic_cast<widget*>(window->child(i));
        if (found != nullptr && number-- == 0) {
            return found;
        }
    }
    return nullptr;
}

std::string typed() {
    return part<Fl_Input>(1)->value(); // the first is the folder's read-out
}

std::string folderline() {
    return part<Fl_Input>(0)->value();
}

std::string note() {
    const char* text = part<Fl_Box>()->label();
    return text == nullptr ? "" : text;
}

// The lines of the list, one after another.
std::string lines() {
    const auto* list = part<Fl_Hold_Browser>();
    std::string all;
    for (int i = 1; i <= list->size(); i++) {
        all += std::string(list->text(i)) + " ";
    }
    return all;
}

// Lets the question see what was pressed, until it shows what it should.
bool comesto(const std::function<bool()>& condition) {
    return waitfor(10, [&] {
        Fl::wait(0.01);
        return Fl::modal() != nullptr && condition();
    });
}

#define EXPECT_COMES(condition) EXPECT_TRUE(comesto([&] { return condition; }))

void keys(const std::string& text) {
    screen().type(text);
}

// A click inside the question.
void click(int x, int y, int times = 1) {
    const rectangle r = screen().place(screen().windows().back());
    for (int i = 0; i < times; i++) {
        screen().click(r.x + x, r.y + y);
    }
}

void clickline(int line, int times = 1) {
    const auto* list = part<Fl_Hold_Browser>();
    const int step = list->textsize() + 2;
    click(list->x() + 40, list->y() + 4 + (line - 1) * step + step / 2, times);
}

void clickbutton(const std::string& label) {
    for (int i = 0; part<Fl_Button>(i) != nullptr; i++) {
        const auto* button = part<Fl_Button>(i);
        if (button->label() == label) {
            click(button->x() + button->w() / 2, button->y() + button->h() / 2);
        }
    }
}

class Filequestion : public testing::Test {
  protected:
    Filequestion() : before(fs::current_path()) {
        openwindow();
        for (const char* name : {"one.macros", "other.macros", "two.txt", ".hidden"}) {
            std::ofstream(file(name)) << name;
        }
        fs::create_directories(file("deep/er"));
        std::ofstream(file("deep/in.macros")) << "in";
        fs::current_path(scratch.path());
        setenv("HOME", file("deep").c_str(), 1);
    }

    ~Filequestion() override { fs::current_path(before); }

    std::string file(const std::string& name) const { return scratch.path() + "/" + name; }

    static answered ask(const std::function<void()>& person, const std::string& preset = "",
                        const std::string& pattern = "") {
        answered answer;
        withdialog([&] { answer = filequestion("Which?", pattern, preset); }, person);
        return answer;
    }

    scratchfolder scratch;
    fs::path before;
};

} // namespace

TEST_F(Filequestion, APlainNameIsTypedAtOnceAndReturnTakesIt) {
    EXPECT_EQ(file("hello.mac"), ask([] { keys("hello.mac\n"); }));
}

TEST_F(Filequestion, LettersStayAsTheyAreTyped) {
    const std::string odd = "$HOME ~a/./b*{?[@x&%s'\"\\";
    ask([&] {
        keys(odd);
        EXPECT_COMES(typed() == odd);
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, EscapeCancels) {
    EXPECT_EQ(std::nullopt, ask([] { keys("name"), screen().press(XK_Escape); }));
    EXPECT_EQ(file("after"), ask([] { keys("after\n"); })); // nothing of the one before is left
}

TEST_F(Filequestion, TheButtonCancels) {
    EXPECT_EQ(std::nullopt, ask([] { clickbutton("Cancel"); }));
}

TEST_F(Filequestion, ClosingTheWindowCancels) {
    EXPECT_EQ(std::nullopt, ask([] { screen().close(screen().windows().back()); }));
}

TEST_F(Filequestion, TabCompletesAsFarAsItIsCertain) {
    EXPECT_EQ(file("one.macros"), ask([] { keys("on\t\n"); }));
    EXPECT_EQ(file("deep/in.macros"), ask([] { keys("d\ti\t\n"); }));
    ask([] {
        keys("o\t");
        EXPECT_COMES(note() == "2 names begin like this.");
        EXPECT_EQ("o", typed());
        keys("x\t");
        EXPECT_COMES(note() == "No name begins like this.");
        EXPECT_EQ("ox", typed());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, TabMovesOnWhereNothingIsToBeCompleted) {
    for (const char* name : {"", "two.txt"}) {
        SCOPED_TRACE(name);
        ask([&] {
            keys(std::string(name) + "\t");
            EXPECT_COMES(Fl::focus() != nullptr && Fl::focus() != part<Fl_Input>(1));
            EXPECT_EQ(name, typed());
            screen().press(XK_Escape);
        });
    }
}

TEST_F(Filequestion, TabWithShiftMovesBackAndCompletesNothing) {
    ask([] {
        keys("on");
        screen().press(XK_Tab, shift_key);
        EXPECT_COMES(Fl::focus() == part<Fl_Hold_Browser>());
        EXPECT_EQ("on", typed());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, TheListComesToWhatIsTyped) {
    for (int i = 0; i < 60; ++i) {
        std::ofstream(file("many" + std::to_string(100 + i))) << "x";
    }
    ask([] {
        EXPECT_COMES(part<Fl_Hold_Browser>()->topline() == 1); // once it is drawn
        keys("many14");
        EXPECT_COMES(part<Fl_Hold_Browser>()->topline() == 42); // behind "deep", from many100 on
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, AFolderThatIsGoneIntoHasItsFirstLineMarked) {
    ask([&] {
        screen().press(XK_Down);
        screen().press(XK_Return);
        EXPECT_COMES(folderline() == file("deep"));
        EXPECT_EQ(1, part<Fl_Hold_Browser>()->value());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, NamesAreTakenAndShownLetterForLetter) {
    ask([] {
        const std::string name(300, 'n');
        keys(name);
        EXPECT_COMES(typed() == name);
        EXPECT_EQ(0, part<Fl_Hold_Browser>()->format_char());
        EXPECT_EQ(0, part<Fl_Hold_Browser>()->column_char());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, ATildeIsTheHomeFolder) {
    EXPECT_EQ(file("deep/new"), ask([] { keys("~/new\n"); }));
    EXPECT_EQ(file("deep/in.macros"), ask([] { keys("~/i\t\n"); }));
    EXPECT_EQ(file("deep/x"), ask([] { keys("~\nx\n"); }));
}

TEST_F(Filequestion, ReturnOnAFolderGoesInto) {
    ask([&] {
        keys("deep\n");
        EXPECT_COMES(folderline() == file("deep"));
        EXPECT_EQ("er/ in.macros ", lines());
        EXPECT_EQ("", typed());
        keys("nothing/\n");
        EXPECT_COMES(note() == "No such file or directory");
        EXPECT_EQ(file("deep"), folderline());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, ReturnWithoutANameAsks) {
    ask([] {
        keys("\n");
        EXPECT_COMES(note() == "Which file?");
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, TheKeyboardAloneGoesThroughFolders) {
    EXPECT_EQ(file("deep/in.macros"), ask([] {
                  screen().press(XK_Down);   // "deep"
                  screen().press(XK_Return); // into it: "er"
                  screen().press(XK_Down);   // "in.macros"
                  screen().press(XK_Return);
              }));
    ask([&] {
        screen().press(XK_Up, alt_key);
        EXPECT_COMES(folderline() == fs::path(scratch.path()).parent_path());
        screen().press(XK_Home, alt_key);
        EXPECT_COMES(folderline() == file("deep"));
        screen().press(XK_Down);
        screen().press(XK_BackSpace);
        EXPECT_COMES(folderline() == scratch.path());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, LettersInTheListGoToTheName) {
    EXPECT_EQ(file("xyz"), ask([] {
                  screen().press(XK_Down);
                  keys("xyz\n");
              }));
    EXPECT_EQ(file("deep/xyz"), ask([] { // a chosen file is typed over
                  keys("deep\n");
                  screen().press(XK_Down);
                  screen().press(XK_Down);
                  keys("xyz\n");
              }));
}

TEST_F(Filequestion, TheMouseAloneChoosesAFile) {
    EXPECT_EQ(file("deep/in.macros"), ask([&] {
                  clickline(1, 2);
                  EXPECT_COMES(folderline() == file("deep"));
                  clickline(2);
                  EXPECT_COMES(typed() == "in.macros");
                  clickbutton("OK");
              }));
    EXPECT_EQ(file("two.txt"), ask([&] {
                  clickbutton("Home");
                  EXPECT_COMES(folderline() == file("deep"));
                  clickbutton("Up");
                  EXPECT_COMES(folderline() == scratch.path());
                  clickline(4, 2);
              }));
}

TEST_F(Filequestion, AThirdClickGoesIntoNoSecondFolder) {
    ask([&] {
        clickline(1, 3); // "deep", where the first line is a folder, too
        screen().press(XK_z);
        EXPECT_COMES(typed() == "z"); // behind the clicks
        EXPECT_EQ(file("deep"), folderline());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, ATypedNameStaysWhileFoldersAreGoneThrough) {
    EXPECT_EQ(file("deep/new.macros"), ask([&] {
                  keys("new.macros");
                  clickline(1, 2);
                  EXPECT_COMES(folderline() == file("deep"));
                  clickbutton("OK");
              }));
}

TEST_F(Filequestion, TheTitleStandsOnTheWindow) {
    ask([] {
        EXPECT_EQ("Which?", screen().title(screen().windows().back()));
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, ThePatternChoosesWhatIsListedAndNotWhatIsAnswered) {
    EXPECT_EQ(file("any.thing"), ask(
                                     [] {
                                         EXPECT_EQ("deep/ one.macros other.macros ", lines());
                                         EXPECT_EQ("Files: *.macros", note());
                                         keys("any.thing\n");
                                     },
                                     "", "*.macros"));
}

TEST_F(Filequestion, ThePresetIsOfferedAndTypedOver) {
    const std::string preset = file("deep/in.macros");
    EXPECT_EQ(preset, ask([] { keys("\n"); }, preset));
    EXPECT_EQ(file("deep/x"), ask([] { keys("x\n"); }, preset));
    EXPECT_EQ(file("one.macros"), ask([] { keys("\n"); }, "one.macros"));
    EXPECT_EQ("/gone/for/good", ask([] { keys("\n"); }, "/gone/for/good"));
    EXPECT_EQ(file("x"), ask([] { keys("x\n"); }, "/gone/for/good"));
}

TEST_F(Filequestion, TheListShowsBlanksAndLettersAndNothingThatBreaksALine) {
    std::ofstream(file("deep/a b\n\tc\xc3\xa9")) << "x";
    ask(
        [] {
            EXPECT_EQ("er/ a b??c\xc3\xa9 in.macros ", lines());
            screen().press(XK_Escape);
        },
        file("deep/"));
}

TEST_F(Filequestion, TheFirstLineIsOfferedLikeOthers) {
    std::ofstream(file("deep/er/one.macros")) << "x";
    std::ofstream(file("deep/er/other.macros")) << "x";
    ask(
        [] {
            screen().press(XK_Down);
            EXPECT_COMES(typed() == "one.macros");
            screen().press(XK_Down);
            EXPECT_COMES(typed() == "other.macros");
            screen().press(XK_Up);
            EXPECT_COMES(typed() == "one.macros");
            screen().press(XK_Escape);
        },
        file("deep/er/"));
}

TEST_F(Filequestion, AnEmptyFolderTakesNoKeyboardAndNoKeyThereDoesHarm) {
    ask(
        [&] {
            EXPECT_EQ("", lines());
            screen().press(XK_Down);
            keys("x");
            EXPECT_COMES(typed() == "x"); // the keyboard is still in the name
            screen().press(XK_Tab, shift_key);
            EXPECT_COMES(Fl::focus() == part<Fl_Hold_Browser>());
            screen().press(XK_Return); // nothing is chosen
            keys("y");
            EXPECT_COMES(typed() == "xy");
            EXPECT_EQ(file("deep/er"), folderline());
            screen().press(XK_Escape);
        },
        file("deep/er/"));
}

TEST_F(Filequestion, TheFoldersKeysWorkInTheListToo) {
    ask([&] {
        screen().press(XK_Down);
        screen().press(XK_Home, alt_key);
        EXPECT_COMES(folderline() == file("deep"));
        screen().press(XK_Up, alt_key);
        EXPECT_COMES(folderline() == scratch.path());
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, TheKeypadsEnterIsEnter) {
    EXPECT_EQ(file("name"), ask([] { keys("name"), screen().press(XK_KP_Enter); }));
    EXPECT_EQ(file("deep/in.macros"), ask([] {
                  screen().press(XK_Down);
                  screen().press(XK_KP_Enter);
                  screen().press(XK_Down);
                  screen().press(XK_KP_Enter);
              }));
}

TEST_F(Filequestion, ALetterWithControlIsNoName) {
    ask([] {
        screen().press(XK_Down);
        screen().press('q', ctrl_key);
        keys("x");
        EXPECT_COMES(typed() == "x");
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, StandsOnTheScreenWhereverTheMainWindowIs) {
    const int x = form->x();
    const int y = form->y();
    for (const auto& [left, top] : {
             std::pair(-600, -400), {screenwidth - 20, screenheight - 20},
               {200,              100              }
    }) {
        form->position(left, top);
        ask([] {
            const rectangle r = screen().place(screen().windows().back());
            EXPECT_GE(r.x, 0);
            EXPECT_GE(r.y, 0);
            EXPECT_LE(r.x + r.w, screenwidth);
            EXPECT_LE(r.y + r.h, screenheight);
            screen().press(XK_Escape);
        });
    }
    form->position(x, y);
}

TEST_F(Filequestion, HiddenNamesShowWhenOneIsBegun) {
    ask([] {
        EXPECT_EQ("deep/ one.macros other.macros two.txt ", lines());
        keys(".");
        EXPECT_COMES(lines() == "deep/ .hidden one.macros other.macros two.txt ");
        screen().press(XK_BackSpace);
        EXPECT_COMES(lines() == "deep/ one.macros other.macros two.txt ");
        screen().press(XK_Escape);
    });
}

TEST_F(Filequestion, NamesOfAnyBytesAreChosenByTheList) {
    for (const std::string& odd : {std::string("\x01\n\t\x7f\xff"), std::string("@b@c&d%s"),
                                   std::string(255, 'z'), std::string("\xc3\xa9.mac")}) {
        fs::create_directory(file("odd"));
        std::ofstream(file("odd/" + odd)) << "x";
        EXPECT_EQ(file("odd/" + odd), ask(
                                          [] {
                                              screen().press(XK_Down);
                                              screen().press(XK_Return);
                                          },
                                          file("odd/")));
        fs::remove_all(file("odd"));
    }
}

TEST_F(Filequestion, TheShellKeepsTheAnswerUntilTheNextQuestion) {
    const char* answer = nullptr;
    withdialog([&] { answer = askfile("Which?", nullptr, nullptr); }, [] { keys("a\n"); });
    EXPECT_EQ(file("a"), answer);
    withdialog([&] { answer = askfile("Which?", nullptr, "b"); }, [] { keys("\n"); });
    EXPECT_EQ(file("b"), answer);
    withdialog([&] { answer = askfile("Which?", nullptr, "b"); },
               [] { screen().press(XK_Escape); });
    EXPECT_EQ(nullptr, answer);
}
