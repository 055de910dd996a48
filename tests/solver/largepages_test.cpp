// SPDX-License-Identifier: MIT
#include "solver/largepages.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace {

constexpr int size = 6 << 20;
unsigned char table[size];

// What the kernel says of the mapping in which an address lies; "hg" stands for advised.
std::string flags_of(const void* address) {
    std::ifstream in("/proc/self/smaps");
    const auto wanted = reinterpret_cast<std::uintptr_t>(address);
    bool here = false;
    for (std::string line; std::getline(in, line);) {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        char dash = 0;
        std::istringstream words(line);
        if (words >> std::hex >> begin >> dash >> end && dash == '-') {
            here = begin <= wanted && wanted < end;
        } else if (here && line.starts_with("VmFlags:")) {
            return line + ' ';
        }
    }
    return "";
}

} // namespace

TEST(LargePages, AreAskedForAndNoByteChanges) {
    for (int i = 0; i < size / 2; i++) {
        table[i] = static_cast<unsigned char>(i % 251);
    }
    const void* const middle = table + size / 2;
    ASSERT_EQ(flags_of(middle).find(" hg "), std::string::npos);
    ask_for_large_pages();
    for (int i = 0; i < size / 2; i++) {
        ASSERT_EQ(table[i], i % 251);
    }
    EXPECT_EQ(std::count(table + size / 2, table + size, 0), size - size / 2);
    if (!std::ifstream("/sys/kernel/mm/transparent_hugepage/enabled")) {
        GTEST_SKIP() << "a system without large pages";
    }
    EXPECT_NE(flags_of(middle).find(" hg "), std::string::npos);
}
