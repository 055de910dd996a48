// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "nullgl.h"
#include "render/colors.h"
#include "render/glwrap.h"
#include "render/rendertest.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

class Colors : public rendertest {};

struct rgb {
    float r, g, b;
};

void expectcurrent(rgb wanted) {
    EXPECT_EQ(currentcolor[0], wanted.r);
    EXPECT_EQ(currentcolor[1], wanted.g);
    EXPECT_EQ(currentcolor[2], wanted.b);
}

struct letter_color {
    char letter;
    rgb value;
};

constexpr letter_color letters[] = {
    {'B', {0, 0, 1}         },
    {'C', {0, 1, 1}         },
    {'D', {0.9F, 0.6F, 0}   },
    {'G', {0, 1, 0}         },
    {'K', {.03F, .03F, .03F}},
    {'O', {1, 0.5F, 0}      },
    {'P', {1, 0.5F, 0.5F}   },
    {'R', {1, 0, 0}         },
    {'S', {0.9F, 0.9F, 0.9F}},
    {'V', {0.8F, 0, 0.8F}   },
    {'W', {1, 1, 1}         },
    {'X', {0.6F, 0.6F, 0.6F}},
    {'Y', {1, 1, 0}         },
};

TEST_F(Colors, DefaultTableIsWhiteGreenRedBlueOrangeYellow) {
    EXPECT_STREQ(colortable, "WGRBOY");
    setfacecolor(22);
    expectcurrent({1, 0, 0});
    setfacecolor(4);
    expectcurrent({1, 1, 1});
}

TEST_F(Colors, KeyMinusOneIsBlack) {
    Color3f(1, 1, 1);
    setfacecolor(-1);
    expectcurrent({0, 0, 0});
}

TEST_F(Colors, EachOfTheThirteenLettersHasItsColor) {
    for (const letter_color& row : letters) {
        SCOPED_TRACE(row.letter);
        colortable[3] = row.letter;
        Color3f(0.25F, 0.25F, 0.25F);
        setfacecolor(30);
        expectcurrent(row.value);
    }
}

TEST_F(Colors, TableKsvdpcColorsTheSixFaces) {
    std::strcpy(colortable, "KSVDPC");
    constexpr rgb wanted[6] = {
        {0.03F, 0.03F, 0.03F},
        {0.9F,  0.9F,  0.9F },
        {0.8F,  0,     0.8F },
        {0.9F,  0.6F,  0    },
        {1,     0.5F,  0.5F },
        {0,     1,     1    }
    };
    for (int place = 0; place < placecount; place++) {
        SCOPED_TRACE(place);
        setfacecolor(place);
        expectcurrent(wanted[place / 9]);
    }
}

TEST_F(Colors, ColorIsThatOfTheStickerAtThePlace) {
    moveface(2);
    setfacecolor(6); // the U row next to F came from L
    expectcurrent({0, 1, 0});
}

TEST_F(Colors, AnyOtherCharacterLeavesTheColorBefore) {
    const std::string valid = "WGRBYOKSVDPCX";
    for (int c = 0; c < 256; c++) {
        const char letter = static_cast<char>(c);
        if (c != 0 && valid.find(letter) != std::string::npos) {
            continue;
        }
        SCOPED_TRACE(c);
        colortable[0] = letter;
        Color3f(0.125F, 0.25F, 0.5F);
        setfacecolor(0);
        expectcurrent({0.125F, 0.25F, 0.5F});
        EXPECT_EQ(findletter(letter), nullptr);
    }
}

TEST_F(Colors, ValidColorsKeepTheirOrder) {
    EXPECT_STREQ(validcolors, "WGRBYOKSVDPCX");
    EXPECT_EQ(sizeof validcolors, 14U);
    EXPECT_EQ(sizeof colortable, 7U);
    for (int i = 0; i < validcolorcount; i++) {
        EXPECT_EQ(findletter(validcolors[i]), &letter_table[i]);
    }
}

TEST_F(Colors, PlaceOutsideTheCubeIsAnAssertion) {
    EXPECT_DEATH(setfacecolor(54), "key");
    EXPECT_DEATH(setfacecolor(-2), "key");
}

TEST_F(Colors, ColorBeyondTheSixIsAnAssertion) {
    cubecolors[0] = 6; // the terminating NUL of the table
    EXPECT_DEATH(setfacecolor(0), "cubecolors");
}

} // namespace
