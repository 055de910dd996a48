// SPDX-License-Identifier: MIT
#include "tools/fields.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Fields, ARowHasTabsBetweenAndNoneWithin) {
    EXPECT_EQ("\n", tablerow({}));
    EXPECT_EQ("a\t1\t\n", tablerow({
                              {"x", textfield,   "a"},
                              {"y", numberfield, "1"},
                              {"z", nofield,     "" }
    }));
    EXPECT_EQ("\ta\\tb\\nc\\\\d\n", tablerow({
                                        {"x", textfield, ""          },
                                        {"y", textfield, "a\tb\nc\\d"}
    }));
    EXPECT_EQ("x\ty\n", titlerow({
                            {"x", textfield, ""},
                            {"y", textfield, ""}
    }));
}

TEST(Fields, AnObjectIsJson) {
    EXPECT_EQ("{}\n", jsonobject({}));
    EXPECT_EQ("{\"x\": \"a\", \"y\": 1.5, \"z\": null}\n",
              jsonobject({
                  {"x", textfield,   "a"  },
                  {"y", numberfield, "1.5"},
                  {"z", nofield,     "why"}
    }));
}

struct json_row {
    std::string value;
    std::string json;
};

TEST(Fields, AnyBytesAreJson) {
    const std::string low("\0\x1f\x7f", 3);
    const std::string lost = "\\ufffd";
    const json_row rows[] = {
        {"\"\\/",            "\\\"\\\\/"              },
        {"\n\t\r",           "\\n\\t\\u000d"          },
        {low,                "\\u0000\\u001f\\u007f"  },
        {"R\xe2\x80\x99",    "R\xe2\x80\x99"          },
        {"\xff\xe2\x80",     lost + lost + lost       },
        {"\xc0\x80",         lost + lost              },
        {"\xed\xa0\x80",     lost + lost + lost       },
        {"\xf4\x90\x80\x80", lost + lost + lost + lost},
        {"\xe0\x80\x80",     lost + lost + lost       },
    };
    for (const auto& row : rows) {
        EXPECT_EQ("{\"x\": \"" + row.json + "\"}\n", jsonobject({
                                                         {"x", textfield, row.value}
        }));
    }
}

} // namespace
