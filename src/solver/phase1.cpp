// SPDX-License-Identifier: MIT
#include "solver/phase1.h"

#include "solver/perms.h"

#include <algorithm>

// ORDER FLUBRD, positions in ORDER CUBIE
constexpr face_cycle_row face_cycles[twist_face_count] = {
    {{5, 4, 0, 3}, true,  {9, 4, 8, 0},   true }, // F
    {{6, 5, 3, 2}, true,  {11, 7, 9, 3},  false}, // L
    {{1, 2, 3, 0}, false, {1, 2, 3, 0},   false}, // U
    {{7, 6, 2, 1}, true,  {10, 6, 11, 2}, true }, // B
    {{4, 7, 1, 0}, true,  {8, 5, 10, 1},  false}, // R
    {{5, 6, 7, 4}, false, {7, 6, 5, 4},   false}, // D
};

namespace {

constexpr int corners = 8;
constexpr int edges = 12;

// Every corner lies on three faces, every edge on two.
constexpr bool each_position_is_on_its_faces() {
    int corner_faces[corners] = {};
    int edge_faces[edges] = {};
    for (const face_cycle_row& row : face_cycles) {
        for (int i = 0; i < 4; i++) {
            corner_faces[row.corners[i]]++;
            edge_faces[row.edges[i]]++;
        }
    }
    return std::all_of(corner_faces, corner_faces + corners, [](int n) { return n == 3; }) &&
           std::all_of(edge_faces, edge_faces + edges, [](int n) { return n == 2; });
}

static_assert(each_position_is_on_its_faces());

void cycle(int* p, const int (&positions)[4]) {
    four_cycle(p, positions[0], positions[1], positions[2], positions[3]);
}

// First where they go, then how they lie there: what a row adds is added at the places of arrival.
int twist_on_corner(int face, int index) {
    const face_cycle_row& row = face_cycles[face];
    int twists[corners];
    a_corner_unpack(index, twists);
    cycle(twists, row.corners);
    if (row.twists) {
        adjust_corner(twists, row.corners[0], row.corners[1], row.corners[2], row.corners[3]);
    }
    return a_corner_pack(twists);
}

int twist_on_eflip(int face, int index) {
    const face_cycle_row& row = face_cycles[face];
    int flips[edges];
    a_eflip_unpack(index, flips);
    cycle(flips, row.edges);
    if (row.flips) {
        adjust_eflip(flips, row.edges[0], row.edges[1], row.edges[2], row.edges[3]);
    }
    return a_eflip_pack(flips);
}

int twist_on_eloc(int face, int index) {
    int flags[edges];
    a_eloc_unpack(index, flags);
    cycle(flags, face_cycles[face].edges);
    return a_eloc_pack(flags);
}

// The functions of the interface by face, so that one loop fills a table.
using twist_function = int (*)(int);

// ORDER FLUBRD
constexpr twist_function on_corner[] = {a_twist_f_on_corner, a_twist_l_on_corner,
                                        a_twist_u_on_corner, a_twist_b_on_corner,
                                        a_twist_r_on_corner, a_twist_d_on_corner};
constexpr twist_function on_eflip[] = {a_twist_f_on_eflip, a_twist_l_on_eflip, a_twist_u_on_eflip,
                                       a_twist_b_on_eflip, a_twist_r_on_eflip, a_twist_d_on_eflip};
constexpr twist_function on_eloc[] = {a_twist_f_on_eloc, a_twist_l_on_eloc, a_twist_u_on_eloc,
                                      a_twist_b_on_eloc, a_twist_r_on_eloc, a_twist_d_on_eloc};

// Only the quarter turns are worked out on unpacked cubes; the other twelve rows are looked up from
// them, which is quicker.
void fill_twist_table(const twist_function* twists, int* table, int** ptrs, int size) {
    point_rows(table, ptrs, a_twist_count, size);
    for (int x = 0; x < size; x++) {
        for (int face = 0; face < twist_face_count; face++) {
            ptrs[3 * face][x] = twists[face](x);
        }
    }
    complete_twist_rows(ptrs, size);
}

} // namespace

constinit int eloc_conv[a_eloc_size] = {};
constinit int eloc_unconv[edge_mask_count] = {};

constinit int twist_on_corner_table[a_twist_count * a_corner_size] = {};
constinit int twist_on_eflip_table[a_twist_count * a_eflip_size] = {};
constinit int twist_on_eloc_table[a_twist_count * a_eloc_size] = {};
constinit int* twist_on_corner_ptrs[a_twist_count] = {};
constinit int* twist_on_eflip_ptrs[a_twist_count] = {};
constinit int* twist_on_eloc_ptrs[a_twist_count] = {};

