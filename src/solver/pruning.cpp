// SPDX-License-Identifier: MIT
#include "solver/pruning.h"

#include "solver/symmetry.h"

#include <algorithm>
#include <bit>
#include <vector>

namespace {

// The twists that a fill needs: all but half turns that cost just as much as the two quarter turns
// of the same face before them in the list.
std::vector<int> needed_twists(const int* lengths, const int* const* faces, int twists) {
    std::vector<int> needed;
    for (int t = 0; t < twists; t++) {
        if (t == 0 || faces[t] != faces[t - 1] || lengths[t] != 2 * lengths[t - 1]) {
            needed.push_back(t);
        }
    }
    return needed;
}

// The fill of a pair table, of which one coordinate is sorted into classes: distances are reckoned
// for the representatives alone, and then copied to what the symmetries make of them.
//
// image(s, x, y) is what symmetry s makes of the other coordinate, y, where the sorted one is x.
template <typename image_function, typename x_entry, typename y_entry> class class_fill {
  public:
    class_fill(const symmetry_classes& sorted_classes, int other_size, image_function other_image,
               x_entry* const* moves_of_x, y_entry* const* moves_of_y, const int* twist_lengths,
               const std::vector<int>& twist_list)
        : classes(sorted_classes), y_size(other_size), image(other_image), x_moves(moves_of_x),
          y_moves(moves_of_y), lengths(twist_lengths), twists(twist_list),
          cells(classes.representatives.size() * static_cast<std::size_t>(y_size), unreached),
          found(static_cast<std::size_t>(y_size)) {}

    // Layers, from the goal outwards. Row by row, so that what a twist writes to lies in one row.
    void run(int goal_x, int goal_y) {
        const classified goal = classes.of[static_cast<std::size_t>(goal_x)];
        left = static_cast<int>(cells.size());
        enter(row_of(goal.number)[image(goal.symmetry, goal_x, goal_y)], 0);
        const int rows = static_cast<int>(classes.representatives.size());
        for (int d = 0; left > 0 && d < unreached; d++) {
            for (int number = 0; number < rows; number++) {
                complete(number, d);
            }
            // A walk outwards costs as much as the layer is large, one backwards as what is left.
            const bool many = left > rows * y_size / 2;
            for (int number = 0; number < rows; number++) {
                if (many) {
                    walk_from(number, d);
                } else {
                    walk_back(number, d + 1);
                }
            }
        }
    }

    // Writes the least cost of every (x, y) to table[x * x_stride + y * y_stride].
    template <typename entry> void copy(entry* table, int x_stride, int y_stride) const {
        for (int x = 0; x < static_cast<int>(classes.of.size()); x++) {
            const classified place = classes.of[static_cast<std::size_t>(x)];
            const std::uint8_t* row = cells.data() + place.number * y_size;
            for (int y = 0; y < y_size; y++) {
                table[x * x_stride + y * y_stride] = row[image(place.symmetry, x, y)];
            }
        }
    }

  private:
    std::uint8_t* row_of(int number) { return cells.data() + number * y_size; }

    // A representative that looks the same from elsewhere is as far from there.
    void complete(int number, int d) {
        std::uint8_t* row = row_of(number);
        const auto at = static_cast<std::size_t>(number);
        for (unsigned rest = classes.stabilizer[at] & ~1u; rest != 0; rest &= rest - 1) {
            for (int y = 0; y < y_size; y++) {
                if (row[y] == d) {
                    enter(row[image(std::countr_zero(rest), classes.representatives[at], y)], d);
                }
            }
        }
    }

    // All twists from the states of a row that are at distance d.
    void walk_from(int number, int d) {
        const std::uint8_t* row = row_of(number);
        const int x = classes.representatives[static_cast<std::size_t>(number)];
        int count = 0;
        for (int y = 0; y < y_size; y++) {
            found[static_cast<std::size_t>(count)] = y;
            count += row[y] == d;
        }
        // A twist takes all of them into one row.
        for (const int t : twists) {
            const int x_after = x_moves[t][x];
            const classified to = classes.of[static_cast<std::size_t>(x_after)];
            std::uint8_t* to_row = row_of(to.number);
            for (int i = 0; i < count; i++) {
                const int y_after = y_moves[t][found[static_cast<std::size_t>(i)]];
                enter(to_row[image(to.symmetry, x_after, y_after)], d + lengths[t]);
            }
        }
    }

    // When few are left it is quicker to ask each of them for a neighbour in the right layer. The
    // twists' inverses are among the twists.
    void walk_back(int number, int d) {
        std::uint8_t* row = row_of(number);
        const int x = classes.representatives[static_cast<std::size_t>(number)];
        for (int y = 0; y < y_size; y++) {
            if (row[y] == unreached && has_neighbour(x, y, d)) {
                enter(row[y], d);
            }
        }
    }

    bool has_neighbour(int x, int y, int d) {
        for (const int t : twists) {
            const int x_after = x_moves[t][x];
            const classified to = classes.of[static_cast<std::size_t>(x_after)];
            if (row_of(to.number)[image(to.symmetry, x_after, y_moves[t][y])] == d - lengths[t]) {
                return true;
            }
        }
        return false;
    }

    void enter(std::uint8_t& cell, int d) {
        if (cell <= d) {
            return;
        }
        left -= cell == unreached;
        cell = static_cast<std::uint8_t>(d);
    }

    const symmetry_classes& classes;
    int y_size;
    image_function image;
    x_entry* const* x_moves;
    y_entry* const* y_moves;
    const int* lengths;
    const std::vector<int>& twists;
    std::vector<std::uint8_t> cells; // by class and y
    std::vector<int> found;          // the states of a layer in one row
    int left = 0;                    // cells not reached
};

std::vector<int> stage1_twists() {
    return needed_twists(a_metric_length, a_twist_list_ptrs, a_twist_count);
}

std::vector<int> stage2_twists() {
    return needed_twists(b_metric_length, b_twist_list_ptrs, b_twist_count);
}

symmetry_classes classes_of_corner(unsigned symmetries) {
    return sort_into_classes(a_corner_size, symmetries,
                             [](int s, int x) { return symmetry_on_corner[x][s]; });
}

} // namespace

