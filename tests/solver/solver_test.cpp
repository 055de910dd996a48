// SPDX-License-Identifier: MIT
#include "model/cube.h"
#include "model/permutation.h"
#include "nullshell.h"
#include "solver/cubecheck.h"
#include "solver/samples.h"
#include "solver/solver.h"

#include <cctype>
#include <gtest/gtest.h>
#include <string>

namespace {

class Solver : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        while (!initializesolve())
            continue;
    }

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
        for (const char letter : answer)
            for (int n = 0; n < (std::islower(letter) ? 3 : 1); n++)
                moveface(static_cast<unsigned>(
                    std::string(letters).find(static_cast<char>(std::toupper(letter)))));
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

TEST_F(Solver, InitialisationIsDoneOnce) {
    for (int i = 0; i < 3; i++)
        EXPECT_EQ(initializesolve(), 1);
}
