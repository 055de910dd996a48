// SPDX-License-Identifier: MIT
//
// viewpoints: where each of the 54 stickers is seen in the cube view, computed a second time.
//
// Purpose   the pixel to look at for the colour of a place: the 27 stickers of U, L and F in the
//           main view, the 27 of R, B and D in the rear view. Uses nothing of the program: double
//           precision, its own formulas for the places and for the view, so that a slip in
//           src/render cannot hide here too.
// Units     pixels from the top left corner of the view, x to the right, y DOWNWARDS; pixel (i, j)
//           covers i..i + 1, j..j + 1, so the pixel to read is the integer part of both.
// Holds for the still cube outside the demo, in a square view.
// Callers   render tests, window tests.
//
//                 rear view, R B D (about 60 pixels wide)
//        +-------------[]-+
//        |      U         |
//        |   L    F       |
//        +----------------+
#pragma once

constexpr int viewsize = 436; // width and height of the view in the program

struct viewpixel {
    double x, y;
};

struct viewpoint {
    int place;   // 0..53
    double x, y; // a point inside its sticker and clear of the letters F, U and L
    bool rear;   // seen in the rear view, as places 27..53 are
};

struct modelpoint {
    double x, y, z; // model space: x right, y up, z to the viewer, the cube is -3..3
};

// Turns p about the axis through the origin and the unit vector a, counter-clockwise seen from its
// tip.
modelpoint turned(modelpoint p, double degrees, modelpoint a);

// The centre of the sticker at place 0..53 in model space, on the plane of its face.
modelpoint stickercenter(int place);

// Where a point of model space is seen in a view of size x size pixels.
viewpixel project(modelpoint p, bool rear, int size = viewsize);

// The point to look at for place 0..53. It is the centre of the sticker, except that the middle
// stickers of F, U and L, which carry a letter right of and above their centre, are looked at half
// a unit (12 to 20 pixels) further down, on U, which lies flat, further left.
viewpoint lookat(int place, int size = viewsize);
