// SPDX-License-Identifier: MIT
//
// Whatever changes the cube asks for a redraw: the view shows no cube that is gone.
#include "model/cube.h"
#include "model/parser.h"
#include "model/savedcube.h"
#include "model/turns.h"
#include "nullshell.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

void parse(const char* macro, int mode) {
    parsing = mode;
    parsestring(macro, static_cast<int>(std::strlen(macro)));
    parsing = 0;
}

const struct {
    const char* name;
    void (*change)();
} changes[] = {
    {"turn of a face",       [] { applyturn(0); }           },
    {"turn of a slice",      [] { applyturn(14); }          },
    {"turn of the cube",     [] { applyturn(20); }          },
    {"reset",                [] { initcubies(); }           },
    {"scramble",             [] { jumblecube(); }           },
    {"macro",                [] { parse("RU", 0); }         },
    {"group",                [] { parse("100000(RU)", 0); } },
    {"reversed macro",       [] { revparsestring("RU", 2); }},
    {"x, applied",           [] { parse("x", 0); }          },
    {"x, stepped over",      [] { parse("x", 1); }          },
    {"s, queued",            [] { parse("s(U)", 1); }       },
    {"order",                [] { calcorder("RU"); }        },
    {"cube brought back",    [] { savecube(); }             },
    {"scratch brought back", [] { restorecubex(); }         },
    {"turn that landed",
     [] {
         sparsestring("U", 1);
         doparsestring();
     }                                                      },
};

} // namespace

TEST(Redraw, IsAskedForByWhateverChangesTheCube) {
    resetshell();
    initsavedcube();
    savecube();
    for (const auto& row : changes) {
        SCOPED_TRACE(row.name);
        initturns();
        initparser();
        initcubies();
        moveface(3);
        needsredraw = 0;
        row.change();
        EXPECT_EQ(needsredraw, 1);
    }
}

TEST(Redraw, IsNotAskedForByLookingAndSaving) {
    initsavedcube();
    initcubies();
    needsredraw = 0;
    savecube();
    savecubex();
    EXPECT_EQ(solved(), 1);
    EXPECT_EQ(needsredraw, 0);
}
