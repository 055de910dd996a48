// SPDX-License-Identifier: MIT
#include "base/safestore.h"
#include "base/scratch.h"
#include "base/syscalls.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Safestore : public testing::Test {
  protected:
    static std::string add(const std::string& name, const std::string& more) {
        return changestore(name, [&](std::string& content, const std::string&) {
            content += more;
            return "";
        });
    }

    std::string lockname() const { return store + ".lock"; }

    scratchhome home;
    std::string store = home.file("a/b/store");
};

const std::string busy = "Another program is changing it";

// Seconds that a piece of work takes.
template <typename work_type> double timeof(const work_type& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

TEST_F(Safestore, IsMadeWithItsFoldersAndChanged) {
    EXPECT_EQ("", add(store, "one"));
    EXPECT_EQ("one", readfile(store));
    EXPECT_EQ("", add(store, "two"));
    std::string content;
    EXPECT_EQ("", readstore(store, content));
    EXPECT_EQ("onetwo", content);
    EXPECT_EQ(2, filesin(home.file("a/b"))); // and the lock
}

TEST_F(Safestore, AMissingStoreIsEmptyAndReadingMakesNone) {
    std::string content = "before";
    EXPECT_EQ("", readstore(store, content));
    EXPECT_EQ("", content);
    EXPECT_FALSE(fs::exists(home.file("a")));
}

TEST_F(Safestore, AStoreThatIsNoFileOrTooLargeIsRefused) {
    fs::create_directories(store);
    std::string content;
    EXPECT_EQ("Is a directory", readstore(store, content));
    EXPECT_EQ("Is a directory", add(store, "x"));
    fs::remove(store);
    makepipe(store);
    EXPECT_EQ("Not a regular file", readstore(store, content));
    EXPECT_EQ("Not a regular file", add(store, "x"));
    fs::remove(store);
    writefile(store, "x");
    fs::resize_file(store, maxstoresize + 1);
    EXPECT_EQ("File too large", readstore(store, content));
    EXPECT_EQ("File too large", add(store, "x"));
    EXPECT_EQ(maxstoresize + 1, fs::file_size(store));
    writefile(home.file("file"), "");
    EXPECT_EQ("Not a directory", add(home.file("file/store"), "x"));
}

TEST_F(Safestore, AChangeThatChangesNothingOrRefusesLeavesItAlone) {
    writefile(store, "old");
    const auto before = fs::last_write_time(store);
    EXPECT_EQ("", add(store, ""));
    EXPECT_EQ("no", changestore(store, [](std::string& content, const std::string&) {
                  content = "new";
                  return "no";
              }));
    EXPECT_EQ(before, fs::last_write_time(store));
    EXPECT_EQ("old", readfile(store));
    EXPECT_EQ(2, filesin(home.file("a/b")));
}

TEST_F(Safestore, TheFolderForTheWorkIsEmptyAndGoneAfterwards) {
    std::string place;
    EXPECT_EQ("", changestore(store, [&](std::string& content, const std::string& folder) {
                  place = folder;
                  EXPECT_EQ(fs::path(store).parent_path(), fs::path(folder).parent_path());
                  EXPECT_EQ(0, filesin(folder));
                  writefile(folder + "/deep/x", "x");
                  content = "new";
                  return "";
              }));
    EXPECT_FALSE(fs::exists(place));
}

TEST_F(Safestore, ALockedStoreIsToldAfterASecond) {
    EXPECT_EQ("", add(store, "one"));
    const int lock = open(lockname().c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(0, flock(lock, LOCK_EX));
    std::string reason;
    const double seconds = timeof([&] { reason = add(store, "two"); });
    EXPECT_EQ(busy, reason);
    EXPECT_GE(seconds, 1.0);
    EXPECT_LT(seconds, 3.0);
    EXPECT_EQ("one", readfile(store));
    std::string content;
    EXPECT_EQ("", readstore(store, content)) << "a reader does not wait";
    EXPECT_EQ("one", content);
    close(lock);
    EXPECT_EQ("", add(store, "two"));
}

TEST_F(Safestore, ALockThatIsGivenBackIsWaitedFor) {
    EXPECT_EQ("", add(store, "one"));
    const int lock = open(lockname().c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(0, flock(lock, LOCK_EX));
    const pid_t child = fork();
    if (child == 0) {
        usleep(200000);
        flock(lock, LOCK_UN);
        _exit(0);
    }
    EXPECT_EQ("", add(store, "two"));
    EXPECT_EQ("onetwo", readfile(store));
    close(lock);
    waitpid(child, nullptr, 0);
}

TEST_F(Safestore, WhatAKilledProgramLeftIsRemovedByTheNextChange) {
    for (const char* name : {".store.vexel-Ab3dEf", ".store.vexel-Gh1jKl/vexel/x"}) {
        writefile(home.file(std::string("a/b/") + name), "x");
    }
    EXPECT_EQ("", add(store, "one"));
    EXPECT_EQ(2, filesin(home.file("a/b")));
}

TEST_F(Safestore, AStoreBehindALinkStaysThere) {
    writefile(home.file("dots/real"), "one");
    writefile(home.file("dots/.real.vexel-Ab3dEf"), "left over");
    fs::create_directories(home.file("a/b"));
    fs::create_symlink(home.file("dots/real"), store);
    EXPECT_EQ("", add(store, "two"));
    EXPECT_TRUE(fs::is_symlink(store));
    EXPECT_EQ("onetwo", readfile(home.file("dots/real")));
    EXPECT_EQ(1, filesin(home.file("dots")));
}

TEST_F(Safestore, InAClosedFolderTheStoreItselfIsWrittenAndLocked) {
    writefile(store, "one");
    fs::permissions(store, fs::perms(0666));
    fs::permissions(home.file("a/b"), fs::perms(0755));
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ("", add(store, "two")); }));
    EXPECT_EQ("onetwo", readfile(store));
    EXPECT_EQ(1, filesin(home.file("a/b")));
    const int lock = open(store.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(0, flock(lock, LOCK_EX));
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ(busy, add(store, "x")); }));
    close(lock);
    writefile(lockname(), ""); // of another user
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ("", add(store, "three")); }));
    fs::remove(store);
    fs::remove(lockname());
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ("Permission denied", add(store, "x")); }));
    EXPECT_EQ(0, filesin(home.file("a/b")));
    makepipe(store); // opening it must not wait
    EXPECT_TRUE(asnobody([&] { EXPECT_EQ("Not a regular file", add(store, "x")); }));
}

