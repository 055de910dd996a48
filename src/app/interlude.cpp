// SPDX-License-Identifier: MIT
#include "app/interlude.h"

#include "app/driver.h"

#include <FL/Fl.H>

namespace {

// State

std::string lasttext; // what Fl::event_text() points at once an event was put back

std::string eventtext() {
    return Fl::e_length > 0 ? std::string(Fl::e_text, static_cast<unsigned>(Fl::e_length)) : "";
}

} // namespace

keptevent::keptevent()
    : number(Fl::e_number), state(Fl::e_state), keysym(Fl::e_keysym), text(eventtext()) {}

// The text is kept by value: the toolkit has one buffer for the text of every key.
keptevent::~keptevent() {
    Fl::e_number = number;
    Fl::e_state = state;
    Fl::e_keysym = keysym;
    lasttext = text;
    Fl::e_text = lasttext.data();
    Fl::e_length = static_cast<int>(lasttext.size());
}

interlude::interlude() {
    restdriver();
}

interlude::~interlude() {
    wakedriver();
}
