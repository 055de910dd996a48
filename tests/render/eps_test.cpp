// SPDX-License-Identifier: MIT
#include "base/scratch.h"
#include "model/cube.h"
#include "model/resetmodel.h"
#include "model/turns.h"
#include "nullgl.h"
#include "nullshell.h"
#include "render/animation.h"
#include "render/colors.h"
#include "render/eps.h"
#include "render/glwrap.h"
#include "render/projection.h"
#include "render/view.h"
#include "viewpoints.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int squares = 27;

// The places in the order of the file.
constexpr int order[squares] = {24, 21, 18, 25, 22, 19, 26, 23, 20, 0,  3, 6,  1, 4,
                                7,  2,  5,  8,  15, 16, 17, 12, 13, 14, 9, 10, 11};

constexpr const char* colors[6] = {"1 1 1", "0 1 0", "1 0 0", "0 0 1", "1 .5 0", "1 1 0"};

class Eps : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetmodel();
        demomode = 0;
    }

    void TearDown() override {
        std::strcpy(colortable, "WGRBOY");
        demomode = 0;
    }

    // Prints to path as the command does; the file's text.
    static std::string print(const std::string& path) {
        shell.answers = {path};
        printeps();
        return readfile(path);
    }

    std::string printed() { return print(path); }

    int files() const {
        return static_cast<int>(std::distance(fs::directory_iterator(home.file("")), {}));
    }

    scratchhome home;
    std::string path = home.file("cube.eps");
};

std::vector<std::string> linesof(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

constexpr std::size_t headerlines = 8;
constexpr std::size_t squarelines = 7;

std::string colorline(const std::vector<std::string>& lines, std::size_t square) {
    return lines.at(headerlines + squarelines * square + 4);
}

void expectcolors(const std::string& text) {
    const std::vector<std::string> lines = linesof(text);
    ASSERT_EQ(lines.size(), 198U);
    for (std::size_t k = 0; k < squares; k++) {
        EXPECT_EQ(colorline(lines, k), std::string(colors[cubecolors[order[k]]]) + " setrgbcolor")
            << k;
    }
}

TEST_F(Eps, AsksForAnyFileWithoutAName) {
    shell.answers = {};
    printeps();
    EXPECT_EQ(shell.messages, std::vector<std::string>{"file: EPS file name:  []"});
}

TEST_F(Eps, CancellingEndsItSilently) {
    printeps();
    EXPECT_EQ(shell.messages.size(), 1U);
    EXPECT_EQ(files(), 0);
}

TEST_F(Eps, SuccessSaysNothing) {
    printed();
    EXPECT_EQ(shell.messages.size(), 1U);
    EXPECT_EQ(files(), 1);
}

TEST_F(Eps, SolvedCubeIsTheGoldenFile) {
    EXPECT_EQ(printed(), readfile(VEXEL_GOLDEN "/solved.eps"));
}

TEST_F(Eps, HeaderHasItsEightLines) {
    const std::vector<std::string> lines = linesof(printed());
    const std::vector<std::string> wanted = {"%!PS-Adobe-2.0 EPSF-1.2",
                                             "%%Creator: Vexel",
                                             "%%BoundingBox: 0 0 400 400",
                                             "%%EndComments",
                                             "0.01 setlinewidth",
                                             "1 setlinejoin",
                                             "187.000000 221.000000 translate",
                                             "233.000000 233.000000 scale"};
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + 8), wanted);
    EXPECT_EQ(lines.back(), "showpage");
}

TEST_F(Eps, SquareHasItsSevenLines) {
    const std::vector<std::string> lines = linesof(printed());
    const char* const ends[squarelines] = {" moveto",
                                           " lineto",
                                           " lineto",
                                           "1 0 0 setrgbcolor",
                                           " setrgbcolor",
                                           " lineto closepath gsave fill grestore",
                                           "0 0 0 setrgbcolor stroke"};
    for (std::size_t i = headerlines; i + 1 < lines.size(); i++) {
        EXPECT_TRUE(lines[i].ends_with(ends[(i - headerlines) % squarelines])) << lines[i];
        EXPECT_EQ(lines[i].starts_with("newpath "), (i - headerlines) % squarelines == 0);
    }
}

