// SPDX-License-Identifier: MIT
//
// interlude: what must outlive the toolkit's loop when a handler runs it.
//
// Purpose   a box runs the toolkit's loop inside the handler that opened it, and so does the solver
//           while it builds its tables. By the time the handler goes on, two things
//           would be gone:
//             the event    Fl::event_key() and its kin tell of the key that closed the box;
//             the quiet    the driver would go on playing turns, or spin without being able to.
// State     the text of the last event that was put back; private.
// Callers   messages and filequestion, whose boxes wait for an answer; solvecube; menu, to show the
//           toolkit another key for a moment.
//
// Behind a box     nothing moves: the turn in progress stays at its frame, the queue and the demo
//                  wait, the program sleeps until the next event. The view is painted when it must
//                  be. When the last box closes, all goes on from there.
// Behind a menu    the same, by the driver's own watch (driver.h).
// The collector    is no such box: it returns at once, and turns and the demo go on behind it.
#pragma once

#include <string>

// While it lives events may come and go; when it ends what was pressed and held is what it was:
// Fl::event(), event_key(), event_state() and event_text(). The mouse is where it has gone.
class keptevent {
  public:
    keptevent();
    ~keptevent();
    keptevent(const keptevent&) = delete;
    keptevent& operator=(const keptevent&) = delete;

  private:
    int number, state, keysym;
    std::string text;
};

// The life of a box: keeps the event, and the driver rests.
class interlude {
  public:
    interlude();
    ~interlude();
    interlude(const interlude&) = delete;
    interlude& operator=(const interlude&) = delete;

  private:
    keptevent event;
};
