// SPDX-License-Identifier: MIT
#include "solver/plaintables.h"

#include <algorithm>
#include <cstddef>

namespace plain {

const char* const texts[18] = {"F", "FF", "f", "L", "LL", "l", "U", "UU", "u",
                               "B", "BB", "b", "R", "RR", "r", "D", "DD", "d"};
const twistlist stage1 = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
const twistlist stage2 = {1, 4, 6, 7, 8, 10, 13, 15, 16, 17};

const int lengths[18] = {1, 2, 1, 1, 2, 1, 1, 2, 1, 1, 2, 1, 1, 2, 1, 1, 2, 1};

const int follow[6][11] = {
    {0, 2, 0, 2, 2,  0, 2, 2, 0, 2, 2}, // F
    {0, 3, 3, 0, 3,  3, 9, 3, 3, 0, 3}, // L
    {0, 4, 4, 4, 0,  4, 4, 0, 4, 4, 0}, // U
    {0, 5, 8, 5, 5,  0, 5, 5, 0, 5, 5}, // B
    {0, 6, 6, 0, 6,  6, 0, 6, 6, 0, 6}, // R
    {0, 7, 7, 7, 10, 7, 7, 0, 7, 7, 0}, // D
};

table<int> move_corner, move_eflip, move_eloc, move_midperm;
table<std::uint16_t> move_cornerperm, move_slice, move_edgeperm;

std::vector<int> slice_to_half, slice_to_mid;
std::vector<std::uint16_t> halves_to_edgeperm;

std::vector<std::uint8_t> corner_eflip, corner_eloc, eflip_eloc;
std::vector<std::uint8_t> cornerperm_alone, mid_corner, mid_edge;

namespace {

// Move tables

// The rows of the generators from cubes, the others from those: U2 and U' are U twice and thrice.
template <typename entry>
table<entry> moves(int size, const twistlist& generators, int (*get)(const cube&),
                   cube (*set)(int)) {
    table<entry> out;
    for (const int g : generators) {
        out[g].resize(size);
    }
    for (int x = 0; x < size; x++) {
        const cube c = set(x);
        for (const int g : generators) {
            out[g][x] = static_cast<entry>(get(turned(c, g)));
        }
    }
    for (const int g : generators) {
        for (int t = g + 1; g % 3 == 0 && t < g + 3; t++) {
            out[t].resize(size);
            for (int x = 0; x < size; x++) {
                out[t][x] = out[g][out[t - 1][x]];
            }
        }
    }
    return out;
}

const twistlist stage1generators = {0, 3, 6, 9, 12, 15};
const twistlist stage2generators = {1, 4, 6, 10, 13, 15};

// The junction

// Edges 0 2 4 6 of one cube, 1 3 5 7 of the other.
int joined(const cube& even, const cube& odd) {
    int p[8];
    for (int i = 0; i < 8; i++) {
        if (even.edge[i] >= 0 && odd.edge[i] >= 0) {
            return impossible;
        }
        p[i] = std::max(even.edge[i], odd.edge[i]);
    }
    return rankof(p, 8);
}

void buildjunction() {
    slice_to_half.assign(slice_size, impossible);
    slice_to_mid.assign(slice_size, impossible);
    for (int x = 0; x < slice_size; x++) {
        const cube c = set_slice(x);
        const int mask = of12.masks[x % eloc_size];
        if (mask >> 8 == 0) {
            slice_to_half[x] = get_four(c, 8, 1, of8);
        }
        if (mask == 0xF00) {
            slice_to_mid[x] = get_midperm(c);
        }
    }
    std::vector<cube> evens, odds;
    for (int h = 0; h < half_size; h++) {
        evens.push_back(set_four(h, 0, 2, of8));
        odds.push_back(set_four(h, 1, 2, of8));
    }
    halves_to_edgeperm.clear();
    for (const cube& even : evens) {
        for (const cube& odd : odds) {
            halves_to_edgeperm.push_back(static_cast<std::uint16_t>(joined(even, odd)));
        }
    }
}

// Distances

// Enters distance d for all that a twist reaches from what has its distance already. Returns how
// many there are.
template <typename rowentry, typename columnentry>
int enterlayer(std::vector<std::uint8_t>& out, const table<rowentry>& row,
               const table<columnentry>& column, const twistlist& twists, int d) {
    const int columns = static_cast<int>(column[1].size());
    int entered = 0;
    for (int x = 0; x < static_cast<int>(out.size()); x++) {
        if (out[x] < d - 2 || out[x] >= d) {
            continue;
        }
        for (const int t : twists) {
            const int y = columns * row[t][x / columns] + column[t][x % columns];
            if (out[x] + lengths[t] == d && out[y] > d) {
                out[y] = static_cast<std::uint8_t>(d);
                entered++;
            }
        }
    }
    return entered;
}

// Layer by layer from the goal; a half turn reaches over two layers.
template <typename rowentry, typename columnentry>
std::vector<std::uint8_t> distances(const table<rowentry>& row, const table<columnentry>& column,
                                    const twistlist& twists, int goal) {
    std::vector<std::uint8_t> out(row[1].size() * column[1].size(), 181);
    out[goal] = 0;
    int d = 1;
    while (enterlayer(out, row, column, twists, d) != 0) {
        d++;
    }
    return out;
}

} // namespace

void buildmovetables() {
    move_corner = moves<int>(corner_size, stage1generators, get_corner, set_corner);
    move_eflip = moves<int>(eflip_size, stage1generators, get_eflip, set_eflip);
    move_eloc = moves<int>(eloc_size, stage1generators, get_eloc, set_slice);
    move_cornerperm =
        moves<std::uint16_t>(cornerperm_size, stage1generators, get_cornerperm, set_cornerperm);
    move_edgeperm =
        moves<std::uint16_t>(edgeperm_size, stage2generators, get_edgeperm, set_edgeperm);
    move_midperm = moves<int>(midperm_size, stage2generators, get_midperm, set_midperm);
    move_slice = moves<std::uint16_t>(slice_size, stage1generators, get_slice, set_slice);
    buildjunction();
}

void builddistances() {
    corner_eflip = distances(move_corner, move_eflip, stage1, 0);
    corner_eloc = distances(move_corner, move_eloc, stage1, eloc_size - 1);
    eflip_eloc = distances(move_eflip, move_eloc, stage1, eloc_size - 1);
    table<int> nothing;
    nothing.fill({0});
    cornerperm_alone = distances(nothing, move_cornerperm, stage2, 0);
    mid_corner = distances(move_midperm, move_cornerperm, stage2, 0);
    mid_edge = distances(move_midperm, move_edgeperm, stage2, 0);
}

} // namespace plain
