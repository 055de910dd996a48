// SPDX-License-Identifier: MIT
//
// demo: one macro, played on the cube over and over until somebody stops it.
//
// State     demorunning; demomode is the view's (render/view.h), since the view reads it, and is
//           written here alone. The macro is kept between the calls of rundemo.
// Callers   dispatch (the button, and every command that ends a demo), driver (rundemo, each time
//           the queue has run dry).
//
//     off  -- toggledemo -->  choosing  -- rundemo -->  playing  --+
//      ^                                                   ^-------+ rundemo, from the driver
//      +------------------- stopdemo ----------------------+
#pragma once

extern int demorunning; // 1 while the macro of this demo is chosen, else 0; initially 0

// Starts the demo with the button labelled "Stop Demo", or stops it.
void toggledemo();

// Queues the demo's macro once. The first call of a demo resets the cube and chooses the macro: the
// text of the macro line, or a made-up one when that is empty. A turn in progress lands before.
void rundemo();

// Ends the demo and drops what is queued of it; a turn in progress goes on and lands. Without a
// demo it does the same, which changes nothing but the queue.
void stopdemo();
