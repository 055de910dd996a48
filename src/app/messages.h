// SPDX-License-Identifier: MIT
//
// messages: the boxes in which the program speaks and asks.
//
// State     displayorder, messagewindow, smessage, below; the alerts that wait.
// Texts     are shown letter for letter, whatever they hold; shell.h's messages and questions are
//           defined here.
// Callers   every command with something to say.
#pragma once

class Fl_Window;

extern int displayorder; // 1 shows displaystring's messages, 0 drops them; initially 1

extern Fl_Window* messagewindow; // the wait panel; null until its first use
extern char smessage[200];       // its text, ended by a NUL

// The wait panel: a frameless box over the middle of the main window, made on first use. text is
// copied, cut to 199 bytes; seconds is not used, the panel stays until it is hidden. It comes to
// the screen as the toolkit gets its chances.
void showmessagewindow(const char* text, double seconds);

// Lets the toolkit run until the panel is painted, a quarter of a second at most: before a
// computation that lets nothing be painted.
void paintmessagewindow();

void hidemessagewindow();

// Before the main window stands a box would be all there is of the program: from holdalerts on,
// alerts wait, and tellheldalerts shows them, one after the other, and those that come later at
// once.
void holdalerts();
void tellheldalerts();

// Commands that are no more than a box or two

void loadcube(); // opens the colour collector (input/colorcollector.h) and returns at once
void about();    // tells what this program is

// Asks for the six colour letters (render/colors.h). The first six characters of the answer count,
// in either case; they are stored as preferences. With a letter twice, a letter that is none of
// validcolors, or fewer than six: "Bad color pattern", and the colours stay.
void setcubecolors();
