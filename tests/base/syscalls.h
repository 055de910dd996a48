// SPDX-License-Identifier: MIT
//
// syscalls: every file system call of a piece of work, seen before it is made, to let it be made,
// fail or be the one at which the work is killed.
//
// How       the work runs in a process of its own under a filter of the kernel (seccomp), which
//           asks the test. Nothing is preloaded or traced: what libraries call is seen as well.
// Callers   the tests of files and stores; watchcalls, which watches a whole program.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct systemcall {
    int process = 0; // who makes it
    std::string name;
    std::string path;    // of those that take one, else ""
    bool writes = false; // opens something for writing, or makes, changes or removes a file
};

// What is to become of a call: 0 lets it be made, an error number makes it fail.
using callverdict = std::function<int(const systemcall&)>;
constexpr int killed = -1; // the work ends here, the call is not made

// How the work ended. Unless it was killed, `good` is what it returned.
struct watchedwork {
    bool ended = false; // by itself
    bool good = false;
};

// Whether this kernel lets calls be watched.
[[nodiscard]] bool canwatchcalls();

watchedwork watchcalls(const std::function<bool()>& work, const callverdict& judge);

// Which calls are asked about: only those that may write, for a program that makes many.
enum class watchedcalls { all, writing };

// The two halves, for work that is another program: the calls of the process that becomes it are
// judged by a process of their own. Order: prepare, fork; the one hands over, the other judges.
class callwatch {
  public:
    callwatch();
    ~callwatch();
    callwatch(const callwatch&) = delete;
    callwatch& operator=(const callwatch&) = delete;

    void handover(watchedcalls calls);    // in the process to be watched, from now on
    void judge(const callverdict& judge); // in the other; until nobody is left to be watched

  private:
    int ends[2] = {-1, -1};
};
