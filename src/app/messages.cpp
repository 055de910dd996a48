// SPDX-License-Identifier: MIT
#include "app/messages.h"

#include "app/interlude.h"
#include "app/label.h"
#include "app/mainwindow.h"
#include "input/colorcollector.h"
#include "macros/preferences.h"
#include "model/cube.h"
#include "model/notation.h"
#include "model/turns.h"
#include "render/colors.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Window.H>
#include <FL/fl_ask.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

constinit int displayorder = 1;

constinit Fl_Window* messagewindow = nullptr;
constinit char smessage[200] = {};

namespace {

// State

constinit bool holding = false;      // whether alerts wait
std::vector<std::string> heldalerts; // that do

constexpr int aroundtext = 120;      // pixels of a box beside its text: icon, margins, frame
constexpr int abovebelow = 120;      // above and below it: frame, margins, button
constexpr std::size_t lastlines = 3; // that stay of a text that is too high

// How many bytes of text a line of a box can hold, 1 at least. A longer one is broken behind a
// blank, if it has one.
std::size_t fittinglength(const std::string& text) {
    const double room = Fl::w() - aroundtext;
    constexpr double narrowest = 2; // no letter is
    std::size_t length = std::min(text.size(), static_cast<std::size_t>(room / narrowest));
    while (length > 1 && fl_width(text.c_str(), static_cast<int>(length)) > room) {
        const std::size_t blank = text.rfind(' ', length - 2);
        length = blank == std::string::npos || blank == 0 ? length - 1 : blank + 1;
    }
    return length;
}

// A box that is higher than the screen has its button outside: only the beginning of such a text is
// told, and its end.
std::string cutlines(std::vector<std::string> lines) {
    const auto room = static_cast<std::size_t>(std::max(0, Fl::h() - abovebelow) / fl_height());
    const std::size_t most = std::max(room, lastlines + 2);
    if (lines.size() > most) {
        const auto end = lines.end() - static_cast<std::ptrdiff_t>(lastlines);
        const auto cut = lines.begin() + static_cast<std::ptrdiff_t>(most - lastlines - 1);
        *cut = "...";
        lines.erase(cut + 1, end);
    }
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

// The boxes are as wide as their longest line. One that is wider than the screen cannot be read,
// and its button may lie outside.
std::string brokenlines(const std::string& text) {
    std::istringstream lines(text);
    std::vector<std::string> fitting;
    // A size that was never set is negative in one toolkit and the normal one in the other.
    const int size = fl_message_size_ > 0 ? fl_message_size_ : FL_NORMAL_SIZE;
    fl_font(fl_message_font_, size);
    for (std::string line; std::getline(lines, line);) {
        for (std::size_t n = fittinglength(line); n < line.size(); n = fittinglength(line)) {
            fitting.push_back(line.substr(0, n));
            line.erase(0, n);
        }
        fitting.push_back(line);
    }
    std::string broken = cutlines(fitting);
    if (!broken.empty() && (text.empty() || text.back() != '\n')) {
        broken.pop_back();
    }
    return broken;
}

std::string label(const char* text) {
    return boxlabel(brokenlines(text == nullptr ? "" : text));
}

// The six colour letters of an answer, in upper case; empty if it is a bad one. Two faces of one
// colour would make a cube that cannot be read off the screen.
std::string colorletters(const char* answer) {
    std::string letters;
    for (int i = 0; i < cubefacecount && answer[i] != '\0'; i++) {
        const char upper = answer[i] >= 'a' && answer[i] <= 'z' ? flipcase(answer[i]) : answer[i];
        if (findletter(upper) == nullptr || letters.find(upper) != std::string::npos) {
            return "";
        }
        letters += upper;
    }
    return letters.size() == cubefacecount ? letters : "";
}

} // namespace

void displaystring(const char* text) {
    if (displayorder != 0) {
        const interlude box;
        fl_message("%s", label(text).c_str());
    }
}

void holdalerts() {
    holding = true;
}

void tellheldalerts() {
    holding = false;
    for (const std::string& text : std::exchange(heldalerts, {})) {
        showalert(text.c_str());
    }
}

void showalert(const char* text) {
    if (holding) {
        heldalerts.emplace_back(text);
        return;
    }
    const interlude box;
    fl_alert("%s", label(text).c_str());
}

bool askyesno(const char* question) {
    const interlude box;
    // What the toolkit's own yes-or-no question does; that function is marked as obsolete.
    return fl_choice("%s", fl_no, fl_yes, nullptr, label(question).c_str()) == 1;
}

const char* askline(const char* prompt, const char* preset) {
    const interlude box;
    return fl_input("%s", preset, label(prompt).c_str());
}

void loadcube() {
    colorcollector();
}

void about() {
    showalert("Vexel's Cube Simulator\n"
              "Turn it, scramble it, play macros on it, have it solved.\n"
              "The manual page vexel(6) tells the rest.");
}

void setcubecolors() {
    const std::string prompt =
        "Set cube colors in this order:ULFRBD.\nChoose colors from: " + std::string(validcolors) +
        ".\nOriginal default = WGRBOY";
    const char* answer = askline(prompt.c_str(), colortable);
    if (answer == nullptr) {
        return;
    }
    const std::string letters = colorletters(answer);
    if (letters.empty()) {
        showalert("Bad color pattern");
        return;
    }
    letters.copy(colortable, cubefacecount); // the NUL behind them stays
    needsredraw = 1;
    writeprefs();
}

void showmessagewindow(const char* text, double) {
    static Fl_Box* box = nullptr;
    if (box == nullptr) {
        messagewindow = new Fl_Window(250, 100);
        box = new Fl_Box(FL_UP_BOX, 5, 5, 240, 90, nullptr);
        box->labelfont(FL_HELVETICA_BOLD);
        box->labelsize(14);
        box->align(FL_ALIGN_INSIDE);
        messagewindow->border(0);
        messagewindow->end();
    }
    std::snprintf(smessage, sizeof smessage, "%s", text); // the label points to it
    box->label(smessage);
    // Deliberate: NOT-BUGS.md, "The wait panel is off centre"
    const int x = form->x() + form->w() / 2 - 100;
    const int y = form->y() + form->h() / 2 - 50;
    messagewindow->position(x, y);
    messagewindow->resize(x, y, 230, 100);
    box->resize(0, 0, 230, 100);
    messagewindow->show();
}

// The toolkit paints a window when the server has told that it shows, and a window manager may take
// its time before. Somebody who keeps it from showing at all is not waited for.
void paintmessagewindow() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(250);
    while (messagewindow->shown() != 0 && messagewindow->damage() != 0 &&
           std::chrono::steady_clock::now() < end) {
        Fl::wait(0.01);
    }
    Fl::flush();
}

void hidemessagewindow() {
    messagewindow->hide();
}
