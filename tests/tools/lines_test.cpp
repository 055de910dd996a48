// SPDX-License-Identifier: MIT
#include "base/scratch.h"
#include "tools/lines.h"
#include "tools/messages.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using line_list = std::vector<std::string>;

class Lines : public testing::Test {
  protected:
    // What a reader makes of the bytes, given to it in portions of a size by a pipe.
    static line_list linesof(const std::string& bytes, std::size_t portion) {
        int ends[2];
        EXPECT_EQ(0, pipe(ends));
        line_reader reader = {};
        reader.file = ends[0];
        line_list lines;
        std::size_t given = 0;
        while (true) {
            while (!lineready(reader)) {
                const std::size_t size = std::min(portion, bytes.size() - given);
                if (size > 0) {
                    EXPECT_EQ(static_cast<ssize_t>(size), write(ends[1], &bytes[given], size));
                    given += size;
                } else {
                    close(ends[1]);
                }
                readmore(reader);
            }
            input_line line;
            if (!nextline(reader, line)) {
                break;
            }
            lines.push_back(line.overlong ? "overlong" : std::string(line.text));
        }
        closelines(reader);
        return lines;
    }

    scratchhome home;
};

struct lines_row {
    std::string bytes;
    line_list lines;
};

TEST_F(Lines, LinesAreWhatNewlinesEnd) {
    const std::string zero("a\0b", 3);
    const std::string mark = "\xef\xbb\xbf";
    const std::string wide(200'000, 'x');
    const lines_row rows[] = {
        {"",                 {}               },
        {"\n",               {""}             },
        {"a",                {"a"}            },
        {"a\nb\n",           {"a", "b"}       },
        {"a\n\nb",           {"a", "", "b"}   },
        {"a\r\nb\r",         {"a\r", "b\r"}   },
        {zero + "\n" + zero, {zero, zero}     },
        {mark + "a\nb",      {"a", "b"}       },
        {"a\n" + mark + "b", {"a", mark + "b"}},
        {"\xef\xbb",         {"\xef\xbb"}     },
        {wide + "\ny\n",     {wide, "y"}      },
    };
    for (const auto& row : rows) {
        for (const std::size_t portion : {1, 2, 3, 5, 60'000}) {
            if (row.bytes.size() < 100 || portion > 100) {
                EXPECT_EQ(row.lines, linesof(row.bytes, portion)) << row.bytes.substr(0, 20);
            }
        }
    }
}

TEST_F(Lines, ALineBeyondTheLimitIsOverlongAndTheNextIsNot) {
    const std::string most(longestline, 'x');
    EXPECT_EQ((line_list{most, "y"}), linesof(most + "\ny\n", 60'000));
    EXPECT_EQ((line_list{"overlong", "y"}), linesof(most + "x\ny\n", 60'000));
    EXPECT_EQ((line_list{"overlong", "y"}), linesof(most + most + most + "\ny\n", 60'000));
    EXPECT_EQ((line_list{"a", "overlong"}), linesof("a\n" + most + "x", 60'000));
}

TEST_F(Lines, AnOverlongLineTakesNoMoreMemory) {
    int ends[2];
    ASSERT_EQ(0, pipe(ends));
    line_reader reader = {};
    reader.file = ends[0];
    const std::string portion(60'000, 'x');
    std::size_t most = 0;
    for (int i = 0; i < 1000; i++) {
        ASSERT_EQ(60'000, write(ends[1], portion.data(), portion.size()));
        readmore(reader);
        EXPECT_FALSE(lineready(reader));
        most = std::max(most, reader.held.capacity());
    }
    EXPECT_LT(most, 4 * longestline);
    close(ends[1]);
    closelines(reader);
}

TEST_F(Lines, WhatCannotBeReadTellsWhy) {
    line_reader reader;
    EXPECT_FALSE(openlines(reader, home.file("none").c_str()));
    EXPECT_EQ(ENOENT, errno);
    ASSERT_TRUE(openlines(reader, home.file("").c_str()));
    input_line line;
    EXPECT_FALSE(nextline(reader, line));
    EXPECT_EQ(EISDIR, reader.failure);
    closelines(reader);
}

TEST_F(Lines, WhatATerminalWouldObeyIsEscaped) {
    EXPECT_EQ("R U' \\\\ \\t\\n\\r", escaped("R U' \\ \t\n\r"));
    EXPECT_EQ("\\x00\\x1b[31m\\x7f\\xff\\xe2\\x80\\x99",
              escaped(std::string("\0\x1b[31m\x7f\xff\xe2\x80\x99", 11)));
}

TEST_F(Lines, TheNameIsThatOfTheCall) {
    nameprogram("/usr/bin/vexel-solve");
    EXPECT_EQ("vexel-solve", programname);
    nameprogram("cube");
    EXPECT_EQ("cube", programname);
    nameprogram(nullptr);
    EXPECT_EQ("", programname);
}

TEST_F(Lines, AFullDeviceEndsTheProgramWithAWord) {
    nameprogram("lines");
    EXPECT_EXIT(
        {
            dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO);
            put("answer\n");
            flushanswers();
        },
        testing::ExitedWithCode(bad_usage), "lines: write error: No space left on device");
}

TEST_F(Lines, AClosedPipeEndsTheProgramInSilence) {
    EXPECT_EXIT(
        {
            std::signal(SIGPIPE, SIG_IGN);
            int ends[2] = {};
            if (pipe(ends) == 0) {
                close(ends[0]);
                dup2(ends[1], STDOUT_FILENO);
            }
            put("answer\n");
            flushanswers();
        },
        testing::KilledBySignal(SIGPIPE), "^$");
}

} // namespace
