// SPDX-License-Identifier: MIT
#include "base/replacefile.h"

#include "base/readfile.h"
#include "base/retry.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int maxlinks = 40; // of a chain; what the system follows
constexpr std::size_t longestname = 255;
constexpr std::size_t namepart = 200; // bytes of a file's name that its new file's name begins with
const std::string madeup = "XXXXXX";  // what the system fills in
constexpr int patience = 1000;        // milliseconds for the reader of a pipe
constexpr std::size_t restorable = std::size_t{64} << 20; // bytes that are put back after a failure

// Descriptors

class descriptor {
  public:
    explicit descriptor(int number) : file(number) {}

    ~descriptor() { static_cast<void>(closed()); }

    descriptor(const descriptor&) = delete;
    descriptor& operator=(const descriptor&) = delete;

    int number() const { return file; }

    // The error of closing it. It is gone whatever that is, also after a signal.
    int closed() {
        const int last = std::exchange(file, -1);
        return last < 0 || close(last) == 0 || errno == EINTR ? 0 : errno;
    }

  private:
    int file;
};

// A pipe whose reader went away is an error like others, not the end of the program.
class nobrokenpipe {
  public:
    nobrokenpipe() : old(std::signal(SIGPIPE, SIG_IGN)) {}

    ~nobrokenpipe() { std::signal(SIGPIPE, old); }

    nobrokenpipe(const nobrokenpipe&) = delete;
    nobrokenpipe& operator=(const nobrokenpipe&) = delete;

  private:
    void (*old)(int);
};

template <typename call_type> int errorof(const call_type& call) {
    return retry(call) == -1 ? errno : 0;
}