// The corners of square k in model space: the cell around its sticker, in the order of the file.
std::vector<modelpoint> cornersof(std::size_t k) {
    const modelpoint c = stickercenter(order[k]);
    if (k < 9) {
        return {
            {c.x - 1, c.y - 1, 3},
            {c.x + 1, c.y - 1, 3},
            {c.x + 1, c.y + 1, 3},
            {c.x - 1, c.y + 1, 3}
        };
    }
    if (k < 18) {
        return {
            {c.x - 1, 3, c.z - 1},
            {c.x + 1, 3, c.z - 1},
            {c.x + 1, 3, c.z + 1},
            {c.x - 1, 3, c.z + 1}
        };
    }
    return {
        {-3, c.y - 1, c.z - 1},
        {-3, c.y + 1, c.z - 1},
        {-3, c.y + 1, c.z + 1},
        {-3, c.y - 1, c.z + 1}
    };
}

TEST_F(Eps, CornersAreThoseOfTheDoublePrecisionTwin) {
    const std::vector<std::string> lines = linesof(printed());
    constexpr std::size_t cornerlines[4] = {0, 1, 2, 5};
    for (std::size_t k = 0; k < squares; k++) {
        for (std::size_t i = 0; i < 4; i++) {
            std::string line = lines.at(headerlines + squarelines * k + cornerlines[i]);
            line.erase(0, line.starts_with("newpath ") ? 8 : 0);
            double x = 0;
            double y = 0;
            std::istringstream(line) >> x >> y;
            const viewpixel wanted = project(cornersof(k)[i], false, 2);
            EXPECT_NEAR(x, wanted.x - 1, 1.1e-6);
            EXPECT_NEAR(y, 1 - wanted.y, 1.1e-6);
        }
    }
}

TEST_F(Eps, SquaresHaveTheColorsOfTheirPlaces) {
    for (const int code : {0, 6, 13, 9, 20, 3, 16, 10, 23, 5}) {
        applyturn(code);
        expectcolors(printed());
    }
}

TEST_F(Eps, ColorTableIsNotConsulted) {
    const std::string before = printed();
    std::strcpy(colortable, "KSVDPC");
    EXPECT_EQ(printed(), before);
}

// Frames of a demo in the middle of a turn of the whole cube are the first thing that this process
// draws; then it prints. 0 if the picture is the golden one all the same.
int printsamidst(int rear, const std::string& file) {
    initnullgl();
    initdrawface();
    showrear = rear;
    demomode = 1;
    turnmode = 20;
    TURNTIME = 100;
    for (ttime = 0; ttime < 60; ttime++) {
        facelistcount = 0;
        setupeye(viewsize, viewsize);
        PushMatrix();
        setupcube();
        displaycube();
        nongldisplay();
        PopMatrix();
        paintedcount = 0;
    }
    shell.answers = {file};
    printeps();
    return readfile(file) == readfile(VEXEL_GOLDEN "/solved.eps") ? 0 : 1;
}

// In a process of its own each: in this one the matrix may be kept already.
TEST_F(Eps, DemoTurnAndRearViewDoNotShow) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(std::exit(printsamidst(0, path)), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(std::exit(printsamidst(1, path)), testing::ExitedWithCode(0), "");
    testing::GTEST_FLAG(death_test_style) = "fast";
}

TEST_F(Eps, MatrixIsKeptRowByRow) {
    float m[4][4];
    standardview(m);
    printed();
    for (int row = 0; row < 4; row++) {
        for (int column = 0; column < 4; column++) {
            EXPECT_EQ(Mat[4 * row + column], m[column][row]) << row << " " << column;
        }
    }
}

TEST_F(Eps, FilesOrderOfPlacesIsTheDesignedOne) {
    EXPECT_TRUE(std::equal(order, order + squares, face));
}

// What write writes when the picture's own file is path.
std::string written(const std::string& path, const std::function<void()>& write) {
    fp = std::fopen(path.c_str(), "w");
    write();
    std::fclose(fp);
    fp = nullptr;
    return readfile(path);
}

