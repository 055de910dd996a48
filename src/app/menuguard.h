// SPDX-License-Identifier: MIT
//
// menuguard: keeps from the toolkit's menus what would end the program.
//
// Purpose   an open menu forgets which of its rows is marked once the mouse is outside of it, and
//           the next key that goes a row back (Up, BackSpace, Shift+Tab) reads behind its tables.
//           The toolkit gives all events to the window that grabs them, and that is made one of our
//           own: it hands them on to the menu but for these.
// Effect    the mark stays where it is when the mouse leaves the menu, and the keys go on from it.
//           With a button held it goes, so that letting go outside chooses nothing.
// State     the window that grabs for a menu; private, made for the first one and kept.
// Callers   driver's watchmenus.
#pragma once

// Puts itself between the toolkit and the menu that is open, if one is. To be called before the
// toolkit looks for events.
void guardmenu();
