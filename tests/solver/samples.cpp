// SPDX-License-Identifier: MIT
#include "solver/samples.h"

#include <cctype>
#include <fstream>

namespace {

// The 18 twists, and those of the subgroup.
constexpr int all[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
constexpr int sub[] = {1, 4, 6, 7, 8, 10, 13, 15, 16, 17};

template <typename twists> plain::cube scrambled(const twists& list, std::mt19937& random) {
    plain::cube c = plain::solvedcube();
    for (int i = 0; i < 200; i++) {
        c = plain::turned(c, list[random() % std::size(list)]);
    }
    return c;
}

} // namespace

plain::cube randomcube(std::mt19937& random) {
    return scrambled(all, random);
}

plain::cube randomsubcube(std::mt19937& random) {
    return scrambled(sub, random);
}

plain::cube afterletters(const plain::cube& start, const std::string& macro) {
    const std::string faces = "FLUBRD"; // in the order of the twists
    plain::cube c = start;
    for (const char letter : macro) {
        const auto face = faces.find(static_cast<char>(std::toupper(letter)));
        c = plain::turned(c, static_cast<int>(3 * face) + (std::islower(letter) ? 2 : 0));
    }
    return c;
}

std::vector<golden_row> goldenrows(const std::string& path) {
    std::vector<golden_row> rows;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        if (!line.starts_with('#')) {
            rows.push_back({line.substr(0, line.find('\t')), line.substr(line.find('\t') + 1)});
        }
    }
    return rows;
}
