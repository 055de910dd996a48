// SPDX-License-Identifier: MIT
//
// filequestion: asks for the name of a file, by keyboard or by mouse.
//
// Purpose   the toolkit's own file dialog cannot be trusted with a keyboard: it rewrites a name
//           while it is typed, and its expansion and its preview write past their buffers. This one
//           is made of the toolkit's plain widgets; what they show is reckoned by filenames.h.
// Keys      in the name: Enter takes it, Tab completes it, Down goes to the list. In the list:
//           Enter takes a file or goes into a folder, BackSpace leaves the folder, letters go to
//           the name. In both: Alt+Up leaves the folder, Alt+Home goes home, Escape cancels.
// State     none outlives a question.
// Callers   shell.h's askfile, which keeps the answer.
#pragma once

#include <optional>
#include <string>

// Asks until the user has answered or cancelled, which gives nothing. The answer is an absolute
// path that names no folder; whether such a file is there is not asked. The pattern (filenames.h)
// says which files are listed, the empty one lists all. A preset is the path to begin with: its
// folder, if it has one that is there, is shown, and its name can be taken or typed over.
[[nodiscard]] std::optional<std::string>
filequestion(const std::string& title, const std::string& pattern, const std::string& preset);
