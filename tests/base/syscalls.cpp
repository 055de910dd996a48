// SPDX-License-Identifier: MIT
#include "base/syscalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A build that counts has _exit write its counts, by calls that would be judged.
[[noreturn]] void leave(int status) {
    for (;;) {
        syscall(SYS_exit_group, status);
    }
}

struct call_row {
    int number;
    const char* name;
    int path;    // which argument is a path; -1 for none
    bool writes; // whatever its arguments are
};

constexpr call_row call_table[] = {
#ifdef SYS_open
    {SYS_open,        "open",        0,  false},
    {SYS_creat,       "creat",       0,  true },
    {SYS_rename,      "rename",      0,  true },
    {SYS_unlink,      "unlink",      0,  true },
    {SYS_rmdir,       "rmdir",       0,  true },
    {SYS_mkdir,       "mkdir",       0,  true },
    {SYS_link,        "link",        0,  true },
    {SYS_symlink,     "symlink",     1,  true },
    {SYS_chmod,       "chmod",       0,  true },
    {SYS_chown,       "chown",       0,  true },
    {SYS_stat,        "stat",        0,  false},
    {SYS_lstat,       "lstat",       0,  false},
    {SYS_access,      "access",      0,  false},
    {SYS_readlink,    "readlink",    0,  false},
#endif
#ifdef SYS_newfstatat
    {SYS_newfstatat,  "newfstatat",  1,  false},
#endif
#ifdef SYS_fstatat64  // where a long has 32 bits
    {SYS_fstatat64,   "fstatat64",   1,  false},
    {SYS_fstat64,     "fstat64",     -1, false},
    {SYS_ftruncate64, "ftruncate64", -1, true },
#endif
#ifdef SYS_renameat
    {SYS_renameat,    "renameat",    1,  true },
#endif
    {SYS_openat,      "openat",      1,  false},
    {SYS_statx,       "statx",       1,  false},
    {SYS_fstat,       "fstat",       -1, false},
    {SYS_faccessat,   "faccessat",   1,  false},
    {SYS_readlinkat,  "readlinkat",  1,  false},
    {SYS_getdents64,  "getdents64",  -1, false},
    {SYS_read,        "read",        -1, false},
    {SYS_lseek,       "lseek",       -1, false},
    {SYS_close,       "close",       -1, false},
    {SYS_flock,       "flock",       -1, false},
    {SYS_write,       "write",       -1, false}, // into what was opened for it
    {SYS_pwrite64,    "pwrite64",    -1, false},
    {SYS_writev,      "writev",      -1, false},
    {SYS_fsync,       "fsync",       -1, false},
    {SYS_fallocate,   "fallocate",   -1, true },
    {SYS_ftruncate,   "ftruncate",   -1, true },
    {SYS_truncate,    "truncate",    0,  true },
    {SYS_fchmod,      "fchmod",      -1, true },
    {SYS_fchmodat,    "fchmodat",    1,  true },
    {SYS_fchown,      "fchown",      -1, true },
    {SYS_fchownat,    "fchownat",    1,  true },
    {SYS_renameat2,   "renameat2",   1,  true },
    {SYS_unlinkat,    "unlinkat",    1,  true },
    {SYS_mkdirat,     "mkdirat",     1,  true },
    {SYS_mknodat,     "mknodat",     1,  true },
    {SYS_linkat,      "linkat",      1,  true },
    {SYS_symlinkat,   "symlinkat",   2,  true },
    {SYS_utimensat,   "utimensat",   1,  true },
};

// The filter, as the number of the listener: asks about the calls of the table, lets all others be.
int installfilter(watchedcalls calls) {
    std::vector<sock_filter> program = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
    };
    for (const call_row& row : call_table) {
        const bool opens = std::string(row.name).starts_with("open");
        if (calls == watchedcalls::writing && !row.writes && !opens) {
            continue;
        }
        const auto number = static_cast<unsigned>(row.number);
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
}

// One descriptor through a socket

union envelope {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(int))];
};

msghdr letter(envelope& control, iovec& text) {
    msghdr message = {};
    message.msg_iov = &text;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes;
    message.msg_controllen = sizeof control.bytes;
    return message;
}

