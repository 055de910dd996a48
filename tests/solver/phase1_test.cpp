// SPDX-License-Identifier: MIT
#include "solver/phase1.h"
#include "solver/samples.h"

#include <gtest/gtest.h>

namespace {

class Phase1 : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        a_twist_on_corner_init(twist_on_corner_table, twist_on_corner_ptrs);
        a_twist_on_eflip_init(twist_on_eflip_table, twist_on_eflip_ptrs);
        a_twist_on_eloc_init(twist_on_eloc_table, twist_on_eloc_ptrs);
    }
};

struct coordinate_row {
    const char* name;
    int size, positions, modulus;
    void (*unpack)(int, int*);
    int (*pack)(const int*);
    int** moves;
};

const coordinate_row coordinates[] = {
    {"corner", a_corner_size, 8,  3, a_corner_unpack, a_corner_pack, twist_on_corner_ptrs},
    {"eflip",  a_eflip_size,  12, 2, a_eflip_unpack,  a_eflip_pack,  twist_on_eflip_ptrs },
    {"eloc",   a_eloc_size,   12, 4, a_eloc_unpack,   a_eloc_pack,   twist_on_eloc_ptrs  },
};

// The three coordinates of a cube that the twin has turned.
void expect_coordinates(const plain::cube& c, const int (&x)[3], int t) {
    int slice[12];
    for (int i = 0; i < 12; i++) {
        slice[i] = c.edge[i] >= 8;
    }
    EXPECT_EQ(a_corner_pack(c.twist), twist_on_corner_ptrs[t][x[0]]);
    EXPECT_EQ(a_eflip_pack(c.flip), twist_on_eflip_ptrs[t][x[1]]);
    EXPECT_EQ(a_eloc_pack(slice), twist_on_eloc_ptrs[t][x[2]]);
}

} // namespace

TEST_F(Phase1, PackAndUnpackAreInverseOverTheWholeRange) {
    for (const coordinate_row& row : coordinates) {
        SCOPED_TRACE(row.name);
        for (int x = 0; x < row.size; x++) {
            int values[12];
            row.unpack(x, values);
            ASSERT_EQ(row.pack(values), x);
            int sum = 0;
            for (int i = 0; i < row.positions; i++) {
                sum += values[i];
            }
            ASSERT_EQ(sum % row.modulus, 0);
        }
    }
}

TEST_F(Phase1, TheFirstPositionIsTheLowestDigit) {
    const int twists[8] = {1, 0, 0, 0, 0, 0, 0, 2};
    EXPECT_EQ(a_corner_pack(twists), 1);
    const int others[8] = {0, 2, 0, 0, 0, 0, 1, 0};
    EXPECT_EQ(a_corner_pack(others), 2 * 3 + 729);
    const int flips[12] = {0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0};
    EXPECT_EQ(a_eflip_pack(flips), 2 + 1024);
}

TEST_F(Phase1, SubsetsAreInLexicographicOrder) {
    EXPECT_EQ(eloc_conv[0], 0x00F);
    EXPECT_EQ(eloc_conv[1], 0x017);
    EXPECT_EQ(eloc_conv[8], 0x807);
    EXPECT_EQ(eloc_conv[9], 0x01B);
    EXPECT_EQ(eloc_conv[494], 0xF00);
    EXPECT_EQ(eloc_unconv[0x1F], 0);
}

TEST_F(Phase1, AFaceTurnedFourTimesIsWhereItWas) {
    for (const coordinate_row& row : coordinates) {
        for (int quarter = 0; quarter < a_twist_count; quarter += 3) {
            for (int x = 0; x < row.size; x++) {
                const int once = row.moves[quarter][x];
                const int twice = row.moves[quarter][once];
                ASSERT_EQ(row.moves[quarter + 1][x], twice) << row.name;
                ASSERT_EQ(row.moves[quarter + 2][once], x) << row.name;
                ASSERT_EQ(row.moves[quarter][row.moves[quarter][twice]], x) << row.name;
            }
        }
    }
}

// Each coordinate takes each of its values: together they walk through all of the larger one's.
TEST_F(Phase1, MovesAreThoseOfTheTwinsCube) {
    for (int x = 0; x < a_corner_size; x++) {
        plain::cube c = plain::solvedcube();
        const int values[3] = {x, x % a_eflip_size, x % a_eloc_size};
        a_corner_unpack(values[0], c.twist);
        a_eflip_unpack(values[1], c.flip);
        int flags[12];
        a_eloc_unpack(values[2], flags);
        for (int i = 0, slice = 8, other = 0; i < 12; i++) {
            c.edge[i] = flags[i] != 0 ? slice++ : other++;
        }
        for (int t = 0; t < a_twist_count; t++) {
            expect_coordinates(plain::turned(c, t), values, t);
        }
    }
}

TEST_F(Phase1, TheSubgroupIsKeptByItsTwists) {
    for (const int t : b_to_a_twist) {
        EXPECT_EQ(twist_on_corner_ptrs[t][0], 0);
        EXPECT_EQ(twist_on_eflip_ptrs[t][0], 0);
        EXPECT_EQ(twist_on_eloc_ptrs[t][a_eloc_goal], a_eloc_goal);
    }
}
