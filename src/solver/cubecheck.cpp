// SPDX-License-Identifier: MIT
#include "solver/cubecheck.h"

#include "solver/perms.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <iterator>

// ORDER CUBIE, one row an orientation
// clang-format off
constexpr const char* const edge_cubie_string[] = {
    "UF", "UR", "UB", "UL", "DF", "DR", "DB", "DL", "FR", "FL", "BR", "BL", // as named
    "FU", "RU", "BU", "LU", "FD", "RD", "BD", "LD", "RF", "LF", "RB", "LB", // flipped
};
constexpr const char* const corner_cubie_string[] = {
    "UFR", "URB", "UBL", "ULF", "DRF", "DFL", "DLB", "DBR", // as named
    "FRU", "RBU", "BLU", "LFU", "RFD", "FLD", "LBD", "BRD", // twisted once
    "RUF", "BUR", "LUB", "FUL", "FDR", "LDF", "BDL", "RDB", // twisted twice
};

// clang-format on

namespace {

// That the other readings of a cubie are 12, or 8 and 16, names further on is reckoned with below.
constexpr bool flips_are_reversals() {
    for (int i = 0; i < edge_count; i++) {
        if (edge_cubie_string[i][0] != edge_cubie_string[i + edge_count][1] ||
            edge_cubie_string[i][1] != edge_cubie_string[i + edge_count][0]) {
            return false;
        }
    }
    return true;
}

constexpr bool twists_are_rotations() {
    for (int i = 0; i < 2 * corner_count; i++) {
        for (int k = 0; k < 3; k++) {
            if (corner_cubie_string[i + corner_count][k] != corner_cubie_string[i][(k + 1) % 3]) {
                return false;
            }
        }
    }
    return true;
}

static_assert(flips_are_reversals() && twists_are_rotations());

// State

char message[100]; // the composed message; the longest is 71 characters

// Cuts the next word, at most size - 1 characters of it, into name. Returns where reading goes on.
const char* next_name(const char* text, char* name, std::size_t size) {
    constexpr char blanks[] = " \t\n\v\f\r";
    text += std::strspn(text, blanks);
    std::size_t length = 0;
    while (length < size - 1 && *text != '\0' && std::strchr(blanks, *text) == nullptr) {
        name[length++] = *text++;
    }
    name[length] = '\0';
    return text;
}

// -1 for a name that is none, also for one that next_name has cut: no good name is as long.
int find_name(const char* name, const char* const* list, int count) {
    for (int i = 0; i < count; i++) {
        if (std::strcmp(name, list[i]) == 0) {
            return i;
        }
    }
    return -1;
}

void compose(const char* format, const char* insertion) {
    std::snprintf(message, sizeof message, format, insertion);
    errorstring = message;
}

// The orientation is in the quotient of a name's index, the cubie in the rest. Every turn keeps the
// sum, of edges modulo 2 and of corners modulo 3: what differs cannot be reached.
int orientation_sum(const int* cubies, int count) {
    int sum = 0;
    for (int i = 0; i < count; i++) {
        sum += cubies[i] / count;
    }
    return sum;
}

int permutation_parity(const int* cubies, int count) {
    int perm[edge_count];
    for (int i = 0; i < count; i++) {
        perm[i] = cubies[i] % count;
    }
    return parity_of_perm_n(count, perm);
}

// Each sticker of each cubie must be there once: that also finds a name given twice differently.
bool is_duplicated(const cube_struc& cube, bool edges) {
    if (!edges) {
        return check_perm_n(3 * corner_count, cube.corners) != 0;
    }
    int readings[2 * edge_count];
    std::memcpy(readings, cube.edges, sizeof cube.edges);
    std::memcpy(readings + edge_count, cube.edges_flipped, sizeof cube.edges_flipped);
    return check_perm_n(2 * edge_count, readings) != 0;
}

} // namespace

constinit const char* errorstring = nullptr;

const char* geterrorstring() {
    return errorstring;
}

void read_cubies(const char* text, cubie_names& names) {
    for (auto& name : names.edge) {
        text = next_name(text, name, std::size(name));
    }
    for (auto& name : names.corner) {
        text = next_name(text, name, std::size(name));
    }
}

int parse_cubies(const cubie_names& names, cube_struc& cube) {
    for (int i = 0; i < edge_count; i++) {
        cube.edges[i] = find_name(names.edge[i], edge_cubie_string, 2 * edge_count);
        if (cube.edges[i] < 0) {
            return i;
        }
    }
    for (int i = 0; i < corner_count; i++) {
        cube.corners[i] = find_name(names.corner[i], corner_cubie_string, 3 * corner_count);
        if (cube.corners[i] < 0) {
            return edge_count + i;
        }
    }
    return edge_count + corner_count;
}

// A twin ends the check: what the sums and the parities of a cube with one would say is no cure.
// The other three faults are independent, and the message of the last one stands: to mend one of
// them never makes another.
int check_cube(cube_struc& cube) {
    // 1. The other readings of every cubie.
    for (int i = 0; i < edge_count; i++) {
        cube.edges_flipped[i] = (cube.edges[i] + edge_count) % (2 * edge_count);
    }
    for (int i = corner_count; i < 3 * corner_count; i++) {
        cube.corners[i] = (cube.corners[i - corner_count] + corner_count) % (3 * corner_count);
    }
    // 2, 3. Each cubie once.
    if (is_duplicated(cube, true)) {
        errorstring = "Duplicate edge cubie.";
        return 1;
    }
    if (is_duplicated(cube, false)) {
        errorstring = "Duplicate corner cubie.";
        return 1;
    }
    int invalid = 0;
    // 4. Turns keep the flips even.
    if (orientation_sum(cube.edges, edge_count) % 2 != 0) {
        errorstring = "Flip any edge cubie to make a valid configuration.";
        invalid = 1;
    }
    // 5. And the twists a multiple of three.
    // Deliberate: NOT-BUGS.md, "A twist sum of four asks for a clockwise twist"
    const int twists = orientation_sum(cube.corners, corner_count);
    if (twists % 3 != 0) {
        compose("Twist any corner cubie %sclockwise to make a valid configuration.",
                twists == 1 ? "counter" : "");
        invalid = 1;
    }
    // 6. And both permutations equally odd.
    cube.corner_parity = permutation_parity(cube.corners, corner_count);
    if (permutation_parity(cube.edges, edge_count) != cube.corner_parity) {
        errorstring =
            "Swap any two edge cubies or any two corner cubies to make a valid configuration.";
        invalid = 1;
    }
    return invalid;
}

int sanitycheckcube(const char* text) {
    cubie_names names;
    read_cubies(text, names);
    cube_struc cube;
    const int parsed = parse_cubies(names, cube);
    if (parsed < edge_count) {
        compose("Improper edge cubie:  %s.", names.edge[parsed]);
        return 0;
    }
    if (parsed < edge_count + corner_count) {
        compose("Improper corner cubie: %s.", names.corner[parsed - edge_count]);
        return 0;
    }
    return !check_cube(cube);
}
