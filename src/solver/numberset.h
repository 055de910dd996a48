// SPDX-License-Identifier: MIT
//
// numberset: a set of 32-bit numbers that only grows. The enumeration of near2 meets each state
// once by it.
//
// A hash table with linear probing and room for a fixed number of entries; it is good up to some
// three quarters of them, and must never be full.
//
// Callers   near2.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <vector>

class number_set {
  public:
    // Room for 2 to the power of log_size, 1..31.
    explicit number_set(int log_size)
        : shift(32 - log_size), entries(std::size_t{1} << log_size, none) {}

    // false if it is there already. The number is not 2^32 - 1.
    bool insert(std::uint32_t number) {
        assert(number != none && count < entries.size() - 1);
        std::size_t i = number * 0x9E3779B9u >> shift; // 2^32 over the golden ratio
        while (entries[i] != none && entries[i] != number) {
            i = (i + 1) % entries.size();
        }
        const bool fresh = entries[i] == none;
        entries[i] = number;
        count += fresh ? 1 : 0;
        return fresh;
    }

  private:
    static constexpr std::uint32_t none = 0xFFFFFFFF;
    int shift;
    std::size_t count = 0;
    std::vector<std::uint32_t> entries;
};
