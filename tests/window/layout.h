// SPDX-License-Identifier: MIT
//
// layout: the main window as a person sees it: what stands where and which menu holds what.
//
// Purpose   written down a second time, apart from src/app, so that a widget that moved or a menu
//           entry that changed its place is noticed.
// Units     pixels from the top left corner of the main window; menu rows count from 0.
// Callers   program, which clicks by these names; the layout test.
#pragma once

#include "window/picture.h"

#include <string>

struct button_place {
    const char* label;
    rectangle place;
    int turn; // ORDER TURN: its code, or -1 for a button that is no turn
};

constexpr int buttoncount = 32;
extern const button_place buttonplaces[buttoncount]; // in reading order

constexpr int headingcount = 11;
extern const rectangle headingplaces[headingcount]; // texts without a frame

constexpr int windowwidth = 735;
constexpr int windowheight = 462;
constexpr rectangle viewplace = {2, 24, 436, 436};
constexpr rectangle menubarplace = {0, 0, 735, 22};
constexpr rectangle lengthplace = {667, 293, 50, 20};
constexpr rectangle macroplace = {447, 314, 270, 20};
constexpr rectangle choiceplace = {447, 355, 270, 20};
constexpr rectangle legendplace = {455, 383, 260, 72};

// The button with that label; throws std::runtime_error if there is none.
const button_place& findbutton(const std::string& label);

constexpr int menucount = 5;
constexpr int filemenu = 0; // the one that ends the program

struct menu_place {
    int menu; // 0..4 from the left: File, Edit, View, Macros, Help
    int row;  // 0.. from the top
    int rows; // how many rows that menu has
};

// The menu entry with that text; throws std::runtime_error if there is none.
menu_place findmenu(const std::string& entry);
