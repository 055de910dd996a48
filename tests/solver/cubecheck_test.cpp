// SPDX-License-Identifier: MIT
#include "solver/cubecheck.h"
#include "solver/samples.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace {

const std::string solved = "UF UR UB UL DF DR DB DL FR FL BR BL UFR URB UBL ULF DRF DFL DLB DBR";

constexpr char flip[] = "Flip any edge cubie to make a valid configuration.";
constexpr char clockwise[] = "Twist any corner cubie clockwise to make a valid configuration.";
constexpr char counter[] = "Twist any corner cubie counterclockwise to make a valid configuration.";
constexpr char swap[] =
    "Swap any two edge cubies or any two corner cubies to make a valid configuration.";

// The solved cube's listing with names replaced, as in "UF=FU UFR=RUF".
std::string listing(const std::string& changes) {
    std::istringstream names(solved);
    std::string text;
    for (std::string name; names >> name; text += ' ') {
        const std::size_t at = (' ' + changes).find(' ' + name + '=');
        if (at == std::string::npos) {
            text += name;
            continue;
        }
        const std::size_t from = at + name.size() + 1;
        text += changes.substr(from, changes.find(' ', from) - from);
    }
    return text;
}

struct bad_row {
    const char* changes;
    const char* message;
};

const bad_row bad_cubes[] = {
    {"UF=FU",           flip                           },
    {"UFR=FRU",         counter                        },
    {"UFR=RUF",         clockwise                      },
    {"UFR=RUF URB=BUR", clockwise                      },
    {"UFR=URB URB=UFR", swap                           },
    {"UF=UR UR=UF",     swap                           },
    {"UF=UR",           "Duplicate edge cubie."        },
    {"UF=RU UB=BU",     "Duplicate edge cubie."        },
    {"UFR=BUR",         "Duplicate corner cubie."      },
    {"UF=UR UFR=URB",   "Duplicate edge cubie."        },
    {"UF=XY",           "Improper edge cubie:  XY."    },
    {"UF=uf",           "Improper edge cubie:  uf."    },
    {"UR=%s",           "Improper edge cubie:  %s."    },
    {"UR=%n%n%n",       "Improper edge cubie:  %n%."   },
    {"UF=UFR",          "Improper edge cubie:  UFR."   },
    {"UF=UF\x01",       "Improper edge cubie:  UF\x01."},
    {"DBR=DBRX",        "Improper corner cubie: DBRX." },
    {"DBR=DBRXYZ",      "Improper corner cubie: DBRX." },
    {"UFR=RFU",         "Improper corner cubie: RFU."  },
    {"DBR=",            "Improper corner cubie: ."     },
};

} // namespace

TEST(Cubecheck, TheSolvedCubePasses) {
    EXPECT_EQ(sanitycheckcube(solved.c_str()), 1);
}

TEST(Cubecheck, ABadCubeIsRejectedWithItsMessage) {
    for (const bad_row& row : bad_cubes) {
        SCOPED_TRACE(row.changes);
        EXPECT_EQ(sanitycheckcube(listing(row.changes).c_str()), 0);
        EXPECT_STREQ(geterrorstring(), row.message);
    }
}

TEST(Cubecheck, ATextThatIsNoListingIsRejected) {
    EXPECT_EQ(sanitycheckcube(""), 0);
    EXPECT_STREQ(geterrorstring(), "Improper edge cubie:  .");
    EXPECT_EQ(sanitycheckcube(std::string(1 << 20, 'U').c_str()), 0);
    EXPECT_STREQ(geterrorstring(), "Improper edge cubie:  UUU.");
    EXPECT_EQ(sanitycheckcube(std::string(1 << 20, ' ').c_str()), 0);
    EXPECT_STREQ(geterrorstring(), "Improper edge cubie:  .");
}

TEST(Cubecheck, ATwistSumOfFourAsksForAClockwiseTwist) {
    const std::string four = listing("UFR=RUF URB=RBU UBL=BLU");
    EXPECT_EQ(sanitycheckcube(four.c_str()), 0);
    EXPECT_STREQ(geterrorstring(), clockwise);
}

TEST(Cubecheck, AGoodCubeLeavesTheLastMessage) {
    EXPECT_EQ(sanitycheckcube(listing("UF=FU").c_str()), 0);
    EXPECT_EQ(sanitycheckcube(solved.c_str()), 1);
    EXPECT_STREQ(geterrorstring(), flip);
}

TEST(Cubecheck, BlanksOfAnyKindSeparateNames) {
    std::string text = solved;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text[i] == ' ') {
            text[i] = "\t\n\v\f\r"[i % 5];
        }
    }
    EXPECT_EQ(sanitycheckcube(("  " + text + "\n").c_str()), 1);
}

// Flips, twists and parity each may be wrong: of twelve kinds of cubes one can be solved.
TEST(Cubecheck, OfTheTwelveOrbitsOnePasses) {
    std::mt19937 random(4601);
    for (int i = 0; i < 1200; i++) {
        const int flips = i % 2, twists = i / 2 % 3, swaps = i / 6 % 2;
        plain::cube c = randomcube(random);
        c.flip[random() % 12] ^= flips;
        int& twist = c.twist[random() % 8];
        twist = (twist + twists) % 3;
        if (swaps) {
            std::swap(c.edge[0], c.edge[1 + random() % 11]);
        }
        int sum = 0;
        for (const int t : c.twist) {
            sum += t;
        }
        const char* const expected = swaps    ? swap
                                     : twists ? (sum == 1 ? counter : clockwise)
                                     : flips  ? flip
                                              : nullptr;
        EXPECT_EQ(sanitycheckcube(plain::listing(c).c_str()), expected == nullptr);
        if (expected != nullptr) {
            EXPECT_STREQ(geterrorstring(), expected);
        }
    }
}

TEST(Cubecheck, TheCheckCompletesTheRecord) {
    cubie_names names;
    cube_struc cube;
    read_cubies(listing("UFR=URB URB=UFR UF=UR UR=UF").c_str(), names);
    ASSERT_EQ(parse_cubies(names, cube), 20);
    EXPECT_EQ(check_cube(cube), 0);
    EXPECT_EQ(cube.corner_parity, 1);
    for (int i = 0; i < edge_count; i++) {
        EXPECT_EQ(cube.edges_flipped[i], (cube.edges[i] + 12) % 24);
    }
    for (int i = 8; i < 24; i++) {
        EXPECT_EQ(cube.corners[i], (cube.corners[i - 8] + 8) % 24);
    }
}
