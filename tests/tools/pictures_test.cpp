// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "tools/pictures.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using square = std::array<double, 8>;

std::vector<square> svgsquares(const std::string& svg) {
    std::vector<square> squares;
    const std::regex points("points=\"([^\"]+)\"");
    for (std::sregex_iterator i(svg.begin(), svg.end(), points), end; i != end; ++i) {
        square s{};
        EXPECT_EQ(8, std::sscanf((*i)[1].str().c_str(), "%lf,%lf %lf,%lf %lf,%lf %lf,%lf", &s[0],
                                 &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7]));
        squares.push_back(s);
    }
    return squares;
}

// The corners of the EPS file on a page whose y grows downwards, in points.
std::vector<square> epssquaresof(const std::string& eps) {
    std::vector<square> squares;
    const std::regex point("([-0-9.]+) ([-0-9.]+) (?:moveto|lineto)");
    std::sregex_iterator i(eps.begin(), eps.end(), point);
    for (const std::sregex_iterator end; i != end;) {
        square s{};
        for (std::size_t corner = 0; corner < 4; corner++, ++i) {
            s[2 * corner] = 187 + 233 * std::stod((*i)[1]);
            s[2 * corner + 1] = 400 - 221 - 233 * std::stod((*i)[2]);
        }
        squares.push_back(s);
    }
    return squares;
}

std::vector<std::string> fills(const std::string& svg) {
    std::vector<std::string> found;
    const std::regex fill("fill=\"(#[0-9a-f]{6})\"");
    for (std::sregex_iterator i(svg.begin(), svg.end(), fill), end; i != end; ++i) {
        found.push_back((*i)[1]);
    }
    return found;
}

class Pictures : public testing::Test {
  protected:
    void SetUp() override { initcubies(); }
};

TEST_F(Pictures, TheEpsIsTheWindowsFile) {
    std::ifstream file(VEXEL_GOLDEN "/solved.eps");
    std::stringstream golden;
    golden << file.rdbuf();
    EXPECT_EQ(golden.str(), epstext());
}

TEST_F(Pictures, TheSvgHasTheSquaresOfTheEps) {
    const std::vector<square> expected = epssquaresof(epstext());
    const std::vector<square> squares = svgsquares(svgtext("WGRBOY"));
    ASSERT_EQ(27U, expected.size());
    ASSERT_EQ(27U, squares.size());
    for (std::size_t i = 0; i < 27; i++) {
        for (std::size_t k = 0; k < 8; k++) {
            EXPECT_NEAR(expected[i][k], squares[i][k], 0.006) << "square " << i;
        }
    }
}

TEST_F(Pictures, TheColoursAreTheLetters) {
    moveface(0); // the upper row of L goes to B, that of F to L, that of R to F
    constexpr int places[] = {24, 21, 18, 25, 22, 19, 26, 23, 20, 0,  3, 6,  1, 4,
                              7,  2,  5,  8,  15, 16, 17, 12, 13, 14, 9, 10, 11};
    const std::string colors[] = {"#ffffff", "#00ff00", "#ff0000", "#0000ff", "#ff8000", "#ffff00"};
    const std::vector<std::string> usual = fills(svgtext("WGRBOY"));
    const std::vector<std::string> changed = fills(svgtext("YGRBOW"));
    ASSERT_EQ(27U, usual.size());
    for (std::size_t i = 0; i < 27; i++) {
        const int c = cubecolors[places[i]];
        EXPECT_EQ(colors[c], usual[i]) << "square " << i;
        EXPECT_EQ(colors[c == 0 ? 5 : c], changed[i]) << "square " << i;
    }
}

TEST_F(Pictures, SixDifferentLettersAreColours) {
    EXPECT_TRUE(goodcolors("WGRBOY"));
    EXPECT_TRUE(goodcolors("KSVDPC"));
    for (const char* bad : {"", "WGRBO", "WGRBOYK", "WGRBOW", "WGRBOy", "WGRBOZ"}) {
        EXPECT_FALSE(goodcolors(bad)) << bad;
    }
}

} // namespace
