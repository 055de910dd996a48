// SPDX-License-Identifier: MIT
#include "app/latinkey.h"

#include <FL/Fl.H>
#include <FL/x.H>
#include <X11/XKBlib.h>

#include <cstring>

namespace {

// State

constinit KeyCode lastpressed = 0; // 0 before the first key

// Whether a key types something that is no ASCII: such keysyms lie on both sides of those of the
// keys that type nothing.
bool isforeign(int key) {
    return key >= 0x80 && (key < 0xfe00 || key > 0xffff);
}

// The rows of letters of an English keyboard. A keyboard names its keys by place: AD01 is the first
// of the upper row.
struct row {
    const char* name;
    const char* letters;
};

constexpr row rows[] = {
    {"AD", "qwertyuiop"},
    {"AC", "asdfghjkl" },
    {"AB", "zxcvbnm"   },
};

bool isletter(unsigned long keysym) {
    return keysym >= 'a' && keysym <= 'z';
}

// What is written on the key in any of the layouts that the keyboard can be switched to.
int letterofgroups(XkbDescPtr keyboard, KeyCode code) {
    for (int group = 0; group < XkbKeyNumGroups(keyboard, code); group++) {
        const KeySym keysym = XkbKeycodeToKeysym(fl_display, code, static_cast<unsigned>(group), 0);
        if (isletter(keysym)) {
            return static_cast<int>(keysym);
        }
    }
    return 0;
}

// The third and the fourth letter of a key's name are its number in the row, from 01.
int letterofplace(XkbDescPtr keyboard, KeyCode code) {
    const char* name = keyboard->names->keys[code].name;
    for (const row& r : rows) {
        const int place = (name[2] - '0') * 10 + name[3] - '0' - 1;
        const int letters = static_cast<int>(std::strlen(r.letters));
        if (std::memcmp(name, r.name, 2) == 0 && place >= 0 && place < letters) {
            return r.letters[place];
        }
    }
    return 0;
}

// Asked anew for each key: a person may switch layouts at any time. The caller frees it.
XkbDescPtr askkeyboard() {
    XkbDescPtr keyboard = XkbGetMap(fl_display, XkbKeySymsMask, XkbUseCoreKbd);
    if (keyboard != nullptr && XkbGetNames(fl_display, XkbKeyNamesMask, keyboard) != Success) {
        XkbFreeKeyboard(keyboard, 0, True);
        return nullptr;
    }
    return keyboard;
}

// The letter of a key by its code; 0 if it has none.
int letterof(XkbDescPtr keyboard, KeyCode code) {
    const int letter = letterofgroups(keyboard, code);
    return letter != 0 ? letter : letterofplace(keyboard, code);
}

} // namespace

// Without a press there is no key to look at, only a letter.
int latinkey(int key) {
    const bool unknown = isforeign(key) || key == 0;
    if (!unknown || fl_xevent == nullptr || fl_xevent->type != KeyPress) {
        return key;
    }
    XkbDescPtr keyboard = askkeyboard();
    if (keyboard == nullptr) {
        return key;
    }
    const unsigned code = fl_xevent->xkey.keycode;
    const int letter = letterof(keyboard, code != 0 ? static_cast<KeyCode>(code) : lastpressed);
    XkbFreeKeyboard(keyboard, 0, True);
    return letter != 0 ? letter : key;
}

#if FL_MINOR_VERSION >= 3 // an older one uses no input method

void watchkeys() {
    Fl::add_system_handler(
        [](void* event, void*) {
            const auto* key = static_cast<const XKeyEvent*>(event);
            if (key->type == KeyPress && key->keycode != 0) {
                lastpressed = static_cast<KeyCode>(key->keycode);
            }
            return 0; // the toolkit handles it
        },
        nullptr);
}

#else

void watchkeys() {}

#endif

// A keyboard that can type the letter is asked for its key alone. On another one each key that is
// held is looked at: no keysym tells which of them bears the letter.
bool letterheld(char letter) {
    if (XKeysymToKeycode(fl_display, static_cast<KeySym>(letter)) != 0) {
        return Fl::get_key(letter) != 0;
    }
    char held[32] = {};
    XQueryKeymap(fl_display, held);
    XkbDescPtr keyboard = askkeyboard();
    bool found = false;
    for (int code = 0; keyboard != nullptr && code < 256 && !found; code++) {
        found = (held[code / 8] >> (code % 8) & 1) != 0 && code >= keyboard->min_key_code &&
                letterof(keyboard, static_cast<KeyCode>(code)) == letter;
    }
    if (keyboard != nullptr) {
        XkbFreeKeyboard(keyboard, 0, True);
    }
    return found;
}
