// SPDX-License-Identifier: MIT
#include "model/modeltest.h"
#include "model/singmaster.h"

namespace {

class Singmaster : public ModelTest {};

struct singmaster_case {
    const char* line;
    const char* converted; // null: not converted
    const char* readout;
};

TEST_F(Singmaster, TheSingmasterFormIsConverted) {
    const singmaster_case cases[] = {
        {"[R U' F2]",     "RuFF",   "4"   },
        {"[]",            "",       "0"   },
        {"[R'2 U2' L]x",  "rUUL",   "4"   },
        {"[r2 3 (F) *]",  "F",      "1"   },
        {"R2]",           "RR",     "2"   }, // the "[" is a character to drop
        {"[B D F L R U]", "BDFLRU", "6"   },
        {"[R U' F2",      nullptr,  "none"},
        {"RU",            nullptr,  "none"},
    };
    for (const singmaster_case& row : cases) {
        SCOPED_TRACE(row.line);
        shell.line = row.line;
        shell.readout = "none";
        const bool good = row.converted != nullptr;
        EXPECT_EQ(good ? 1 : 0, parsesingmaster());
        EXPECT_EQ(good ? row.converted : row.line, shell.line);
        EXPECT_EQ(row.readout, shell.readout);
    }
}

} // namespace
