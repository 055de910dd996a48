// SPDX-License-Identifier: MIT
#include "solver/phase2.h"

#include "solver/perms.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int corners = 8;
constexpr int edges = 12;
constexpr int layer_edges = 8; // positions 0..7, of the U and D layers
constexpr int slice_edges = 4; // positions 8..11
constexpr int half_edges = 4;

// What the six generators of stage 2 do to b_edgeperm and b_midperm, ORDER FLUBRD. A half turn
// exchanges two edges of each, a quarter turn cycles four of the first: a is then the list's start.
struct generator_row {
    int b_twist;
    int edge_a, edge_b; // positions exchanged
    int mid_a, mid_b;   // slice positions exchanged, 0..3 = FR FL BR BL
    bool quarter;       // cycles face_cycles[face].edges instead
};

constexpr generator_row generators[twist_face_count] = {
    {0, 0, 4, 0, 1, false}, // F2
    {1, 3, 7, 1, 3, false}, // L2
    {2, 0, 0, 0, 0, true }, // U
    {5, 2, 6, 2, 3, false}, // B2
    {6, 1, 5, 0, 2, false}, // R2
    {7, 0, 0, 0, 0, true }, // D
};

// Every edge of the layers lies on one side face, every slice edge on two.
constexpr bool half_turns_reach_each_edge() {
    int layer[layer_edges] = {};
    int slice[slice_edges] = {};
    for (const generator_row& row : generators) {
        if (row.quarter) {
            continue;
        }
        layer[row.edge_a]++;
        layer[row.edge_b]++;
        slice[row.mid_a]++;
        slice[row.mid_b]++;
    }
    return std::all_of(layer, layer + layer_edges, [](int n) { return n == 1; }) &&
           std::all_of(slice, slice + slice_edges, [](int n) { return n == 2; });
}

static_assert(half_turns_reach_each_edge());

void face_cycle(int* p, const int (&positions)[4]) {
    four_cycle(p, positions[0], positions[1], positions[2], positions[3]);
}

// Labels 1..4 in order of position, counted from 0.
int rank_of_labels(const int* labels, int positions) {
    int order[half_edges];
    int found = 0;
    for (int i = 0; i < positions; i++) {
        if (labels[i] != 0) {
            order[found++] = labels[i] - 1;
        }
    }
    return perm_n_pack(half_edges, order);
}

// Turns the flags at the marked positions into the labels that rank stands for.
void label_marks(int* flags, int positions, int rank) {
    int order[half_edges];
    perm_n_unpack(half_edges, rank, order);
    int found = 0;
    for (int i = 0; i < positions; i++) {
        if (flags[i] != 0) {
            flags[i] = order[found++] + 1;
        }
    }
}

bool any_marked(const int* labels, int from, int to) {
    return std::any_of(labels + from, labels + to, [](int label) { return label != 0; });
}

// Quarter turns of the six faces on a coordinate that has positions and no orientation.
template <typename twist_function>
void fill_quarter_rows(std::uint16_t** ptrs, int size, twist_function twist) {
    for (int x = 0; x < size; x++) {
        for (int face = 0; face < twist_face_count; face++) {
            ptrs[3 * face][x] = static_cast<std::uint16_t>(twist(face, x));
        }
    }
}

int quarter_twist_on_sliceedge(int face, int index) {
    int labels[edges];
    sliceedge_unpack(index, labels);
    face_cycle(labels, face_cycles[face].edges);
    return sliceedge_pack(labels);
}

int generator_on_edgeperm(int face, const int* from) {
    const generator_row& row = generators[face];
    int perm[layer_edges];
    std::copy(from, from + layer_edges, perm);
    if (row.quarter) {
        face_cycle(perm, face_cycles[face].edges);
    } else {
        two_cycle(perm, row.edge_a, row.edge_b);
    }
    return perm_n_pack(layer_edges, perm);
}

int generator_on_midperm(int face, const int* from) {
    const generator_row& row = generators[face];
    int perm[slice_edges];
    std::copy(from, from + slice_edges, perm);
    two_cycle(perm, row.mid_a, row.mid_b); // a quarter turn's row exchanges 0 with itself
    return perm_n_pack(slice_edges, perm);
}

