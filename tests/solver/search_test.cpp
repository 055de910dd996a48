// SPDX-License-Identifier: MIT
#include "nullshell.h"
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/pruning.h"
#include "solver/samples.h"
#include "solver/search.h"
#include "solver/solver.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

class Search : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        while (!initializesolve())
            continue;
        plain::build();
    }

    void SetUp() override {
        resetshell();
        setsearchdepth(14);
    }

    void TearDown() override { resetshell(); }

    std::mt19937 random{4502};
};

std::string solution(const plain::cube& c) {
    const char* const answer = my_user_enters_cube(plain::listing(c).c_str());
    return answer == nullptr ? "rejected" : answer;
}

} // namespace

TEST_F(Search, CoordinatesAreThoseOfTheCubiesGiven) {
    cubie_names names;
    cube_struc cube;
    const plain::cube c = afterletters(plain::solvedcube(), "Fr");
    read_cubies(plain::listing(c).c_str(), names);
    ASSERT_EQ(parse_cubies(names, cube), 20);
    ASSERT_EQ(check_cube(cube), 0);
    process_cube(cube);
    int corner = 0, eflip = 0, eloc = a_eloc_goal, cornerperm = 0;
    for (const int t : {0, 14}) {
        corner = twist_on_corner_ptrs[t][corner];
        eflip = twist_on_eflip_ptrs[t][eflip];
        eloc = twist_on_eloc_ptrs[t][eloc];
        cornerperm = a_twist_on_cornerperm_ptrs[t][cornerperm];
    }
    EXPECT_EQ(cube.a_corner, corner);
    EXPECT_EQ(cube.a_eflip, eflip);
    EXPECT_EQ(cube.a_eloc, eloc);
    EXPECT_EQ(cube.cornerperm, cornerperm);
    for (const int slot : cube.sliceedge)
        EXPECT_TRUE(slot >= 0 && slot < sliceedge_size);
}

TEST_F(Search, ACubeOneTurnAwayGetsTheTurnBack) {
    for (int face = 0; face < 6; face++)
        for (int k = 0; k < 3; k++) {
            const plain::cube c = plain::turned(plain::solvedcube(), 3 * face + k);
            EXPECT_EQ(solution(c), my_a_twist_string[3 * face + 2 - k]);
        }
}

TEST_F(Search, ASolvedCubeHasAnEmptySolution) {
    EXPECT_EQ(solution(plain::solvedcube()), "error");
    EXPECT_STREQ(outputstring, "");
    EXPECT_EQ(shortest_solution, 0);
    EXPECT_EQ(error, 0);
}

// The nearest cubes are searched to the end at any depth setting: the allotment ends them.
TEST_F(Search, ADepthBelowTheLeastOneStillFindsNearCubes) {
    setsearchdepth(0);
    for (int i = 0; i < 30; i++) {
        plain::cube c = plain::solvedcube();
        for (int n = 0; n < 4; n++)
            c = plain::turned(c, static_cast<int>(3 * (random() % 6)));
        const std::string found = solution(c);
        EXPECT_EQ(found, plain::solve(c, 0).empty() ? "error" : plain::solve(c, 0));
    }
}

TEST_F(Search, SolutionsHaveTheParityOfTheCorners) {
    for (int i = 0; i < 8; i++) {
        const plain::cube c = randomcube(random);
        const std::string found = solution(c);
        EXPECT_EQ(static_cast<int>(found.size()) % 2, p_current_cube->corner_parity);
        EXPECT_EQ(static_cast<int>(found.size()), shortest_solution);
        EXPECT_EQ(stage2_allotment < 0 || stage2_allotment <= shortest_solution - increment, true);
    }
}

TEST_F(Search, TheClickIsAskedForEvery70001stCall) {
    while (shell.polls == 0)
        ASSERT_EQ(testclick(), 0);
    for (int call = 1; call <= 70000; call++)
        ASSERT_EQ(testclick(), 0);
    EXPECT_EQ(shell.polls, 1);
    shell.interruptat = 2;
    EXPECT_EQ(testclick(), 1);
    EXPECT_EQ(shell.polls, 2);
}

TEST_F(Search, AnInterruptKeepsTheBestSolutionSoFar) {
    const plain::cube c = randomcube(random);
    const std::string best = solution(c);
    setsearchdepth(16);
    shell.interruptat = shell.polls + 1;
    const std::string kept = solution(c);
    EXPECT_EQ(error, 1);
    EXPECT_GE(kept.size(), best.size());
    plain::cube after = afterletters(c, kept);
    EXPECT_EQ(plain::listing(after), plain::listing(plain::solvedcube()));
    resetshell();
    setsearchdepth(14);
    EXPECT_EQ(solution(c), best);
    EXPECT_EQ(error, 0);
}

TEST_F(Search, AnInterruptBeforeAnySolutionLeavesNone) {
    const plain::cube c = randomcube(random);
    while (shell.polls == 0)
        ASSERT_EQ(testclick(), 0);
    for (int call = 1; call <= 70000; call++) // the next one asks
        ASSERT_EQ(testclick(), 0);
    shell.interruptat = shell.polls + 1;
    EXPECT_EQ(solution(c), "error");
    EXPECT_STREQ(outputstring, "");
    EXPECT_EQ(error, 1);
}

TEST_F(Search, TheGreatestSievesChangeNoAnswer) {
    std::vector<plain::cube> cubes;
    std::vector<std::string> answers;
    for (int i = 0; i < 5; i++) {
        cubes.push_back(randomcube(random));
        answers.push_back(solution(cubes.back()));
    }
    near1_extend(near1_greatest);
    near2_extend(near2_greatest);
    for (std::size_t i = 0; i < cubes.size(); i++)
        EXPECT_EQ(solution(cubes[i]), answers[i]);
}
