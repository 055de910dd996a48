// SPDX-License-Identifier: MIT
//
// largepages: the program's tables on memory pages of 2 MB instead of 4 kB.
//
// A look-up in a table of some megabytes waits for the table of pages as long as for the memory
// itself, most of all in a virtual machine. With large pages it does not: a search takes a quarter
// less time.
//
// State     none; the system's.
// Callers   solver, in its first step: before any table is written to.
#pragma once

// Asks for large pages for all static data that begins as zeros, of which the tables are nearly
// everything. A hint, which the system may pass over; nothing else changes. Elsewhere than on Linux
// it does nothing.
void ask_for_large_pages();
