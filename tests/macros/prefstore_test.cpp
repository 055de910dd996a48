// SPDX-License-Identifier: MIT
//
// The store of the preferences against all that may go wrong with it.
#include "base/replacefile.h"
#include "base/storetext.h"
#include "base/syscalls.h"
#include "macros/prefrig.h"
#include "macros/prefstore.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <random>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Prefstore : public preferencestest {};

} // namespace

// The toolkit's writing and our reading agree on every text that both take, so that no change is
// refused that could be made.
TEST_F(Prefstore, WhateverIsSoundCanBeChangedAndKeepsAllElse) {
    constexpr const char* pieces[] = {"[./Vexelprefs]",
                                      "[.]",
                                      "[./a/b]",
                                      "\n",
                                      "\n",
                                      "\n",
                                      "\n",
                                      "+",
                                      ":",
                                      ";",
                                      "#",
                                      "\\",
                                      "\\n",
                                      "7",
                                      "0",
                                      "\r",
                                      "mac0",
                                      "val0",
                                      "gizmo0",
                                      "speed",
                                      "x",
                                      "\x01",
                                      "\xff"};
    std::mt19937 random(11);
    int sound = 0;
    for (int round = 0; round < 300; round++) {
        std::string text = ";\n;\n;\n";
        for (unsigned n = random() % 30; n > 0; --n) {
            const std::size_t length = random() % 20 == 0 ? random() % 1200 : 0;
            text += pieces[random() % std::size(pieces)] + std::string(length, 'l');
        }
        if (!storefault(text).empty()) {
            continue;
        }
        sound++;
        writefile(store, text);
        reset();
        auto wanted = readgroups(text);
        wanted["./Vexelprefs"]["new"] = "value\n";
        EXPECT_EQ("", changestored([](const storeentries&) {
                      return storeedits{
                          {"new", "value\n"}
                      };
                  }))
            << text;
        EXPECT_EQ(wanted, readgroups(content())) << text;
    }
    EXPECT_GT(sound, 100);
}

TEST_F(Prefstore, AStoreTheToolkitWouldStumbleOverIsLeftAlone) {
    for (const char* lines : {"[oops]\nspeed:7\n", "#c\n+7\n", "speed:7\nmac0:a\\\n"}) {
        edit(lines);
        const std::string before = content();
        readagain();
        EXPECT_EQ(100, TURNTIME);
        EXPECT_EQ(0, maccount);
        EXPECT_EQ(0, isprefmacro("a"));
        EXPECT_TRUE(shell.messages.empty());
        expecttold(std::string(lines)[0] == '[' ? "Line 10 is damaged" : "Line 11 is damaged");
        deleteallgizmoprefs();
        EXPECT_EQ(before, content());
    }
}

TEST_F(Prefstore, AFullDiskLeavesTheStoreWhole) {
    addprefmacro("one", std::string(150, 'R').c_str());
    const std::string before = content();
    for (const long room : {0L, 1L, 50L, 150L, static_cast<long>(before.size())}) {
        const fulldisk disk(room);
        addprefmacro("two", std::string(190, 'U').c_str());
        addgizmomac("one");
        EXPECT_EQ(before, content()) << room;
        expecttold("File too large");
    }
    EXPECT_EQ(0, leftovers());
    readagain();
    EXPECT_EQ(1, maccount);
}

TEST_F(Prefstore, AHomeThatCannotBeWrittenIsNoReasonToStop) {
    addprefmacro("one", "R");
    fs::permissions(store, fs::perms::owner_read | fs::perms::others_read);
    openfolders(fs::perms::others_read | fs::perms::others_exec);
    const std::string before = content();
    EXPECT_TRUE(asnobody([&] {
        readagain();
        EXPECT_EQ(1, maccount);
        EXPECT_EQ(0, deleteprefmacro("one"));
        deleteallgizmoprefs(); // there are none
        EXPECT_EQ(1U, shell.messages.size());
        expecttold("Permission denied");
    }));
    EXPECT_EQ(before, content());
}

TEST_F(Prefstore, AStoreThatCannotBeReadIsNotReplaced) {
    addprefmacro("one", "R");
    const std::string before = content();
    fs::permissions(store, fs::perms::none);
    openfolders(fs::perms::others_all);
    EXPECT_TRUE(asnobody([&] {
        readagain();
        EXPECT_EQ(0, maccount);
        expecttold("Permission denied");
    }));
    fs::permissions(store, fs::perms::owner_all);
    EXPECT_EQ(before, content());
}

