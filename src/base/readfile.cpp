// SPDX-License-Identifier: MIT
#include "base/readfile.h"

#include "base/retry.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

// Not waiting is for the opening of a pipe; on a regular file it means nothing.
int opentoread(const std::string& path, int& error) {
    const int file =
        retry([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0) {
        error = errno;
    } else if (S_ISDIR(status.st_mode)) {
        error = EISDIR;
    } else {
        error = S_ISREG(status.st_mode) ? 0 : notregular;
    }
    if (error != 0 && file >= 0) {
        close(file);
    }
    return file;
}

} // namespace

std::string whynot(int error) {
    if (error == 0) {
        return "";
    }
    return error == notregular ? "Not a regular file" : std::generic_category().message(error);
}

std::FILE* openregular(const std::string& path, int& error) {
    const int file = opentoread(path, error);
    if (error != 0) {
        return nullptr;
    }
    std::FILE* stream = fdopen(file, "r");
    if (stream == nullptr) {
        error = errno;
        close(file);
    }
    return stream;
}

int readregular(const std::string& path, std::string& content, std::size_t most) {
    content.clear();
    int error = 0;
    const int file = opentoread(path, error);
    if (error != 0) {
        return error;
    }
    char part[16384];
    ssize_t size = 0;
    while (error == 0 && (size = retry([&] { return read(file, part, sizeof part); })) != 0) {
        error = size < 0 ? errno : 0;
        content.append(part, size < 0 ? 0 : static_cast<std::size_t>(size));
        error = error == 0 && content.size() > most ? EFBIG : error;
    }
    close(file);
    if (error != 0) {
        content.clear();
    }
    return error;
}
