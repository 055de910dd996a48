// SPDX-License-Identifier: MIT
//
// ownrandom: two streams of random numbers that do not move each other.
#include "app/ownrandom.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

namespace {

std::vector<int> draw(int count) {
    std::vector<int> numbers;
    while (count-- > 0) {
        numbers.push_back(std::rand());
    }
    return numbers;
}

int owndraw() {
    const ownrandom numbers;
    return std::rand();
}

} // namespace

// One test, since the streams cannot be put together again.
TEST(OwnRandom, WhatTheLibrariesDrawOrSeedDoesNotMoveTheProgram) {
    const std::vector<int> unseeded = draw(20); // the first numbers of this process
    std::srand(1);                              // as if nothing was drawn yet
    EXPECT_EQ(unseeded[0], owndraw());
    EXPECT_EQ(unseeded[1], std::rand()); // still one stream
    std::srand(1);
    partrandom();
    draw(7);
    std::srand(99);
    for (int number : unseeded) {
        EXPECT_EQ(number, owndraw());
        draw(3);
    }
    std::srand(99);
    const int first = std::rand();
    std::srand(99);
    for (int i = 0; i < 5; i++) {
        owndraw();
    }
    EXPECT_EQ(first, std::rand());
}
