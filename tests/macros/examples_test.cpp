// SPDX-License-Identifier: MIT
//
// The files of examples/: every macro does what its name claims.
#include "macros/claims.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "model/notation.h"
#include "nullshell.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace {

class Examples : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        initlibrary();
    }

    static void load(const std::string& name) {
        ASSERT_EQ(1, loadmacrofile((VEXEL_EXAMPLES "/" + name).c_str()));
        ASSERT_GT(maccount, 0);
        for (int i = 0; i < maccount; i++) {
            SCOPED_TRACE(macnames[i]);
            const int length = static_cast<int>(macstrs[i].size());
            EXPECT_EQ(1, sanitycheckmacro(macstrs[i].c_str(), length));
            EXPECT_EQ(i, findmacro(macnames[i]));
        }
    }
};

// How each pattern looks, U L F R B D from left to right.
constexpr struct {
    const char* name;
    const char* net;
} patterns[] = {
    {"Checkerboard",   "UDUDUDUDU LRLRLRLRL FBFBFBFBF RLRLRLRLR BFBFBFBFB DUDUDUDUD"},
    {"Six spots",      "FFFFUFFFF DDDDLDDDD RRRRFRRRR UUUURUUUU LLLLBLLLL BBBBDBBBB"},
    {"Four spots",     "UUUUUUUUU RRRRLRRRR BBBBFBBBB LLLLRLLLL FFFFBFFFF DDDDDDDDD"},
    {"Turned centres", "UUUUFUUUU LLLLDLLLL FFFFRFFFF RRRRURRRR BBBBLBBBB DDDDBDDDD"},
    {"Superflip",      "UBULURUFU LULBLFLDL FUFLFRFDF RURFRBRDR BUBRBLBDB DFDLDRDBD"},
    {"Cube in a cube", "FFFFUUFUU DDDLLDLLD RFFRFFRRR RRURRUUUU LLLLBBLBB BBBDDBDDB"},
};

} // namespace

TEST_F(Examples, CornersDoWhatTheirNamesClaim) {
    load("corners.macros");
    for (int i = 0; i < maccount; i++) {
        EXPECT_EQ(claimed(macnames[i]), madeby(macstrs[i])) << macnames[i];
    }
}

TEST_F(Examples, EdgesDoWhatTheirNamesClaim) {
    load("edges.macros");
    for (int i = 0; i < maccount; i++) {
        EXPECT_EQ(claimed(macnames[i]), madeby(macstrs[i])) << macnames[i];
    }
}

TEST_F(Examples, PatternsLookAsTheyAreNamed) {
    load("patterns.macros");
    ASSERT_EQ(std::ssize(patterns), maccount);
    for (int i = 0; i < maccount; i++) {
        EXPECT_EQ(patterns[i].name, macnames[i]);
        EXPECT_EQ(patterns[i].net, net(madeby(macstrs[i]))) << macnames[i];
    }
}

TEST_F(Examples, EachFileMarksSomeForThePanel) {
    for (const char* name : {"corners.macros", "edges.macros", "patterns.macros"}) {
        initlibrary();
        load(name);
        EXPECT_GT(std::count(showmac, showmac + maccount, 1), 0) << name;
    }
}
