// SPDX-License-Identifier: MIT
#include "app/macrorig.h"

#include "app/gizmo.h"
#include "app/mainwindow.h"
#include "app/my_input.h"
#include "macros/library.h"
#include "model/cube.h"
#include "model/turns.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Window.H>
#include <FL/fl_ask.H>

#include <algorithm>
#include <stdexcept>

namespace {

struct dialogs {
    std::vector<std::optional<std::string>> answers;
    std::vector<std::string> texts;
};

// The button that accepts the answer, or the one that ends the dialog without.
Fl_Button* dialogbutton(bool accept) {
    for (int i = 0; i < Fl::modal()->children(); i++) {
        auto* b = dynamic_cast<Fl_Button*>(Fl::modal()->child(i));
        if (b != nullptr && b->visible() != 0) {
            const std::string label = b->label();
            if ((label == fl_ok || label == fl_yes) == accept) {
                return b;
            }
        }
    }
    throw std::runtime_error("the dialog has no such button");
}

std::string dialogtext() {
    const char* text = Fl::modal()->child(0)->label();
    return text == nullptr ? "" : text;
}

void answerdialog(dialogs& all) {
    const std::optional<std::string> answer = all.answers[all.texts.size()];
    for (int i = 0; i < Fl::modal()->children(); i++) {
        auto* line = dynamic_cast<Fl_Input*>(Fl::modal()->child(i));
        if (line != nullptr && line->visible() != 0 && answer) {
            line->value(answer->c_str());
        }
    }
    all.texts.push_back(dialogtext());
    dialogbutton(answer.has_value())->do_callback();
}

// A dialog stays for a while after its answer, and the next is made of the same window: only
// another text is another dialog.
void lookfordialog(void* data) {
    auto& all = *static_cast<dialogs*>(data);
    if (Fl::modal() != nullptr && (all.texts.empty() || dialogtext() != all.texts.back())) {
        answerdialog(all);
    }
    if (all.texts.size() < all.answers.size()) {
        Fl::add_timeout(0.01, lookfordialog, data);
    }
}

// While it is there the toolkit's loop sleeps nowhere: a dialog that is answered from a timeout
// ends without an event, and so does the loop that the dialog runs.
void stayawake(void*) {}

} // namespace

std::vector<std::string> answering(const std::vector<std::optional<std::string>>& answers,
                                   const std::function<void()>& command) {
    dialogs all = {answers, {}};
    Fl::add_timeout(0.01, lookfordialog, &all);
    Fl::add_idle(stayawake);
    command();
    Fl::remove_idle(stayawake);
    Fl::remove_timeout(lookfordialog, &all);
    EXPECT_EQ(answers.size(), all.texts.size());
    return all.texts;
}

macrowindowtest::macrowindowtest() {
    openwindow();
    hidemacrodisplay();
    initlibrary();
    addbuiltinmacros();
    Fl::e_state = 0;
}

void macrowindowtest::filltable(int count, const std::vector<int>& marked) {
    initlibrary();
    for (int i = 0; i < count; i++) {
        addmacro(nameof(i).c_str(), movesof(i).c_str());
        showmac[i] = std::ranges::count(marked, i) != 0 ? 1 : 0;
    }
}

std::string macrowindowtest::nameof(int i) {
    return {static_cast<char>('a' + i)};
}

std::string macrowindowtest::movesof(int i) {
    return turn_table[i].notation;
}

Fl_Button* macrowindowtest::button(int i) {
    return dynamic_cast<Fl_Button*>(macrowindow->child(i + 1)); // behind the heading
}

bool macrowindowtest::appliedonly(int macro) {
    const std::string made(cubecolors, cubecolors + placecount);
    initcubies();
    applyturn(macro);
    return made == std::string(cubecolors, cubecolors + placecount);
}

std::vector<int> macrowindowtest::paneldata() {
    std::vector<int> numbers;
    for (int i = 0; i < 16; i++) {
        numbers.push_back(static_cast<int>(button(i)->argument()));
    }
    return numbers;
}
