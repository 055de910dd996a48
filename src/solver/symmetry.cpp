// SPDX-License-Identifier: MIT
#include "solver/symmetry.h"

#include "solver/cubecheck.h"
#include "solver/pruning.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int mirror_bit = 8;
constexpr char face_letters[] = "FLUBRD"; // ORDER FLUBRD

// Where the three generators carry each face. ORDER FLUBRD
constexpr char quarter_turn_faces[] = "LBURFD"; // about U-D
constexpr char half_turn_faces[] = "FRDBLU";    // about F-B
constexpr char mirror_faces[] = "FRUBLD";

// State: what symmetries do to the parts of a_edges.

std::uint8_t face_images[symmetry_count][twist_face_count];
std::uint8_t edge_images[symmetry_count][edge_count];     // positions
std::uint8_t corner_images[symmetry_count][corner_count]; // positions
std::uint16_t eloc_images[symmetry_count][a_eloc_size];
std::uint16_t eflip_images[symmetry_count][a_eflip_size];

// Good and flipped are defined by the F and B faces; seen with L and R in their place, exactly the
// edges that stand in the slice but do not belong there, or the other way, change their name.
std::uint16_t eflip_toggles[symmetry_count][a_eloc_size];

int face_of(char letter) {
    return static_cast<int>(std::find(face_letters, face_letters + twist_face_count, letter) -
                            face_letters);
}

void find_face_images() {
    for (int s = 0; s < symmetry_count; s++)
        for (int face = 0; face < twist_face_count; face++) {
            int image = face;
            for (int i = 0; i < s % 4; i++)
                image = face_of(quarter_turn_faces[image]);
            if (s & 4)
                image = face_of(half_turn_faces[image]);
            if (s & mirror_bit)
                image = face_of(mirror_faces[image]);
            face_images[s][face] = static_cast<std::uint8_t>(image);
        }
}

unsigned faces_of(const char* name) {
    unsigned faces = 0;
    for (; *name != '\0'; name++)
        faces |= 1u << face_of(*name);
    return faces;
}

// The position whose name has the images of the faces that this position's name has.
int image_of_position(int s, const char* const* names, int position) {
    unsigned wanted = 0;
    for (int face = 0; face < twist_face_count; face++)
        if (faces_of(names[position]) >> face & 1)
            wanted |= 1u << face_images[s][face];
    int image = 0;
    while (faces_of(names[image]) != wanted)
        image++;
    return image;
}

void find_position_images() {
    for (int s = 0; s < symmetry_count; s++) {
        for (int i = 0; i < edge_count; i++)
            edge_images[s][i] =
                static_cast<std::uint8_t>(image_of_position(s, edge_cubie_string, i));
        for (int i = 0; i < corner_count; i++)
            corner_images[s][i] =
                static_cast<std::uint8_t>(image_of_position(s, corner_cubie_string, i));
    }
}

void find_twist_images() {
    for (int s = 0; s < symmetry_count; s++)
        for (int t = 0; t < a_twist_count; t++) {
            const int turn = s & mirror_bit ? 2 - t % 3 : t % 3;
            symmetry_on_twist[s][t] = static_cast<std::uint8_t>(3 * face_images[s][t / 3] + turn);
        }
}

void find_products() {
    for (int b = 0; b < symmetry_count; b++)
        for (int a = 0; a < symmetry_count; a++)
            for (int s = 0; s < symmetry_count; s++) {
                bool equal = true;
                for (int face = 0; face < twist_face_count; face++)
                    equal = equal && face_images[s][face] == face_images[b][face_images[a][face]];
                if (equal)
                    symmetry_on_symmetry[b][a] = static_cast<std::uint8_t>(s);
            }
}

