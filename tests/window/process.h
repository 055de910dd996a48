// SPDX-License-Identifier: MIT
//
// process: one child process, started, watched and never left behind.
//
// Units     seconds.
// Errors    a program that cannot be started, and everything else that makes a window test
//           pointless, throws std::runtime_error, which ends the one test as failed.
// Callers   xserver (Xvfb, the window manager), program (the program under test), the benchmark.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Asks condition again and again, a few milliseconds apart, until it holds or the time is over.
// Returns whether it held. A test waits like this and sleeps nowhere else.
bool waitfor(double seconds, const std::function<bool()>& condition);

double now(); // of a clock that only goes forward

// A folder of its own under the system's temporary folder, removed with all that is in it.
class scratchfolder {
  public:
    scratchfolder();
    ~scratchfolder();
    scratchfolder(const scratchfolder&) = delete;
    scratchfolder& operator=(const scratchfolder&) = delete;

    const std::string& path() const { return name; }

  private:
    std::string name;
};

struct process_settings {
    std::vector<std::string> command; // the program, looked for in PATH, and its arguments
    std::vector<std::pair<std::string, std::string>> environment = {}; // changed; "" removes
    std::string output = "/dev/null";       // file for standard output and standard error
    std::string folder = "";                // to work in; "" is the test's own
    std::vector<std::string> writable = {}; // if any: all it may write to (confine.h)
    int kept = -1; // a file descriptor to leave open in the child; -1 for none
};

class process {
  public:
    explicit process(const process_settings& settings);
    ~process(); // asks it to end, makes it end a second later
    process(const process&) = delete;
    process& operator=(const process&) = delete;

    int pid() const { return id; }

    bool running();

    // Waits for the end: the exit status, 128 + the signal's number for one ended by a signal, or
    // nothing when it still runs after that time.
    std::optional<int> waitexit(double seconds);

    // What the kernel says of it; 0 once it has ended.
    long residentkilobytes() const;
    double cpuseconds() const;      // user and system, all threads
    long voluntaryswitches() const; // how often its main thread went to sleep of itself

    // Whether it spends `seconds` doing nothing but waiting: hardly any work, sleeps and wakes, and
    // no time in which it would have run on a machine less busy. A program in the middle of an
    // animation wakes hundreds of times a second, an idle one twice for each of its ten polls.
    bool isquiet(double seconds = 0.12) const;

  private:
    std::string statusline(const char* file, const char* key) const;

    int id = -1;
    std::optional<int> ended;
};
