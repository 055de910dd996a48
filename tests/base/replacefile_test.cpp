// SPDX-License-Identifier: MIT
#include "base/readfile.h"
#include "base/replacefile.h"
#include "base/scratch.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Replacefile : public testing::Test {
  protected:
    int files() const { return filesin(home.file("")); }

    // A file that others may write, in a folder that they may not.
    std::string closedfile(const std::string& content) const {
        std::string name = home.file("folder/x");
        writefile(name, content);
        fs::permissions(name, fs::perms(0666));
        fs::permissions(home.file("folder"), fs::perms(0755));
        return name;
    }

    scratchhome home;
    std::string path = home.file("x");
};

ino_t inode(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(0, stat(path.c_str(), &status));
    return status.st_ino;
}

// Whether somebody has the pipe open to write.
bool haswriter(int reader) {
    pollfd pipe = {reader, 0, 0};
    return poll(&pipe, 1, 0) >= 0 && (pipe.revents & POLLHUP) == 0;
}

} // namespace

TEST_F(Replacefile, MakesANewFile) {
    EXPECT_EQ(0, replacefile(path, "new"));
    EXPECT_EQ("new", readfile(path));
    EXPECT_EQ(1, files());
}

TEST_F(Replacefile, ANewFileHasThePermissionsOfAnyNewFile) {
    const mode_t old = umask(027);
    EXPECT_EQ(0, replacefile(path, "new"));
    umask(old);
    EXPECT_EQ(fs::perms(0640), fs::status(path).permissions());
}

TEST_F(Replacefile, ReplacesAnOldFile) {
    writefile(path, std::string(100000, 'o'));
    fs::permissions(path, fs::perms(0604));
    EXPECT_EQ(0, replacefile(path, "new"));
    EXPECT_EQ("new", readfile(path));
    EXPECT_EQ(fs::perms(0604), fs::status(path).permissions());
    EXPECT_EQ(1, files());
}

TEST_F(Replacefile, AReaderOfTheOldFileKeepsIt) {
    writefile(path, "old");
    std::FILE* reader = std::fopen(path.c_str(), "r");
    EXPECT_EQ(0, replacefile(path, "new"));
    EXPECT_EQ('o', std::fgetc(reader));
    std::fclose(reader);
}

TEST_F(Replacefile, AFullDiskLeavesTheOldFile) {
    writefile(path, "old");
    const std::string large(20000, 'n');
    for (const long room : {0L, 1L, 4096L, 19999L}) {
        const fulldisk disk(room);
        EXPECT_EQ(EFBIG, replacefile(path, large));
    }
    EXPECT_EQ("old", readfile(path));
    EXPECT_EQ(1, files());
    const fulldisk enough(20000);
    EXPECT_EQ(0, replacefile(path, large));
    EXPECT_EQ(large, readfile(path));
}

TEST_F(Replacefile, AFullDeviceIsToldAndStays) {
    if (!makedevice(path, "full") || !makedevice(home.file("null"), "null")) {
        GTEST_SKIP() << "no devices for this user";
    }
    EXPECT_EQ(ENOSPC, replacefile(path, "x"));
    EXPECT_EQ(0, replacefile(home.file("null"), "x"));
    EXPECT_EQ(0, replacefile(home.file("null"), "x", oldcontent::kept));
    EXPECT_TRUE(fs::is_character_file(path));
    EXPECT_TRUE(fs::is_character_file(home.file("null")));
    EXPECT_EQ(2, files());
}

TEST_F(Replacefile, APipeThatNobodyReadsIsAnErrorAtOnce) {
    makepipe(path);
    EXPECT_EQ(ENXIO, replacefile(path, "x"));
    EXPECT_TRUE(fs::is_fifo(path));
}

