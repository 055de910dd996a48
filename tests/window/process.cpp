// SPDX-License-Identifier: MIT
#include "window/process.h"

#include "window/confine.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

double now() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(since).count();
}

bool waitfor(double seconds, const std::function<bool()>& condition) {
    const double end = now() + seconds;
    while (!condition()) {
        if (now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(4));
    }
    return true;
}

scratchfolder::scratchfolder() : name(std::filesystem::temp_directory_path() / "vexel-XXXXXX") {
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder " + name + ": " + std::strerror(errno));
    }
}

scratchfolder::~scratchfolder() {
    std::error_code ignored; // what cannot be removed must not fail a test that is over
    std::filesystem::permissions(name, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(name, ignored);
}

namespace {

// Runs in the child, between fork and exec. It dies with its parent whatever becomes of that one,
// and leaves no core file.
[[noreturn]] void becomechild(const process_settings& settings, int parent) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) {
        _exit(127);
    }
    const rlimit nocore = {0, 0};
    setrlimit(RLIMIT_CORE, &nocore);
    const int in = open("/dev/null", O_RDONLY);
    const int out = open(settings.output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(in, 0);
    dup2(out, 1);
    dup2(out, 2);
    if (settings.kept >= 0) {
        fcntl(settings.kept, F_SETFD, 0);
    }
    for (const auto& [name, value] : settings.environment) {
        value.empty() ? unsetenv(name.c_str()) : setenv(name.c_str(), value.c_str(), 1);
    }
    if (!settings.folder.empty() && chdir(settings.folder.c_str()) != 0) {
        _exit(127);
    }
    if (!settings.writable.empty() && !confine(settings.writable)) {
        _exit(127);
    }
    std::vector<char*> arguments;
    for (const std::string& word : settings.command) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

} // namespace

process::process(const process_settings& settings) {
    const int parent = getpid();
    id = fork();
    if (id < 0) {
        throw std::runtime_error(std::string("no new process: ") + std::strerror(errno));
    }
    if (id == 0) {
        becomechild(settings, parent);
    }
}

process::~process() {
    if (!running()) {
        return;
    }
    kill(id, SIGTERM);
    if (!waitexit(1)) {
        kill(id, SIGKILL);
        waitexit(10);
    }
}

bool process::running() {
    return !waitexit(0);
}

std::optional<int> process::waitexit(double seconds) {
    waitfor(seconds, [this] {
        int status = 0;
        if (!ended && waitpid(id, &status, WNOHANG) == id) {
            ended = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        return ended.has_value();
    });
    return ended;
}

std::string process::statusline(const char* file, const char* key) const {
    std::ifstream status("/proc/" + std::to_string(id) + "/" + file);
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(key, 0) == 0) {
            return line.substr(std::strlen(key));
        }
    }
    return "";
}

long process::residentkilobytes() const {
    return std::atol(statusline("status", "VmRSS:").c_str());
}

long process::voluntaryswitches() const {
    return std::atol(statusline("status", "voluntary_ctxt_switches:").c_str());
}

double process::cpuseconds() const {
    clockid_t clock = 0;
    timespec time = {};
    if (clock_getcpuclockid(id, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        return 0;
    }
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

bool process::isquiet(double seconds) const {
    const auto waited = [this] { // seconds it was ready to run and did not get a core
        std::istringstream numbers(statusline("schedstat", ""));
        double running_time = 0;
        double queued_time = 0;
        numbers >> running_time >> queued_time;
        return queued_time * 1e-9;
    };
    const auto sleeps = [this] { // a wait for a core is counted when it is over
        return statusline("status", "State:").find("sleeping") != std::string::npos;
    };
    if (!sleeps()) {
        return false;
    }
    const long switches = voluntaryswitches();
    const double ran = cpuseconds();
    const double queued = waited();
    const double start = now();
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    const double took = now() - start;
    return sleeps() && waited() - queued < 0.1 * took && cpuseconds() - ran < 0.1 * took &&
           voluntaryswitches() - switches < 60 * took + 3;
}
