// SPDX-License-Identifier: MIT
#include "solver/perms.h"
#include "solver/symmetry.h"
#include "solver/twisttables.h"

#include <bit>
#include <gtest/gtest.h>

namespace {

class Symmetry : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        twist_tables_init();
        transformation_tables_init();
        symmetry_perm_tables_init();
    }
};

// A twist of stage 2 as a symmetry sees it.
int b_image(int s, int t) {
    for (int image = 0; image < b_twist_count; image++) {
        if (b_to_a_twist[image] == symmetry_on_twist[s][b_to_a_twist[t]]) {
            return image;
        }
    }
    return -1;
}

} // namespace

// With this and the goal's being kept, no distance from the goal can change under a symmetry.
TEST_F(Symmetry, TurningAndThenSeeingIsSeeingAndThenTurningTheImage) {
    for (int s = 0; s < symmetry_count; s++) {
        for (int t = 0; t < a_twist_count; t++) {
            const int image = symmetry_on_twist[s][t];
            for (int x = 0; x < a_corner_size; x++) {
                ASSERT_EQ(symmetry_on_corner[twist_on_corner_ptrs[t][x]][s],
                          twist_on_corner_ptrs[image][symmetry_on_corner[x][s]]);
            }
            for (int x = 0; x < a_eloc_size; x++) {
                ASSERT_EQ(symmetry_on_eloc[twist_on_eloc_ptrs[t][x]][s],
                          twist_on_eloc_ptrs[image][symmetry_on_eloc[x][s]]);
            }
            for (int x = 0; x < a_eflip_size; x++) {
                for (int eloc = (x + s + t) % 11; eloc < a_eloc_size; eloc += 11) {
                    ASSERT_EQ(symmetry_on_eflip(s, twist_on_eloc_ptrs[t][eloc],
                                                twist_on_eflip_ptrs[t][x]),
                              twist_on_eflip_ptrs[image][symmetry_on_eflip(s, eloc, x)]);
                }
            }
        }
    }
}

TEST_F(Symmetry, SoItIsWithThePermutationsOfTheSubgroup) {
    for (int s = 0; s < symmetry_count; s++) {
        for (int t = 0; t < b_twist_count; t++) {
            const int image = b_image(s, t);
            ASSERT_GE(image, 0);
            for (int x = 0; x < b_edgeperm_size; x++) {
                ASSERT_EQ(symmetry_on_edgeperm[twist_on_edgeperm_ptrs[t][x]][s],
                          twist_on_edgeperm_ptrs[image][symmetry_on_edgeperm[x][s]]);
            }
            for (int x = 0; x < b_midperm_size; x++) {
                ASSERT_EQ(symmetry_on_midperm[twist_on_midperm_ptrs[t][x]][s],
                          twist_on_midperm_ptrs[image][symmetry_on_midperm[x][s]]);
            }
        }
    }
}

TEST_F(Symmetry, TheGoalIsKept) {
    for (int s = 0; s < symmetry_count; s++) {
        EXPECT_EQ(symmetry_on_corner[0][s], 0);
        EXPECT_EQ(symmetry_on_eloc[a_eloc_goal][s], a_eloc_goal);
        EXPECT_EQ(symmetry_on_eflip(s, a_eloc_goal, 0), 0);
        EXPECT_EQ(symmetry_on_edgeperm[0][s], 0);
        EXPECT_EQ(symmetry_on_midperm[0][s], 0);
    }
}