void senddescriptor(int socket, int descriptor) {
    char byte = 0;
    iovec text = {&byte, 1};
    envelope control = {};
    const msghdr message = letter(control, text);
    cmsghdr* header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(header), &descriptor, sizeof descriptor);
    sendmsg(socket, &message, 0);
}

int receivedescriptor(int socket) {
    char byte = 0;
    iovec text = {&byte, 1};
    envelope control = {};
    msghdr message = letter(control, text);
    int descriptor = -1;
    if (recvmsg(socket, &message, MSG_CMSG_CLOEXEC) == 1 && CMSG_FIRSTHDR(&message) != nullptr) {
        std::memcpy(&descriptor, CMSG_DATA(CMSG_FIRSTHDR(&message)), sizeof descriptor);
    }
    return descriptor;
}

// A text in the memory of another process.
std::string textof(pid_t process, unsigned long long address) {
    char text[4096] = "";
    for (std::size_t size = sizeof text; size >= 16; size /= 2) { // it may end with its page
        const iovec here = {text, size - 1};
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the address is another process's
        const iovec there = {reinterpret_cast<void*>(address), size - 1};
        if (process_vm_readv(process, &here, 1, &there, 1, 0) > 0) {
            break;
        }
    }
    return text;
}

systemcall describe(const seccomp_notif& asked) {
    const auto row = std::find_if(std::begin(call_table), std::end(call_table),
                                  [&](const auto& r) { return r.number == asked.data.nr; });
    systemcall call = {static_cast<int>(asked.pid), row->name, "", row->writes};
    if (row->path >= 0) {
        call.path = textof(call.process, asked.data.args[row->path]);
    }
    if (call.name == "open" || call.name == "openat") {
        const auto flags = static_cast<int>(asked.data.args[row->path + 1]);
        call.writes = (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
    }
    return call;
}

// Answers one question. False once nobody asks any more.
bool answer(int listener, const callverdict& judge) {
    pollfd waiting = {listener, POLLIN, 0};
    if (poll(&waiting, 1, -1) < 0 || (waiting.revents & POLLIN) == 0) {
        return false;
    }
    seccomp_notif asked = {};
    if (ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &asked) != 0) {
        return errno == ENOENT || errno == EINTR; // who asked is gone already
    }
    const int verdict = judge(describe(asked));
    if (verdict == killed) {
        kill(static_cast<pid_t>(asked.pid), SIGKILL);
        return true;
    }
    seccomp_notif_resp response = {};
    response.id = asked.id;
    response.error = -verdict;
    response.flags = verdict == 0 ? SECCOMP_USER_NOTIF_FLAG_CONTINUE : 0;
    ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &response);
    return true;
}

} // namespace

callwatch::callwatch() {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        throw std::runtime_error("no sockets for the test");
    }
}

callwatch::~callwatch() {
    for (const int end : ends) {
        close(end);
    }
}

void callwatch::handover(watchedcalls calls) {
    const int listener = installfilter(calls);
    senddescriptor(ends[1], listener);
    // Not by close, which would be asked about. Without a listener left nobody waits for an answer.
    syscall(SYS_close_range, listener, listener, 0);
}

void callwatch::judge(const callverdict& judge) {
    close(ends[1]); // so that nothing is waited for that cannot come
    ends[1] = -1;
    const int listener = receivedescriptor(ends[0]);
    while (listener >= 0 && answer(listener, judge)) {
    }
    close(listener);
}

bool canwatchcalls() {
    const pid_t child = fork();
    if (child == 0) {
        leave(installfilter(watchedcalls::writing) < 0 ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0;
}

watchedwork watchcalls(const std::function<bool()>& work, const callverdict& judge) {
    callwatch watch;
    const pid_t child = fork();
    if (child == 0) {
        watch.handover(watchedcalls::all);
        leave(work() ? 0 : 1);
    }
    watch.judge(judge);
    int status = -1;
    waitpid(child, &status, 0);
    return {WIFEXITED(status), WIFEXITED(status) && WEXITSTATUS(status) == 0};
}
