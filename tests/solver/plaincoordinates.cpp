// SPDX-License-Identifier: MIT
#include "solver/plaincoordinates.h"

#include <cstddef>

namespace plain {

int rankof(const int* p, int n) {
    int rank = 0;
    for (int i = 0; i < n; i++) {
        rank *= n - i;
        for (int j = i + 1; j < n; j++) {
            rank += p[j] < p[i];
        }
    }
    return rank;
}

void unrank(int rank, int* p, int n) {
    for (int i = n - 1; i >= 0; i--) {
        p[i] = rank % (n - i);
        rank /= n - i;
        for (int j = i + 1; j < n; j++) {
            p[j] += p[j] >= p[i];
        }
    }
}

foursets::foursets(int n) : positions(n), indices(std::size_t{1} << n) {
    for (int a = 0; a < n; a++) {
        for (int b = a + 1; b < n; b++) {
            for (int c = b + 1; c < n; c++) {
                for (int d = c + 1; d < n; d++) {
                    const int mask = 1 << a | 1 << b | 1 << c | 1 << d;
                    indices[mask] = static_cast<int>(masks.size());
                    masks.push_back(mask);
                }
            }
        }
    }
}

const foursets of12(12), of8(8);

int get_four(const cube& c, int first, int step, const foursets& sets) {
    int mask = 0;
    int order[4];
    int found = 0;
    for (int i = 0; i < sets.positions; i++) {
        const int offset = c.edge[i] - first;
        if (offset < 0 || offset % step != 0 || offset / step > 3) {
            continue;
        }
        mask |= 1 << i;
        order[found++] = offset / step;
    }
    if (found < 4) {
        return -1;
    }
    return sets.indices[mask] + static_cast<int>(sets.masks.size()) * rankof(order, 4);
}

cube set_four(int x, int first, int step, const foursets& sets) {
    const int size = static_cast<int>(sets.masks.size());
    cube c = solvedcube();
    int order[4];
    unrank(x / size, order, 4);
    for (int i = 0, found = 0; i < 12; i++) {
        c.edge[i] = sets.masks[x % size] >> i & 1 ? first + step * order[found++] : -1;
    }
    return c;
}

// Of stage 1

int get_corner(const cube& c) {
    int x = 0;
    for (int i = 6; i >= 0; i--) {
        x = 3 * x + c.twist[i];
    }
    return x;
}

cube set_corner(int x) {
    cube c = solvedcube();
    int sum = 0;
    for (int i = 0; i < 7; i++, x /= 3) {
        sum += c.twist[i] = x % 3;
    }
    c.twist[7] = (21 - sum) % 3;
    return c;
}

int get_eflip(const cube& c) {
    int x = 0;
    for (int i = 10; i >= 0; i--) {
        x = 2 * x + c.flip[i];
    }
    return x;
}

cube set_eflip(int x) {
    cube c = solvedcube();
    int sum = 0;
    for (int i = 0; i < 11; i++, x /= 2) {
        sum += c.flip[i] = x % 2;
    }
    c.flip[11] = sum % 2;
    return c;
}

int get_slice(const cube& c) {
    return get_four(c, 8, 1, of12);
}

cube set_slice(int x) {
    return set_four(x, 8, 1, of12);
}

int get_eloc(const cube& c) {
    return get_slice(c) % eloc_size;
}

// Of stage 2

int get_cornerperm(const cube& c) {
    return rankof(c.corner, 8);
}

cube set_cornerperm(int x) {
    cube c = solvedcube();
    unrank(x, c.corner, 8);
    return c;
}

int get_edgeperm(const cube& c) {
    return rankof(c.edge, 8);
}

cube set_edgeperm(int x) {
    cube c = solvedcube();
    unrank(x, c.edge, 8);
    return c;
}

int get_midperm(const cube& c) {
    int p[4];
    for (int i = 0; i < 4; i++) {
        p[i] = c.edge[8 + i] - 8;
    }
    return rankof(p, 4);
}

cube set_midperm(int x) {
    cube c = solvedcube();
    unrank(x, c.edge + 8, 4);
    for (int i = 8; i < 12; i++) {
        c.edge[i] += 8;
    }
    return c;
}

} // namespace plain