TEST_F(Symmetry, ProductsActOneAfterTheOther) {
    for (int a = 0; a < symmetry_count; a++) {
        for (int b = 0; b < symmetry_count; b++) {
            const int product = symmetry_on_symmetry[b][a];
            for (int x = 0; x < a_corner_size; x++) {
                ASSERT_EQ(symmetry_on_corner[x][product],
                          symmetry_on_corner[symmetry_on_corner[x][a]][b]);
            }
            for (int x = 0; x < b_edgeperm_size; x += 5) {
                ASSERT_EQ(symmetry_on_edgeperm[x][product],
                          symmetry_on_edgeperm[symmetry_on_edgeperm[x][a]][b]);
            }
            for (int x = 0; x < b_midperm_size; x++) {
                ASSERT_EQ(symmetry_on_midperm[x][product],
                          symmetry_on_midperm[symmetry_on_midperm[x][a]][b]);
            }
        }
    }
}

TEST_F(Symmetry, AnInverseTakesBackWhatASymmetryDoes) {
    for (int s = 0; s < symmetry_count; s++) {
        EXPECT_EQ(symmetry_on_symmetry[inverse_symmetry[s]][s], 0);
        EXPECT_EQ(symmetry_on_symmetry[s][inverse_symmetry[s]], 0);
    }
}

TEST_F(Symmetry, EvenSymmetriesLeaveFlipsToThemselves) {
    for (int s = 0; s < symmetry_count; s++) {
        for (const unsigned toggles : symmetry_toggles[s]) {
            ASSERT_TRUE((even_symmetries >> s & 1) == 0 || toggles == 0);
        }
    }
}

TEST_F(Symmetry, TheClassesPartTheCornerPermutations) {
    const symmetry_classes& classes = classes_of_cornerperm;
    EXPECT_EQ(classes.representatives.size(), 2768);
    int total = 0;
    for (const unsigned keep : classes.stabilizer) {
        total += symmetry_count / std::popcount(keep);
    }
    EXPECT_EQ(total, cornerperm_size);
}

// A class is closed under the twists' symmetries: what a twist makes of two members are members of
// one class again, by the twist's images. That ties classes to the move table.
TEST_F(Symmetry, MembersOfAClassTurnIntoMembersOfAClass) {
    const auto& of = classes_of_cornerperm.of;
    for (int x = 0; x < cornerperm_size; x++) {
        const classified place = of[x];
        const int representative = classes_of_cornerperm.representatives[place.number];
        for (int t = 0; t < b_twist_count; t++) {
            ASSERT_EQ(
                of[b_twist_on_cornerperm_ptrs[t][x]].number,
                of[b_twist_on_cornerperm_ptrs[b_image(place.symmetry, t)][representative]].number);
        }
    }
}

TEST_F(Symmetry, SortingFindsTheLeastValueAndAWayToIt) {
    const auto image = [](int s, int x) { return int{symmetry_on_edgeperm[x][s]}; };
    for (const unsigned symmetries : {all_symmetries, even_symmetries, 1u}) {
        const symmetry_classes classes = sort_into_classes(b_edgeperm_size, symmetries, image);
        for (int x = 0; x < b_edgeperm_size; x++) {
            const classified place = classes.of[x];
            const int representative = classes.representatives[place.number];
            ASSERT_LE(representative, x);
            ASSERT_TRUE(symmetries >> place.symmetry & 1);
            ASSERT_EQ(image(place.symmetry, x), representative);
        }
        for (std::size_t i = 0; i < classes.representatives.size(); i++) {
            for (int s = 0; s < symmetry_count; s++) {
                ASSERT_EQ(classes.stabilizer[i] >> s & 1,
                          (symmetries >> s & 1) != 0 &&
                              image(s, classes.representatives[i]) == classes.representatives[i]);
            }
        }
    }
}

TEST_F(Symmetry, ASetOfTwistsHasTheImagesOfItsTwists) {
    for (int s = 0; s < symmetry_count; s++) {
        for (std::uint32_t set = 1; set < 1u << a_twist_count; set += 37) {
            std::uint32_t images = 0;
            for (int t = 0; t < a_twist_count; t++) {
                images |= (set >> t & 1) << symmetry_on_twist[s][t];
            }
            ASSERT_EQ(symmetry_on_twists(s, set), images);
        }
    }
}
