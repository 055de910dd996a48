// SPDX-License-Identifier: MIT
//
// Every system call of a save, and of a change of a store, fails in turn or is the last before a
// kill. What is told must be true: the new content is there, or the old one is.
#include "base/replacefile.h"
#include "base/safestore.h"
#include "base/savefile.h"
#include "base/scratch.h"
#include "base/syscalls.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace {

namespace fs = std::filesystem;

const std::string oldtext(5000, 'o');
const std::string newtext(20000, 'n');

constexpr struct {
    int error;
    bool lasting; // whether all calls from there on fail
} fault_table[] = {
    {ENOSPC, false},
    {EIO,    false},
    {EIO,    true },
    {EACCES, false},
    {EACCES, true },
    {EINTR,  false},
    {killed, false},
};

// Whether a signal can break off the call.
bool waits(const std::string& call) {
    constexpr const char* all[] = {"open",  "openat", "read",      "write",
                                   "fsync", "flock",  "ftruncate", "fallocate"};
    return std::ranges::find(all, call) != std::end(all);
}

class Faults : public testing::Test {
  protected:
    void SetUp() override {
        if (!canwatchcalls()) {
            GTEST_SKIP() << "this kernel does not let system calls be watched";
        }
    }

    // Runs the work once with each of its calls failing, and once with all behind it failing too,
    // from a fresh folder each time. Returns how many calls it makes.
    int faileach(const std::function<void()>& prepare, const std::function<bool()>& work,
                 const std::string& before) {
        int calls = 0;
        for (const auto& row : fault_table) {
            bool reached = true;
            for (int n = 0; reached; n++) {
                fresh(prepare);
                std::string name;
                int at = 0;
                const watchedwork done = watchcalls(work, [&](const systemcall& call) {
                    name = at == n ? call.name + " " + call.path : name;
                    const int now = at++;
                    return now == n || (now > n && row.lasting) ? row.error : 0;
                });
                reached = n < at;
                calls = n;
                SCOPED_TRACE("call " + std::to_string(n) + ", " + name + ", error " +
                             std::to_string(row.error));
                expectwhole(done, before);
                if (row.error == EINTR && reached && waits(name.substr(0, name.find(' ')))) {
                    EXPECT_TRUE(done.good) << "a signal is no reason to fail";
                }
            }
        }
        return calls;
    }

    void fresh(const std::function<void()>& prepare) const {
        fs::remove_all(home.file("d"));
        fs::create_directory(home.file("d"));
        prepare();
    }

    void expectwhole(const watchedwork& done, const std::string& before) const {
        const std::string now = readfile(path);
        if (!done.ended) {
            EXPECT_TRUE(now == before || now == newtext) << now.size() << " bytes";
        } else {
            EXPECT_TRUE(now == (done.good ? newtext : before)) << now.size() << " bytes";
        }
        if (keeps && now == newtext) {
            EXPECT_TRUE(before == readfile(path + "~"));
        }
    }

    scratchhome home;
    std::string path = home.file("d/x");
    bool keeps = false; // whether the old content must be kept
};

} // namespace

TEST_F(Faults, ANewFileIsWholeOrNotThere) {
    EXPECT_GT(faileach([] {}, [&] { return replacefile(path, newtext) == 0; }, ""), 5);
}

TEST_F(Faults, AReplacedFileIsOldOrNew) {
    EXPECT_GT(faileach([&] { writefile(path, oldtext); },
                       [&] { return replacefile(path, newtext) == 0; }, oldtext),
              5);
}

// A disk that stays broken can tear such a file; one that recovers cannot.
TEST_F(Faults, AFileThatIsWrittenItselfIsOldOrNewUnlessItIsKilled) {
    int calls = 0;
    for (const int error : {ENOSPC, EIO, EACCES, EINTR}) {
        bool reached = true;
        for (calls = 0; reached; calls++) {
            fresh([&] { writefile(path, oldtext); });
            fs::create_hard_link(path, home.file("d/second"));
            int at = 0;
            const watchedwork done =
                watchcalls([&] { return replacefile(path, newtext) == 0; },
                           [&](const systemcall&) { return at++ == calls ? error : 0; });
            reached = calls < at;
            SCOPED_TRACE("call " + std::to_string(calls) + ", error " + std::to_string(error));
            expectwhole(done, oldtext);
            EXPECT_TRUE(readfile(path) == readfile(home.file("d/second")));
        }
    }
    EXPECT_GT(calls, 5);
}

// As in a folder where others' files may not be moved, or for a file that is mounted.
TEST_F(Faults, AFileThatMayNotBeReplacedIsWrittenItself) {
    const struct {
        int error;
        bool written;
    } rows[] = {
        {EACCES, true },
        {EPERM,  true },
        {EBUSY,  true },
        {EIO,    false},
    };

    for (const auto& row : rows) {
        fresh([&] { writefile(path, oldtext); });
        const watchedwork done =
            watchcalls([&] { return replacefile(path, newtext, oldcontent::kept) == 0; },
                       [&](const systemcall& call) {
                           return call.name.starts_with("rename") ? row.error : 0;
                       });
        EXPECT_EQ(row.written, done.good) << row.error;
        EXPECT_TRUE(readfile(path) == (row.written ? newtext : oldtext)) << row.error;
        EXPECT_EQ(row.written ? 2 : 1, filesin(home.file("d"))) << row.error;
    }
}

TEST_F(Faults, WhatTakesTheNameOfAFileIsOnTheDisk) {
    fresh([&] { writefile(path, oldtext); });
    std::string order;
    const watchedwork done = watchcalls([&] { return replacefile(path, newtext) == 0; },
                                        [&](const systemcall& call) {
                                            const bool told = call.name == "write" ||
                                                              call.name == "fsync" ||
                                                              call.name.starts_with("rename");
                                            order += told ? call.name + " " : "";
                                            return 0;
                                        });
    EXPECT_TRUE(done.good);
    EXPECT_EQ(0U, order.find("write fsync rename")) << order;
}

TEST_F(Faults, ASavedFileIsOldOrNewAndWhatWasThereIsKept) {
    keeps = true;
    const auto save = [&] {
        return savefile(path, [](std::FILE* file) { std::fputs(newtext.c_str(), file); }).empty();
    };
    EXPECT_GT(faileach([&] { writefile(path, oldtext); }, save, oldtext), 5);
}

TEST_F(Faults, AStoreIsOldOrNew) {
    const auto change = [&] {
        return changestore(path,
                           [](std::string& content, const std::string&) {
                               content = newtext;
                               return "";
                           })
            .empty();
    };
    EXPECT_GT(faileach([&] { writefile(path, oldtext); }, change, oldtext), 10);
    EXPECT_GT(faileach([] {}, change, ""), 10);
}
