// SPDX-License-Identifier: MIT
//
// What the chance events know of the ways out of the program: an end that none of them explains is
// a finding.
#include "window/deeds.h"

#include <gtest/gtest.h>

TEST(Deeds, TheWaysOutAreKnown) {
    const struct {
        const char* line;
        wayout way;
    } rows[] = {
        {"menu Quit",            wayout::asked        },
        {"end",                  wayout::asked        },
        {"press q 2",            wayout::asked        },
        {"key q 3",              wayout::asked        },
        {"press q 0",            wayout::none         },
        {"press q 4",            wayout::none         },
        {"hold q 300",           wayout::none         },
        {"press F10 0",          wayout::opensmenu    },
        {"title 3",              wayout::opensmenu    },
        {"press Return 0",       wayout::choosesinmenu},
        {"key KP_Enter 1",       wayout::choosesinmenu},
        {"press space 0",        wayout::choosesinmenu},
        {"click 40 90 0 1",      wayout::choosesinmenu},
        {"box 500 500 0 1",      wayout::choosesinmenu},
        {"menu Print EPS File",  wayout::choosesinmenu},
        {"menu Load Macro File", wayout::choosesinmenu},
        {"press Down 0",         wayout::none         },
        {"macro RUF",            wayout::choosesinmenu},
        {"text quit",            wayout::none         },
        {"minimise",             wayout::none         },
        {"shut",                 wayout::none         },
    };

    for (const auto& row : rows) {
        EXPECT_EQ(row.way, wayoutof(row.line)) << row.line;
    }
}
