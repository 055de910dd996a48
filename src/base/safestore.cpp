// SPDX-License-Identifier: MIT
#include "base/safestore.h"

#include "base/readfile.h"
#include "base/replacefile.h"
#include "base/retry.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using milliseconds = std::chrono::duration<double, std::milli>;

constexpr milliseconds patience(1000); // for the lock
constexpr milliseconds courtesy(5);    // after which it is taken again at the earliest
constexpr int busy = -2;               // an error like those of readfile.h

std::string reason(int error) {
    return error == busy ? "Another program is changing it" : whynot(error);
}

// The lock

// A lock file of another user's can be locked without being written.
int openlock(const std::string& store) {
    const std::string path = store + ".lock";
    constexpr int flags = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    int file = retry([&] { return open(path.c_str(), O_RDWR | O_CREAT | flags, 0666); });
    if (file < 0 && isclosedfolder(errno)) {
        const int error = errno;
        for (const std::string& other : {path, store}) {
            file = file >= 0 ? file : retry([&] { return open(other.c_str(), O_RDONLY | flags); });
        }
        errno = error;
    }
    return file;
}

// Held as long as it lives.
class storelock {
  public:
    explicit storelock(const std::string& store) : file(openlock(store)) {
        error = file < 0 ? errno : wait();
    }

    // A program that makes one change after the other would take the lock again before anybody
    // else has seen it free.
    ~storelock() {
        if (file >= 0) {
            close(file);
            std::this_thread::sleep_for(courtesy);
        }
    }

    storelock(const storelock&) = delete;
    storelock& operator=(const storelock&) = delete;

    int error = 0; // 0 if it is held

  private:
    // Who has waited longer asks more often, and so comes before the others.
    int wait() const {
        const auto end = std::chrono::steady_clock::now() + patience;
        while (flock(file, LOCK_EX | LOCK_NB) != 0) {
            if (errno != EWOULDBLOCK && errno != EINTR) {
                return errno;
            }
            const milliseconds left = end - std::chrono::steady_clock::now();
            if (left.count() < 0) {
                return busy;
            }
            std::this_thread::sleep_for(std::max(courtesy * (left / patience), courtesy / 50));
        }
        return 0;
    }

    int file;
};

// The folder for the work

class workfolder {
  public:
    // Beside the store, where there is as much room as the store will need; among the temporary
    // files where none can be made there.
    explicit workfolder(const fs::path& store) {
        make(newfilename(store));
        std::error_code failure;
        const fs::path other = fs::temp_directory_path(failure);
        if (isclosedfolder(error) && !failure) {
            make(newfilename(other / store.filename()));
        }
    }

    ~workfolder() {
        std::error_code ignored;
        if (error == 0) {
            fs::remove_all(path, ignored);
        }
    }

    workfolder(const workfolder&) = delete;
    workfolder& operator=(const workfolder&) = delete;

    std::string path;
    int error = 0;

  private:
    void make(const std::string& name) {
        path = name;
        error = mkdtemp(path.data()) == nullptr ? errno : 0;
    }
};

std::string changelocked(const std::string& path, const storechange& change) {
    removeleftovers(path);
    std::string content;
    std::string unread = readstore(path, content);
    if (!unread.empty()) {
        return unread;
    }
    const workfolder folder(path);
    if (folder.error != 0) {
        return reason(folder.error);
    }
    const std::string before = content;
    const std::string refusal = change(content, folder.path);
    return refusal.empty() && content != before ? reason(replacefile(path, content)) : refusal;
}

} // namespace

std::string readstore(const std::string& path, std::string& content) {
    const int error = readregular(path, content, maxstoresize);
    return error == ENOENT ? "" : reason(error);
}

std::string changestore(const std::string& path, const storechange& change) {
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);
    if (error) {
        return error.message();
    }
    const storelock lock(path);
    return lock.error != 0 ? reason(lock.error) : changelocked(path, change);
}