int openexisting(const std::string& path) {
    return retry([&] { return open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
}

int writeall(int file, std::string_view rest) {
    while (!rest.empty()) {
        const ssize_t size = write(file, rest.data(), rest.size());
        if (size > 0) {
            rest.remove_prefix(static_cast<std::size_t>(size));
        } else if (size < 0 && errno == EAGAIN) {
            pollfd waiting = {file, POLLOUT, 0};
            if (poll(&waiting, 1, patience) == 0) {
                return EAGAIN;
            }
        } else if (size == 0 || errno != EINTR) {
            return size == 0 ? EIO : errno;
        }
    }
    return 0;
}

int writetodisk(descriptor& file, std::string_view content) {
    int error = writeall(file.number(), content);
    if (error == 0) {
        error = errorof([&] { return fsync(file.number()); });
    }
    const int last = file.closed();
    return error == 0 ? last : error;
}

// Names

// What a path names in the end, also where that does not exist.
fs::path followed(const fs::path& path) {
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i < maxlinks && fs::is_symlink(fs::symlink_status(target, error)); i++) {
        target = target.parent_path() / fs::read_symlink(target, error);
    }
    return target;
}

// The path of that name in the folder of path.
std::string beside(const fs::path& path, const std::string& name) {
    return (path.parent_path().empty() ? "." : path.parent_path().string()) + "/" + name;
}

// Row n = 1, 2, 3, ... of the names under which the old content may be kept.
std::string keptname(const fs::path& path, int n) {
    const std::string tail = n == 1 ? "~" : "~" + std::to_string(n);
    return beside(path, path.filename().string().substr(0, longestname - tail.size()) + tail);
}

// Files beside the file

int copyinto(int from, int to) {
    char part[16384];
    ssize_t size = 0;
    while ((size = retry([&] { return read(from, part, sizeof part); })) > 0) {
        const int error = writeall(to, {part, static_cast<std::size_t>(size)});
        if (error != 0) {
            return error;
        }
    }
    return size < 0 ? errno : 0;
}

// A copy under a name that is not there yet: EEXIST if it is.
int copyfile(const std::string& path, const std::string& copy) {
    descriptor from(retry([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
    struct stat status = {};
    if (from.number() < 0 || fstat(from.number(), &status) != 0) {
        return errno;
    }
    descriptor to(
        retry([&] { return open(copy.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600); }));
    if (to.number() < 0) {
        return errno;
    }
    int error = errorof([&] { return fchmod(to.number(), status.st_mode & 0777); });
    error = error == 0 ? copyinto(from.number(), to.number()) : error;
    error = error == 0 ? writetodisk(to, "") : error;
    if (error != 0) {
        unlink(copy.c_str());
    }
    return error;
}

// Keeps a file under the first name that is free, which copy tells; "" where it fails. With linking
// the file only gets a second name; some disks know none.
int keepfile(const fs::path& path, bool linking, std::string& copy) {
    int error = EEXIST;
    for (int n = 1; error == EEXIST; n++) {
        copy = keptname(path, n);
        error = linking ? errorof([&] { return link(path.c_str(), copy.c_str()); }) : EPERM;
        if (error != 0 && error != EEXIST) {
            error = copyfile(path.string(), copy);
        }
    }
    if (error != 0) {
        copy.clear();
    }
    return error;
}

// Replacing

mode_t newfilemode() {
    const mode_t mask = umask(0); // there is no way to ask without setting it
    umask(mask);
    return 0666 & ~mask;
}

// Gives a new file the permissions and the owner of the old one.
int takeafter(int file, const struct stat* old) {
    if (old == nullptr) {
        return errorof([&] { return fchmod(file, newfilemode()); });
    }
    if (old->st_uid != geteuid()) {
        const int error = errorof([&] { return fchown(file, old->st_uid, old->st_gid); });
        if (error != 0) {
            return error;
        }
    }
    return errorof([&] { return fchmod(file, old->st_mode & 0777); });
}

// One way of writing the file came to its end with this error; nothing if another one is to be
// tried.
using outcome = std::optional<int>;

// Puts a new file in the place of path, which has the status old unless it does not exist.
outcome replace(const fs::path& path, const std::string& content, const struct stat* old,
                oldcontent fate) {
    std::string name;
    descriptor file(retry([&] {
        name = newfilename(path.string()); // of a name that was filled in once nothing is made
        return mkostemp(name.data(), O_CLOEXEC);
    }));
    if (file.number() < 0) {
        return old != nullptr && isclosedfolder(errno) ? outcome() : errno;
    }
    std::string copy;
    int error = takeafter(file.number(), old);
    bool another = error == EPERM; // the owner cannot be kept
    if (error == 0) {
        error = writetodisk(file, content);
    }
    if (error == 0 && old != nullptr && fate == oldcontent::kept) {
        error = keepfile(path, true, copy);
    }
    if (error == 0) {
        error = errorof([&] { return rename(name.c_str(), path.c_str()); });
        another = error == EBUSY || isclosedfolder(error);
    }
    if (error != 0) {
        unlink(name.c_str());
        if (!copy.empty()) {
            unlink(copy.c_str());
        }
    }
    return old != nullptr && another ? outcome() : error;
}

// Reserves room, so that a full disk is known before a byte is changed. Not every disk can.
int reserve(int file, std::size_t size) {
    const int error = size == 0 ? 0 : posix_fallocate(file, 0, static_cast<off_t>(size));
    return error == ENOSPC || error == EDQUOT || error == EFBIG ? error : 0;
}

int overwrite(int file, const std::string& content) {
    int error = errorof([&] { return lseek(file, 0, SEEK_SET); });
    error = error == 0 ? writeall(file, content) : error;
    if (error == 0) {
        error = errorof([&] { return ftruncate(file, static_cast<off_t>(content.size())); });
    }
    return error == 0 ? errorof([&] { return fsync(file); }) : error;
}

int writeinplace(const fs::path& path, const std::string& content, oldcontent fate) {
    std::string before;
    const int unknown = readregular(path.string(), before, restorable);
    std::string copy;
    if (fate == oldcontent::kept) {
        const int error = keepfile(path, false, copy);
        if (error != 0 && !isclosedfolder(error)) {
            return error;
        }
    }
    descriptor file(openexisting(path.string()));
    if (file.number() < 0) {
        return errno;
    }
    int error = reserve(file.number(), content.size());
    error = error == 0 ? overwrite(file.number(), content) : error;
    if (error != 0 && unknown == 0) {
        static_cast<void>(overwrite(file.number(), before));
    }
    return error; // what closing says after fsync changes nothing any more
}

int writedevice(const std::string& path, const std::string& content) {
    const nobrokenpipe quiet;
    descriptor file(openexisting(path));
    const int error = file.number() < 0 ? errno : writeall(file.number(), content);
    const int last = file.closed();
    return error == 0 ? last : error;
}

int replaceregular(const fs::path& path, const struct stat& old, const std::string& content,
                   oldcontent fate) {
    if (access(path.c_str(), W_OK) != 0) {
        return errno;
    }
    outcome error = old.st_nlink > 1 ? outcome() : replace(path, content, &old, fate);
    return error ? *error : writeinplace(path, content, fate);
}

} // namespace

int replacefile(const std::string& path, const std::string& content, oldcontent old) {
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        return S_ISREG(status.st_mode) ? replaceregular(followed(path), status, content, old)
                                       : writedevice(path, content);
    }
    // Only what does not exist is made. An empty path names nothing that could be.
    if (errno != ENOENT || path.empty()) {
        return errno;
    }
    return *replace(followed(path), content, nullptr, old);
}

std::string newfilename(const std::string& path) {
    const std::string name = fs::path(path).filename().string().substr(0, namepart);
    return beside(path, "." + name + ".vexel-" + madeup);
}

void removeleftovers(const std::string& path) {
    for (const fs::path& target : {fs::path(path), followed(path)}) {
        const std::string name = fs::path(newfilename(target.string())).filename().string();
        const std::string start = name.substr(0, name.size() - madeup.size());
        std::error_code error;
        std::vector<fs::path> found;
        fs::directory_iterator entry(beside(target, ""), error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            const std::string other = entry->path().filename().string();
            if (other.size() == name.size() && other.starts_with(start)) {
                found.push_back(entry->path());
            }
        }
        for (const fs::path& leftover : found) {
            fs::remove_all(leftover, error);
        }
    }
}

bool isclosedfolder(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}
