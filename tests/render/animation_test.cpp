// SPDX-License-Identifier: MIT
#include "heapcount.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/turns.h"
#include "model/undo.h"
#include "nullgl.h"
#include "render/animation.h"
#include "render/colors.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/rendertables.h"
#include "render/rendertest.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

void realsparsestring(const char* text, int length) asm("__real__Z12sparsestringPKci");
void countedsparsestring(const char* text, int length) asm("__wrap__Z12sparsestringPKci");

namespace {

constexpr int records = 156; // of one cube

int handedon = 0; // calls of sparsestring, however they end

} // namespace

// Stands between the animation and the parser; the linker leads the calls here.
void countedsparsestring(const char* text, int length) {
    handedon++;
    realsparsestring(text, length);
}

namespace {

class Animation : public rendertest {
  protected:
    void SetUp() override {
        rendertest::SetUp();
        handedon = 0;
    }
};

// A frame without a viewpoint: the records of the main view stay in model space.
void flatframe() {
    facelistcount = 0;
    LoadIdentity();
    displaycube();
}

void setframe(int code, int t, int frames) {
    turnmode = code;
    ttime = t;
    TURNTIME = frames;
    turnlanded = 0;
}

// The place whose sticker lies near c, or -1; they are 2 apart.
int placeat(modelpoint c) {
    for (int place = 0; place < placecount; place++) {
        if (distance(c, stickercenter(place)) < 0.1) {
            return place;
        }
    }
    return -1;
}

// Centre of the sticker of each place among the records first..first + 155.
std::vector<modelpoint> stickercenters(int first) {
    std::vector<modelpoint> centers(placecount);
    for (int i = first; i < first + records; i++) {
        if (facelist[i]->key != -1) {
            centers[static_cast<std::size_t>(facelist[i]->key)] = centerof(facelist[i]);
        }
    }
    return centers;
}

// The colour index seen at the sample point of a place, or -1 for no sticker.
int colorseen(int place) {
    const viewpoint at = lookat(place);
    const painted* p = paintedat(2 * at.x / viewsize - 1, 1 - 2 * at.y / viewsize);
    for (int i = 0; p != nullptr && i < 6; i++) {
        const letter_row* row = findletter(colortable[i]);
        if (p->r == row->r && p->g == row->g && p->b == row->b) {
            return i;
        }
    }
    return -1;
}

void expectseen(int first, int last) {
    for (int place = first; place <= last; place++) {
        EXPECT_EQ(colorseen(place), cubecolors[place]) << "at place " << place;
    }
}

void scramble() {
    for (const int code : {0, 6, 13, 9, 20, 3, 16, 10, 23, 5, 8, 1}) {
        applyturn(code);
    }
}

// The axis about which a turn goes clockwise seen from outside its face, from the letter of its
// notation and the case of that.
modelpoint axisof(const std::string& notation) {
    const char letter = notation.back();
    const double way = letter >= 'a' ? -1 : 1;
    switch (std::toupper(letter)) {
    case 'U': return {0, way, 0};
    case 'D': return {0, -way, 0};
    case 'L': return {-way, 0, 0};
    case 'R': return {way, 0, 0};
    case 'F': return {0, 0, way};
    default: return {0, 0, -way};
    }
}

// Whether the cubie under sticker p takes part in the turn: by where its cell lies along the axis.
bool takespart(const std::string& notation, modelpoint p) {
    const modelpoint a = axisof(notation);
    const double along = a.x * p.x + a.y * p.y + a.z * p.z;
    const double side = std::islower(static_cast<unsigned char>(notation.back())) != 0 ? -1 : 1;
    switch (notation[0]) {
    case '*': return std::abs(along) < 1;
    case '>': return true;
    default: return along * side > 1;
    }
}

TEST_F(Animation, StillCubeIs156RecordsAndWithTheRearView312) {
    showrear = 0;
    emitframe();
    EXPECT_EQ(facelistcount, 156);
    showrear = 1;
    emitframe();
    EXPECT_EQ(facelistcount, 312);
}

TEST_F(Animation, FrameOfEveryTurnIs312Records) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        setframe(code, 3, 10);
        emitframe();
        EXPECT_EQ(facelistcount, 312);
        EXPECT_EQ(matrixdepth, 0);
    }
}

