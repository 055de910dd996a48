// SPDX-License-Identifier: MIT
//
// projection: the face list, the program's own perspective and its painter's algorithm.
//
// Purpose   every square of a frame is projected when it is emitted, kept in a list, and painted
//           from the farthest to the nearest (painter's algorithm: M. E. Newell, R. G. Newell,
//           T. L. Sancha 1972, here without splitting). No depth buffer, no culling, no clipping:
//           the cube lies well inside the view.
// State     the face list and glmat, below.
// Units     model space before projection: x right, y up, z to the viewer, the cube is -3..3.
//           Device coordinates after it: x and y from -1 to 1 across the view, y upwards; depth
//           grows away from the viewer.
// Callers   cubies (emits), animation (getmatrix), cube_box (empties the list and paints it).
// Order     initdrawface once, before the first frame. In a frame: facelistcount = 0; then, each
//           time the matrix was changed, getmatrix before the next square; at last nongldisplay.
// Cost      a frame of 312 records allocates nothing.
#pragma once

// The face list

struct listface {
    int key;            // the place 0..53 whose colour is painted, -1 for black
    float corner[4][3]; // x, y, z in device coordinates once the record was transformed
    float depth;        // of the centre, in device coordinates
};

constexpr int facelimit = 400; // records; a frame with the rear view uses 312

extern listface* facelist[facelimit]; // null until initdrawface; painting permutes the pointers
extern int facelistcount;             // records in use, 0..facelimit; set to 0 before each frame

// Gives the list its 400 records, kept for the program's lifetime, in their order. A second call
// does no harm.
void initdrawface();

// Appends one record and transforms it at once, so that later changes of the matrix do not move
// it. The corners are in model space, key is -1 or 0..53. A full list is an assertion. The records
// of a frame lie in the order of emission, whatever order an earlier frame was painted in.
void addface(int key, const float corners[4][3]);

// The transform

extern float glmat[16]; // the transform of the squares that follow, in column order (4 * col + row)

void getmatrix();           // reads the current matrix of OpenGL into glmat
void xformvect(float* p);   // projects one point, three floats, in place
void xform(listface* face); // sets the depth, from the centre, and projects the four corners

// Painting

// Order of two elements of facelist by depth alone, as qsort wants it: -1 when the face of a is
// farther than that of b, 1 when nearer, 0 when equally deep or when a depth is not a number. With
// such a depth in the list it is no order that a sort may be given; painting has a key of its own.
int compdepth(const void* a, const void* b);

// Sorts the list as compdepth says and paints it in that order: equally deep faces as they were
// emitted, and a depth that is not a number as the farthest. Leaves the matrix as it was. May be
// called again to paint the same frame again.
void nongldisplay();
