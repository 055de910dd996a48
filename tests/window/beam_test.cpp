// SPDX-License-Identifier: MIT
//
// A screen that lets each swap of buffers wait for its beam does not slow the turns down.
#include "window/windowtest.h"

#include <fstream>
#include <sstream>

namespace {

struct beam_row {
    const char* extension; // the one the screen offers
    const char* requests;  // what the program asks for, once
};

constexpr beam_row beams[] = {
    {"EXT",  "EXT 0\n" },
    {"MESA", "MESA 0\n"},
    {"SGI",  "SGI 0\n" },
    {"NONE", ""        },
};

class Beam : public testing::Test {
  protected:
    program_settings settings(const char* extension) const {
        program_settings with;
        with.preload = VEXEL_BEAM;
        with.environment = {
            {"VEXEL_BEAM",     extension},
            {"VEXEL_BEAM_LOG", log()    }
        };
        return with;
    }

    std::string log() const { return folder.path() + "/requests"; }

    std::string requests() const {
        std::ostringstream all;
        all << std::ifstream(log()).rdbuf();
        return all.str();
    }

    // Seconds for two quarter turns at the standard speed.
    static double twoturns(const program& vexel) {
        initcubies();
        applyturn(6);
        applyturn(6);
        const double start = now();
        vexel.playmacro("RR");
        const verdict seen = vexel.waitforcube(cubecolors, 60);
        EXPECT_TRUE(seen.good) << seen.why;
        return now() - start;
    }

    scratchfolder folder;
    xserver screen;
};

} // namespace

TEST_F(Beam, IsNotWaitedForByAnyOfTheExtensions) {
    for (const beam_row& row : beams) {
        SCOPED_TRACE(row.extension);
        std::ofstream(log(), std::ios::trunc).close();
        program vexel(screen, settings(row.extension));
        EXPECT_TRUE(waitfor(5, [&] { return requests() == row.requests; })) << requests();
    }
}

// 100 frames a turn, two swaps each, at 60 a second: 3.3 seconds a turn for whoever waits.
TEST_F(Beam, DoesNotSlowTheTurnsDown) {
    const program vexel(screen, settings("EXT"));
    EXPECT_LT(twoturns(vexel), 6);
}

TEST_F(Beam, SlowsDownWhoeverWaits) {
    const program vexel(screen, settings("NONE"));
    EXPECT_GT(twoturns(vexel), 6); // the library does what it says
}
