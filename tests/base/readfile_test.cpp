// SPDX-License-Identifier: MIT
#include "base/readfile.h"
#include "base/scratch.h"
#include "base/syscalls.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Readfile : public testing::Test {
  protected:
    // The error, by both ways of reading.
    static int errorof(const std::string& name) {
        std::string content = "before";
        const int error = readregular(name, content, 1000);
        EXPECT_TRUE(error == 0 || content.empty());
        int other = -7;
        std::FILE* file = openregular(name, other);
        EXPECT_EQ(other == 0, file != nullptr);
        if (file != nullptr) {
            std::fclose(file);
        }
        EXPECT_EQ(error, other);
        return error;
    }

    static int openfiles() { return filesin("/proc/self/fd"); }

    scratchhome home;
    std::string path = home.file("x");
};

} // namespace

TEST_F(Readfile, ReadsAllBytesOfAFile) {
    const std::string bytes("a\0b\r\n\xff", 6);
    for (const std::size_t size : {0U, 1U, 16383U, 16384U, 16385U, 100000U}) {
        std::string content;
        while (content.size() < size) {
            content += bytes;
        }
        content.resize(size);
        writefile(path, content);
        std::string read;
        EXPECT_EQ(0, readregular(path, read, size));
        EXPECT_EQ(content, read) << size;
    }
}

TEST_F(Readfile, AFileThatIsTooLongIsRefused) {
    writefile(path, std::string(20000, 'x'));
    std::string content = "before";
    EXPECT_EQ(EFBIG, readregular(path, content, 19999));
    EXPECT_EQ("", content);
    EXPECT_EQ(0, readregular(path, content, 20000));
}

TEST_F(Readfile, OnlyRegularFilesAreReadAndNothingIsWaitedFor) {
    makepipe(path);
    EXPECT_EQ(notregular, errorof(path));
    EXPECT_EQ(EISDIR, errorof(home.file("")));
    EXPECT_EQ(ENOENT, errorof(home.file("none")));
    EXPECT_EQ(ENOENT, errorof(""));
    fs::create_symlink("x", home.file("link"));
    EXPECT_EQ(notregular, errorof(home.file("link")));
}

TEST_F(Readfile, ADeviceIsNotRead) {
    if (!makedevice(path, "zero")) {
        GTEST_SKIP() << "no devices for this user";
    }
    EXPECT_EQ(notregular, errorof(path));
}

TEST_F(Readfile, AFileBehindALinkIsRead) {
    writefile(path, "content");
    fs::create_symlink("x", home.file("link"));
    EXPECT_EQ(0, errorof(home.file("link")));
}

TEST_F(Readfile, ADiskThatStaysBrokenIsAnErrorAndNotWaitedFor) {
    if (!canwatchcalls()) {
        GTEST_SKIP() << "this kernel does not let system calls be watched";
    }
    writefile(path, std::string(50000, 'x'));
    int reads = 0;
    const watchedwork done = watchcalls(
        [&] {
            std::string content;
            return readregular(path, content, 100000) == EIO && content.empty();
        },
        [&](const systemcall& call) { return call.name == "read" && ++reads > 1 ? EIO : 0; });
    EXPECT_TRUE(done.good);
    EXPECT_EQ(2, reads);
}

TEST_F(Readfile, NoDescriptorIsLeftOpen) {
    const int before = openfiles();
    writefile(path, "content");
    makepipe(home.file("pipe"));
    for (const char* name : {"x", "pipe", "none", ""}) {
        errorof(home.file(name));
    }
    EXPECT_EQ(before, openfiles());
}

TEST_F(Readfile, ErrorsHaveWords) {
    EXPECT_EQ("", whynot(0));
    EXPECT_EQ("Not a regular file", whynot(notregular));
    EXPECT_EQ("No space left on device", whynot(ENOSPC));
}
