// SPDX-License-Identifier: MIT
//
// rig: the program's own window, built in the test's process on a private screen.
//
// Purpose   lets a test call the driver and the dispatcher itself, count passes and look at the
//           globals. What a person sees is tested from outside (tests/window).
// State     one screen and one window for the life of the process, made by the first openwindow.
#pragma once

#include "window/xserver.h"

#include <functional>
#include <gtest/gtest.h> // before X11, whose macros have its names
#include <string>

xserver& screen();

// Builds and shows the window as main does, at the first call; then puts model, queue, driver and
// macro line back to their initial values.
void openwindow();

// One pass of the toolkit's loop, and so one of the driver while it is registered.
void pass();

// Passes until no turn is in progress, and how many there were.
int passestoend();

// Passes until nothing is in progress or queued and the view is up to date.
void settle();

std::string colours();                       // of the cube, by place
std::string coloursafter(const char* macro); // of a solved cube after a macro
void queuemacro(const char* macro);          // as Enter does

rectangle viewonscreen(); // the view's place
picture exposedview();    // the view, painted as when something uncovers it

// Calls dialog, which opens one of the toolkit's boxes and blocks, and has answer called as soon as
// the box is there and has the keyboard.
void withdialog(const std::function<void()>& dialog, const std::function<void()>& answer);

// Calls command and leaves every box that it opens by Escape. Returns how many there were.
int boxesof(const std::function<void()>& command);

// The text in the toolkit's message box, as it will be drawn: with "@@" for the letter "@".
std::string boxtext();

// What the box says that message opens; it is then answered with Enter.
std::string shownby(const std::function<void()>& message);