constinit std::uint8_t corner_eflip_dist_table[a_corner_size * a_eflip_size] = {};
constinit std::uint8_t corner_eloc_dist_table[a_corner_size * a_eloc_size] = {};
constinit std::uint8_t eflip_eloc_dist_table[a_eflip_size * a_eloc_size] = {};
constinit std::uint8_t* corner_eflip_dist_ptrs[a_corner_size] = {};
constinit std::uint8_t* corner_eloc_dist_ptrs[a_corner_size] = {};
constinit std::uint8_t* eflip_eloc_dist_ptrs[a_eflip_size] = {};

constinit int cornerperm_dist_table[cornerperm_size] = {};
constinit std::uint8_t mid_cornerperm_dist_table[b_midperm_size * cornerperm_size] = {};
constinit std::uint8_t mid_edgeperm_dist_table[b_midperm_size * b_edgeperm_size] = {};
constinit std::uint8_t* mid_cornerperm_dist_ptrs[b_midperm_size] = {};
constinit std::uint8_t* mid_edgeperm_dist_ptrs[b_midperm_size] = {};

void a_corner_eflip_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    symmetry_tables_init();
    point_rows(table, ptrs, a_corner_size, a_eflip_size);
    // Under the other symmetries what a flip becomes depends on a_eloc, which is not known here.
    const symmetry_classes classes = classes_of_corner(even_symmetries);
    const auto twists = stage1_twists();
    class_fill fill(
        classes, a_eflip_size, [](int s, int, int y) { return int{symmetry_on_flips[s][y]}; },
        twist_on_corner_ptrs, twist_on_eflip_ptrs, a_metric_length, twists);
    fill.run(0, 0);
    fill.copy(table, a_eflip_size, 1);
}

