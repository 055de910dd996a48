// SPDX-License-Identifier: MIT
#include "base/replacefile.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Writes and closes; false if anything went wrong on the way.
bool fill(std::FILE* file, const std::function<void(std::FILE*)>& write, bool todisk) {
    if (file == nullptr) {
        return false;
    }
    write(file);
    bool good = std::fflush(file) == 0 && std::ferror(file) == 0;
    good = good && (!todisk || fsync(fileno(file)) == 0);
    return std::fclose(file) == 0 && good;
}

mode_t newfilemode() {
    const mode_t mask = umask(0); // there is no way to ask without setting it
    umask(mask);
    return 0666 & ~mask;
}

int replaceregular(const std::string& path, mode_t mode,
                   const std::function<void(std::FILE*)>& write) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::string name = (folder.empty() ? "." : folder.string()) + "/.vexel-XXXXXX";
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) {
        return 0;
    }
    fchmod(descriptor, mode);
    if (fill(fdopen(descriptor, "w"), write, true) && rename(name.c_str(), path.c_str()) == 0) {
        return 1;
    }
    unlink(name.c_str());
    return 0;
}

} // namespace

int replacefile(const char* path, const std::function<void(std::FILE*)>& write) {
    struct stat status = {};
    if (stat(path, &status) != 0) {
        return replaceregular(path, newfilemode(), write);
    }
    if (!S_ISREG(status.st_mode)) {
        return fill(std::fopen(path, "w"), write, false) ? 1 : 0;
    }
    if (access(path, W_OK) != 0) {
        return 0;
    }
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? 0 : replaceregular(target.string(), status.st_mode & 0777, write);
}
