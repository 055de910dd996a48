// SPDX-License-Identifier: MIT
#include "solver/numberset.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

TEST(NumberSet, TellsWhatIsFresh) {
    number_set numbers(4);
    EXPECT_TRUE(numbers.insert(0));
    EXPECT_FALSE(numbers.insert(0));
    EXPECT_TRUE(numbers.insert(0xFFFFFFFE));
    EXPECT_FALSE(numbers.insert(0xFFFFFFFE));
    EXPECT_FALSE(numbers.insert(0));
}

TEST(NumberSet, AgreesWithASlowSetUntilItIsThreeQuartersFull) {
    std::mt19937 random(3);
    number_set numbers(10);
    std::set<std::uint32_t> slow;
    while (slow.size() < 768) {
        const std::uint32_t number = random() % 2000 * 0x10001; // many come again
        EXPECT_EQ(numbers.insert(number), slow.insert(number).second);
    }
}

TEST(NumberSetDeathTest, IsNeverFull) {
    number_set numbers(3);
    for (std::uint32_t number = 0; number < 7; number++) {
        numbers.insert(number);
    }
    EXPECT_DEATH(numbers.insert(7), "entries.size");
}
