// SPDX-License-Identifier: MIT
//
// sieve: a set of numbers that may answer "perhaps" for "no", but never "no" for "yes".
//
// It keeps three bits of one 64-bit word for each member, they and the word chosen by the number
// (Bloom's filter, kept within a word so that a question costs one cache miss). With 16 bits of
// room a member, about one stranger in 100 passes. A search may use one to cut branches off: what
// is cut off is certainly no member, and a stranger that passes costs time and no answer. It must
// not be used where a "yes" is believed: an end of the search is a comparison of full numbers.
//
// State     none here; the words belong to the caller and must be zeros at first.
// Callers   near2.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

struct sieve {
    std::uint64_t* words;
    int log_words; // how many there are: 2 to the power of this, 1..24
};

// Several sieves, the words of which follow each other.

template <std::size_t count> constexpr int words_of(const int (&log_words)[count]) {
    int words = 0;
    for (const int log : log_words) {
        words += 1 << log;
    }
    return words;
}

template <std::size_t count>
constexpr std::array<sieve, count> sieves_in(std::uint64_t* words, const int (&log_words)[count]) {
    std::array<sieve, count> sieves{};
    for (std::size_t i = 0; i < count; i++) {
        sieves[i] = {words, log_words[i]};
        words += 1 << log_words[i];
    }
    return sieves;
}

// The member's bits, and in which word they are.
struct sieve_bits {
    std::uint64_t bits;
    std::uint64_t* word;
};

inline sieve_bits sieve_find(const sieve& s, std::uint64_t number) {
    const std::uint64_t hash = number * 0x9E3779B97F4A7C15u; // 2^64 over the golden ratio
    const std::uint64_t bits = std::uint64_t{1} << (hash >> 22 & 63) |
                               std::uint64_t{1} << (hash >> 28 & 63) |
                               std::uint64_t{1} << (hash >> 34 & 63);
    return {bits, s.words + (hash >> (64 - s.log_words))};
}

inline void sieve_add(const sieve& s, std::uint64_t number) {
    const sieve_bits member = sieve_find(s, number);
    *member.word |= member.bits;
}

// Adds many members faster than one by one: their words are far apart in memory, so each is fetched
// while others are added. All are in when it ends.
class sieve_filler {
  public:
    explicit sieve_filler(const sieve& filled) : s(filled) { waiting.fill({0, &nothing}); }

    sieve_filler(const sieve_filler&) = delete;
    sieve_filler& operator=(const sieve_filler&) = delete;

    ~sieve_filler() {
        for (const sieve_bits& member : waiting) {
            *member.word |= member.bits;
        }
    }

    void add(std::uint64_t number) {
        sieve_bits& member = waiting[next++ % waiting.size()];
        *member.word |= member.bits;
        member = sieve_find(s, number);
        __builtin_prefetch(member.word, 1);
    }

  private:
    sieve s;
    unsigned next = 0;
    std::uint64_t nothing = 0;
    std::array<sieve_bits, 32> waiting;
};

// true for every member, and for few others
inline bool sieve_has(const sieve& s, std::uint64_t number) {
    const sieve_bits member = sieve_find(s, number);
    return (*member.word & member.bits) == member.bits;
}