// The ten rows of stage 2 from the six generators; ORDER STAGE2. Permutations are gone through in
// the order of their ranks, so that none has to be unpacked.
template <int things, typename entry, typename twist_function>
void fill_stage2_rows(entry** ptrs, int size, twist_function twist) {
    int perm[things]; // of rank x
    std::iota(perm, perm + things, 0);
    for (int x = 0; x < size; x++, std::next_permutation(perm, perm + things)) {
        for (int face = 0; face < twist_face_count; face++) {
            ptrs[generators[face].b_twist][x] = static_cast<entry>(twist(face, perm));
        }
    }
    for (const generator_row& row : generators) {
        if (!row.quarter) {
            continue;
        }
        entry** rows = ptrs + row.b_twist;
        for (int x = 0; x < size; x++) {
            rows[1][x] = rows[0][rows[0][x]];
            rows[2][x] = rows[0][rows[1][x]];
        }
    }
}

} // namespace

constinit int halfedgeloc_conv[halfedgeloc_size] = {};
constinit int halfedgeloc_unconv[half_mask_count] = {};

constinit std::uint16_t twist_on_cornerperm_table[a_twist_count * cornerperm_size] = {};
constinit std::uint16_t twist_on_edgeperm_table[b_twist_count * b_edgeperm_size] = {};
constinit int twist_on_midperm_table[b_twist_count * b_midperm_size] = {};
constinit std::uint16_t twist_on_sliceedge_table[a_twist_count * sliceedge_size] = {};
constinit std::uint16_t* a_twist_on_cornerperm_ptrs[a_twist_count] = {};
constinit std::uint16_t* b_twist_on_cornerperm_ptrs[b_twist_count] = {};
constinit std::uint16_t* twist_on_edgeperm_ptrs[b_twist_count] = {};
constinit int* twist_on_midperm_ptrs[b_twist_count] = {};
constinit std::uint16_t* twist_on_sliceedge_ptrs[a_twist_count] = {};

constinit int sliceedge_to_halfedgeperm[sliceedge_size] = {};
constinit int sliceedge_to_midperm[sliceedge_size] = {};
constinit std::uint16_t half_to_edgeperm_table[halfedgeperm_size * halfedgeperm_size] = {};
constinit std::uint16_t* half_to_edgeperm_ptrs[halfedgeperm_size] = {};

void sliceedge_unpack(int index, int* labels) {
    a_eloc_unpack(index % a_eloc_size, labels);
    label_marks(labels, edges, index / a_eloc_size);
}

int sliceedge_pack(const int* labels) {
    int flags[edges];
    for (int i = 0; i < edges; i++) {
        flags[i] = labels[i] != 0;
    }
    return a_eloc_pack(flags) + a_eloc_size * rank_of_labels(labels, edges);
}

void halfedgeperm_unpack(int index, int* labels) {
    for (int i = 0; i < layer_edges; i++) {
        labels[i] = halfedgeloc_conv[index % halfedgeloc_size] >> i & 1;
    }
    label_marks(labels, layer_edges, index / halfedgeloc_size);
}

int halfedgeperm_pack(const int* labels) {
    int mask = 0;
    for (int i = 0; i < layer_edges; i++) {
        mask |= (labels[i] != 0) << i;
    }
    return halfedgeloc_unconv[mask] + halfedgeloc_size * rank_of_labels(labels, layer_edges);
}

void halfedgeloc_conv_init(int* conv, int* unconv) {
    number_foursets(layer_edges, halfedgeloc_size, conv, unconv,
                    "halfedgeloc_conv_init : too many halfedgeloc's");
}

void twist_on_cornerperm_init(std::uint16_t* table, std::uint16_t** a_ptrs,
                              std::uint16_t** b_ptrs) {
    point_rows(table, a_ptrs, a_twist_count, cornerperm_size);
    for (int t = 0; t < b_twist_count; t++) {
        b_ptrs[t] = a_ptrs[b_to_a_twist[t]];
    }
    int perm[corners]; // of rank x
    std::iota(perm, perm + corners, 0);
    for (int x = 0; x < cornerperm_size; x++, std::next_permutation(perm, perm + corners)) {
        for (int face = 0; face < twist_face_count; face++) {
            int twisted[corners];
            std::copy(perm, perm + corners, twisted);
            face_cycle(twisted, face_cycles[face].corners);
            a_ptrs[3 * face][x] = static_cast<std::uint16_t>(perm_n_pack(corners, twisted));
        }
    }
    complete_twist_rows(a_ptrs, cornerperm_size);
}

void b_twist_on_edgeperm_init(std::uint16_t* table, std::uint16_t** ptrs) {
    point_rows(table, ptrs, b_twist_count, b_edgeperm_size);
    fill_stage2_rows<layer_edges>(ptrs, b_edgeperm_size, generator_on_edgeperm);
}