TEST_F(Animation, EveryStickerLandsWhereTheModelPutsIt) {
    showrear = 0;
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        setframe(code, 997, 999); // all but landed
        flatframe();
        initcubies();
        applyturn(code);
        const std::vector<modelpoint> centers = stickercenters(0);
        for (int home = 0; home < placecount; home++) {
            const int lands = placeat(centers[static_cast<std::size_t>(home)]);
            ASSERT_NE(lands, -1) << home;
            EXPECT_EQ(cubefaces[lands], home);
        }
    }
}

TEST_F(Animation, LayerTurnsByNinetyDegreesTimesFrameOverFrames) {
    showrear = 0;
    for (int code = 0; code < turncount; code++) {
        const std::string notation = turn_table[code].notation;
        SCOPED_TRACE(notation);
        for (const int t : {0, 1, 50, 118, 119}) {
            setframe(code, t, 120);
            flatframe();
            const std::vector<modelpoint> centers = stickercenters(0);
            for (int place = 0; place < placecount; place++) {
                const modelpoint home = stickercenter(place);
                const modelpoint wanted =
                    takespart(notation, home) ? turned(home, -0.75 * t, axisof(notation)) : home;
                EXPECT_LT(distance(centers[static_cast<std::size_t>(place)], wanted), 0.0051);
            }
        }
    }
}

// The records from first on, two for each square: in the order of squares, turned by the angle
// about the axis, and lifted off their planes by no more than the stickers are.
void expectsquares(int first, const std::vector<table_square>& squares, char axis, double angle) {
    for (std::size_t i = 0; i < squares.size(); i++) {
        const listface* backing = facelist[static_cast<std::size_t>(first) + 2 * i];
        const listface* sticker = facelist[static_cast<std::size_t>(first) + 2 * i + 1];
        const modelpoint wanted = turnedabout(squarecenter(squares[i]), axis, angle);
        EXPECT_EQ(backing->key, -1) << i;
        EXPECT_EQ(sticker->key, squares[i].key) << i;
        EXPECT_LT(distance(centerof(backing), wanted), 1e-5) << i;
        EXPECT_LT(distance(centerof(sticker), wanted), 0.0051) << i;
    }
}

// What is drawn, in its order, for frame 4 of 9: 40 degrees.
void expectturn(const table_turn& row) {
    const std::vector<table_square> still = squaresof(row.still);
    const std::vector<table_square> moving = squaresof(row.moving);
    ASSERT_EQ(facelistcount, records);
    ASSERT_EQ(2 * (still.size() + moving.size()), static_cast<std::size_t>(records));
    expectsquares(0, still, row.axis, 0);
    expectsquares(2 * static_cast<int>(still.size()), moving, row.axis, row.sign * 40);
}

TEST_F(Animation, StillCubeIsDrawnInItsOrder) {
    drawcubegeneric();
    ASSERT_EQ(facelistcount, records);
    expectsquares(0, squaresof(wholecube), 'x', 0);
}

TEST_F(Animation, NamedFunctionDrawsTheTurnOfItsCode) {
    for (int code = 0; code < tableturns; code++) {
        const table_turn& row = turntable[code];
        SCOPED_TRACE(row.notation);
        setframe(noturn, 4, 9);
        facelistcount = 0;
        row.draw();
        expectturn(row);
        setframe(noturn, 8, 9);
        facelistcount = 0;
        row.draw();
        EXPECT_STREQ(saveparse, row.notation);
    }
}

TEST_F(Animation, CodeOfALayerDrawsItsTurn) {
    showrear = 0;
    for (int code = 0; code < tableturns; code++) {
        SCOPED_TRACE(turntable[code].notation);
        setframe(code, 4, 9);
        flatframe();
        expectturn(turntable[code]);
    }
}

