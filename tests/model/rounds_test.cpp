// SPDX-License-Identifier: MIT
//
// The parser, whose rounds are multiplied, against one that does every round.
#include "model/modeltest.h"
#include "model/rounds.h"
#include "model/slowparser.h"

#include <climits>
#include <cstring>
#include <random>

namespace {

class Rounds : public ModelTest {};

std::mt19937 numbers(20240117);

int draw(int below) {
    return static_cast<int>(numbers() % static_cast<unsigned>(below));
}

char drawof(const std::string& letters) {
    return letters[static_cast<size_t>(draw(static_cast<int>(letters.size())))];
}

// Mostly well-formed, with every kind of slip now and then.
std::string drawmacro(int depth) {
    std::string text;
    for (int items = draw(6); items >= 0; items--) {
        const int kind = draw(20);
        if (kind < 8) {
            text += drawof("UDLRFBudlrfb");
        } else if (kind < 11) {
            text += drawof("*>");
            text += drawof("FBLRUDFBLRUDu(*)7");
        } else if (kind < 17 && depth > 0) {
            static const int counts[] = {1, 2, 3, 5, 12, 40, 123, 450};
            text += std::to_string(counts[draw(8)]) + "(" + drawmacro(depth - 1) + ")";
        } else if (kind == 17) {
            text += "s(" + drawmacro(depth - 1) + ")";
        } else if (kind == 18) {
            text += drawof("xxs0 ?\xe9");
        } else {
            text += drawof("()*>19");
        }
    }
    return text;
}

// A state to start from that is nobody's first thought.
void drawstate(slow_run& run) {
    for (int i = draw(900); i > 0; i--) {
        const int code = draw(24);
        applyturn(code);
        undosave(code);
        run.undo.push_back(code);
        if (run.undo.size() > 800) {
            run.undo.erase(run.undo.begin(), run.undo.begin() + 500);
        }
    }
    savecubex();
    if (draw(3) == 0) {
        jumblecube();
        restorecubex(); // colours at odds with cubefaces: both move alike all the same
    }
    if (draw(2) == 0 && undoptr > 0) {
        undo();
        run.undo.pop_back();
        run.undounderway = true;
    }
    run.cube = modelcube();
}

std::vector<int> queued() {
    return {turns, turns + turnptr};
}

void expectsame(const slow_run& run) {
    EXPECT_TRUE(run.cube == modelcube());
    EXPECT_EQ(run.queue, queued());
    EXPECT_EQ(noturn, turns[turnptr]);
    EXPECT_EQ(run.undo, std::deque<int>(undobuf, undobuf + undoptr));
    EXPECT_EQ(run.order, macorder);
    EXPECT_EQ(run.stuck ? 1 : 0, reversing);
    EXPECT_EQ(0, parselevel);
}

// Runs macros against the twin until enough were short enough for it.
template <class Parse, class Slow> void compare(int mode, Parse fast, Slow slow) {
    int compared = 0;
    while (compared < 1000) {
        resetshell();
        initturns();
        initundo();
        initparser();
        slow_run run;
        run.queueing = mode == 1;
        drawstate(run);
        const std::string text = drawmacro(4);
        SCOPED_TRACE(text);
        slow(run, text);
        parsing = mode;
        fast(text.c_str(), static_cast<int>(text.size()));
        if (run.budget >= 0) {
            expectsame(run);
            compared++;
        }
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TEST_F(Rounds, DirectParsesAgreeWithTheSlowParser) {
    compare(0, parsestring, slowparse);
}

TEST_F(Rounds, QueueingParsesAgreeWithTheSlowParser) {
    compare(1, parsestring, slowparse);
}

TEST_F(Rounds, DirectReversalsAgreeWithTheSlowParser) {
    compare(0, revparsestring, slowreverse);
}

TEST_F(Rounds, QueueingReversalsAgreeWithTheSlowParser) {
    compare(1, revparsestring, slowreverse);
}

// The same end by another road: rounds that are too many for the slow parser, modulo the order.
TEST_F(Rounds, HugeCountsAreExactAtOnce) {
    slow_run run;
    run.budget = 1000000;
    const int rounds = static_cast<int>(999999LL * 999999LL % 105); // RU is of order 105
    slowparse(run, std::to_string(rounds) + "(RU)");
    const std::string text = "999999(999999(RU))";
    parsestring(text.c_str(), static_cast<int>(text.size()));
    EXPECT_TRUE(run.cube == modelcube());

    // 2 * 999999^2 codes, an even number: the buffer ends in U, and holds 301 + (n - 801) % 500.
    const long long codes = 2 * 999999LL * 999999LL;
    ASSERT_EQ(301 + (codes - 801) % 500, undoptr);
    for (int back = 1; back <= undoptr; back++) {
        ASSERT_EQ(back % 2 == 1 ? 0 : 6, undobuf[undoptr - back]) << back;
    }
}

int modulo(const std::string& digits, int divisor) {
    int rest = 0;
    for (char digit : digits) {
        rest = (rest * 10 + (digit - '0')) % divisor;
    }
    return rest;
}

std::string drawturns() {
    std::string text;
    for (int i = draw(12); i >= 0; i--) {
        text += std::string(turn_table[draw(turncount)].notation);
    }
    return text;
}

// Rounds until the macro comes back to where it began, facelet by facelet.
int slowperiod(const std::string& text) {
    slow_run run;
    int period = 0;
    do {
        run.budget = 1000000;
        slowparse(run, text);
        period++;
    } while (!(run.cube == slowsolved()));
    return period;
}

// The cube is that of the count modulo the period. The undo buffer ends in the last rounds and
// holds 301 + (turns - 801) modulo 500.
TEST_F(Rounds, CountsOfManyDigitsAreExact) {
    for (int i = 0; i < 300; i++) {
        SetUp();
        std::string digits = "2147483648";
        for (int more = draw(30); more > 0; more--) {
            digits += drawof("0123456789");
        }
        const std::string group = "(" + drawturns() + ")";
        SCOPED_TRACE(digits + group);
        slow_run run;
        run.budget = 1000000;
        const int rounds = modulo(digits, slowperiod("1" + group));
        slowparse(run, std::to_string(rounds).append(group));
        ASSERT_GE(run.budget, 0);
        apply("1" + group);
        const codes round = held();
        const int turnsinround = undoptr;
        SetUp();
        apply(digits + group);
        ASSERT_TRUE(run.cube == modelcube());
        ASSERT_EQ(301 + (turnsinround * modulo(digits, 500) + 199) % 500, undoptr);
        for (int back = 1; back <= undoptr; back++) {
            const int place = turnsinround - 1 - (back - 1) % turnsinround;
            ASSERT_EQ(round[static_cast<size_t>(place)], undobuf[undoptr - back]) << back;
        }
    }
}

TEST_F(Rounds, ALargeCountIsTheLargestIntThatDoesTheSame) {
    const long long largest = INT_MAX;
    EXPECT_EQ(0, samecount(0));
    EXPECT_EQ(INT_MAX, samecount(largest));
    EXPECT_EQ(INT_MAX - countperiod + 1, samecount(largest + 1));
    EXPECT_EQ(INT_MAX - 1, samecount(largest + countperiod - 1));
    EXPECT_EQ(INT_MAX, samecount(largest + countperiod));
    EXPECT_EQ(INT_MAX - 3, samecount(largest - 3 + 12345LL * countperiod));
}

TEST_F(Rounds, LongRoundsLeaveTheUndoBufferOfEachTurn) {
    for (const char* text : {"1301(R)", "801(R)", "1300(U)", "3(700(R)U)", "7(999(R)3(432(UF)))"}) {
        SCOPED_TRACE(text);
        initcubies();
        initundo();
        slow_run run;
        run.budget = 1000000;
        slowparse(run, text);
        ASSERT_GE(run.budget, 0);
        parsestring(text, static_cast<int>(strlen(text)));
        expectsame(run);
    }
}

TEST_F(Rounds, RoundsOfNothingEnd) {
    const std::string text = "2147483647(2147483647(2147483647()))R";
    parsing = 1;
    EXPECT_EQ(1, parsestring(text.c_str(), static_cast<int>(text.size())));
    parsing = 0;
    EXPECT_EQ(0, parsestring(text.c_str(), static_cast<int>(text.size())));
    EXPECT_EQ(1, undoptr);
}

} // namespace
