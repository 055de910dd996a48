// SPDX-License-Identifier: MIT
#include "window/confine.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr unsigned long long writing = LANDLOCK_ACCESS_FS_WRITE_FILE;
constexpr unsigned long long changing =
    writing | LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE |
    LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
    LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_MAKE_BLOCK |
    LANDLOCK_ACCESS_FS_MAKE_SYM;

bool allow(int rules, const std::string& path) {
    const int at = open(path.c_str(), O_PATH | O_CLOEXEC);
    struct stat is = {};
    if (at < 0 || fstat(at, &is) != 0) {
        return true;
    }
    landlock_path_beneath_attr rule = {};
    rule.allowed_access = S_ISDIR(is.st_mode) ? changing : writing;
    rule.parent_fd = at;
    const long failed = syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    close(at);
    return failed == 0;
}

int newrules() {
    landlock_ruleset_attr handled = {};
    handled.handled_access_fs = changing;
    return static_cast<int>(
        syscall(SYS_landlock_create_ruleset, &handled, sizeof handled.handled_access_fs, 0));
}

} // namespace

bool canconfine() {
    const int rules = newrules();
    close(rules);
    return rules >= 0;
}

bool confine(const std::vector<std::string>& paths) {
    const int rules = newrules();
    if (rules < 0) {
        return false;
    }
    bool good = true;
    for (const std::string& path : paths) {
        good = allow(rules, path) && good;
    }
    good = good && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    close(rules);
    return good;
}