TEST_F(Animation, WholeCubeTurnsAboutTheFaceOfItsNumber) {
    for (int face = 0; face < 6; face++) {
        const table_whole& row = wholetable[face];
        SCOPED_TRACE(row.notation);
        setframe(noturn, 4, 9);
        facelistcount = 0;
        drawwholecube(face);
        ASSERT_EQ(facelistcount, records);
        expectsquares(0, squaresof(wholecube), row.axis, row.sign * 40);
        setframe(noturn, 8, 9);
        facelistcount = 0;
        drawwholecube(face);
        EXPECT_STREQ(saveparse, row.notation);
    }
}

TEST_F(Animation, CodeOfACubeTurnDrawsIt) {
    showrear = 0;
    for (const table_whole& row : wholetable) {
        SCOPED_TRACE(row.notation);
        setframe(row.code, 4, 9);
        flatframe();
        ASSERT_EQ(facelistcount, records);
        expectsquares(0, squaresof(wholecube), row.axis, row.sign * 40);
    }
}

TEST_F(Animation, WholeCubeTurnAboutNoFaceIsStillAndHandsNothingOn) {
    for (const int face : {-1, 6, 1000}) {
        setframe(noturn, 119, 120);
        facelistcount = 0;
        LoadIdentity();
        drawwholecube(face);
        EXPECT_EQ(facelistcount, records);
        EXPECT_LT(distance(stickercenters(0)[22], stickercenter(22)), 0.0051);
        EXPECT_EQ(saveparselen, 0);
    }
}

TEST_F(Animation, WholeCubeTurnAndFaceTurnAboutFGoTheSameWay) {
    showrear = 0;
    setframe(22, 5, 12);
    flatframe();
    const modelpoint whole = stickercenters(0)[18];
    setframe(8, 5, 12);
    flatframe();
    EXPECT_LT(distance(whole, stickercenters(0)[18]), 1e-6);
}

TEST_F(Animation, WholeCubeTurnReadsTheMatrixBackAtItsEnd) {
    setframe(22, 5, 12);
    LoadIdentity();
    drawwholecube(2);
    EXPECT_TRUE(std::equal(glmat, glmat + 16, currentmatrix));
}

TEST_F(Animation, EachTurnIsHandedOnInItsOwnNotation) {
    for (int code = 0; code < turncount; code++) {
        initparser();
        setframe(code, 119, 120);
        emitframe();
        EXPECT_STREQ(saveparse, turn_table[code].notation);
        EXPECT_EQ(saveparselen, code < 12 ? 1 : 2);
    }
}

TEST_F(Animation, NoOtherFrameHandsATurnOn) {
    for (int code = 0; code < turncount; code++) {
        for (const int t : {-1, 0, 1, 118, 120}) {
            setframe(code, t, 120);
            emitframe();
            EXPECT_EQ(saveparselen, 0) << code << " " << t;
        }
    }
}

TEST_F(Animation, StillCubeHandsNothingOn) {
    setframe(noturn, 119, 120);
    emitframe();
    EXPECT_EQ(saveparselen, 0);
}

TEST_F(Animation, RearViewNeverHandsATurnOn) {
    drawingmain = 0;
    for (const table_turn& row : turntable) {
        setframe(noturn, 119, 120);
        row.draw();
        facelistcount = 0;
    }
    for (int face = 0; face < 6; face++) {
        drawwholecube(face);
        facelistcount = 0;
    }
    EXPECT_EQ(handedon, 0);
}

// Handing it on twice would leave the same text: it is the calls that count.
TEST_F(Animation, TurnLandsOnceWithTheRearView) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        handedon = 0;
        initcubies();
        applyturn(code);
        const std::vector<unsigned char> wanted(cubecolors, cubecolors + placecount);
        initcubies();
        setframe(code, 119, 120);
        emitframe();
        EXPECT_EQ(handedon, 1);
        doparsestring();
        doparsestring();
        EXPECT_TRUE(std::equal(wanted.begin(), wanted.end(), cubecolors));
    }
}

TEST_F(Animation, LandedTurnIsDrawnAsTheStillCubeAndNotHandedOnAgain) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        initcubies();
        setframe(code, 119, 120);
        emitframe();
        doparsestring();
        ASSERT_EQ(turnlanded, 1);
        const std::vector<unsigned char> landed(cubecolors, cubecolors + placecount);
        emitframe(); // the toolkit asks again before the driver ends the turn
        EXPECT_EQ(saveparselen, 0);
        nongldisplay();
        expectseen(0, 53);
        doparsestring();
        EXPECT_TRUE(std::equal(landed.begin(), landed.end(), cubecolors));
    }
}

