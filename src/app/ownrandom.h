// SPDX-License-Identifier: MIT
//
// ownrandom: keeps the program's random numbers apart from those of the libraries it runs on.
//
// Purpose   scrambles and made-up demo macros come from the C library's generator, never seeded, so
//           that they are the same in every run. But the library that draws the texts takes numbers
//           from the same generator, one at start-up and others as fonts come and go. With streams
//           of their own neither moves the other's.
// State     the libraries' stream; private.
// Callers   main; the commands that draw (Jumble Cube, Start Demo).
// Order     partrandom before anything is drawn; without it ownrandom does nothing, as in tests
//           that seed the generator themselves.
#pragma once

void partrandom(); // gives the libraries a stream of their own, from now on

// Around each piece of work that calls rand() for the program: while it lives the program's stream
// is drawn from, afterwards the libraries' again. They do not nest.
class ownrandom {
  public:
    ownrandom();
    ~ownrandom();
    ownrandom(const ownrandom&) = delete;
    ownrandom& operator=(const ownrandom&) = delete;
};