void b_twist_on_midperm_init(int* table, int** ptrs) {
    point_rows(table, ptrs, b_twist_count, b_midperm_size);
    fill_stage2_rows<slice_edges>(ptrs, b_midperm_size, generator_on_midperm);
}

void twist_on_sliceedge_init(std::uint16_t* table, std::uint16_t** ptrs) {
    point_rows(table, ptrs, a_twist_count, sliceedge_size);
    fill_quarter_rows(ptrs, sliceedge_size, quarter_twist_on_sliceedge);
    complete_twist_rows(ptrs, sliceedge_size);
}

// The edges of the first half are the even ones of the eight, those of the second the odd ones: the
// labels say which of its four each is.
int combine_halfedgeperm(const int* first, const int* second, int* out) {
    for (int i = 0; i < layer_edges; i++) {
        if (first[i] != 0 && second[i] != 0) {
            return 1;
        }
    }
    for (int i = 0; i < layer_edges; i++) {
        if (first[i] == 0 && second[i] == 0) {
            exit_w_error_message("combine_halfedgeperm : invalid input");
        }
        out[i] = first[i] != 0 ? 2 * (first[i] - 1) : 2 * second[i] - 1;
    }
    return 0;
}

// A sequence of stage 1 ends with every slice edge in the slice: what is marked impossible, here
// and in the tables below, is never looked up.
void sliceedge_to_halfedgeperm_init(int* table) {
    halfedgeloc_conv_init(halfedgeloc_conv, halfedgeloc_unconv);
    for (int x = 0; x < sliceedge_size; x++) {
        int labels[edges];
        sliceedge_unpack(x, labels);
        table[x] = any_marked(labels, layer_edges, edges) ? impossible : halfedgeperm_pack(labels);
    }
}

// Four positions and four others overlap unless they are all eight, so that of the 1680 partners
// of a half only the 24 on the complementary positions are worth combining.
void half_to_edgeperm_init(std::uint16_t* table, std::uint16_t** ptrs) {
    static int labels[halfedgeperm_size][layer_edges]; // 54 kB: much for a stack
    point_rows(table, ptrs, halfedgeperm_size, halfedgeperm_size);
    std::fill(table, table + halfedgeperm_size * halfedgeperm_size, std::uint16_t{impossible});
    for (int h = 0; h < halfedgeperm_size; h++) {
        halfedgeperm_unpack(h, labels[h]);
    }
    for (int h = 0; h < halfedgeperm_size; h++) {
        const int mask = halfedgeloc_conv[h % halfedgeloc_size];
        const int partner = halfedgeloc_unconv[(half_mask_count - 1) ^ mask];
        for (int g = partner; g < halfedgeperm_size; g += halfedgeloc_size) {
            int perm[layer_edges];
            if (combine_halfedgeperm(labels[h], labels[g], perm) == 0) {
                ptrs[h][g] = static_cast<std::uint16_t>(perm_n_pack(layer_edges, perm));
            }
        }
    }
}

// With all four in the slice only their order is left of the number, and that is the permutation.
void sliceedge_to_midperm_init(int* table) {
    for (int x = 0; x < sliceedge_size; x++) {
        int labels[edges];
        sliceedge_unpack(x, labels);
        table[x] = any_marked(labels, 0, layer_edges) ? impossible : x / a_eloc_size;
    }
}

void edge_transform_tables_init() {
    twist_on_sliceedge_init(twist_on_sliceedge_table, twist_on_sliceedge_ptrs);
    sliceedge_to_halfedgeperm_init(sliceedge_to_halfedgeperm);
    half_to_edgeperm_init(half_to_edgeperm_table, half_to_edgeperm_ptrs);
    sliceedge_to_midperm_init(sliceedge_to_midperm);
}

// a_eloc comes before the edges of stage 2, which are unpacked by its conversion.
void transformation_tables_init() {
    a_twist_on_corner_init(twist_on_corner_table, twist_on_corner_ptrs);
    a_twist_on_eflip_init(twist_on_eflip_table, twist_on_eflip_ptrs);
    a_twist_on_eloc_init(twist_on_eloc_table, twist_on_eloc_ptrs);
    twist_on_cornerperm_init(twist_on_cornerperm_table, a_twist_on_cornerperm_ptrs,
                             b_twist_on_cornerperm_ptrs);
    b_twist_on_edgeperm_init(twist_on_edgeperm_table, twist_on_edgeperm_ptrs);
    b_twist_on_midperm_init(twist_on_midperm_table, twist_on_midperm_ptrs);
    edge_transform_tables_init();
}
