// SPDX-License-Identifier: MIT
//
// Shuts the test program it is linked to into one folder: nothing outside it can be written, made,
// renamed or removed, not by root and not by wrong code. Temporary files go into that folder, which
// is gone at the end. On a kernel without Landlock the program runs as before.
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <string>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Newer than some headers.
constexpr std::uint64_t referring = std::uint64_t{1} << 13;
constexpr std::uint64_t truncating = std::uint64_t{1} << 14;

constexpr std::uint64_t makingandremoving =
    LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
    LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SOCK |
    LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

// What this kernel can forbid, of what changes files.
std::uint64_t writing() {
    const long version =
        syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) {
        return 0;
    }
    const std::uint64_t later = (version >= 2 ? referring : 0) | (version >= 3 ? truncating : 0);
    return LANDLOCK_ACCESS_FS_WRITE_FILE | makingandremoving | later;
}

void allow(int rules, const char* path, std::uint64_t access) {
    landlock_path_beneath_attr beneath = {};
    beneath.allowed_access = access;
    beneath.parent_fd = open(path, O_PATH | O_CLOEXEC);
    syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &beneath, 0);
    close(beneath.parent_fd);
}

void shutin(const char* folder) {
    landlock_ruleset_attr handled = {};
    handled.handled_access_fs = writing();
    const long rules = syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0);
    if (rules < 0) {
        return;
    }
    allow(static_cast<int>(rules), folder, handled.handled_access_fs);
    allow(static_cast<int>(rules), "/dev/null",
          LANDLOCK_ACCESS_FS_WRITE_FILE); // for other programs
#ifdef VEXEL_COVERAGE
    allow(static_cast<int>(rules), VEXEL_COVERAGE, handled.handled_access_fs); // the counts
#endif
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    if (syscall(SYS_landlock_restrict_self, rules, 0) != 0) {
        std::perror("the tests are not confined");
    }
    close(static_cast<int>(rules));
}

// Removes the folder once the test program is gone: from within, it can only be emptied.
void leavetokeeper(const std::string& folder) {
    int life[2] = {-1, -1};
    if (pipe2(life, O_CLOEXEC) != 0 || fork() != 0) {
        close(life[0]);
        return; // the other end stays open as long as the program runs
    }
    setsid(); // who kills the test program with all its group does not mean us
    close(life[1]);
    char end = 0;
    while (read(life[0], &end, 1) < 0 && errno == EINTR) {
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    _exit(0);
}

class confinement : public testing::Environment {
  public:
    void SetUp() override {
        std::string folder = std::filesystem::temp_directory_path() / "vexeltestXXXXXX";
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        std::filesystem::permissions(folder, std::filesystem::perms(01777));
        setenv("TMPDIR", folder.c_str(), 1);
        leavetokeeper(folder);
        shutin(folder.c_str());
    }
};

[[maybe_unused]] const testing::Environment* const added =
    testing::AddGlobalTestEnvironment(new confinement);

} // namespace
