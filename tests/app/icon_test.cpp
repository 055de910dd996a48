// SPDX-License-Identifier: MIT
#include "app/icon.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t white = 0xffffffff;
constexpr std::uint32_t green = 0xff00ff00;
constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t black = 0xff000000;

struct pixel_row {
    int x, y; // in the drawing of 64 x 64
    std::uint32_t argb;
};

// The middle sticker of each face, other stickers, and nothing.
constexpr pixel_row pixels[] = {
    {32, 17, white},
    {32, 8,  white},
    {14, 17, white},
    {19, 38, green},
    {10, 42, green},
    {45, 38, red  },
    {53, 42, red  },
    {0,  0,  0    },
    {63, 63, 0    },
    {3,  40, 0    },
};

} // namespace

TEST(Icon, IsTheDrawingInAnySize) {
    for (const int scale : {1, 2, 3}) {
        const std::vector<std::uint32_t> icon = makeicon(64 * scale);
        ASSERT_EQ(icon.size(), 64U * 64 * scale * scale);
        for (const pixel_row& row : pixels) {
            SCOPED_TRACE(testing::Message() << scale << ": " << row.x << " " << row.y);
            EXPECT_EQ(icon[scale * (64 * scale * row.y + row.x)], row.argb);
        }
    }
}

TEST(Icon, LinesAreBlack) {
    const std::vector<std::uint32_t> icon = makeicon(192);
    EXPECT_EQ(icon[3 * (192 * 40 + 32)], black); // between the left and the right face
    EXPECT_EQ(icon[3 * (192 * 30 + 6)], black);  // the outer one
}

TEST(Icon, SmallOnesBlendAndStayInside) {
    const std::vector<std::uint32_t> icon = makeicon(16);
    EXPECT_EQ(icon[0], 0U);
    EXPECT_EQ(icon[8 * 16 + 8] >> 24, 255U);
    EXPECT_EQ(makeicon(1).size(), 1U);
}
