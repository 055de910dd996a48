// SPDX-License-Identifier: MIT
#include "solver/symmetry.h"

#include "solver/cubecheck.h"
#include "solver/perms.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int mirror_bit = 8;
constexpr char face_letters[] = "FLUBRD"; // ORDER FLUBRD

// Where the three generators carry each face. ORDER FLUBRD
constexpr char quarter_turn_faces[] = "LBURFD"; // about U-D
constexpr char half_turn_faces[] = "FRDBLU";    // about F-B
constexpr char mirror_faces[] = "FRUBLD";

// State

bool initialized = false;
int face_images[symmetry_count][twist_face_count];
int edge_images[symmetry_count][edge_count];     // positions
int corner_images[symmetry_count][corner_count]; // positions

int face_of(char letter) {
    return static_cast<int>(std::find(face_letters, face_letters + twist_face_count, letter) -
                            face_letters);
}

// From the faces the rest follows: a position is known by the faces that it lies on, a twist by its
// face. So the three generators are all that could be mistyped.
void find_face_images() {
    for (int s = 0; s < symmetry_count; s++) {
        for (int face = 0; face < twist_face_count; face++) {
            int image = face;
            for (int i = 0; i < s % 4; i++) {
                image = face_of(quarter_turn_faces[image]);
            }
            if (s & 4) {
                image = face_of(half_turn_faces[image]);
            }
            if (s & mirror_bit) {
                image = face_of(mirror_faces[image]);
            }
            face_images[s][face] = image;
        }
    }
}

unsigned faces_of(const char* name) {
    unsigned faces = 0;
    for (; *name != '\0'; name++) {
        faces |= 1u << face_of(*name);
    }
    return faces;
}

// The position whose name has the images of the faces that this position's name has.
int image_of_position(int s, const char* const* names, int position) {
    unsigned wanted = 0;
    for (int face = 0; face < twist_face_count; face++) {
        if (faces_of(names[position]) >> face & 1) {
            wanted |= 1u << face_images[s][face];
        }
    }
    int image = 0;
    while (faces_of(names[image]) != wanted) {
        image++;
    }
    return image;
}

void find_position_images() {
    for (int s = 0; s < symmetry_count; s++) {
        for (int i = 0; i < edge_count; i++) {
            edge_images[s][i] = image_of_position(s, edge_cubie_string, i);
        }
        for (int i = 0; i < corner_count; i++) {
            corner_images[s][i] = image_of_position(s, corner_cubie_string, i);
        }
    }
}

void find_twist_images() {
    for (int s = 0; s < symmetry_count; s++) {
        for (int t = 0; t < a_twist_count; t++) {
            const int turn = s & mirror_bit ? 2 - t % 3 : t % 3; // clockwise is mirrored, too
            symmetry_on_twist[s][t] = static_cast<std::uint8_t>(3 * face_images[s][t / 3] + turn);
        }
    }
}

// Sets of 18 twists in three parts of six: one table for all of them would have 2^18 rows.
void find_images_of_twist_sets() {
    constexpr int part_twists = 6;
    for (int s = 0; s < symmetry_count; s++) {
        for (int t = 0; t < a_twist_count; t++) {
            for (unsigned set = 0; set < 1u << part_twists; set++) {
                const unsigned there = set >> t % part_twists & 1;
                symmetry_on_faces[s][t / part_twists][set] |= there << symmetry_on_twist[s][t];
            }
        }
    }
}

// Symmetries that do the same to the six faces are the same.
void find_products() {
    for (int b = 0; b < symmetry_count; b++) {
        for (int a = 0; a < symmetry_count; a++) {
            for (int s = 0; s < symmetry_count; s++) {
                bool equal = true;
                for (int face = 0; face < twist_face_count; face++) {
                    equal = equal && face_images[s][face] == face_images[b][face_images[a][face]];
                }
                if (!equal) {
                    continue;
                }
                symmetry_on_symmetry[b][a] = static_cast<std::uint8_t>(s);
                if (s == 0) {
                    inverse_symmetry[a] = static_cast<std::uint8_t>(b);
                }
            }
        }
    }
}

// In a mirror a twist goes the other way round.
void find_corner_images() {
    for (int x = 0; x < a_corner_size; x++) {
        int twists[corner_count];
        a_corner_unpack(x, twists);
        for (int s = 0; s < symmetry_count; s++) {
            int image[corner_count];
            for (int i = 0; i < corner_count; i++) {
                image[corner_images[s][i]] = s & mirror_bit ? (3 - twists[i]) % 3 : twists[i];
            }
            symmetry_on_corner[x][s] = static_cast<std::uint16_t>(a_corner_pack(image));
        }
    }
}

