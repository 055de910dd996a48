// SPDX-License-Identifier: MIT
//
// animation: one frame of the cube, still or in the middle of a quarter turn, and its rear view.
//
// Purpose   turns turnmode and ttime (turns.h) into squares of the face list, and on the last frame
//           of a turn hands its notation to sparsestring (parser.h), so that the cube changes
//           once, after that frame was painted.
// State     showrear, drawingmain, below.
// Units     at frame t of T = TURNTIME the moving part stands at 90 * t / T degrees. The main view
//           never draws the full 90: what follows t = T - 1 is the still cube in its new state.
// Callers   cube_box, once a redraw. displaycube finds a turn's lists by its code; the eighteen
//           functions by name are the same turns for whoever wants a certain one, today the tests.
// Order     initdrawface before the first frame; the view transform and facelistcount = 0 before
//           each displaycube.
#pragma once

extern int showrear;    // 1: the rear view is drawn too, 0: not; initially 1. Written by a command
extern int drawingmain; // 1 while the main view is drawn, 0 while the rear view is; initially 1

// Draws the main view and, if showrear, the rear view into the face list: 156 or 312 records. A
// turnmode outside -1..23 draws nothing. A turn that has landed (turnlanded) is drawn as the still
// cube: its frame may be asked for again before the driver ends the turn, and the cube already
// shows the result. So is one whose ttime is none of the frames 0..TURNTIME - 1: an expose may come
// between the command that starts a turn and the first pass. The rear view shows the last frame of
// a turn at the full 90 degrees and never hands a turn on. Writes ttime for the time of the rear
// view and puts it back.
void displaycube();

void drawcubegeneric(); // the still cube, 156 records

// One face or middle slice turned by the angle of the frame: clockwise as seen from outside the
// face of its name (cw), or counter-clockwise (ccw).

void drawUcw();
void drawUccw();
void drawDcw();
void drawDccw();
void drawLcw();
void drawLccw();
void drawRcw();
void drawRccw();
void drawFcw();
void drawFccw();
void drawBcw();
void drawBccw();
void drawFScw();
void drawBScw();
void drawLScw();
void drawRScw();
void drawUScw();
void drawDScw();

// The whole cube turned clockwise about face 0..5 (ULFRBD). Any other number draws the still cube
// and hands nothing on.
void drawwholecube(int face);
