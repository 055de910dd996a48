// SPDX-License-Identifier: MIT
#include "tools/drawing.h"

#include "solver/cubecheck.h"

#include <numeric>
#include <utility>

// Numbers below the remainder of 2^64 by count are drawn again, so that what is left falls into
// equal parts.
std::uint64_t drawnumber(lot& from, std::uint64_t count) {
    const std::uint64_t uneven = (0 - count) % count;
    std::uint64_t number = from();
    while (number < uneven) {
        number = from();
    }
    return number % count;
}

namespace {

// From the end each place gets one of those that are left (R. A. Fisher, F. Yates 1938; in place
// R. Durstenfeld 1964). Whether the permutation is odd.
template <int count> bool drawplaces(lot& from, int (&cubies)[count]) {
    bool odd = false;
    std::iota(cubies, cubies + count, 0);
    for (int last = count - 1; last > 0; last--) {
        const auto other = static_cast<int>(drawnumber(from, static_cast<std::uint64_t>(last) + 1));
        std::swap(cubies[other], cubies[last]);
        odd = odd != (other != last);
    }
    return odd;
}

// Adds count times a number below ways to each, the last so that the sum is a multiple of ways.
template <int count> void drawsides(lot& from, int (&cubies)[count], int ways) {
    int sum = 0;
    for (int i = 0; i < count - 1; i++) {
        const auto side = static_cast<int>(drawnumber(from, static_cast<std::uint64_t>(ways)));
        cubies[i] += count * side;
        sum += side;
    }
    cubies[count - 1] += count * ((ways - sum % ways) % ways);
}

} // namespace

// Of all ways to put a cube together one in twelve can be reached. Swapping two edges where the
// parities differ makes as many cubes of each that can, and the last flip and twist are what the
// others leave.
std::string drawcubies(lot& from) {
    int edges[edge_count];
    int corners[corner_count];
    const bool oddedges = drawplaces(from, edges);
    const bool oddcorners = drawplaces(from, corners);
    if (oddedges != oddcorners) {
        std::swap(edges[0], edges[1]);
    }
    drawsides(from, edges, 2);
    drawsides(from, corners, 3);
    std::string names;
    for (const int edge : edges) {
        names += std::string(edge_cubie_string[edge]) + " ";
    }
    for (const int corner : corners) {
        names += std::string(corner_cubie_string[corner]) + " ";
    }
    names.pop_back();
    return names;
}