void a_corner_unpack(int index, int* twists) {
    int sum = 0;
    for (int i = 0; i < corners - 1; i++) {
        twists[i] = index % 3;
        index /= 3;
        sum += twists[i];
    }
    twists[corners - 1] = 2 * sum % 3; // what makes the sum a multiple of three
}

int a_corner_pack(const int* twists) {
    int value = 0;
    for (int i = corners - 2; i >= 0; i--) {
        value = 3 * value + twists[i];
    }
    return value;
}

void a_eflip_unpack(int index, int* flips) {
    int sum = 0;
    for (int i = 0; i < edges - 1; i++) {
        flips[i] = index % 2;
        index /= 2;
        sum += flips[i];
    }
    flips[edges - 1] = sum % 2; // what makes the sum even
}

int a_eflip_pack(const int* flips) {
    int value = 0;
    for (int i = edges - 2; i >= 0; i--) {
        value = 2 * value + flips[i];
    }
    return value;
}

void a_eloc_unpack(int index, int* flags) {
    for (int i = 0; i < edges; i++) {
        flags[i] = eloc_conv[index] >> i & 1;
    }
}

int a_eloc_pack(const int* flags) {
    int mask = 0;
    for (int i = edges - 1; i >= 0; i--) {
        mask = 2 * mask + flags[i];
    }
    return eloc_unconv[mask];
}

// In lexicographic order, so that the last set is that of the last four positions: the middle
// slice, and a_eloc_goal.
void number_foursets(int positions, int size, int* conv, int* unconv, const char* too_many) {
    std::fill(conv, conv + size, 0);
    std::fill(unconv, unconv + (1 << positions), 0);
    int index = 0;
    for (int a = 0; a < positions; a++) {
        for (int b = a + 1; b < positions; b++) {
            for (int c = b + 1; c < positions; c++) {
                for (int d = c + 1; d < positions; d++) {
                    if (index >= size) {
                        exit_w_error_message(too_many);
                    }
                    conv[index] = 1 << a | 1 << b | 1 << c | 1 << d;
                    unconv[conv[index]] = index;
                    index++;
                }
            }
        }
    }
}

void a_eloc_conv_init(int* conv, int* unconv) {
    number_foursets(edges, a_eloc_size, conv, unconv, "a_eloc_conv_init : too many eloc's");
}

void adjust_corner(int* twists, int a, int b, int c, int d) {
    twists[a] = (twists[a] + 1) % 3;
    twists[b] = (twists[b] + 2) % 3;
    twists[c] = (twists[c] + 1) % 3;
    twists[d] = (twists[d] + 2) % 3;
}

void adjust_eflip(int* flips, int a, int b, int c, int d) {
    for (const int position : {a, b, c, d}) {
        flips[position] = 1 - flips[position];
    }
}

int a_twist_f_on_corner(int index) {
    return twist_on_corner(0, index);
}

int a_twist_l_on_corner(int index) {
    return twist_on_corner(1, index);
}

int a_twist_u_on_corner(int index) {
    return twist_on_corner(2, index);
}

int a_twist_b_on_corner(int index) {
    return twist_on_corner(3, index);
}

int a_twist_r_on_corner(int index) {
    return twist_on_corner(4, index);
}

int a_twist_d_on_corner(int index) {
    return twist_on_corner(5, index);
}

int a_twist_f_on_eflip(int index) {
    return twist_on_eflip(0, index);
}

int a_twist_l_on_eflip(int index) {
    return twist_on_eflip(1, index);
}

int a_twist_u_on_eflip(int index) {
    return twist_on_eflip(2, index);
}

int a_twist_b_on_eflip(int index) {
    return twist_on_eflip(3, index);
}

int a_twist_r_on_eflip(int index) {
    return twist_on_eflip(4, index);
}

int a_twist_d_on_eflip(int index) {
    return twist_on_eflip(5, index);
}

int a_twist_f_on_eloc(int index) {
    return twist_on_eloc(0, index);
}

int a_twist_l_on_eloc(int index) {
    return twist_on_eloc(1, index);
}

int a_twist_u_on_eloc(int index) {
    return twist_on_eloc(2, index);
}

int a_twist_b_on_eloc(int index) {
    return twist_on_eloc(3, index);
}

int a_twist_r_on_eloc(int index) {
    return twist_on_eloc(4, index);
}

int a_twist_d_on_eloc(int index) {
    return twist_on_eloc(5, index);
}

void a_twist_on_corner_init(int* table, int** ptrs) {
    fill_twist_table(on_corner, table, ptrs, a_corner_size);
}

void a_twist_on_eflip_init(int* table, int** ptrs) {
    fill_twist_table(on_eflip, table, ptrs, a_eflip_size);
}

void a_twist_on_eloc_init(int* table, int** ptrs) {
    a_eloc_conv_init(eloc_conv, eloc_unconv);
    fill_twist_table(on_eloc, table, ptrs, a_eloc_size);
}
