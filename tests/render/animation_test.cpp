// SPDX-License-Identifier: MIT
#include "heapcount.h"
#include "model/cube.h"
#include "model/parser.h"
#include "model/recording.h"
#include "model/turns.h"
#include "model/undo.h"
#include "nullgl.h"
#include "nullshell.h"
#include "render/animation.h"
#include "render/colors.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/view.h"
#include "viewpoints.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr int layerturns = 18;
constexpr int records = 156; // of one cube

class Animation : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        initcubies();
        initturns();
        initparser();
        initnullgl();
        initdrawface();
        demomode = 0;
        showrear = 1;
        drawingmain = 1;
        facelistcount = 0;
    }
};

// Draws as the view does and leaves the records in the order of emission.
void frame() {
    facelistcount = 0;
    paintedcount = 0;
    setupeye(viewsize, viewsize);
    PushMatrix();
    setupcube();
    displaycube();
    PopMatrix();
}

// The same without a viewpoint: the records of the main view stay in model space.
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

modelpoint centerof(const listface* face) {
    modelpoint c = {0, 0, 0};
    for (const auto& corner : face->corner) {
        c.x += corner[0] / 4;
        c.y += corner[1] / 4;
        c.z += corner[2] / 4;
    }
    return c;
}

double distance(modelpoint a, modelpoint b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

// The place whose sticker lies at c, or -1.
int placeat(modelpoint c) {
    for (int place = 0; place < placecount; place++) {
        if (distance(c, stickercenter(place)) < 0.01) {
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

struct axis_row {
    double x, y, z; // unit vector about which the turn is clockwise seen from outside its face
};

// From the letter of a turn's notation and its case.
axis_row axisof(const std::string& notation) {
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

// Turns p clockwise about a.
modelpoint turned(modelpoint p, axis_row a, double degrees) {
    const double angle = -degrees * std::acos(-1.0) / 180;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double along = (a.x * p.x + a.y * p.y + a.z * p.z) * (1 - c);
    return {p.x * c + (a.y * p.z - a.z * p.y) * s + a.x * along,
            p.y * c + (a.z * p.x - a.x * p.z) * s + a.y * along,
            p.z * c + (a.x * p.y - a.y * p.x) * s + a.z * along};
}

// Whether the cubie under sticker p takes part in the turn: by where its cell lies along the axis.
bool takespart(const std::string& notation, modelpoint p) {
    const axis_row a = axisof(notation);
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
    frame();
    EXPECT_EQ(facelistcount, 156);
    showrear = 1;
    frame();
    EXPECT_EQ(facelistcount, 312);
}

TEST_F(Animation, FrameOfEveryTurnIs312Records) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        setframe(code, 3, 10);
        frame();
        EXPECT_EQ(facelistcount, 312);
        EXPECT_EQ(matrixdepth, 0);
    }
}

TEST_F(Animation, EveryStickerLandsWhereTheModelPutsIt) {
    showrear = 0;
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        setframe(code, 10, 10);
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
                    takespart(notation, home) ? turned(home, axisof(notation), 0.75 * t) : home;
                EXPECT_LT(distance(centers[static_cast<std::size_t>(place)], wanted), 0.0051);
            }
        }
    }
}

struct named_turn {
    void (*draw)();
    int code;
};

constexpr named_turn named[layerturns] = {
    {drawUcw,  0 },
    {drawUccw, 1 },
    {drawDcw,  2 },
    {drawDccw, 3 },
    {drawLcw,  4 },
    {drawLccw, 5 },
    {drawRcw,  6 },
    {drawRccw, 7 },
    {drawFcw,  8 },
    {drawFccw, 9 },
    {drawBcw,  10},
    {drawBccw, 11},
    {drawFScw, 12},
    {drawBScw, 13},
    {drawLScw, 14},
    {drawRScw, 15},
    {drawUScw, 16},
    {drawDScw, 17},
};

std::vector<listface> drawn() {
    std::vector<listface> list;
    list.reserve(facelimit);
    for (int i = 0; i < facelistcount; i++) {
        list.push_back(*facelist[i]);
    }
    return list;
}