TEST_F(Replacefile, AReaderOfAPipeGetsAllOfIt) {
    makepipe(path);
    const std::string large(300000, 'n'); // more than a pipe holds
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    const pid_t child = fork();
    if (child == 0) {
        _exit(replacefile(path, large));
    }
    std::string seen;
    char part[5000];
    for (int tries = 0; seen.size() < large.size() && tries < 5000; tries++) {
        const ssize_t size = read(reader, part, sizeof part);
        if (size > 0) {
            seen.append(part, static_cast<std::size_t>(size));
        } else {
            usleep(1000); // nobody has come yet, or nothing is there
        }
    }
    int status = -1;
    waitpid(child, &status, 0);
    close(reader);
    EXPECT_EQ(0, status);
    EXPECT_TRUE(large == seen) << seen.size() << " bytes";
}

TEST_F(Replacefile, AReaderThatStopsIsWaitedForASecondAndOneThatGoesIsAnError) {
    makepipe(path);
    const std::string large(300000, 'n');
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_EQ(EAGAIN, replacefile(path, large));
    EXPECT_FALSE(haswriter(reader)); // it has left a full pipe
    const pid_t child = fork();
    if (child == 0) {
        close(reader); // the other one stays until the writer has come
        const int error = replacefile(path, large);
        _exit(error == EPIPE ? 0 : 1);
    }
    for (int tries = 0; !haswriter(reader) && tries < 10000; tries++) {
        usleep(1000);
    }
    close(reader);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status)) << "ended by a signal";
    EXPECT_EQ(0, WEXITSTATUS(status));
}

TEST_F(Replacefile, WhatIsNoFileIsRefused) {
    writefile(path, "old");
    EXPECT_EQ(EISDIR, replacefile(home.file(""), "new"));
    EXPECT_EQ(ENOTDIR, replacefile(path + "/y", "new"));
    EXPECT_EQ(ENOENT, replacefile(home.file("none/y"), "new"));
    EXPECT_EQ(ENOENT, replacefile("", "new"));
    EXPECT_EQ("old", readfile(path));
    EXPECT_EQ(1, files());
}

TEST_F(Replacefile, ALongNameLeavesRoomForTheNewFile) {
    const std::string longest = home.file(std::string(255, 'n'));
    EXPECT_EQ(0, replacefile(longest, "one"));
    EXPECT_EQ(0, replacefile(longest, "two", oldcontent::kept));
    EXPECT_EQ("two", readfile(longest));
    EXPECT_EQ("one", readfile(home.file(std::string(254, 'n') + "~")));
    EXPECT_EQ(0, replacefile(longest, "three", oldcontent::kept));
    EXPECT_EQ("two", readfile(home.file(std::string(253, 'n') + "~2")));
}

TEST_F(Replacefile, ANameWithoutAFolderIsInThatOfTheProcess) {
    const fs::path old = fs::current_path();
    fs::current_path(home.file(""));
    EXPECT_EQ(0, replacefile("x", "one"));
    EXPECT_EQ(0, replacefile("x", "two", oldcontent::kept));
    fs::current_path(old);
    EXPECT_EQ("two", readfile(path));
    EXPECT_EQ("one", readfile(path + "~"));
    EXPECT_EQ(2, files());
}

// Files that may not be written

TEST_F(Replacefile, AFileThatMayNotBeWrittenIsNotReplaced) {
    writefile(path, "old");
    fs::permissions(path, fs::perms(0444));
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(EACCES, replacefile(path, "new")); }));
    EXPECT_EQ("old", readfile(path));
    EXPECT_EQ(1, files());
}

TEST_F(Replacefile, AFolderThatMayNotBeWrittenTakesNoNewFile) {
    closedfile("old");
    const std::string other = home.file("folder/y");
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(EACCES, replacefile(other, "new")); }));
    EXPECT_EQ(1, filesin(home.file("folder")));
}

TEST_F(Replacefile, AFileInAClosedFolderIsWrittenItself) {
    const std::string name = closedfile("the old content");
    const ino_t before = inode(name);
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(0, replacefile(name, "new", oldcontent::kept)); }));
    EXPECT_EQ("new", readfile(name));
    EXPECT_EQ(before, inode(name));
    EXPECT_EQ(1, filesin(home.file("folder")));
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(0, replacefile(name, std::string(99999, 'n'))); }));
    EXPECT_EQ(std::string(99999, 'n'), readfile(name));
}

