// SPDX-License-Identifier: MIT
#include "base/savefile.h"
#include "base/scratch.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace {

namespace fs = std::filesystem;

class Savefile : public testing::Test {
  protected:
    static std::string save(const std::string& name, const std::string& content) {
        return savefile(
            name, [&](std::FILE* file) { std::fwrite(content.data(), 1, content.size(), file); });
    }

    int files() const { return filesin(home.file("")); }

    scratchhome home;
    std::string path = home.file("x");
};

} // namespace

TEST_F(Savefile, WritesWhatIsWritten) {
    const std::string content("a\0b\n%s", 6);
    EXPECT_EQ("", save(path, content));
    EXPECT_EQ(content, readfile(path));
    EXPECT_EQ("", save(path, ""));
    EXPECT_EQ("", readfile(path));
    EXPECT_EQ(1, files());
}

TEST_F(Savefile, WhatAPersonHadIsKept) {
    writefile(path, "a thesis");
    EXPECT_EQ("", save(path, "one"));
    EXPECT_EQ("one", readfile(path));
    EXPECT_EQ("a thesis", readfile(path + "~"));
}

TEST_F(Savefile, WhatThisRunWroteIsNotKept) {
    writefile(path, "a thesis");
    for (const char* content : {"one", "two", "a longer one", "3"}) {
        EXPECT_EQ("", save(path, content));
    }
    EXPECT_EQ("3", readfile(path));
    EXPECT_EQ(2, files());
}

TEST_F(Savefile, WhatSomebodyElseWroteSinceIsKept) {
    EXPECT_EQ("", save(path, "one"));
    writefile(path, "1st"); // as long
    EXPECT_EQ("", save(path, "two"));
    EXPECT_EQ("1st", readfile(path + "~"));
    writefile(path, std::string(100000, 'l'));
    EXPECT_EQ("", save(path, "three"));
    EXPECT_EQ(std::string(100000, 'l'), readfile(path + "~2"));
}

TEST_F(Savefile, WhatIsTheSameIsNotKept) {
    writefile(path, "one");
    EXPECT_EQ("", save(path, "one"));
    EXPECT_EQ(1, files());
}

TEST_F(Savefile, AFileIsKnownUnderEachOfItsNames) {
    fs::create_symlink("x", home.file("link"));
    EXPECT_EQ("", save(home.file("link"), "one"));
    EXPECT_EQ("", save(path, "two"));
    EXPECT_EQ("", save(home.file("./link"), "three"));
    EXPECT_EQ("three", readfile(path));
    EXPECT_EQ(2, files());
}

TEST_F(Savefile, WhatCouldNotBeWrittenWasNotWritten) {
    writefile(path, "old");
    {
        const fulldisk disk(2);
        EXPECT_EQ("File too large", save(path, "new"));
    }
    EXPECT_EQ("old", readfile(path));
    writefile(path, "new"); // somebody else
    EXPECT_EQ("", save(path, "newer"));
    EXPECT_EQ("new", readfile(path + "~"));
    EXPECT_EQ(2, files());
}

TEST_F(Savefile, FailuresAreInTheSystemsWords) {
    EXPECT_EQ("No such file or directory", save(home.file("none/x"), "new"));
    EXPECT_EQ("Is a directory", save(home.file(""), "new"));
    makepipe(path);
    EXPECT_EQ("No such device or address", save(path, "new"));
    EXPECT_EQ(1, files());
}
