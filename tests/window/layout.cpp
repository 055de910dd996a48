// SPDX-License-Identifier: MIT
#include "window/layout.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

const button_place buttonplaces[buttoncount] = {
    {"Ucw",         {443, 50, 43, 20},  0 },
    {"Rcw",         {491, 50, 43, 20},  6 },
    {"Fcw",         {539, 50, 43, 20},  8 },
    {"Lcw",         {587, 50, 43, 20},  4 },
    {"Bcw",         {635, 50, 43, 20},  10},
    {"Dcw",         {683, 50, 43, 20},  2 },
    {"Uccw",        {443, 72, 43, 20},  1 },
    {"Rccw",        {491, 72, 43, 20},  7 },
    {"Fccw",        {539, 72, 43, 20},  9 },
    {"Lccw",        {587, 72, 43, 20},  5 },
    {"Bccw",        {635, 72, 43, 20},  11},
    {"Dccw",        {683, 72, 43, 20},  3 },
    {"UScw",        {443, 116, 43, 20}, 16},
    {"LScw",        {491, 116, 43, 20}, 14},
    {"FScw",        {539, 116, 43, 20}, 12},
    {"RScw",        {587, 116, 43, 20}, 15},
    {"BScw",        {635, 116, 43, 20}, 13},
    {"DScw",        {683, 116, 43, 20}, 17},
    {"UCcw",        {443, 160, 43, 20}, 20},
    {"LCcw",        {491, 160, 43, 20}, 19},
    {"FCcw",        {539, 160, 43, 20}, 22},
    {"RCcw",        {587, 160, 43, 20}, 18},
    {"BCcw",        {635, 160, 43, 20}, 23},
    {"DCcw",        {683, 160, 43, 20}, 21},
    {"Reset Cube",  {443, 204, 92, 20}, -1},
    {"Jumble Cube", {539, 204, 92, 20}, -1},
    {"Solve Cube",  {635, 204, 92, 20}, -1},
    {"Start Demo",  {443, 226, 92, 20}, -1},
    {"Save Cube",   {539, 226, 92, 20}, -1},
    {"Record On",   {635, 226, 92, 20}, -1},
    {"Macro Order", {488, 270, 92, 20}, -1},
    {"Apply Macro", {584, 270, 92, 20}, -1},
};

const rectangle headingplaces[headingcount] = {
    {450, 25,  280, 22}, // Face Moves
    {443, 94,  280, 22}, // Slice Moves
    {443, 138, 280, 22}, // Whole Cube Moves
    {443, 182, 280, 22}, // Basic Commands
    {443, 248, 280, 22}, // Macro Controls
    {447, 293, 110, 20}, // Current Macro:
    {561, 293, 106, 20}, // Macro length:, left of its read-out
    {465, 335, 235, 20}, // Defined Macros:
    {467, 389, 231, 20}, // U = Up   L = Left   F = Front
    {467, 410, 231, 20}, // R = Right   B = Back   D = Down
    {467, 431, 231, 20}, // Shift = Inverse     Ctrl = Whole Cube
};

namespace {

// The menus from left to right, the rows of each from top to bottom.
const std::vector<std::string_view> menus = {
    "Reset Cube|Load Macro File|Dump Macro File|Display Permutation|Print EPS File|Quit|",
    "Undo|Input Cube|Long Solve|Very Long Solve|",
    "Show Macro Gizmo|Show Rear Cube|Set Cube Speed|Set Cube Colors|",
    "Define Macro|Apply Macro|Delete Macro|Delete All Macros|Add Macro to Gizmo|"
    "Delete Macro from Gizmo|Clear Macro Gizmo|",
    "About Vexel|",
};

int bars(std::string_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '|'));
}

} // namespace

const button_place& findbutton(const std::string& label) {
    for (const button_place& button : buttonplaces) {
        if (label == button.label) {
            return button;
        }
    }
    throw std::runtime_error("no button " + label);
}

menu_place findmenu(const std::string& entry) {
    for (std::size_t menu = 0; menu < menus.size(); menu++) {
        const std::string whole = "|" + std::string(menus[menu]);
        const std::size_t at = whole.find("|" + entry + "|");
        if (at != std::string::npos) {
            return {static_cast<int>(menu), bars(whole.substr(0, at)), bars(menus[menu])};
        }
    }
    throw std::runtime_error("no menu entry " + entry);
}
