// SPDX-License-Identifier: MIT
//
// desktop: what the program tells the window manager about its windows, and asks of it. The toolkit
// has no words for these.
//
// State     private: which windows have been introduced.
// Callers   main, and the gizmo panel.
// Order     after the display is open.
#pragma once

class Fl_Window;

// From now on each window that the program shows, dialogs included, gets its class, its icon, and
// the process it belongs to.
void introducewindows();

// Names a window that is shown and has no title, and says that it belongs to the main window.
void attachwindow(Fl_Window* window, const char* name);

// Asks for the keyboard for the main window.
void takekeyboard();
