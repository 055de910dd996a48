// SPDX-License-Identifier: MIT
#include "app/filequestion.h"

#include "app/filenames.h"
#include "app/interlude.h"
#include "app/mainwindow.h"
#include "shell.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Hold_Browser.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Output.H>
#include <FL/Fl_Return_Button.H>
#include <FL/Fl_Window.H>

#include <algorithm>
#include <memory>

namespace {

// State

constinit std::optional<std::string> lastanswer = {}; // what askfile's text is part of

constexpr int width = 460;
constexpr int height = 340;
constexpr int longestname = 4095; // bytes of a path that the system takes

struct question;

class name_input : public Fl_Input {
  public:
    name_input(int x, int y, int w, int h, question& asked)
        : Fl_Input(x, y, w, h, "Name:"), mine(asked) {}

    int handle(int event) override;

  private:
    question& mine;
};

class file_list : public Fl_Hold_Browser {
  public:
    file_list(int x, int y, int w, int h, question& asked)
        : Fl_Hold_Browser(x, y, w, h), mine(asked) {}

    int handle(int event) override;

  private:
    question& mine;
};

struct question {
    std::string pattern;
    std::string folder;              // the one that is shown
    std::vector<file_entry> entries; // what it holds, as the list shows it
    bool hidden = false;             // whether hidden names are among them
    std::optional<std::string> answer;

