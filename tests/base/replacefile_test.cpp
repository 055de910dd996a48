// SPDX-License-Identifier: MIT
#include "base/replacefile.h"
#include "base/scratch.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Replacefile : public testing::Test {
  protected:
    static int replace(const std::string& path, const std::string& content) {
        return replacefile(path.c_str(), [&](std::FILE* file) {
            std::fwrite(content.data(), 1, content.size(), file);
        });
    }

    int files() const {
        return static_cast<int>(std::distance(fs::directory_iterator(home.file("")), {}));
    }

    scratchhome home;
    std::string path = home.file("x");
};

} // namespace

TEST_F(Replacefile, MakesANewFile) {
    EXPECT_EQ(1, replace(path, "new"));
    EXPECT_EQ("new", readfile(path));
    EXPECT_EQ(1, files());
}

TEST_F(Replacefile, ANewFileHasThePermissionsOfAnyNewFile) {
    const mode_t old = umask(027);
    EXPECT_EQ(1, replace(path, "new"));
    umask(old);
    EXPECT_EQ(fs::perms(0640), fs::status(path).permissions());
}

TEST_F(Replacefile, ReplacesAnOldFile) {
    writefile(path, std::string(100000, 'o'));
    EXPECT_EQ(1, replace(path, "new"));
    EXPECT_EQ("new", readfile(path));
}

TEST_F(Replacefile, AReaderOfTheOldFileKeepsIt) {
    writefile(path, "old");
    std::FILE* reader = std::fopen(path.c_str(), "r");
    EXPECT_EQ(1, replace(path, "new"));
    EXPECT_EQ('o', std::fgetc(reader));
    std::fclose(reader);
}

TEST_F(Replacefile, AFullDiskLeavesTheOldFile) {
    writefile(path, "old");
    const std::string large(20000, 'n');
    for (const long room : {0L, 1L, 4096L, 19999L}) {
        const fulldisk disk(room);
        EXPECT_EQ(0, replace(path, large));
    }
    EXPECT_EQ("old", readfile(path));
    EXPECT_EQ(1, files());
    const fulldisk enough(20000);
    EXPECT_EQ(1, replace(path, large));
}

TEST_F(Replacefile, AFullDeviceIsToldAndStays) {
    EXPECT_EQ(0, replace("/dev/full", "x"));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(1, replace("/dev/null", "x"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(Replacefile, AFolderThatMayNotBeWrittenIsTold) {
    const std::string folder = home.file("folder");
    writefile(folder + "/x", "old");
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(0, replace(folder + "/x", "new")); }));
    EXPECT_EQ("old", readfile(folder + "/x"));
    EXPECT_EQ(0, replace(folder + "/x/y", "new"));
    EXPECT_EQ(0, replace("", "new"));
}

TEST_F(Replacefile, ALongNameLeavesRoomForTheNewFile) {
    const std::string longest = home.file(std::string(255, 'n'));
    EXPECT_EQ(1, replace(longest, "one"));
    EXPECT_EQ(1, replace(longest, "two"));
    EXPECT_EQ("two", readfile(longest));
}