TEST_F(Replacefile, AFullDiskLeavesAFileInAClosedFolder) {
    const std::string name = closedfile("old");
    EXPECT_TRUE(asnobody([&] {
        const fulldisk disk(4096);
        EXPECT_EQ(EFBIG, replacefile(name, std::string(20000, 'n')));
    }));
    EXPECT_EQ("old", readfile(name));
}

TEST_F(Replacefile, AnothersFileStaysTheirs) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give a file away";
    }
    writefile(path, "old");
    ASSERT_EQ(0, chown(path.c_str(), 4711, 4712));
    EXPECT_EQ(0, replacefile(path, "new"));
    struct stat status = {};
    ASSERT_EQ(0, stat(path.c_str(), &status));
    EXPECT_EQ(4711U, status.st_uid);
    EXPECT_EQ(4712U, status.st_gid);
    fs::permissions(path, fs::perms(0666));
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(0, replacefile(path, "newer")); }));
    ASSERT_EQ(0, stat(path.c_str(), &status));
    EXPECT_EQ(4711U, status.st_uid);
    EXPECT_EQ("newer", readfile(path));
    EXPECT_EQ(1, files());
}

// Links

TEST_F(Replacefile, ALinkStaysALink) {
    writefile(home.file("there/real"), "old");
    fs::create_symlink("there/real", home.file("near"));
    fs::create_symlink(home.file("near"), path);
    EXPECT_EQ(0, replacefile(path, "new", oldcontent::kept));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_TRUE(fs::is_symlink(home.file("near")));
    EXPECT_EQ("new", readfile(home.file("there/real")));
    EXPECT_EQ("old", readfile(home.file("there/real~")));
    EXPECT_EQ(2, filesin(home.file("there")));
}

TEST_F(Replacefile, ALinkThatLeadsNowhereMakesItsTarget) {
    fs::create_directory(home.file("there"));
    fs::create_symlink("there/near", path);
    fs::create_symlink("real", home.file("there/near"));
    EXPECT_EQ(0, replacefile(path, "new"));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ("new", readfile(home.file("there/real")));
    fs::create_symlink("none/real", home.file("lost"));
    EXPECT_EQ(ENOENT, replacefile(home.file("lost"), "new"));
    EXPECT_TRUE(fs::is_symlink(home.file("lost")));
}

TEST_F(Replacefile, ARingOfLinksIsRefused) {
    fs::create_symlink("y", path);
    fs::create_symlink("x", home.file("y"));
    EXPECT_EQ(ELOOP, replacefile(path, "new"));
    EXPECT_EQ(2, files());
}

TEST_F(Replacefile, AllNamesOfAFileHaveTheNewContent) {
    writefile(path, "the old content");
    fs::create_hard_link(path, home.file("second"));
    EXPECT_EQ(0, replacefile(path, "new"));
    EXPECT_EQ("new", readfile(home.file("second")));
    EXPECT_EQ(inode(path), inode(home.file("second")));
    fs::permissions(path, fs::perms(0626)); // more than a new file has
    EXPECT_EQ(0, replacefile(path, "newer", oldcontent::kept));
    EXPECT_EQ("newer", readfile(home.file("second")));
    EXPECT_EQ("new", readfile(path + "~"));
    EXPECT_EQ(fs::perms(0626), fs::status(path + "~").permissions());
    EXPECT_EQ(3, files());
}

TEST_F(Replacefile, ACopyHasEveryByte) {
    for (const std::size_t size : {0U, 1U, 16383U, 16384U, 16385U, 50000U}) {
        const std::string old(size, 'o');
        fs::remove(path);
        fs::remove(path + "~");
        fs::remove(home.file("second"));
        writefile(path, old);
        fs::create_hard_link(path, home.file("second"));
        EXPECT_EQ(0, replacefile(path, "new", oldcontent::kept));
        EXPECT_TRUE(old == readfile(path + "~")) << size;
    }
}