TEST_F(Prefstore, WithoutAHomeThereIsNoStore) {
    const std::string old = std::getenv("HOME");
    for (const std::string& place : {old + "/file", std::string(2000, 'h')}) {
        writefile(old + "/file", "x");
        setenv("HOME", place.c_str(), 1);
        readagain();
        writeprefs();
        addprefmacro("one", "R");
        EXPECT_EQ(0, isprefmacro("one"));
        EXPECT_EQ(100, TURNTIME);
    }
    for (const bool empty : {true, false}) {
        empty ? setenv("HOME", "", 1) : unsetenv("HOME");
        readagain();
        EXPECT_EQ("", storepath());
        addprefmacro("one", "R");
        EXPECT_EQ("alert: Couldn't write the preferences\nThere is no home folder",
                  shell.messages.back());
        EXPECT_EQ(0, isprefmacro("one"));
    }
    setenv("HOME", old.c_str(), 1);
    EXPECT_FALSE(fs::exists(store));
}

// The copy that the toolkit changes has a longer path than the store. Of one with more than 255
// bytes the toolkit would write what the first 255 name.
TEST_F(Prefstore, AHomeTooDeepForTheToolkitIsTold) {
    const std::string old = std::getenv("HOME");
    const std::string tail = "/.fltk/org.vexel/vexel/";
    const std::string copy =
        fs::path(newfilename("preferences.prefs")).filename().string() + "/vexel/preferences.prefs";
    for (const int length : {254, 255, 256, 1023, 1024, 2000}) {
        SCOPED_TRACE(length);
        std::string deep = old;
        const auto most = static_cast<std::size_t>(length) - tail.size() - copy.size();
        while (deep.size() < most) {
            const std::size_t room = most - deep.size();
            deep += "/" + std::string(room <= 100 ? room - 1 : room == 101 ? 50 : 99, 'd');
        }
        setenv("HOME", deep.c_str(), 1);
        reset();
        addprefmacro("one", "R");
        for (const auto& entry : fs::recursive_directory_iterator(old)) {
            const std::string folder = entry.path().parent_path().string() + "/";
            EXPECT_TRUE(entry.is_directory() || folder.ends_with(tail)) << entry.path();
        }
        EXPECT_EQ(length <= 255 ? 1 : 0, isprefmacro("one"));
        EXPECT_EQ(length <= 255
                      ? texts{}
                      : texts{"alert: Couldn't write " + storepath() + "\nFile name too long"},
                  shell.messages);
    }
    setenv("HOME", old.c_str(), 1);
}

TEST_F(Prefstore, AStoreBehindALinkStaysThere) {
    writefile(home.file("dots/real"), "; a\n; b\n; c\n\n[./Vexelprefs]\nspeed:7\n");
    fs::create_directories(fs::path(store).parent_path());
    fs::create_symlink(home.file("dots/real"), store);
    addprefmacro("one", "R");
    EXPECT_TRUE(fs::is_symlink(store));
    readagain();
    EXPECT_EQ(7, TURNTIME);
    EXPECT_EQ(1, maccount);
}

TEST_F(Prefstore, AStoreOfTenThousandKeysIsReadAndChanged) {
    std::string lines;
    for (int i = 0; i < 5000; i++) {
        const std::string n = std::to_string(i);
        lines += "mac" + n + ":m" + n + "\nval" + n + ":R\n";
    }
    edit(lines);
    readagain();
    EXPECT_EQ(200, maccount);
    addprefmacro("last", "U");
    EXPECT_TRUE(holds("mac4999:m4999"));
    EXPECT_TRUE(holds("mac5000:last"));
}

TEST_F(Prefstore, WhatElseIsInTheStoreStays) {
    writefile(store, "; a\n; b\n; c\n\n[.]\nroot:1\n[./Other]\nx:\\\\y\n# kept\n"
                     "[./Vexelprefs]\nmine:z\n[./Vexelprefs/sub]\ndeep:w\n");
    writeprefs();
    for (const char* line : {"root:1", "x:\\\\y", "# kept", "mine:z", "deep:w", "speed:120"}) {
        EXPECT_TRUE(holds(line)) << line;
    }
}

// Reading

