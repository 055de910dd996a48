// SPDX-License-Identifier: MIT
#include "app/dispatch.h"
#include "app/macroline.h"
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/my_input.h"
#include "app/rig.h"
#include "render/colors.h"
#include "shell.h"
#include "solver/cubecheck.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Window.H>
#include <X11/keysym.h>

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

class Messages : public testing::Test {
  protected:
    void SetUp() override {
        openwindow();
        displayorder = 1;
        std::strcpy(colortable, "WGRBOY");
    }
};

void answercolors(const char* answer) {
    screen().emptyline();
    screen().type(std::string(answer) + "\n");
}

} // namespace

TEST_F(Messages, TheWaitPanelLiesLeftOfTheMiddle) {
    for (int again = 0; again < 2; again++) {
        form->position(20 + 50 * again, 30 + 40 * again);
        showmessagewindow("Initializing solver ...\n", 3);
        EXPECT_EQ(messagewindow->x(), 20 + 50 * again + form->w() / 2 - 100);
        EXPECT_EQ(messagewindow->y(), 30 + 40 * again + form->h() / 2 - 50);
        EXPECT_EQ(messagewindow->w(), 230);
        EXPECT_EQ(messagewindow->h(), 100);
        EXPECT_EQ(messagewindow->border(), 0);
        EXPECT_NE(messagewindow->shown(), 0);
        EXPECT_EQ(messagewindow->children(), 1);
        const Fl_Widget* box = messagewindow->child(0);
        EXPECT_EQ(box->x(), 0);
        EXPECT_EQ(box->y(), 0);
        EXPECT_EQ(box->w(), 230);
        EXPECT_EQ(box->h(), 100);
        EXPECT_EQ(box->box(), FL_UP_BOX);
        EXPECT_EQ(box->labelfont(), FL_HELVETICA_BOLD);
        EXPECT_EQ(box->labelsize(), 14);
        EXPECT_STREQ(box->label(), "Initializing solver ...\n");
        EXPECT_EQ(box->label(), smessage);
        hidemessagewindow();
        EXPECT_EQ(messagewindow->shown(), 0);
    }
}

TEST_F(Messages, ALongTextIsCutToThePanelsBuffer) {
    showmessagewindow(std::string(5000, 'x').c_str(), 0);
    EXPECT_EQ(std::string(smessage), std::string(199, 'x'));
    hidemessagewindow();
}

TEST_F(Messages, TextsAreShownLetterForLetter) {
    EXPECT_EQ(shownby([] { showalert("100%s %n of %d"); }), "100%s %n of %d");
    EXPECT_EQ(shownby([] { displaystring("%s%s%s%n"); }), "%s%s%s%n");
    EXPECT_EQ(shownby([] { showalert("@-> a@b"); }), "@@-> a@@b");
    std::string longtext = shownby([] { showalert(std::string(5000, 'y').c_str()); });
    std::erase(longtext, '\n'); // broken where the screen ends
    EXPECT_EQ(longtext, std::string(5000, 'y'));
}

TEST_F(Messages, LinesWiderThanTheScreenAreBrokenBehindABlank) {
    std::string words;
    for (int i = 0; i < 400; i++) {
        words += "word ";
    }
    const std::string shown = shownby([&] { showalert(("short\n" + words).c_str()); });
    EXPECT_EQ(shown.rfind("short\nword word ", 0), 0U);
    const auto breaks = std::count(shown.begin(), shown.end(), '\n');
    EXPECT_GT(breaks, 400 * 5 * 6 / screenwidth); // a letter is 6 to 10 pixels wide
    EXPECT_LT(breaks, 400 * 5 * 10 / screenwidth);
    EXPECT_EQ(shown.find("\nord"), std::string::npos);
    EXPECT_EQ(shown.find("\n "), std::string::npos);
    EXPECT_EQ(shownby([] { showalert("a\n\nb\n"); }), "a\n\nb\n");
}

TEST_F(Messages, OfATextHigherThanTheScreenTheBeginningAndTheEndAreTold) {
    std::string text = "first\n";
    for (int i = 0; i < 200; ++i) {
        text += "line\n";
    }
    const std::string shown = shownby([&] { showalert((text + "last").c_str()); });
    EXPECT_EQ(shown.rfind("first\nline\n", 0), 0U);
    EXPECT_TRUE(shown.ends_with("line\n...\nline\nline\nlast")) << shown;
    const auto breaks = std::count(shown.begin(), shown.end(), '\n');
    EXPECT_GT(breaks, 20);
    EXPECT_LT(breaks, screenheight / 14);
}