bool same(const std::vector<listface>& a, const std::vector<listface>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

TEST_F(Animation, NamedFunctionDrawsTheTurnOfItsCode) {
    showrear = 0;
    for (const named_turn& row : named) {
        SCOPED_TRACE(row.code);
        setframe(row.code, 4, 9);
        flatframe();
        const std::vector<listface> wanted = drawn();
        facelistcount = 0;
        turnmode = noturn;
        row.draw();
        EXPECT_TRUE(same(drawn(), wanted));
    }
}

TEST_F(Animation, WholeCubeTurnsAboutTheFaceOfItsNumber) {
    showrear = 0;
    constexpr int codes[6] = {20, 19, 22, 18, 23, 21}; // ORDER FACE
    for (int face = 0; face < 6; face++) {
        setframe(codes[face], 4, 9);
        flatframe();
        const std::vector<listface> wanted = drawn();
        facelistcount = 0;
        drawwholecube(face);
        EXPECT_TRUE(same(drawn(), wanted)) << face;
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
        frame();
        EXPECT_STREQ(saveparse, turn_table[code].notation);
        EXPECT_EQ(saveparselen, code < 12 ? 1 : 2);
    }
}

TEST_F(Animation, NoOtherFrameHandsATurnOn) {
    for (int code = 0; code < turncount; code++) {
        for (const int t : {-1, 0, 1, 118, 120}) {
            setframe(code, t, 120);
            frame();
            EXPECT_EQ(saveparselen, 0) << code << " " << t;
        }
    }
}

TEST_F(Animation, StillCubeHandsNothingOn) {
    setframe(noturn, 119, 120);
    frame();
    EXPECT_EQ(saveparselen, 0);
}

TEST_F(Animation, RearViewNeverHandsATurnOn) {
    drawingmain = 0;
    for (const named_turn& row : named) {
        setframe(row.code, 119, 120);
        row.draw();
        EXPECT_EQ(saveparselen, 0);
        facelistcount = 0;
    }
    drawwholecube(2);
    EXPECT_EQ(saveparselen, 0);
}

TEST_F(Animation, TurnLandsOnceWithTheRearView) {
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        initcubies();
        applyturn(code);
        const std::vector<unsigned char> wanted(cubecolors, cubecolors + placecount);
        initcubies();
        setframe(code, 119, 120);
        frame();
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
        frame();
        doparsestring();
        ASSERT_EQ(turnlanded, 1);
        const std::vector<unsigned char> landed(cubecolors, cubecolors + placecount);
        frame(); // the toolkit asks again before the driver ends the turn
        EXPECT_EQ(saveparselen, 0);
        nongldisplay();
        expectseen(0, 53);
        doparsestring();
        EXPECT_TRUE(std::equal(landed.begin(), landed.end(), cubecolors));
    }
}

TEST_F(Animation, OneFrameTurnStandsStillAndIsHandedOn) {
    setframe(8, 0, 1);
    frame();
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
        frame();
        EXPECT_EQ(ttime, 119);
        EXPECT_EQ(drawingmain, 1);
        nongldisplay();
        applyturn(code); // the colours that the turned stickers bring to their new places
        expectseen(27, 53);
    }
}

TEST_F(Animation, RearViewOfTheLastFrameIsThatOfTheLandedCube) {
    frame();
    const std::vector<modelpoint> still = stickercenters(records);
    for (int code = 0; code < turncount; code++) {
        SCOPED_TRACE(turn_table[code].notation);
        setframe(code, 119, 120);
        frame();
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
    frame();
    const std::vector<modelpoint> rear = stickercenters(records);
    EXPECT_EQ(ttime, 118);
    setframe(8, 119, 120);
    frame();
    EXPECT_GT(distance(rear[18], stickercenters(records)[18]), 1e-4);
}

TEST_F(Animation, WithoutTheRearViewNothingElseIsTouched) {
    showrear = 0;
    setframe(8, 119, 120);
    frame();
    EXPECT_EQ(ttime, 119);
    EXPECT_EQ(drawingmain, 1);
    EXPECT_STREQ(saveparse, "F");
}

// The rear view puts a counter that stands at TURNTIME one back, whoever put it there.
TEST_F(Animation, CounterAtTheEndIsPutOneBackByTheRearView) {
    setframe(noturn, 120, 120);
    frame();
    EXPECT_EQ(ttime, 119);
}

TEST_F(Animation, StrangeTurnDrawsNothing) {
    for (const int code : {-2, 24, 1000}) {
        setframe(code, 119, 120);
        frame();
        EXPECT_EQ(facelistcount, 0);
        EXPECT_EQ(saveparselen, 0);
    }
}

TEST_F(Animation, All54StickersOfAScrambledCubeAreSeen) {
    scramble();
    frame();
    nongldisplay();
    EXPECT_EQ(paintedcount, 312);
    expectseen(0, 53);
}

TEST_F(Animation, RearViewIsDrawnOnlyWhenAskedFor) {
    showrear = 0;
    frame();
    nongldisplay();
    EXPECT_EQ(colorseen(31), -1);
}

TEST_F(Animation, RearViewStandsInTheUpperRightCorner) {
    frame();
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
        frame();
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