// Odd symmetries exchange the axes by which flips are told: see symmetry_on_eflip.
void find_edge_images() {
    for (int s = 0; s < symmetry_count; s++) {
        for (int x = 0; x < a_eloc_size; x++) {
            int flags[edge_count];
            int image[edge_count];
            int toggles[edge_count];
            a_eloc_unpack(x, flags);
            for (int i = 0; i < edge_count; i++) {
                image[edge_images[s][i]] = flags[i];
                toggles[edge_images[s][i]] = s % 2 != 0 && flags[i] != (i >= 8);
            }
            symmetry_on_eloc[x][s] = static_cast<std::uint16_t>(a_eloc_pack(image));
            symmetry_toggles[s][x] = static_cast<std::uint16_t>(a_eflip_pack(toggles));
        }
        for (int x = 0; x < a_eflip_size; x++) {
            int flips[edge_count];
            int image[edge_count];
            a_eflip_unpack(x, flips);
            for (int i = 0; i < edge_count; i++) {
                image[edge_images[s][i]] = flips[i];
            }
            symmetry_on_flips[s][x] = static_cast<std::uint16_t>(a_eflip_pack(image));
        }
    }
}

// The rank of what becomes of a permutation of n things, position i of which goes to images[i].
int image_of_perm(int n, const int* images, const int* perm) {
    int image[corner_count];
    conjugate_perm_n(n, perm, images, image);
    return perm_n_pack(n, image);
}

void find_edgeperm_images() {
    constexpr int layer_edges = 8;
    // The three generators by the permutations, the others by looking up what two of those do.
    int perm[layer_edges]; // of rank x
    std::iota(perm, perm + layer_edges, 0);
    for (int x = 0; x < b_edgeperm_size; x++, std::next_permutation(perm, perm + layer_edges)) {
        symmetry_on_edgeperm[x][0] = static_cast<std::uint16_t>(x);
        for (const int s : {1, 4, mirror_bit}) {
            symmetry_on_edgeperm[x][s] =
                static_cast<std::uint16_t>(image_of_perm(layer_edges, edge_images[s], perm));
        }
    }
    for (auto& images : symmetry_on_edgeperm) {
        images[2] = symmetry_on_edgeperm[images[1]][1];
        images[3] = symmetry_on_edgeperm[images[2]][1];
        for (int s = 5; s < mirror_bit; s++) {
            images[s] = symmetry_on_edgeperm[images[s - 4]][4];
        }
        for (int s = mirror_bit + 1; s < symmetry_count; s++) {
            images[s] = symmetry_on_edgeperm[images[s - mirror_bit]][mirror_bit];
        }
    }
}

void find_midperm_images() {
    constexpr int slice_edges = 4;
    for (int s = 0; s < symmetry_count; s++) {
        int images[slice_edges];
        for (int i = 0; i < slice_edges; i++) {
            images[i] = edge_images[s][8 + i] - 8;
        }
        int perm[slice_edges]; // of rank x
        std::iota(perm, perm + slice_edges, 0);
        for (int x = 0; x < b_midperm_size; x++, std::next_permutation(perm, perm + slice_edges)) {
            symmetry_on_midperm[x][s] =
                static_cast<std::uint8_t>(image_of_perm(slice_edges, images, perm));
        }
    }
}

} // namespace

constinit std::uint8_t inverse_symmetry[symmetry_count] = {};
constinit std::uint8_t symmetry_on_symmetry[symmetry_count][symmetry_count] = {};
constinit std::uint8_t symmetry_on_twist[symmetry_count][a_twist_count] = {};
constinit std::uint32_t symmetry_on_faces[symmetry_count][3][64] = {};
constinit std::uint16_t symmetry_on_corner[a_corner_size][symmetry_count] = {};
constinit std::uint16_t symmetry_on_eloc[a_eloc_size][symmetry_count] = {};
constinit std::uint16_t symmetry_on_flips[symmetry_count][a_eflip_size] = {};
constinit std::uint16_t symmetry_toggles[symmetry_count][a_eloc_size] = {};
constinit std::uint16_t symmetry_on_edgeperm[b_edgeperm_size][symmetry_count] = {};
constinit std::uint8_t symmetry_on_midperm[b_midperm_size][symmetry_count] = {};
symmetry_classes classes_of_cornerperm; // no constinit: not every compiler sees a constant here

void symmetry_tables_init() {
    if (initialized) {
        return;
    }
    // In this order: each needs what those before it have found.
    find_face_images();
    find_position_images();
    find_twist_images();
    find_images_of_twist_sets();
    find_products();
    find_corner_images();
    find_edge_images();
    initialized = true;
}

void symmetry_perm_tables_init() {
    if (!classes_of_cornerperm.of.empty()) {
        return;
    }
    symmetry_tables_init();
    find_edgeperm_images();
    find_midperm_images();
    classes_of_cornerperm = sort_into_classes(cornerperm_size, all_symmetries, [](int s, int x) {
        int perm[corner_count];
        perm_n_unpack(corner_count, x, perm);
        return image_of_perm(corner_count, corner_images[s], perm);
    });
}
