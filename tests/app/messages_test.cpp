// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "app/messages.h"
#include "app/rig.h"
#include "render/colors.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Window.H>
#include <X11/keysym.h>

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

// The text in the toolkit's message box, as it will be drawn: with "@@" for the letter "@".
std::string boxtext() {
    const Fl_Window* box = Fl::modal();
    for (int i = 0; i < box->children(); ++i) {
        const char* label = box->child(i)->label();
        if (dynamic_cast<const Fl_Box*>(box->child(i)) != nullptr && label != nullptr &&
            box->child(i)->w() > 50) {
            return label;
        }
    }
    return "no text";
}

// What a message box shows when message is called.
std::string shownby(const std::function<void()>& message) {
    std::string text = "no box";
    withdialog(message, [&] {
        text = boxtext();
        screen().press(XK_Return);
    });
    return text;
}

void answercolors(const char* answer) {
    screen().press('u', ctrl_key);
    screen().type(std::string(answer) + "\n");
}

} // namespace

TEST_F(Messages, TheWaitPanelLiesLeftOfTheMiddle) {
    for (int again = 0; again < 2; ++again) {
        showmessagewindow("Initializing solver ...\n", 3);
        EXPECT_EQ(messagewindow->x(), form->x() + form->w() / 2 - 100);
        EXPECT_EQ(messagewindow->y(), form->y() + form->h() / 2 - 50);
        EXPECT_EQ(messagewindow->w(), 230);
        EXPECT_EQ(messagewindow->h(), 100);
        EXPECT_EQ(messagewindow->border(), 0);
        EXPECT_NE(messagewindow->shown(), 0);
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
    EXPECT_EQ(shownby([] { showalert(std::string(5000, 'y').c_str()); }), std::string(5000, 'y'));
}

TEST_F(Messages, SilencedInformationIsDropped) {
    displayorder = 0;
    displaystring("order = 4"); // would wait for an answer that nobody gives
    EXPECT_EQ(Fl::modal(), nullptr);
}

TEST_F(Messages, AMalformedMacroIsToldWithTheLastMessageOrNone) {
    setmacroline("R)");
    EXPECT_EQ(shownby([] { applymacro(); }), "Macro screwed up:\n");
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

TEST_F(Messages, TheAboutBoxNamesTheProgram) {
    EXPECT_NE(shownby(about).find("Vexel"), std::string::npos);
}
