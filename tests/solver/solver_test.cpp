// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "model/permutation.h"
#include "nullshell.h"
#include "solver/cubecheck.h"
#include "solver/pruning.h"
#include "solver/samples.h"
#include "solver/solver.h"

#include <cctype>
#include <gtest/gtest.h>
#include <string>

namespace {

class Solver : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        text_before_any_check = geterrorstring();
        // What each call returns, and which distance tables it leaves filled.
        for (int call = 0; call < 11; call++) {
            returned += std::to_string(initializesolve());
            filled += std::to_string(
                (corner_eflip_dist_table[1] != 0) + (corner_eloc_dist_table[0] != 0) +
                (eflip_eloc_dist_table[0] != 0) + (cornerperm_dist_table[1] != 0) +
                (mid_cornerperm_dist_table[1] != 0) + (mid_edgeperm_dist_table[1] != 0));
        }
    }

    static inline const char* text_before_any_check = "";
    static inline std::string returned;
    static inline std::string filled;

    void SetUp() override { resetshell(); }
};

// Solves all rows of a golden file, and plays each answer on the twin's cube.
void expect_golden(const char* file, int depth, std::size_t least_rows) {
    const auto rows = goldenrows(std::string(GOLDEN "/") + file);
    ASSERT_GE(rows.size(), least_rows);
    setsearchdepth(depth);
    for (const golden_row& row : rows) {
        SCOPED_TRACE(row.listing);
        const char* const answer = my_user_enters_cube(row.listing.c_str());
        ASSERT_NE(answer, nullptr);
        EXPECT_STREQ(answer, row.answer.empty() ? "error" : row.answer.c_str());
        plain::cube c{};
        ASSERT_TRUE(plain::parse(row.listing, c));
        EXPECT_EQ(plain::listing(afterletters(c, row.answer)), plain::listing(plain::solvedcube()));
    }
}

} // namespace

TEST_F(Solver, AnswersAtDepth14AreThoseOfTheTwin) {
    expect_golden("solver14.txt", 14, 100);
}

TEST_F(Solver, AnswersAtDepth15AreThoseOfTheTwin) {
    expect_golden("solver15.txt", 15, 2);
}

TEST_F(Solver, AnswersAtDepth16AreThoseOfTheTwin) {
    expect_golden("solver16.txt", 16, 2);
}

TEST_F(Solver, EverySolutionSolvesTheCubeOfTheModel) {
    setsearchdepth(14);
    for (int i = 0; i < 20; i++) {
        jumblecube();
        muckcube();
        const std::string answer = my_user_enters_cube(dumpcube());
        constexpr char letters[] = "ULFRBD"; // ORDER FACE
        for (const char letter : answer) {
            for (int n = 0; n < (std::islower(letter) ? 3 : 1); n++) {
                moveface(static_cast<unsigned>(
                    std::string(letters).find(static_cast<char>(std::toupper(letter)))));
            }
        }
        EXPECT_EQ(solved(), 1);
    }
}

TEST_F(Solver, ARejectedCubeGivesNoText) {
    EXPECT_EQ(my_user_enters_cube(""), nullptr);
    EXPECT_EQ(my_user_enters_cube("FU UR UB UL DF DR DB DL FR FL BR BL "
                                  "UFR URB UBL ULF DRF DFL DLB DBR"),
              nullptr);
    EXPECT_STREQ(geterrorstring(), "Flip any edge cubie to make a valid configuration.");
}

TEST_F(Solver, ThereIsNoMessageBeforeAnyCheck) {
    EXPECT_EQ(text_before_any_check, nullptr);
}

TEST_F(Solver, AnImproperNameLeavesTheMessageAlone) {
    EXPECT_EQ(sanitycheckcube("XY"), 0);
    const std::string before = geterrorstring();
    EXPECT_EQ(my_user_enters_cube("QQ"), nullptr);
    EXPECT_EQ(geterrorstring(), before);
}

TEST_F(Solver, InitialisationDoesOneStepACall) {
    EXPECT_EQ(returned, "00000000001");
    EXPECT_EQ(filled, "00000123456");
}

TEST_F(Solver, InitialisationIsDoneOnce) {
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(initializesolve(), 1);
    }
}
