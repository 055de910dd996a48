// SPDX-License-Identifier: MIT
//
// messages: the boxes in which the program speaks and asks.
//
// State     displayorder, messagewindow, smessage, below.
// Texts     are shown letter for letter, whatever they hold; shell.h's displaystring and showalert
//           are defined here too.
// Callers   every command with something to say.
#pragma once

class Fl_Window;

extern int displayorder; // 1 shows displaystring's messages, 0 drops them; initially 1

extern Fl_Window* messagewindow; // the wait panel; null until its first use
extern char smessage[200];       // its text, ended by a NUL

// Both return when the user has answered.
bool askyesno(const char* question);                         // true for "Yes"
const char* askline(const char* prompt, const char* preset); // null when cancelled; valid until
                                                             // the next question

// The wait panel: a frameless box over the middle of the main window, made on first use. It is
// drawn when the toolkit next gets a chance (delay). text is copied, cut to 199 bytes; seconds is
// not used, the panel stays until it is hidden.
void showmessagewindow(const char* text, double seconds);
void hidemessagewindow();
