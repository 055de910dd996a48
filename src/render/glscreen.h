// SPDX-License-Identifier: MIT
//
// glscreen: what the display can do for the view, and how its OpenGL is set up.
//
// State     none.
// Callers   main, before there is a window; cube_box, with its context current.
#pragma once

// Whether the display can show the view: it has a visual with RGB colours and two buffers, and
// OpenGL answers on it. A display may offer the visual and have no OpenGL behind it: without a
// driver, or over a connection on which the server does not draw for others. Opens the display.
[[nodiscard]] bool viewpossible();

// Has the swaps of the current context wait for nothing. A screen that is waited for takes two of
// its beats a frame, and a frame is a pass of the driver: a turn would take seconds. Does nothing
// where OpenGL has no word for it.
void dontwaitforbeam();