TEST_F(Prefstore, ReadingWritesNothing) {
    if (!canwatchcalls()) {
        GTEST_SKIP() << "this kernel does not let system calls be watched";
    }
    // A value of several lines is one of those that the toolkit holds for changed.
    addprefmacro("one", std::string(150, 'R').c_str());
    addgizmomac("one");
    readagain();
    writeprefs();
    bool opened = false;
    const watchedwork done = watchcalls(
        [] {
            readagain();
            const bool found = maccount == 1 && isprefmacro("one") == 1 && isprefmacro("x") == 0;
            // Nor does what turns out to change nothing.
            addgizmomac("one");
            addgizmomac("x");
            deletegizmomac("x");
            writeprefs();
            return found && deleteprefmacro("x") == 0;
        },
        [&](const systemcall& call) {
            EXPECT_FALSE(call.writes) << call.name << " " << call.path;
            opened = opened || call.path == store;
            return 0;
        });
    EXPECT_TRUE(done.good);
    EXPECT_TRUE(opened);
}

TEST_F(Prefstore, AStoreThatIsNoFileIsNeitherReadNorWritten) {
    fs::create_directories(fs::path(store).parent_path());
    makepipe(store);
    readagain();
    EXPECT_EQ(100, TURNTIME);
    expecttold("Not a regular file");
    EXPECT_TRUE(fs::is_fifo(store));
    fs::remove(store);
    fs::create_directory(store);
    readagain();
    expecttold("Is a directory");
}

TEST_F(Prefstore, ALockedStoreIsTold) {
    addprefmacro("one", "R");
    const int lock = open((store + ".lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(0, flock(lock, LOCK_EX));
    expecttold("Another program is changing it");
    close(lock);
    addprefmacro("two", "R");
    EXPECT_EQ(1, isprefmacro("two"));
}

// Several programs, and sudden ends

// On a busy machine some are told that another is at it; they try again.
TEST_F(Prefstore, MacrosDefinedBySeveralProgramsAreAllKept) {
    constexpr int programs = 4;
    constexpr int each = 12;
    for (int program = 0; program < programs; program++) {
        if (fork() == 0) {
            std::ptrdiff_t failures = 0;
            for (int i = 0; i < each; i++) {
                const std::string name = std::to_string(program) + "." + std::to_string(i);
                do {
                    shell.messages.clear();
                    addprefmacro(name.c_str(), "RU");
                } while (!shell.messages.empty() &&
                         shell.messages.back().ends_with("Another program is changing it"));
                failures += std::ssize(shell.messages);
            }
            _exit(static_cast<int>(failures));
        }
    }
    for (int program = 0; program < programs; program++) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(0, status) << "told a failure";
    }
    readagain();
    std::sort(macnames, macnames + maccount);
    EXPECT_EQ(programs * each, std::unique(macnames, macnames + maccount) - macnames);
}

TEST_F(Prefstore, ManyStartsDuringAChangeLoseNothing) {
    addprefmacro("one", "R");
    const std::string before = content();
    for (int program = 0; program < 8; program++) {
        if (fork() == 0) {
            for (int i = 0; i < 40; i++) {
                readagain();
                if (findmacro("one") != 0) {
                    _exit(1);
                }
            }
            _exit(0);
        }
    }
    for (int i = 0; i < 10; i++) {
        addprefmacro(std::to_string(i).c_str(), "R");
    }
    for (int program = 0; program < 8; program++) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(0, status);
    }
    readagain();
    EXPECT_EQ(11, maccount);
}

// Each system call of a change fails in turn, or is the one that is not made any more.
TEST_F(Prefstore, EachFailureOfAChangeIsToldAndLosesNothing) {
    if (!canwatchcalls()) {
        GTEST_SKIP() << "this kernel does not let system calls be watched";
    }
    addprefmacro("one", "R");
    const std::string before = content();
    addprefmacro("two", "U");
    const std::string after = content();
    for (const int error : {ENOSPC, EIO, EACCES, EINTR, killed}) {
        bool reached = true;
        for (int n = 0; reached; n++) {
            writefile(store, before);
            std::string name;
            int at = 0;
            const watchedwork done = watchcalls(
                [] {
                    shell.messages.clear();
                    addprefmacro("two", "U");
                    return shell.messages.empty();
                },
                [&](const systemcall& call) {
                    name = at == n ? call.name + " " + call.path : name;
                    return at++ == n ? error : 0;
                });
            reached = n < at;
            SCOPED_TRACE(name + " fails with " + std::to_string(error));
            if (done.ended) {
                EXPECT_EQ(done.good ? after : before, content());
            } else {
                EXPECT_TRUE(content() == before || content() == after);
            }
        }
    }
    addprefmacro("three", "F");
    EXPECT_EQ(0, leftovers());
}
