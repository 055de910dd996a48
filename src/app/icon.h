// SPDX-License-Identifier: MIT
//
// icon: the program's icon as pixels, for the window manager; data/vexel.svg is the same picture.
//
// State     none.
// Callers   desktop.
#pragma once

#include <cstdint>
#include <vector>

// size x size pixels, row by row from the top, each alpha, red, green and blue from the highest
// byte down. size is 1 or more.
std::vector<std::uint32_t> makeicon(int size);
