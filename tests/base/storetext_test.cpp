// SPDX-License-Identifier: MIT
#include "base/scratch.h"
#include "base/storetext.h"

#include <FL/Fl_Preferences.H>

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr char header[] = "; one\n; two\n; three\n";

constexpr struct {
    const char* name;
    const char* lines;
    int sound;
} cases[] = {
    {"nothing",                   "",                                                   1},
    {"the toolkit's own",         "\n[.]\n\n\n[./Vexelprefs]\n\nspeed:7\nmac0:a\n+b\n", 1},
    {"groups in groups",          "[./a]\nx:1\n[./a/b]\ny:2\n[./a//c]\n[./]\n",         1},
    {"a group that is not ours",  "[Vexelprefs]\nspeed:7\n",                            0},
    {"an empty group",            "[]\n",                                               0},
    {"an unfinished group",       "[./Vexelprefs\nspeed:7\n",                           1},
    {"a bracket alone",           "[\n",                                                0},
    {"two points",                "[..]\n",                                             0},
    {"a hidden group",            "[.x]\n",                                             0},
    {"no colon",                  "[./a]\nspeed\n+7\n",                                 1},
    {"no key",                    "[./a]\n:7\n:\n",                                     1},
    {"more of nothing",           "+7\n",                                               0},
    {"more of a group",           "[./a]\n+7\n",                                        0},
    {"more of a comment",         "[./a]\nx:1\n;c\n+7\n",                               0},
    {"more of another comment",   "[./a]\n#c\n\n+7\n",                                  0},
    {"more behind a blank line",  "[./a]\nx:1\n\n+7\n",                                 1},
    {"escapes",                   "[./a]\nx:a\\\\b\\nc\\012d\\\"\n",                    1},
    {"an open escape",            "[./a]\nx:ab\\\ny:1\n",                               0},
    {"an open escape at the end", "[./a]\nx:ab\\",                                      0},
    {"an open number",            "[./a]\nx:ab\\01\ny:1\n",                             0},
    {"an escape that goes on",    "[./a]\nx:ab\\0\n+1\n+2\ny:1\n",                      1},
    {"a comment's backslash",     "[./a]\n# c:\\\nx:1\n",                               1},
    {"carriage returns",          "[./a]\r\nx:1\r\n",                                   1},
};

class Storetext : public testing::Test {
  protected:
    int check(const std::string& lines) const {
        writefile(path, header + lines);
        return soundstore(path.c_str());
    }

    scratchhome home;
    std::string path = home.file(".fltk/test/x.prefs");
};

// Has the toolkit read the store, ask for all it holds and write it, in a process of its own.
bool toolkitlives() {
    return asnobody([] {
        Fl_Preferences root(Fl_Preferences::USER, "test", "x");
        Fl_Preferences group(root, "Vexelprefs");
        for (int i = 0; i < group.entries(); ++i) {
            char text[199];
            group.get(group.entry(i), text, "", sizeof text);
        }
        group.set("speed", 7);
    });
}

} // namespace

TEST_F(Storetext, TellsWhatTheToolkitCanRead) {
    for (const auto& row : cases) {
        EXPECT_EQ(row.sound, check(row.lines)) << row.name;
        if (row.sound != 0) {
            EXPECT_TRUE(toolkitlives()) << row.name;
        }
    }
}

TEST_F(Storetext, GroupsHaveALimit) {
    EXPECT_EQ(1, check("[./" + std::string(118, 'g') + "]\n"));
    EXPECT_TRUE(toolkitlives());
    EXPECT_EQ(0, check("[./" + std::string(119, 'g') + "]\n"));
}

TEST_F(Storetext, LongLinesCountAsSeveral) {
    const std::string filler(1023, 'x');
    EXPECT_EQ(1, check(filler + "x[nogroup]\n"));
    EXPECT_EQ(0, check(filler + "[nogroup]\n"));
    EXPECT_EQ(0, check(filler + "\n;\n" + filler + ";c\n+7\n"));
}

TEST_F(Storetext, TheHeaderIsNotLookedAt) {
    writefile(path, "[x]\n+1\nab\\\nspeed:7\n");
    EXPECT_EQ(1, soundstore(path.c_str()));
}

TEST_F(Storetext, AMissingStoreIsSoundAndAnUnreadableOneIsNot) {
    EXPECT_EQ(1, soundstore(home.file("none").c_str()));
    EXPECT_EQ(0, soundstore(home.file("").c_str()));
    EXPECT_EQ(0, soundstore("/dev/null/x"));
}

// The toolkit lives through every store that passes, whatever it was put together from.
TEST_F(Storetext, WhatPassesDoesNotHarmTheToolkit) {
    constexpr const char* pieces[] = {"[./Vexelprefs]",
                                      "[.]",
                                      "[",
                                      "]",
                                      "./",
                                      "/",
                                      "\n",
                                      "\n",
                                      "\n",
                                      "+",
                                      ":",
                                      ";",
                                      "#",
                                      "\\",
                                      "\\1",
                                      "0",
                                      "mac0",
                                      "speed",
                                      "\r",
                                      "x",
                                      "[x]",
                                      "[./a/b]"};
    std::mt19937 random(7);
    int sound = 0;
    for (int round = 0; round < 400; ++round) {
        std::string lines;
        for (unsigned n = random() % 12; n > 0; --n) {
            lines += pieces[random() % std::size(pieces)];
        }
        if (check(lines) != 0) {
            ++sound;
            ASSERT_TRUE(toolkitlives()) << lines;
        }
    }
    EXPECT_GT(sound, 80);
}
