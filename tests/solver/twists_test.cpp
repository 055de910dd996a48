// SPDX-License-Identifier: MIT
#include "solver/twists.h"
#include "solver/twisttables.h"

#include <gtest/gtest.h>
#include <string>

namespace {

class Twists : public testing::Test {
  protected:
    void SetUp() override { twist_tables_init(); }
};

// ORDER FLUBRD, columns state 0..10
constexpr int expected[6][11] = {
    {0, 2, 0, 2, 2,  0, 2, 2, 0, 2, 2}, // F
    {0, 3, 3, 0, 3,  3, 9, 3, 3, 0, 3}, // L
    {0, 4, 4, 4, 0,  4, 4, 0, 4, 4, 0}, // U
    {0, 5, 8, 5, 5,  0, 5, 5, 0, 5, 5}, // B
    {0, 6, 6, 0, 6,  6, 0, 6, 6, 0, 6}, // R
    {0, 7, 7, 7, 10, 7, 7, 0, 7, 7, 0}, // D
};

} // namespace

TEST_F(Twists, TheOptionsAreTheQuarterTurnMetric) {
    EXPECT_EQ(user_options.metric, 1);
    EXPECT_EQ(user_options.spare, 0);
    EXPECT_EQ(metric, 1);
    EXPECT_EQ(increment, 2);
    EXPECT_EQ(metric_char, 'q');
}

TEST_F(Twists, AHalfTurnCostsTwo) {
    for (int t = 0; t < a_twist_count; t++) {
        EXPECT_EQ(a_metric_length[t], static_cast<int>(std::string(my_a_twist_string[t]).size()));
        EXPECT_EQ(a_face_turn_length[t], 1);
    }
    for (int t = 0; t < b_twist_count; t++) {
        EXPECT_EQ(b_metric_length[t], static_cast<int>(std::string(my_b_twist_string[t]).size()));
        EXPECT_EQ(b_face_turn_length[t], 1);
        EXPECT_STREQ(my_b_twist_string[t], my_a_twist_string[b_to_a_twist[t]]);
    }
}

TEST_F(Twists, TheOtherMetricSelectsTheOtherTables) {
    user_options.metric = face_turn_metric;
    twist_lengths_init(&a_metric_length, &b_metric_length);
    EXPECT_EQ(a_metric_length, a_face_turn_length);
    EXPECT_EQ(b_metric_length, b_face_turn_length);
}

TEST_F(Twists, AnUnknownMetricEndsTheProgramSilently) {
    user_options.metric = 3;
    EXPECT_EXIT(twist_lengths_init(&a_metric_length, &b_metric_length), testing::ExitedWithCode(1),
                "^$");
}

TEST_F(Twists, AFirstStageMayEndInUInverse) {
    for (int t = 0; t < a_twist_count; t++) {
        bool listed = false;
        for (const int b : b_to_a_twist) {
            listed = listed || b == t;
        }
        EXPECT_EQ(is_stage2_twist[t], listed && t != 8) << t;
    }
}

TEST_F(Twists, SuccessionsAreThoseOfTheTable) {
    for (int face = 0; face < 6; face++) {
        for (int state = 0; state < 11; state++) {
            EXPECT_EQ(twist_list_table[face][state], expected[face][state]) << face << ' ' << state;
        }
    }
    for (int t = 0; t < a_twist_count; t++) {
        EXPECT_EQ(a_twist_list_ptrs[t], twist_list_table[t / 3]);
    }
    for (int t = 0; t < b_twist_count; t++) {
        EXPECT_EQ(b_twist_list_ptrs[t], twist_list_table[b_to_a_twist[t] / 3]);
    }
}

TEST_F(Twists, UserInterruptJumpsToTheSavedContext) {
    volatile int jumped = 0;
    if (setjmp(jump_env) == 0) {
        user_interrupt();
    } else {
        jumped = 1;
    }
    EXPECT_EQ(jumped, 1);
}