// In which others can see that the lock is free.
TEST_F(Safestore, AChangeEndsWithAPause) {
    double shortest = 1;
    for (int i = 0; i < 20; i++) {
        shortest = std::min(shortest, timeof([&] { EXPECT_EQ("", add(store, "")); }));
    }
    EXPECT_GE(shortest, 0.005);
}

// On a busy machine some are told that another is at it; they try again.
TEST_F(Safestore, NothingOfManyWritersIsLost) {
    constexpr int writers = 6;
    constexpr int changes = 20;
    for (int writer = 0; writer < writers; writer++) {
        if (fork() == 0) {
            int failures = 0;
            for (int i = 0; i < changes; i++) {
                std::string reason = busy;
                while (reason == busy) {
                    reason = add(store, "x");
                }
                failures += reason.empty() ? 0 : 1;
            }
            _exit(failures);
        }
    }
    for (int writer = 0; writer < writers; writer++) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(0, status);
    }
    EXPECT_EQ(writers * changes, std::ssize(readfile(store)));
}

// At any moment, by the clock and not by the call: the content is one of those that were to be.
TEST_F(Safestore, AKillAtAnyMomentLeavesAWholeStore) {
    const std::string block(5000, 'x');
    std::size_t reached = 0;
    for (int round = 0; round < 40; round++) {
        const pid_t child = fork();
        if (child == 0) {
            for (;;) {
                if (!add(store, block).empty()) {
                    _exit(1);
                }
            }
        }
        usleep(static_cast<useconds_t>(500 + 731 * round % 20000));
        kill(child, SIGKILL);
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        const std::string now = readfile(store);
        EXPECT_EQ(0U, now.size() % block.size());
        EXPECT_GE(now.size(), reached);
        reached = now.size();
    }
    EXPECT_EQ("", add(store, block));
    EXPECT_EQ(2, filesin(home.file("a/b")));
}
