// SPDX-License-Identifier: MIT
//
// toolkitstore: keeps the toolkit from reading a store of its own before main begins.
//
// Purpose   the toolkit's library opens the preferences of its file dialog, which this program does
//           not use, as soon as it is loaded, and writes them back when the program ends. A line
//           of them that is too long ends the program before its first statement. The file is
//           looked for in the home folder, so the library is loaded without one: the loader calls
//           us before it starts any library, and HOME names a folder that cannot be.
//           From 1.3 on it has options besides, which it reads when it first needs one, and makes
//           a folder for them: they are read before the home is given back, and so are its own.
// State     the entry of the environment, while it is hidden.
// Order     main gives the home back before it does anything else.
// Elsewhere than with the GNU loader nothing is hidden and nothing given back.
#pragma once

void givehomeback(); // HOME is again what it was when the program was started