TEST_F(Animation, OneFrameTurnStandsStillAndIsHandedOn) {
    setframe(8, 0, 1);
    emitframe();
    EXPECT_STREQ(saveparse, "F");
    EXPECT_EQ(ttime, 0);
    nongldisplay();
    expectseen(0, 26);
}

TEST_F(Animation, LastFrameShowsTheRearViewAtTheFullNinetyDegrees) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        initcubies();
        scramble();
        setframe(code, 119, 120);
        emitframe();
        EXPECT_EQ(ttime, 119);
        EXPECT_EQ(drawingmain, 1);
        nongldisplay();
        applyturn(code); // the colours that the turned stickers bring to their new places
        expectseen(27, 53);
    }
}

TEST_F(Animation, RearViewOfTheLastFrameIsThatOfTheLandedCube) {
    emitframe();
    const std::vector<modelpoint> still = stickercenters(records);
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        setframe(code, 119, 120);
        emitframe();
        const std::vector<modelpoint> last = stickercenters(records);
        initcubies();
        applyturn(code);
        for (std::size_t place = 0; place < placecount; place++) {
            EXPECT_LT(distance(last[cubefaces[place]], still[place]), 1e-5);
        }
    }
}

TEST_F(Animation, FrameBeforeTheLastShowsBothViewsAtTheSameAngle) {
    setframe(8, 118, 120);
    emitframe();
    const std::vector<modelpoint> rear = stickercenters(records);
    EXPECT_EQ(ttime, 118);
    setframe(8, 119, 120);
    emitframe();
    EXPECT_GT(distance(rear[18], stickercenters(records)[18]), 1e-4);
}

TEST_F(Animation, WithoutTheRearViewNothingElseIsTouched) {
    showrear = 0;
    setframe(8, 119, 120);
    emitframe();
    EXPECT_EQ(ttime, 119);
    EXPECT_EQ(drawingmain, 1);
    EXPECT_STREQ(saveparse, "F");
}

// The rear view puts a counter that stands at TURNTIME one back, whoever put it there.
TEST_F(Animation, CounterAtTheEndIsPutOneBackByTheRearView) {
    setframe(noturn, 120, 120);
    emitframe();
    EXPECT_EQ(ttime, 119);
}

TEST_F(Animation, StrangeTurnDrawsNothing) {
    for (const int code : {-2, 24, 1000}) {
        setframe(code, 119, 120);
        emitframe();
        EXPECT_EQ(facelistcount, 0);
        EXPECT_EQ(saveparselen, 0);
    }
}

TEST_F(Animation, All54StickersOfAScrambledCubeAreSeen) {
    scramble();
    emitframe();
    nongldisplay();
    EXPECT_EQ(paintedcount, 312);
    expectseen(0, 53);
}

TEST_F(Animation, RearViewIsDrawnOnlyWhenAskedFor) {
    showrear = 0;
    emitframe();
    nongldisplay();
    EXPECT_EQ(colorseen(31), -1);
}

TEST_F(Animation, RearViewStandsInTheUpperRightCorner) {
    emitframe();
    for (int i = records; i < facelistcount; i++) {
        for (const auto& corner : facelist[i]->corner) {
            EXPECT_TRUE(corner[0] > 0.5 && corner[0] < 1 && corner[1] > 0.6 && corner[1] < 1);
        }
    }
}

TEST_F(Animation, FrameAsksTheHeapForNothing) {
    scramble();
    for (int code = 0; code < turncount; code++) {
        setframe(code, 40, 120);
        const long before = heapcalls();
        emitframe();
        nongldisplay();
        EXPECT_EQ(heapcalls() - before, 0) << code;
        EXPECT_EQ(paintedcount, 312);
    }
}

TEST_F(Animation, HeapCounterCounts) {
    const long before = heapcalls();
    std::vector<int> some(1000);
    void* volatile block = std::malloc(100);
    std::free(block);
    EXPECT_GE(heapcalls() - before, 2) << some.size();
}

} // namespace
