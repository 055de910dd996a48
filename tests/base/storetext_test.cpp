// SPDX-License-Identifier: MIT
#include "base/scratch.h"
#include "base/storetext.h"

#include <FL/Fl_Preferences.H>

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using groups = std::map<std::string, storeentries>;

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
    {"an escape across a colon",  "[./a]\nx\\1:2\\\n",                                  0},
    {"a key's backslash",         "[./a]\nx\\:y\\\\z\n",                                1},
    {"escapes of all kinds",      "[./a]\nx:a\\qb\\rc\\000d\\377\ny:\\189\\1:2\n",      1},
    {"the last of two values",    "[./a]\nx:1\ny:2\nx:3\n+4\n[./b]\n[./a]\nx:5\n",      1},
    {"a comment twice",           "[./a]\n#c\nx:1\n#c\n[.]\n;r:\n",                     1},
};

class Storetext : public testing::Test {
  protected:
    // Whether the text is sound; the file has it, then, for the toolkit.
    int check(const std::string& lines) const {
        writefile(path, header + lines);
        return storefault(header + lines).empty() ? 1 : 0;
    }

    scratchhome home;
    std::string path = home.file(".fltk/test/x.prefs");
};

// Appends all that the toolkit finds below a group.
void collect(Fl_Preferences& group, const std::string& name, groups& all) {
    for (int i = 0; i < group.entries(); i++) {
        char value[5000];
        group.get(group.entry(i), value, "", sizeof value);
        all[name][group.entry(i)] = value;
    }
    for (int i = 0; i < group.groups(); i++) {
        Fl_Preferences child(group, group.group(i));
        collect(child, name + "/" + group.group(i), all);
    }
}

// Has the toolkit read the store, in a process of its own, tell what it holds, and write it.
// Returns whether it lived and found there what we find.
bool toolkitagrees(const std::string& text) {
    return asnobody([&] {
        Fl_Preferences root(Fl_Preferences::USER, "test", "x");
        groups all;
        collect(root, ".", all);
        EXPECT_EQ(all, readgroups(text));
        Fl_Preferences group(root, "Vexelprefs");
        group.set("speed", 7);
    });
}

} // namespace

TEST_F(Storetext, TellsWhatTheToolkitCanRead) {
    for (const auto& row : cases) {
        EXPECT_EQ(row.sound, check(row.lines)) << row.name;
        if (row.sound != 0) {
            EXPECT_TRUE(toolkitagrees(header + std::string(row.lines))) << row.name;
        }
    }
}

TEST_F(Storetext, GroupsHaveALimit) {
    const std::string longest = "[./" + std::string(118, 'g') + "]\nx:1\n";
    EXPECT_EQ(1, check(longest));
    EXPECT_TRUE(toolkitagrees(header + longest));
    EXPECT_EQ(0, check("[./" + std::string(119, 'g') + "]\n"));
}

TEST_F(Storetext, LongLinesCountAsSeveral) {
    const std::string filler(1023, 'x');
    EXPECT_EQ(1, check("k:" + filler.substr(2) + "x[nogroup]\n"));
    EXPECT_EQ(1, check("[./a]\nx:" + filler + "y:1\n"));
    EXPECT_TRUE(toolkitagrees(readfile(path)));
    EXPECT_EQ(0, check("k:" + filler.substr(2) + "[nogroup]\n"));
    EXPECT_EQ(0, check(";" + filler.substr(1) + "\n;\nk:" + filler.substr(2) + ";c\n+7\n"));
}

// The toolkit would write it with a colon, and read that line as two.
TEST_F(Storetext, AKeyWithoutAColonLeavesRoomForOne) {
    EXPECT_EQ(1, check(std::string(1021, 'k') + "\n"));
    EXPECT_EQ(0, check(std::string(1022, 'k') + "\n"));
    EXPECT_EQ(1, check(";" + std::string(1022, 'c') + "\n"));
    EXPECT_EQ(1, check("k:" + std::string(1021, 'v') + "\n"));
}

TEST_F(Storetext, TheHeaderIsNotLookedAt) {
    EXPECT_EQ("", storefault("[x]\n+1\nab\\\nspeed:7\n"));
    EXPECT_EQ("", storefault("[x]"));
    EXPECT_EQ("", storefault(""));
    EXPECT_EQ(groups(), readgroups("x:1\ny:2\nz:3"));
}

TEST_F(Storetext, TheDamagedLineIsNamed) {
    EXPECT_EQ("Line 4 is damaged", storefault(header + std::string("[x]\n")));
    EXPECT_EQ("Line 6 is damaged", storefault(header + std::string("[.]\nx:a\\\ny:1\n")));
    EXPECT_EQ("Line 5 is damaged", storefault(header + std::string("[.]\nx:a\\")));
}

TEST_F(Storetext, LongKeysAreCutAsTheToolkitCutsThem) {
    for (const std::size_t size : {126U, 127U, 128U, 200U}) {
        const std::string line = "[./a]\n" + std::string(size, 'k') + ":value\n";
        EXPECT_EQ(1, check(line));
        EXPECT_TRUE(toolkitagrees(header + line)) << size;
    }
}

TEST_F(Storetext, ANulEndsWhatIsSeenOfALine) {
    const std::string line("[./a]\nx:1\0 2\n\0y:2\nz\0:3\n+\0\\\n", 26);
    EXPECT_EQ(1, check(line));
    EXPECT_TRUE(toolkitagrees(header + line));
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
                                      "\\n",
                                      "0",
                                      "mac0",
                                      "speed",
                                      "\r",
                                      "x",
                                      "[x]",
                                      "[./a/b]"};
    std::mt19937 random(7);
    int sound = 0;
    for (int round = 0; round < 400; round++) {
        std::string lines;
        for (unsigned n = random() % 12; n > 0; --n) {
            lines += pieces[random() % std::size(pieces)];
        }
        if (check(lines) != 0) {
            sound++;
            ASSERT_TRUE(toolkitagrees(header + lines)) << lines;
        }
    }
    EXPECT_GT(sound, 80);
}
