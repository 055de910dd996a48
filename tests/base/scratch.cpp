// SPDX-License-Identifier: MIT
#include "base/scratch.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int nobody = 65534;

} // namespace

scratchhome::scratchhome() : path(std::filesystem::temp_directory_path() / "vexelXXXXXX") {
    if (mkdtemp(path.data()) == nullptr) {
        throw std::runtime_error("no folder for the test");
    }
    const char* home = std::getenv("HOME");
    oldhome = home == nullptr ? "" : home;
    setenv("HOME", path.c_str(), 1);
    std::filesystem::permissions(path, std::filesystem::perms::all);
}

scratchhome::~scratchhome() {
    setenv("HOME", oldhome.c_str(), 1);
    std::filesystem::remove_all(path);
}

fulldisk::fulldisk(long bytes) : oldhandler(std::signal(SIGXFSZ, SIG_IGN)) {
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = static_cast<rlim_t>(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

fulldisk::~fulldisk() {
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, oldhandler);
}

std::string readfile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writefile(const std::string& path, const std::string& content) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

bool makedevice(const std::string& path, const std::string& name) {
    struct stat device = {};
    if (stat(("/dev/" + name).c_str(), &device) != 0 ||
        mknod(path.c_str(), S_IFCHR | 0666, device.st_rdev) != 0) {
        return false;
    }
    std::filesystem::permissions(path, std::filesystem::perms(0666));
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC); // some disks hold devices shut
    return file >= 0 && close(file) == 0;
}

void makepipe(const std::string& path) {
    if (mkfifo(path.c_str(), 0666) != 0) {
        throw std::runtime_error("no pipe for the test");
    }
    std::filesystem::permissions(path, std::filesystem::perms(0666));
}

int filesin(const std::string& folder) {
    const std::filesystem::directory_iterator all(folder);
    return static_cast<int>(std::distance(begin(all), end(all)));
}

bool asnobody(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        // Root's number is kept aside: where coverage is counted, the counts are in root's files.
        const bool root = geteuid() == 0;
        if (root && (setgroups(0, nullptr) != 0 || setresgid(nobody, nobody, 0) != 0 ||
                     setresuid(nobody, nobody, 0) != 0)) {
            _exit(2);
        }
        work();
        if (root && (setresuid(0, 0, 0) != 0 || setresgid(0, 0, 0) != 0)) {
            _exit(2);
        }
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
