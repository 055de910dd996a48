// SPDX-License-Identifier: MIT
//
// singmaster: the other common way to write turns, made into the move notation: [R U' F2] is RuFF.
//
// State     none but the macro line, which is both source and target (shell.h).
// Callers   the check of a macro (notation), for a text that starts with "[".
#pragma once

// Converts the macro line, whatever it starts with. A face letter counts once, "R'" becomes "r",
// "R2" becomes "RR", anything else is dropped, "]" ends it. The result replaces the line and its
// length is shown: 1. Without a "]" the line stays as it was: 0.
int parsesingmaster();
