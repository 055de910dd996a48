// SPDX-License-Identifier: MIT
//
// driver: plays the queue of turns, one frame an idle pass, and steps through the macro line.
//
// State     the queue and the turn in progress are model/turns.h's; here only singlestepptr.
// Units     an animation is counted in passes, never in time: TURNTIME frames a quarter turn. The
//           first turn after start-up takes TURNTIME passes, later ones TURNTIME + 1.
// Callers   main registers IdleFunc; the toolkit calls it; dispatch and my_input call the rest.
//
//     idle-polling  --- nothing to do ------------>  timer-waiting     (demo: stays)
//          ^  |     <-- 0.1 s, timeoutfunc ---------
//          |  +-------- a turn queued or started -->  animating
//          +----------- ttime reaches TURNTIME ------
//
// While the view is out of sight (minimised, on another desktop) nothing could be painted, and a
// turn lands by being painted: then every pass waits, and what goes on stops where it is.
#pragma once

#include <optional>
#include <string>

extern int singlestepptr; // next character of the macro line to step over, 0..; initially 0

void IdleFunc(void*);    // one pass; the toolkit's idle callback while there is work
void timeoutfunc(void*); // brings IdleFunc back after a quiet tenth of a second

void finishturn(); // ends the turn in progress at once: it is applied, its frames are skipped

// Asks for TURNTIME. 1..999 is taken, leading digits count, anything else changes nothing.
void setspeed();

// One step through the text of the macro line: a character, or two after ">" or "*". The step is
// queued and animated, and the cursor follows. Forwards wraps to the start at the end; backwards
// does nothing at the start. Nothing is checked: each character is parsed by itself.
void singlestepmacro();
void revsinglestepmacro();

// The macro line's text, ready to be parsed: checked, and converted when it was in the Singmaster
// form. Nothing, after the message, when it fails the check.
std::optional<std::string> checkedmacro();