TEST_F(Replacefile, AFullDiskLeavesAFileOfTwoNames) {
    const std::string old(3000, 'o');
    writefile(path, old);
    fs::create_hard_link(path, home.file("second"));
    for (const oldcontent fate : {oldcontent::dropped, oldcontent::kept}) {
        for (const long room : {0L, 2999L, 4096L, 19999L}) {
            const fulldisk disk(room);
            EXPECT_EQ(EFBIG, replacefile(path, std::string(20000, 'n'), fate)) << room;
            EXPECT_EQ(old, readfile(path)) << room;
        }
    }
}

// What was there

TEST_F(Replacefile, TheOldContentIsKeptUnderTheFirstFreeName) {
    writefile(path, "one");
    fs::permissions(path, fs::perms(0640));
    const ino_t before = inode(path);
    EXPECT_EQ(0, replacefile(path, "two", oldcontent::kept));
    EXPECT_EQ(before, inode(path + "~"));
    EXPECT_EQ(0, replacefile(path, "three", oldcontent::kept));
    EXPECT_EQ(0, replacefile(path, "four", oldcontent::kept));
    fs::remove(path + "~2");
    EXPECT_EQ(0, replacefile(path, "five", oldcontent::kept));
    EXPECT_EQ("one", readfile(path + "~"));
    EXPECT_EQ("four", readfile(path + "~2"));
    EXPECT_EQ("three", readfile(path + "~3"));
    EXPECT_EQ("five", readfile(path));
    EXPECT_EQ(4, files());
    EXPECT_EQ(fs::perms(0640), fs::status(path + "~3").permissions());
}

TEST_F(Replacefile, AnOldContentThatCannotBeKeptIsNotLost) {
    writefile(path, std::string(3000, 'o'));
    fs::create_hard_link(path, home.file("second")); // so that keeping it takes room
    const fulldisk disk(2000);
    EXPECT_EQ(EFBIG, replacefile(path, "new", oldcontent::kept));
    EXPECT_EQ(std::string(3000, 'o'), readfile(path));
    EXPECT_EQ(2, files());
}

TEST_F(Replacefile, ANewFileIsNotKept) {
    EXPECT_EQ(0, replacefile(path, "new", oldcontent::kept));
    EXPECT_EQ(1, files());
}

// Leftovers

TEST_F(Replacefile, LeftoversOfTheSameFileAreRemoved) {
    const auto made = [&](const std::string& name) {
        return newfilename(name).substr(0, newfilename(name).size() - 6) + "Ab3dEf";
    };
    const std::string link = home.file("link");
    fs::create_directory(home.file("there"));
    fs::create_symlink("there/real", link);
    const std::string others[] = {made(home.file("y")), path, home.file(".x.vexel-"),
                                  home.file(".x.vexel-Ab3dEfg"), home.file("x.vexel-Ab3dEf")};
    for (const std::string& name : others) {
        writefile(name, "x");
    }
    const std::string leftovers[] = {made(path), made(link), made(home.file("there/real"))};
    for (const std::string& name : leftovers) {
        writefile(name, "x");
    }
    writefile(home.file(".x.vexel-folder/deep/file"), "x"); // six letters, too
    removeleftovers(path);
    removeleftovers(link);
    for (const std::string& name : others) {
        EXPECT_TRUE(fs::exists(name)) << name;
    }
    for (const std::string& name : leftovers) {
        EXPECT_FALSE(fs::exists(name)) << name;
    }
    EXPECT_FALSE(fs::exists(home.file(".x.vexel-folder")));
}

TEST_F(Replacefile, NoDescriptorIsLeftOpen) {
    const int before = filesin("/proc/self/fd");
    EXPECT_EQ(0, replacefile(path, "new"));
    EXPECT_EQ(0, replacefile(path, "newer", oldcontent::kept));
    fs::create_hard_link(path, home.file("second"));
    EXPECT_EQ(0, replacefile(path, "newest", oldcontent::kept));
    EXPECT_EQ(EISDIR, replacefile(home.file(""), "new"));
    EXPECT_EQ(before, filesin("/proc/self/fd"));
}
