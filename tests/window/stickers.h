// SPDX-License-Identifier: MIT
//
// stickers: the cube that a picture of the view shows, without being told what to expect.
//
// Units     places as in model/cube.h.
// Callers   monkey.
#pragma once

#include "window/picture.h"

#include <string>

// The colour letters (WGRBOYKSVDPCX) at the 54 places of a view with the rear view on; "?" where no
// sticker is seen.
[[nodiscard]] std::string stickers(const picture& view);

// Whether letters, one a place, are those of a cube that turns can make, whatever the colours are:
// "" if so, else what is wrong. The cube of the model is not the same afterwards.
[[nodiscard]] std::string whynotlegal(const std::string& letters);
