// SPDX-License-Identifier: MIT
#include "solver/sieve.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

constexpr int log_size = 10;
constexpr int members = 2000; // 32 bits of room each

struct Sieve : testing::Test {
    std::vector<std::uint64_t> words = std::vector<std::uint64_t>(1 << log_size);
    sieve sifted{words.data(), log_size};
    std::mt19937_64 random{8};
};

} // namespace

TEST_F(Sieve, AnEmptyOneHasNothing) {
    for (std::uint64_t number = 0; number < 10000; number++) {
        ASSERT_FALSE(sieve_has(sifted, number));
    }
}

TEST_F(Sieve, HasEveryMemberAndFewOthers) {
    std::vector<std::uint64_t> numbers;
    for (int i = 0; i < members; i++) {
        numbers.push_back(random() >> 20);
        sieve_add(sifted, numbers.back());
    }
    for (const std::uint64_t number : numbers) {
        ASSERT_TRUE(sieve_has(sifted, number));
    }
    int passed = 0;
    for (int i = 0; i < 100000; i++) {
        passed += sieve_has(sifted, random() >> 20);
    }
    EXPECT_LT(passed, 1500); // one in 150 is expected
    EXPECT_GT(passed, 0);
}

TEST_F(Sieve, AFillerAddsWhatSingleStepsAdd) {
    std::vector<std::uint64_t> other(words.size());
    {
        sieve_filler filler({other.data(), log_size});
        for (int i = 0; i < members; i++) {
            const std::uint64_t number = random();
            sieve_add(sifted, number);
            filler.add(number);
        }
    }
    EXPECT_EQ(other, words);
}
