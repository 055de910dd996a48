// SPDX-License-Identifier: MIT
#include "nullshell.h"
#include "solver/cornerclass.h"
#include "solver/near1.h"
#include "solver/near2.h"
#include "solver/pruning.h"
#include "solver/samples.h"
#include "solver/search.h"
#include "solver/solver.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace {

class Search : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        while (!initializesolve()) {
            continue;
        }
        plain::build();
    }

    void SetUp() override {
        resetshell();
        setsearchdepth(14);
    }

    void TearDown() override { resetshell(); }

    std::mt19937 random{4502};
};

// Lets the search ask for Alt+Q at its n-th node.
void ask_after(int n) {
    const int polls = shell.polls;
    while (shell.polls == polls) {
        ASSERT_EQ(testclick(), 0);
    }
    for (int call = n; call <= 70000; call++) {
        ASSERT_EQ(testclick(), 0);
    }
}

std::string solution(const plain::cube& c) {
    const char* const answer = my_user_enters_cube(plain::listing(c).c_str());
    return answer == nullptr ? "rejected" : answer;
}

// Solves a cube again and again, each time with more nodes before the interrupt. How many solutions
// that shows, each two turns shorter than the one before.
int solutions_on_the_way(const plain::cube& c) {
    const std::string best = solution(c);
    std::size_t before = 1000;
    int solutions = 0;
    for (int node = 100; node < 70000; node += node / 8) {
        resetshell();
        ask_after(node);
        shell.interruptat = shell.polls + 1;
        const std::string kept = solution(c);
        // Interrupted before any, it goes on to the first of the long ones.
        const bool goeson = a_node_count + b_node_count > node;
        if (goeson || kept.size() == before) {
            continue;
        }
        EXPECT_EQ(plain::listing(afterletters(c, kept)), plain::listing(plain::solvedcube()));
        EXPECT_LE(kept.size() + 2, before);
        EXPECT_EQ(kept.size() % 2, best.size() % 2);
        EXPECT_GE(kept.size(), best.size());
        before = kept.size();
        solutions++;
    }
    return solutions;
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
    for (const int slot : cube.sliceedge) {
        EXPECT_TRUE(slot >= 0 && slot < sliceedge_size);
    }
}

