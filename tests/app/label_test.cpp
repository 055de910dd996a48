// SPDX-License-Identifier: MIT
#include "app/label.h"

#include <gtest/gtest.h>
#include <string>

TEST(Label, ANameLosesEverySignThatActs) {
    EXPECT_EQ("", plainlabel(""));
    EXPECT_EQ("a/b \\_%s", plainlabel("a/b \\_%s"));
    EXPECT_EQ("@@&&", plainlabel("@&"));
    EXPECT_EQ(std::string(2000, '&'), plainlabel(std::string(1000, '&')));
}

TEST(Label, InABoxOnlyTheSymbolSignActs) {
    EXPECT_EQ("", boxlabel(""));
    EXPECT_EQ("@@-> a&b %s", boxlabel("@-> a&b %s"));
}