void find_corner_images() {
    for (int x = 0; x < a_corner_size; x++) {
        int twists[corner_count];
        a_corner_unpack(x, twists);
        for (int s = 0; s < symmetry_count; s++) {
            int image[corner_count];
            for (int i = 0; i < corner_count; i++)
                image[corner_images[s][i]] = s & mirror_bit ? (3 - twists[i]) % 3 : twists[i];
            symmetry_on_corner[x][s] = static_cast<std::uint16_t>(a_corner_pack(image));
        }
        for (int t = 0; t < a_twist_count; t++)
            a_corner_steps[x].after[t] = static_cast<std::uint16_t>(twist_on_corner_ptrs[t][x]);
    }
}

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
            eloc_images[s][x] = static_cast<std::uint16_t>(a_eloc_pack(image));
            eflip_toggles[s][x] = static_cast<std::uint16_t>(a_eflip_pack(toggles));
        }
        for (int x = 0; x < a_eflip_size; x++) {
            int flips[edge_count];
            int image[edge_count];
            a_eflip_unpack(x, flips);
            for (int i = 0; i < edge_count; i++)
                image[edge_images[s][i]] = flips[i];
            eflip_images[s][x] = static_cast<std::uint16_t>(a_eflip_pack(image));
        }
    }
}

// Numbers the classes; of[a_edges] becomes its class and a symmetry to the representative.
void find_classes(std::vector<class_step>& of) {
    constexpr class_step none = {0, symmetry_count, 0};
    of.assign(a_edges_size, none);
    int inverse[symmetry_count];
    for (int s = 0; s < symmetry_count; s++)
        for (int r = 0; r < symmetry_count; r++)
            if (symmetry_on_symmetry[r][s] == 0)
                inverse[s] = r;
    int found = 0;
    for (int x = 0; x < a_edges_size; x++) {
        if (of[x].symmetry != symmetry_count)
            continue;
        edge_class_edges[found] = x;
        for (int s = 0; s < symmetry_count; s++) {
            const int image = symmetry_on_edges(s, x);
            of[image] = {static_cast<std::uint16_t>(found), static_cast<std::uint8_t>(inverse[s]),
                         0};
            edge_class_stabilizer[found] |= static_cast<std::uint16_t>((image == x) << s);
        }
        found++;
    }
}

void find_class_steps(const std::vector<class_step>& of) {
    for (int c = 0; c < edge_class_count; c++) {
        const int eflip = edge_class_edges[c] / a_eloc_size;
        const int eloc = edge_class_edges[c] % a_eloc_size;
        for (int t = 0; t < a_twist_count; t++) {
            const int x = twist_on_eflip_ptrs[t][eflip] * a_eloc_size + twist_on_eloc_ptrs[t][eloc];
            edge_class_steps[c][t] = of[x];
            edge_class_steps[c][t].distance = eflip_eloc_dist_table[x];
        }
    }
}

} // namespace

constinit std::uint8_t symmetry_on_twist[symmetry_count][a_twist_count] = {};
constinit std::uint8_t symmetry_on_symmetry[symmetry_count][symmetry_count] = {};
constinit std::uint16_t symmetry_on_corner[a_corner_size][symmetry_count] = {};
constinit int edge_class_edges[edge_class_count] = {};
constinit std::uint16_t edge_class_stabilizer[edge_class_count] = {};
constinit class_step edge_class_steps[edge_class_count][a_twist_count] = {};
constinit corner_steps a_corner_steps[a_corner_size] = {};

int symmetry_on_edges(int symmetry, int a_edges) {
    const int eflip = a_edges / a_eloc_size;
    const int eloc = a_edges % a_eloc_size;
    const int image = eflip_images[symmetry][eflip] ^ eflip_toggles[symmetry][eloc];
    return image * a_eloc_size + eloc_images[symmetry][eloc];
}

class_step classify_edges(int a_edges) {
    int least = a_edges;
    int symmetry = 0;
    for (int s = 1; s < symmetry_count; s++) {
        const int image = symmetry_on_edges(s, a_edges);
        if (image < least) {
            least = image;
            symmetry = s;
        }
    }
    const int* const found =
        std::lower_bound(edge_class_edges, edge_class_edges + edge_class_count, least);
    return {static_cast<std::uint16_t>(found - edge_class_edges),
            static_cast<std::uint8_t>(symmetry), 0};
}

void symmetry_tables_init() {
    find_face_images();
    find_position_images();
    find_twist_images();
    find_products();
    find_corner_images();
    find_edge_images();
    std::vector<class_step> of;
    find_classes(of);
    find_class_steps(of);
}
