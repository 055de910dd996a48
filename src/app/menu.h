// SPDX-License-Identifier: MIT
//
// menu: the menus of the main window and their check marks.
//
// State     menutable: built before main; afterwards only the check marks change.
// Callers   mainwindow hands it to the menu bar; dispatch keeps the check marks true.
#pragma once

struct Fl_Menu_Item;
class Fl_Widget;

constexpr int menusize = 33; // 5 titles, 22 commands, 5 ends of a menu, the end of the table

// Five menus, each closed by an empty record, the whole by a further one. A command's user data is
// its number (dispatch.h). "About Vexel", 119, is the last command.
extern Fl_Menu_Item menutable[menusize];

// Callback of every command of the table: runs command number data, then settles the check marks,
// since the toolkit has turned the mark of a chosen toggle whether the command ran or not.
void menucallback(Fl_Widget* w, void* data);

// The toolkit's handler of events that nobody took: tries a key that types a letter of another
// alphabet as the Latin one it bears (latinkey.h), so that the menus' shortcuts go by the key.
int foreignshortcut(int event);

// Puts the check marks of the two long-solve toggles in step with tryhard (dispatch.h).
void settryhardmenu();
