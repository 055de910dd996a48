// SPDX-License-Identifier: MIT
//
// heapcount: how often the heap was asked for memory, for code that promises to ask for none.
//
// Purpose   link it into a test or a benchmark, which then counts every malloc, calloc, realloc and
//           operator new of the whole program, the C library's own calls included.
// Units     calls since the program began; compare two readings.
// Sanitizers under the address sanitizer the count comes from its own hooks.
#pragma once

long heapcalls();
