// SPDX-License-Identifier: MIT
//
// driver: plays the queue of turns, one frame an idle pass.
//
// State     the queue and the turn in progress are model/turns.h's; here only whether it rests.
// Units     an animation is counted in passes, never in time: TURNTIME frames a quarter turn. The
//           first turn after start-up takes TURNTIME passes, later ones TURNTIME + 1.
// Callers   main registers IdleFunc; the toolkit calls it; commands and boxes call the rest.
//
//     idle-polling  --- nothing to do ------------>  timer-waiting     (demo: stays)
//          ^  |     <-- 0.1 s, timeoutfunc ---------
//          |  +-------- a turn queued or started -->  animating
//          +----------- ttime reaches TURNTIME ------
//
// While the view is out of sight (minimised, on another desktop) nothing could be painted, and a
// turn lands by being painted: then every pass waits, and what goes on stops where it is.
#pragma once

void IdleFunc(void*);    // one pass; the toolkit's idle callback while there is work
void timeoutfunc(void*); // brings IdleFunc back after a quiet tenth of a second

// For the time of a box (interlude.h): nothing moves, and the toolkit sleeps between two events.
// Of a driver that was not registered they change nothing. They nest.
void restdriver();
void wakedriver();

// The toolkit's check, at each turn of its loop: rests while a menu is open, and guards it.
void watchmenus(void*);

void finishturn(); // ends the turn in progress at once: it is applied, its frames are skipped

// Asks for TURNTIME. 1..999 is taken, leading digits count, anything else changes nothing.
void setspeed();
