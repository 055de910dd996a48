// SPDX-License-Identifier: MIT
#include "solver/largepages.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int size = 6 << 20;
unsigned char table[size];

} // namespace

TEST(LargePages, AskingChangesNoByte) {
    for (int i = 0; i < size / 2; i++)
        table[i] = static_cast<unsigned char>(i % 251);
    ask_for_large_pages();
    for (int i = 0; i < size / 2; i++)
        ASSERT_EQ(table[i], i % 251);
    EXPECT_EQ(std::count(table + size / 2, table + size, 0), size - size / 2);
}
