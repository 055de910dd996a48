// SPDX-License-Identifier: MIT
//
// watchcalls LOG PROGRAM [ARGUMENT ...]: becomes that program, and has every call by which it opens
// a file for writing, or makes, changes or removes one, written down: "name path", a line each.
//
// The log is written by a process of its own, which ends after the last that is watched.
#include "base/syscalls.h"

#include <cstdio>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

void writelog(callwatch& watch, const char* path) {
    std::FILE* log = std::fopen(path, "w");
    watch.judge([&](const systemcall& call) {
        if (call.writes) {
            std::fprintf(log, "%s %s\n", call.name.c_str(), call.path.c_str());
            std::fflush(log);
        }
        return 0;
    });
    std::fclose(log);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("usage: watchcalls LOG PROGRAM [ARGUMENT ...]\n", stderr);
        return 2;
    }
    callwatch watch;
    const pid_t writer = fork();
    if (writer == 0) {
        writelog(watch, argv[1]);
        return 0;
    }
    prctl(PR_SET_PTRACER, writer, 0, 0, 0); // to be looked into by it, for the paths
    watch.handover(watchedcalls::writing);
    execv(argv[2], argv + 2);
    std::perror(argv[2]);
    return 1;
}