// The numbers are those of the golden file's last square, which is coloured as place 11.
TEST_F(Eps, QuadoutWritesOneSquareAndCountsIt) {
    printed(); // keeps the matrix
    cubecolors[11] = 3;
    facectr = 26;
    constexpr float corners[12] = {-3, 1, 1, -3, 3, 1, -3, 3, 3, -3, 1, 3};
    const std::string square = written(home.file("square"), [&] { quadout(corners); });
    EXPECT_EQ(facectr, 27);
    std::vector<std::string> wanted = linesof(readfile(VEXEL_GOLDEN "/solved.eps"));
    wanted.erase(wanted.begin(), wanted.end() - 8);
    wanted.pop_back();
    wanted[4] = "0 0 1 setrgbcolor";
    EXPECT_EQ(linesof(square), wanted);
    EXPECT_DEATH(quadout(corners), "facectr");
}

TEST_F(Eps, EachPictureBeginsWithTheFirstSquare) {
    facectr = 20;
    expectcolors(printed());
    EXPECT_EQ(facectr, 27);
    EXPECT_EQ(fp, nullptr);
}

TEST_F(Eps, ColorLineIsThatOfItsIndex) {
    constexpr const char* lines[13] = {"1 1 1",   "0 1 0",       "1 0 0",    "0 0 1",   "1 .5 0",
                                       "1 1 0",   ".03 .03 .03", ".9 .9 .9", ".8 0 .8", ".9 .6 0",
                                       "1 .5 .5", "0 1 1",       ".6 .6 .6"};
    for (int i = -1; i <= 13; i++) {
        const bool known = i >= 0 && i < 13;
        EXPECT_EQ(written(home.file("line"), [i] { PScolor(i); }),
                  known ? std::string(lines[i]) + " setrgbcolor\n" : "")
            << i;
    }
}

// Printing asks for the standard view to be kept each time: here the export alone is called.
TEST_F(Eps, OnlyTheFirstMatrixIsKept) {
    const std::string before = printed();
    const std::vector<float> kept(Mat, Mat + 16);
    const float other[4][4] = {
        {1, 0, 0, 0},
        {0, 1, 0, 0},
        {0, 0, 1, 0},
        {0, 0, 0, 1}
    };
    EPSdump(1, other);
    EXPECT_TRUE(std::equal(kept.begin(), kept.end(), Mat));
    shell.answers = {path};
    EPSdump(0, nullptr);
    EXPECT_EQ(readfile(path), before);
}

TEST_F(Eps, ColorsBeyondTheSixHaveTheirPaletteLines) {
    const char* const wanted[7] = {".03 .03 .03", ".9 .9 .9", ".8 0 .8", ".9 .6 0",
                                   "1 .5 .5",     "0 1 1",    ".6 .6 .6"};
    for (int i = 0; i < 7; i++) {
        cubecolors[24] = static_cast<unsigned char>(6 + i);
        EXPECT_EQ(colorline(linesof(printed()), 0), std::string(wanted[i]) + " setrgbcolor");
    }
}

TEST_F(Eps, ColorBeyondThePaletteWritesNoLine) {
    for (const unsigned char index : {13, 255}) {
        cubecolors[24] = index;
        EXPECT_EQ(linesof(printed()).size(), 197U);
    }
}

TEST_F(Eps, FileThatCannotBeOpenedIsTold) {
    const std::string nowhere = home.file("100%s/cube.eps");
    print(nowhere);
    EXPECT_EQ(shell.messages.back(),
              "alert: Couldn't open " + nowhere + " for writing.\nNo such file or directory");
    EXPECT_EQ(files(), 0);
}

TEST_F(Eps, FullDiskIsToldAndLeavesNoHalfFile) {
    const fulldisk disk(3000);
    printed();
    EXPECT_EQ(shell.messages.back(),
              "alert: Couldn't open " + path + " for writing.\nFile too large");
    EXPECT_EQ(files(), 0);
}

TEST_F(Eps, FullDiskLeavesTheOldFile) {
    writefile(path, "the old picture");
    const fulldisk disk(3000);
    EXPECT_EQ(printed(), "the old picture");
    EXPECT_EQ(shell.messages.back(),
              "alert: Couldn't open " + path + " for writing.\nFile too large");
    EXPECT_EQ(files(), 1);
}

TEST_F(Eps, FullDeviceIsTold) {
    if (!makedevice(path, "full")) {
        GTEST_SKIP() << "no devices for this user";
    }
    shell.answers = {path};
    printeps();
    EXPECT_EQ(shell.messages.back(),
              "alert: Couldn't open " + path + " for writing.\nNo space left on device");
}