TEST_F(Search, ACubeOneTurnAwayGetsTheTurnBack) {
    for (int face = 0; face < 6; face++) {
        for (int k = 0; k < 3; k++) {
            const plain::cube c = plain::turned(plain::solvedcube(), 3 * face + k);
            EXPECT_EQ(solution(c), my_a_twist_string[3 * face + 2 - k]);
        }
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
        for (int n = 0; n < 4; n++) {
            c = plain::turned(c, static_cast<int>(3 * (random() % 6)));
        }
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
    while (shell.polls == 0) {
        ASSERT_EQ(testclick(), 0);
    }
    for (int call = 1; call <= 70000; call++) {
        ASSERT_EQ(testclick(), 0);
    }
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

// However long the user goes on asking for an end.
TEST_F(Search, AnInterruptBeforeAnySolutionTakesTheFirst) {
    for (int i = 0; i < 40; i++) {
        const plain::cube c = randomcube(random);
        ask_after(1);
        shell.interruptat = shell.polls + 1;
        const std::string first = solution(c);
        ASSERT_NE(first, "error");
        EXPECT_EQ(plain::listing(afterletters(c, first)), plain::listing(plain::solvedcube()));
        EXPECT_EQ(error, 1);
        EXPECT_LT(a_node_count + b_node_count, 2'000'000);
        resetshell();
    }
    const plain::cube c = randomcube(random);
    EXPECT_NE(solution(c), "error");
    EXPECT_EQ(error, 0);
}

TEST_F(Search, StageTwoCanBeInterruptedToo) {
    const plain::cube c = randomsubcube(random);
    setsearchdepth(0);
    ask_after(100);
    shell.interruptat = shell.polls + 1;
    EXPECT_NE(solution(c), "error");
    EXPECT_EQ(error, 1);
    EXPECT_EQ(a_node_count, 2); // it was no node of stage 1 that asked
    resetshell();
    EXPECT_NE(solution(c), "error");
    EXPECT_GT(b_node_count, 99);
}

TEST_F(Search, NodesAreCounted) {
    // At depth 1 the root, and behind each of two quarter turns of F the subgroup; behind the one
    // the solved cube.
    EXPECT_EQ(solution(afterletters(plain::solvedcube(), "f")), "F");
    EXPECT_EQ(a_node_count, 3);
    EXPECT_EQ(b_node_count, 0);
    EXPECT_EQ(solution(afterletters(plain::solvedcube(), "u")), "U");
    EXPECT_EQ(a_node_count, 1);
    EXPECT_EQ(b_node_count, 1);
}

// What the tables are for. The plain search visits some 30 million of stage 1 here.
TEST_F(Search, FewNodesAreVisited) {
    long long stage1 = 0;
    long long stage2 = 0;
    for (int i = 0; i < 20; i++) {
        (void)solution(randomcube(random));
        stage1 += a_node_count;
        stage2 += b_node_count;
    }
    EXPECT_LT(stage1, 3'300'000);
    EXPECT_LT(stage2, 1'200'000);
}

TEST_F(Search, EachImprovementIsTwoTurnsShorterAtLeast) {
    // All tables, so that the nodes alone ask for Alt+Q.
    ASSERT_TRUE(near1_extend(near1_greatest) && near2_extend(near2_greatest) &&
                corner_bounds_fill());
    constexpr int cubes = 8;
    int solutions = 0;
    for (int i = 0; i < cubes; i++) {
        // A few turns out of the subgroup, where there are many solutions.
        const plain::cube c = plain::turned(randomsubcube(random), 0);
        solutions += solutions_on_the_way(plain::turned(c, 14));
    }
    EXPECT_GT(solutions, cubes);
}

// Of the solutions of a depth that are equally short the first in the order of the twists counts,
// whatever the tables know.
TEST_F(Search, TheOrderOfTheTwistsDecides) {
    for (int i = 0; i < 320; i++) {
        if (i == 160) {
            ASSERT_TRUE(near1_extend(near1_greatest) && near2_extend(near2_greatest) &&
                        corner_bounds_fill());
        }
        plain::cube c = i % 2 == 0 ? plain::solvedcube() : randomsubcube(random);
        for (int n = 0; n < i % 10; n++) {
            c = plain::turned(c, static_cast<int>(random() % 18));
        }
        const int depth = i % 2 == 0 ? 11 : 9;
        setsearchdepth(depth);
        const std::string expected = plain::solve(c, depth);
        EXPECT_EQ(solution(c), expected.empty() ? "error" : expected);
    }
}

// Corners that what is left of both stages just suffices for: one quarter turn less, and each of
// these would get a longer answer or a later one. The answers are the plain twin's.
TEST_F(Search, CornersThatAreJustNearEnoughAreKept) {
    ASSERT_TRUE(near1_extend(near1_greatest) && corner_bounds_fill());

    constexpr struct {
        int depth;
        const char *listing, *answer;
    } rows[] = {
        {10,
         "DF FL RF UF LD DR RB UB UL LB RU BD "
         "FUL FLD RFD UBL BUR DLB RDB FRU", "FUUBLLFUl"    },
        {10,
         "UF DB RU FR DR BR LB DL DF FL LU BU "
         "ULF RBU BRD FRU RFD DFL BLU LBD", "bRRLLDDRdLL"  },
        {10,
         "UL FD DL BL UR BR DR FU RF UB LF DB "
         "ULF DFL RDB LBD UFR LUB RBU DRF", "RlUDRRDDF"    },
        {10,
         "FD UB RD UR FR BR DB FU FL UL LB DL "
         "UBL BDL RDB FLD FDR FRU FUL BUR", "UUFUrlbuFB"   },
        {10,
         "DF UB FU FL DR BR RU BL FR DL LU BD "
         "UFR BRD FUL FLD DLB DRF RBU BLU", "FFBLuRRDDRDD" },
        {10,
         "UF UR LU DB BR DL DF LF DR BU RF BL "
         "UFR LFU DLB UBL DRF BRD RBU DFL", "UUDRRFDRUU"   },
        {10,
         "BR DF UF LB DL DR UR BD FR UB FL UL "
         "LDF DLB LUB RUF DRF BRD FUL URB", "UlbRRFFRRbULL"},
        {11,
         "DL DB UF RF DR LF UB UR BR FD LU BL "
         "LDF DBR FUL URB BLU UFR RFD DLB", "RRLLUDLLfU"   },
    };

    for (const auto& row : rows) {
        setsearchdepth(row.depth);
        EXPECT_STREQ(my_user_enters_cube(row.listing), row.answer);
    }
}

TEST_F(Search, AnUnlikelyLongSolutionIsFoundToo) {
    setsearchdepth(9);
    std::size_t longest = 0;
    for (int i = 0; i < 20; i++) {
        const plain::cube c = randomcube(random);
        const std::string expected = plain::solve(c, 9);
        EXPECT_EQ(solution(c), expected.empty() ? "error" : expected);
        longest = std::max(longest, expected.size());
    }
    EXPECT_GT(longest, 30u);
}

TEST_F(Search, TheGreatestTablesChangeNoAnswer) {
    ASSERT_TRUE(near1_extend(near1_greatest));
    ASSERT_TRUE(near2_extend(near2_greatest));
    ASSERT_TRUE(corner_bounds_fill());
    const std::vector<golden_row> rows = goldenrows(GOLDEN "/solver14.txt");
    ASSERT_GT(rows.size(), 100u);
    for (const golden_row& row : rows) {
        const std::string answer = my_user_enters_cube(row.listing.c_str());
        EXPECT_EQ(answer, row.answer.empty() ? "error" : row.answer);
    }
    for (int i = 0; i < 3; i++) {
        const plain::cube c = randomsubcube(random);
        setsearchdepth(11);
        EXPECT_EQ(solution(c), plain::solve(c, 11));
    }
}