void a_corner_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    symmetry_tables_init();
    point_rows(table, ptrs, a_corner_size, a_eloc_size);
    // All sixteen: where edges stand asks for no front and no left.
    const symmetry_classes classes = classes_of_corner(all_symmetries);
    const auto twists = stage1_twists();
    class_fill fill(
        classes, a_eloc_size, [](int s, int, int y) { return int{symmetry_on_eloc[y][s]}; },
        twist_on_corner_ptrs, twist_on_eloc_ptrs, a_metric_length, twists);
    fill.run(0, a_eloc_goal);
    fill.copy(table, a_eloc_size, 1);
}

void a_eflip_eloc_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    symmetry_tables_init();
    point_rows(table, ptrs, a_eflip_size, a_eloc_size);
    const symmetry_classes classes = sort_into_classes(
        a_eloc_size, all_symmetries, [](int s, int x) { return symmetry_on_eloc[x][s]; });
    const auto twists = stage1_twists();
    class_fill fill(
        classes, a_eflip_size, [](int s, int x, int y) { return symmetry_on_eflip(s, x, y); },
        twist_on_eloc_ptrs, twist_on_eflip_ptrs, a_metric_length, twists);
    fill.run(a_eloc_goal, 0);
    fill.copy(table, 1, a_eloc_size); // the rows of the table are the flips
}

void b_cornerperm_dist_init(int* table) {
    symmetry_perm_tables_init();
    // The other coordinate has one value, which no twist changes.
    constexpr int stay = 0;
    const int* no_moves[b_twist_count];
    std::fill(no_moves, no_moves + b_twist_count, &stay);
    const auto twists = stage2_twists();
    class_fill fill(
        classes_of_cornerperm, 1, [](int, int, int) { return 0; }, b_twist_on_cornerperm_ptrs,
        no_moves, b_metric_length, twists);
    fill.run(0, 0);
    fill.copy(table, 1, 0);
}

void b_mid_cornerperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    symmetry_perm_tables_init();
    point_rows(table, ptrs, b_midperm_size, cornerperm_size);
    const auto twists = stage2_twists();
    class_fill fill(
        classes_of_cornerperm, b_midperm_size,
        [](int s, int, int y) { return int{symmetry_on_midperm[y][s]}; },
        b_twist_on_cornerperm_ptrs, twist_on_midperm_ptrs, b_metric_length, twists);
    fill.run(0, 0);
    fill.copy(table, 1, cornerperm_size);
}

void b_mid_edgeperm_dist_init(std::uint8_t* table, std::uint8_t** ptrs) {
    symmetry_perm_tables_init();
    point_rows(table, ptrs, b_midperm_size, b_edgeperm_size);
    const symmetry_classes classes = sort_into_classes(
        b_edgeperm_size, all_symmetries, [](int s, int x) { return symmetry_on_edgeperm[x][s]; });
    const auto twists = stage2_twists();
    class_fill fill(
        classes, b_midperm_size, [](int s, int, int y) { return int{symmetry_on_midperm[y][s]}; },
        twist_on_edgeperm_ptrs, twist_on_midperm_ptrs, b_metric_length, twists);
    fill.run(0, 0);
    fill.copy(table, 1, b_edgeperm_size);
}

void prune_tables_init() {
    a_corner_eflip_dist_init(corner_eflip_dist_table, corner_eflip_dist_ptrs);
    a_corner_eloc_dist_init(corner_eloc_dist_table, corner_eloc_dist_ptrs);
    a_eflip_eloc_dist_init(eflip_eloc_dist_table, eflip_eloc_dist_ptrs);
    b_cornerperm_dist_init(cornerperm_dist_table);
    b_mid_cornerperm_dist_init(mid_cornerperm_dist_table, mid_cornerperm_dist_ptrs);
    b_mid_edgeperm_dist_init(mid_edgeperm_dist_table, mid_edgeperm_dist_ptrs);
}