TEST_F(Messages, ATextThatJustFitsIsToldInFull) {
    const auto lines = [](std::ptrdiff_t n) {
        std::string text;
        for (std::ptrdiff_t i = 1; i <= n; i++) {
            text += "line " + std::to_string(i) + "\n";
        }
        return text;
    };
    const std::string cut = shownby([&] { showalert(lines(200).c_str()); });
    const auto most = std::count(cut.begin(), cut.end(), '\n');
    EXPECT_EQ(shownby([&] { showalert(lines(most).c_str()); }), lines(most));
    EXPECT_NE(shownby([&] { showalert(lines(most + 1).c_str()); }), lines(most + 1));
}

TEST_F(Messages, AlertsThatAreHeldAreToldLaterAndOnce) {
    holdalerts();
    showalert("held"); // would wait for an answer that nobody gives
    EXPECT_EQ(shownby(tellheldalerts), "held");
    EXPECT_EQ(boxesof(tellheldalerts), 0);
    EXPECT_EQ(shownby([] { showalert("not held"); }), "not held");
}

TEST_F(Messages, SilencedInformationIsDropped) {
    displayorder = 0;
    displaystring("order = 4"); // would wait for an answer that nobody gives
    EXPECT_EQ(Fl::modal(), nullptr);
}

TEST_F(Messages, AMalformedMacroIsToldWithTheLastMessageOrNone) {
    const auto enter = [] { inp_cb(inp, 0); };
    setmacroline("R)");
    EXPECT_EQ(shownby(applymacro), "Macro screwed up:\n");
    EXPECT_EQ(shownby(enter), "Macro screwed up:\n");
    EXPECT_EQ(sanitycheckcube("UF UR XY"), 0);
    EXPECT_EQ(shownby(applymacro), "Macro screwed up:\nImproper edge cubie:  XY.");
    EXPECT_EQ(shownby(enter), "Macro screwed up:\nImproper edge cubie:  XY.");
}

TEST_F(Messages, TheColourQuestionShowsTheLettersAndTheColoursInForce) {
    std::strcpy(colortable, "KSVDPC");
    std::string preset = "no line";
    std::string question = "no box";
    withdialog(setcubecolors, [&] {
        question = boxtext();
        for (int i = 0; i < Fl::modal()->children(); i++) {
            const auto* line = dynamic_cast<const Fl_Input*>(Fl::modal()->child(i));
            preset = line != nullptr ? line->value() : preset;
        }
        screen().press(XK_Escape);
    });
    EXPECT_EQ(question, "Set cube colors in this order:ULFRBD.\n"
                        "Choose colors from: WGRBYOKSVDPCX.\n"
                        "Original default = WGRBOY");
    EXPECT_EQ(preset, "KSVDPC");
}

TEST_F(Messages, ColourLettersAreTakenInEitherCase) {
    withdialog(setcubecolors, [] { answercolors("ksvdpc"); });
    EXPECT_STREQ(colortable, "KSVDPC");
    withdialog(setcubecolors, [] { answercolors("WGRBOY and more"); });
    EXPECT_STREQ(colortable, "WGRBOY");
}

TEST_F(Messages, BadColourPatternsAreRefused) {
    for (const char* answer : {"WGRBOW", "WGRBOZ", "WGR", "", "wWgrbo", "W GRBO"}) {
        SCOPED_TRACE(answer);
        std::string told;
        withdialog(setcubecolors, [&] {
            answercolors(answer);
            // The complaint is a second box, opened while the first one is being answered.
            Fl::add_timeout(
                0.3,
                [](void* text) {
                    *static_cast<std::string*>(text) = boxtext();
                    screen().focus(screen().windows().back());
                    screen().press(XK_Return);
                },
                &told);
        });
        EXPECT_EQ(told, "Bad color pattern");
        EXPECT_STREQ(colortable, "WGRBOY");
    }
}

TEST_F(Messages, ACancelledColourQuestionChangesNothing) {
    withdialog(setcubecolors, [] { screen().press(XK_Escape); });
    EXPECT_STREQ(colortable, "WGRBOY");
}

TEST_F(Messages, TheAboutBoxTellsWhatTheProgramIs) {
    EXPECT_EQ(shownby(about), "Vexel's Cube Simulator\n"
                              "Turn it, scramble it, play macros on it, have it solved.\n"
                              "The manual page vexel(6) tells the rest.");
}