    std::unique_ptr<Fl_Window> window; // owns the widgets
    Fl_Output* place = nullptr;
    file_list* list = nullptr;
    name_input* name = nullptr;
    Fl_Box* note = nullptr;
};

void tell(const question& asked, const std::string& text) {
    asked.note->copy_label(text.c_str());
    asked.window->redraw(); // the label may have been longer
}

// A line of the list. What is no letter would break the line or draw nothing.
std::string lineof(const file_entry& entry) {
    std::string line = entry.name + (entry.folder ? "/" : "");
    std::ranges::replace_if(
        line, [](char c) { return c > 0 && c < ' '; }, '?');
    return line;
}

// The root keeps its "/": it is all of its name.
std::string withoutslash(std::string folder) {
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
    return folder;
}

// Shows a folder. One that cannot be read is told, and the one before stays.
bool showfolder(question& asked, const std::string& folder) {
    file_listing listing = listfolder(folder, asked.pattern, asked.hidden);
    if (!listing.failure.empty()) {
        tell(asked, listing.failure);
        return false;
    }
    asked.folder = withoutslash(folder);
    asked.entries = std::move(listing.entries);
    asked.place->value(asked.folder.c_str());
    asked.place->position(asked.place->size()); // the end of a long one is what matters
    asked.list->clear();
    for (const file_entry& entry : asked.entries) {
        asked.list->add(lineof(entry).c_str());
    }
    tell(asked, asked.pattern.empty() ? "" : "Files: " + asked.pattern);
    return true;
}

void setname(const question& asked, const std::string& text) {
    asked.name->value(text.c_str());
    asked.name->position(asked.name->size());
}

// Marked, so that the next letter begins a new name.
void offername(const question& asked, const std::string& text) {
    asked.name->value(text.c_str());
    asked.name->position(asked.name->size(), 0);
}

void goup(question& asked) {
    showfolder(asked, folderpart(asked.folder));
}

void gohome(question& asked) {
    showfolder(asked, pathof(asked.folder, expandhome("~")));
}

// Takes the name that stands there: goes into a folder, ends the question with anything else.
void takename(question& asked) {
    const std::string typed = asked.name->value();
    const std::string path = pathof(asked.folder, typed);
    if (typed.empty()) {
        tell(asked, "Which file?");
    } else if (isfolder(path) || path.ends_with('/')) {
        if (showfolder(asked, path)) {
            setname(asked, "");
        }
    } else {
        asked.answer = path;
        asked.window->hide();
    }
}

// The list follows what is typed: it shows hidden names as soon as one is begun, and comes to the
// first name that begins like the typed one.
void namechanged(question& asked) {
    const std::string begun = namepart(asked.name->value());
    if (asked.hidden != begun.starts_with('.')) {
        asked.hidden = !asked.hidden;
        showfolder(asked, asked.folder);
    }
    const auto found = std::ranges::find_if(
        asked.entries, [&](const file_entry& entry) { return entry.name.starts_with(begun); });
    if (found != asked.entries.end()) {
        asked.list->topline(static_cast<int>(found - asked.entries.begin()) + 1);
    }
}

// Whether Tab had something to do.
bool completetyped(question& asked) {
    const std::string typed = asked.name->value();
    if (typed.empty()) {
        return false;
    }
    const completion whole = completename(asked.folder, asked.pattern, typed);
    if (whole.candidates == 1 && whole.text == typed) {
        return false;
    }
    if (whole.text != typed) {
        setname(asked, whole.text);
        namechanged(asked);
    }
    tell(asked, whole.candidates == 0 ? "No name begins like this."
                : whole.candidates == 1
                    ? ""
                    : std::to_string(whole.candidates) + " names begin like this.");
    return true;
}

void listchosen(question& asked) {
    const int line = asked.list->value();
    if (line > 0 && !asked.entries[static_cast<std::size_t>(line - 1)].folder) {
        offername(asked, asked.entries[static_cast<std::size_t>(line - 1)].name);
    }
}

// A name that was typed stays while folders are gone through.
void openchosen(question& asked) {
    const int line = asked.list->value();
    if (line == 0) {
        return;
    }
    const file_entry entry = asked.entries[static_cast<std::size_t>(line - 1)];
    if (!entry.folder) {
        offername(asked, entry.name);
        takename(asked);
    } else if (showfolder(asked, pathof(asked.folder, entry.name))) {
        asked.list->select(1);
    }
}

// With the first line that is in sight: what is typed has brought the list there.
void gotolist(question& asked) {
    if (!asked.entries.empty()) {
        asked.list->take_focus();
        asked.list->select(std::max(1, asked.list->topline()));
        listchosen(asked);
    }
}

bool enterkey() {
    return Fl::event_key() == FL_Enter || Fl::event_key() == FL_KP_Enter;
}

bool plainletter() {
    return Fl::event_length() > 0 && static_cast<unsigned char>(Fl::event_text()[0]) > ' ' &&
           (Fl::event_state() & (FL_CTRL | FL_ALT | FL_META)) == 0;
}

// Each of these tells whether the key was one of its own. The toolkit gets only the others: it
// would give Enter to the button and Tab to the next widget.

// The keys of the buttons beside the folder. The toolkit would move the keyboard on with them.
bool folderkey(question& asked) {
    const int key = Fl::event_state(FL_ALT) != 0 ? Fl::event_key() : 0;
    if (key == FL_Up) {
        goup(asked);
    } else if (key == FL_Home) {
        gohome(asked);
    }
    return key == FL_Up || key == FL_Home;
}

bool namekey(question& asked) {
    if (folderkey(asked)) {
        return true;
    }
    if (enterkey()) {
        takename(asked);
    } else if (Fl::event_key() == FL_Down) {
        gotolist(asked);
    } else {
        return Fl::event_key() == FL_Tab && Fl::event_state(FL_SHIFT) == 0 && completetyped(asked);
    }
    return true;
}

bool listkey(question& asked) {
    if (folderkey(asked)) {
        return true;
    }
    if (enterkey()) {
        openchosen(asked);
    } else if (Fl::event_key() == FL_BackSpace) {
        goup(asked);
    } else if (Fl::event_key() != FL_Tab && plainletter()) {
        asked.name->take_focus();
        asked.name->handle(FL_KEYBOARD);
    } else {
        return false;
    }
    return true;
}

int name_input::handle(int event) {
    return event == FL_KEYBOARD && namekey(mine) ? 1 : Fl_Input::handle(event);
}

int file_list::handle(int event) {
    if (event == FL_KEYBOARD && listkey(mine)) {
        return 1;
    }
    const int used = Fl_Hold_Browser::handle(event);
    if (event == FL_RELEASE && Fl::event_clicks() > 0) {
        Fl::event_is_click(0); // a third click is a first one
        openchosen(mine);
    } else if (event == FL_RELEASE || (event == FL_KEYBOARD && used != 0)) {
        listchosen(mine);
    }
    return used;
}

template <void (*action)(question&)> void callback(Fl_Widget*, void* asked) {
    action(*static_cast<question*>(asked));
}

void cancel(question& asked) {
    asked.window->hide();
}

// Above and below the list, which takes what room there is.
//
//     Folder: |............................|  Up  Home
//     |                                              |
//     Name:   |......................................|
//     note                                  OK  Cancel
void maketop(question& asked) {
    asked.place = new Fl_Output(70, 10, width - 210, 24, "Folder:");
    asked.place->color(FL_GRAY);
    asked.place->clear_visible_focus();
    auto* up = new Fl_Button(width - 132, 10, 58, 24, "Up");
    up->tooltip("Leave the folder (Alt+Up)");
    up->callback(callback<goup>, &asked);
    auto* home = new Fl_Button(width - 68, 10, 58, 24, "Home");
    home->tooltip("Your home folder (Alt+Home)");
    home->callback(callback<gohome>, &asked);
}

void makelist(question& asked) {
    asked.list = new file_list(10, 44, width - 20, height - 125, asked);
    asked.list->format_char(0); // "@" is a letter of a name
    asked.list->column_char(0);
}

void makebottom(question& asked) {
    asked.name = new name_input(70, height - 71, width - 80, 24, asked);
    asked.name->maximum_size(longestname);
    asked.name->when(FL_WHEN_CHANGED);
    asked.name->callback(callback<namechanged>, &asked);
    asked.note = new Fl_Box(10, height - 36, width - 195, 25);
    asked.note->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
    auto* ok = new Fl_Return_Button(width - 175, height - 36, 80, 25, "OK");
    ok->callback(callback<takename>, &asked);
    auto* no = new Fl_Button(width - 85, height - 36, 75, 25, "Cancel");
    no->callback(callback<cancel>, &asked);
}

// Over the middle of the main window, on the screen as a whole.
void makewindow(question& asked, const std::string& title) {
    const int x = form->x() + (form->w() - width) / 2;
    const int y = form->y() + (form->h() - height) / 2;
    asked.window = std::make_unique<Fl_Window>(
        std::clamp(x, Fl::x(), std::max(Fl::x(), Fl::x() + Fl::w() - width)),
        std::clamp(y, Fl::y(), std::max(Fl::y(), Fl::y() + Fl::h() - height)), width, height);
    asked.window->copy_label(title.c_str());
    asked.window->xclass("Vexel");
    asked.window->callback(callback<cancel>, &asked);
    maketop(asked);
    makelist(asked);
    makebottom(asked);
    asked.window->end();
    asked.window->resizable(asked.list);
    asked.window->size_range(320, 220);
    asked.window->set_modal();
}

// Shows the folder of the preset, if it has one that can be read, else the working folder, and then
// offers all of the preset.
void begin(question& asked, const std::string& preset) {
    const std::string path = pathof(startfolder(), preset);
    if (!preset.empty() && showfolder(asked, pathof("/", folderpart(path)))) {
        offername(asked, namepart(path));
        return;
    }
    showfolder(asked, startfolder());
    offername(asked, preset);
}

} // namespace

std::optional<std::string> filequestion(const std::string& title, const std::string& pattern,
                                        const std::string& preset) {
    const interlude box;
    question asked;
    asked.pattern = pattern;
    makewindow(asked, title);
    begin(asked, preset);
    asked.name->take_focus();
    asked.window->show();
    while (asked.window->shown() != 0) {
        Fl::wait();
    }
    return asked.answer;
}

const char* askfile(const char* title, const char* pattern, const char* preset) {
    lastanswer =
        filequestion(title, pattern == nullptr ? "" : pattern, preset == nullptr ? "" : preset);
    return lastanswer ? lastanswer->c_str() : nullptr;
}