TEST_F(Eps, WhatWasThereIsKeptUnlessThisRunPrintedIt) {
    writefile(path, "a thesis");
    printed();
    applyturn(0);
    printed();
    EXPECT_EQ(readfile(path + "~"), "a thesis");
    EXPECT_EQ(files(), 2);
}

struct pixel {
    int red, green, blue;
};

// What Ghostscript makes of a file, 400 x 400 points as pixels.
class raster {
  public:
    explicit raster(const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        std::string magic;
        std::string comment;
        int maximum = 0;
        std::getline(stream, magic);
        std::getline(stream, comment);
        stream >> width >> height >> maximum;
        stream.get();
        bytes.resize(3 * width * height);
        stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    pixel at(double x, double y) const {
        const auto row = static_cast<std::size_t>(y);
        const auto column = static_cast<std::size_t>(x);
        const std::size_t first = 3 * (row * width + column);
        const auto byte = [&](std::size_t i) {
            return static_cast<int>(static_cast<unsigned char>(bytes.at(first + i)));
        };
        return {byte(0), byte(1), byte(2)};
    }

    std::size_t width = 0;
    std::size_t height = 0;

  private:
    std::string bytes;
};

void expectpicture(const raster& picture) {
    constexpr pixel wanted[6] = {
        {255, 255, 255},
        {0,   255, 0  },
        {255, 0,   0  },
        {0,   0,   255},
        {255, 128, 0  },
        {255, 255, 0  }
    };
    ASSERT_EQ(picture.width, 400U);
    ASSERT_EQ(picture.height, 400U);
    for (int place = 0; place < squares; place++) { // U, L and F
        const viewpoint at = lookat(place, 2);
        const pixel seen = picture.at(187 + 233 * (at.x - 1), 400 - (221 + 233 * (1 - at.y)));
        const pixel want = wanted[cubecolors[place]];
        EXPECT_TRUE(std::abs(seen.red - want.red) <= 1 && std::abs(seen.green - want.green) <= 1 &&
                    std::abs(seen.blue - want.blue) <= 1)
            << place;
    }
}

TEST_F(Eps, FiftyCubesAreSeenInGhostscript) {
    constexpr int states = 50;
    std::string files;
    std::vector<std::vector<unsigned char>> wanted;
    std::srand(7);
    for (int i = 0; i < states; i++) {
        jumblecube();
        wanted.emplace_back(cubecolors, cubecolors + placecount);
        files += " " + home.file(std::to_string(i) + ".eps");
        print(home.file(std::to_string(i) + ".eps"));
    }
    const std::string command = "gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g400x400"
                                " -sOutputFile=" +
                                home.file("%d.ppm") + files;
    ASSERT_EQ(std::system(command.c_str()), 0);
    for (int i = 0; i < states; i++) {
        SCOPED_TRACE(i);
        std::copy(wanted[static_cast<std::size_t>(i)].begin(),
                  wanted[static_cast<std::size_t>(i)].end(), cubecolors);
        expectpicture(raster(home.file(std::to_string(i + 1) + ".ppm")));
    }
}

TEST_F(Eps, TheToolsGetTheSameBytes) {
    moveface(3);
    movecube(1);
    const std::string tools = home.file("tools.eps");
    std::FILE* file = std::fopen(tools.c_str(), "w");
    ASSERT_NE(nullptr, file);
    writeeps(file);
    std::fclose(file);
    EXPECT_EQ(print(home.file("window.eps")), readfile(tools));
}

TEST_F(Eps, TheSquaresAreThoseOfTheFile) {
    eps_square given[epssquarecount];
    epssquares(given);
    const std::string text = printed();
    size_t from = 0;
    for (int i = 0; i < epssquarecount; i++) {
        EXPECT_EQ(order[i], given[i].place);
        for (const auto& corner : given[i].corner) {
            char point[60];
            std::snprintf(point, sizeof point, "%f %f ", static_cast<double>(corner[0]),
                          static_cast<double>(corner[1]));
            from = text.find(point, from);
            ASSERT_NE(std::string::npos, from) << "square " << i << ": " << point;
            from++;
        }
    }
}

} // namespace
