// SPDX-License-Identifier: MIT
//
// macroline: what is done with the macro in the macro line: played, applied, stepped through.
//
// State     singlestepptr; the text is the line's own (shell.h, macroline).
// Callers   the line's callback and its arrow keys (my_input), the commands (dispatch), the demo.
//           applymacro is declared in shell.h, since the library applies what it puts in the line.
// Shift     is asked for on entry. Each of these may open a box, and whatever is held when that
//           closes has nothing to do with the macro.
#pragma once

class Fl_Widget;

extern int singlestepptr; // next character of the macro line to step over, 0..; initially 0

// What a parse does with the turns, the value of parsing (model/parser.h) for its time.
enum parse_mode { direct = 0, queued = 1 };

// Parses length characters of text in that mode, forwards or, each turn inverted, backwards.
// parsing is 0 afterwards.
void parsemacro(const char* text, int length, parse_mode mode, bool backwards);

// Enter in the macro line: checks the macro, asks before more than 200 turns, queues it; backwards
// while Shift is held.
void inp_cb(Fl_Widget* w, long);

// One step through the text of the macro line: a character, or two after ">" or "*". The step is
// queued and animated, and the cursor follows. Forwards wraps to the start at the end; backwards
// does nothing at the start. Nothing is checked: each character is parsed by itself.
void singlestepmacro();
void revsinglestepmacro();
