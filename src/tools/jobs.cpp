// SPDX-License-Identifier: MIT
#include "tools/jobs.h"

#include "tools/messages.h"
#include "tools/noshell.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Answers that may wait, for each worker: enough for the others to go on while one cube takes long,
// and a bound for the memory where it takes very long.
constexpr std::size_t jobsahead = 64;

struct worker {
    pid_t process;
    int channel;
    bool busy;
    std::size_t job; // while it is busy
};

struct waiting_answer {
    bool here;
    line_answer answer;
};

// State

std::vector<worker> workers;
std::deque<waiting_answer> waiting; // from the first that has not been written on
constinit std::size_t firstwaiting = 0;
constinit bool allgood = true;
constinit pid_t master = 0; // in a worker: who started it

// Between master and worker: a head and two texts. Both are this program, forked, so numbers go as
// they lie in memory.
struct message_head {
    std::size_t number;
    std::size_t sizes[2];
    bool flag;
};

bool sendbytes(int channel, const void* bytes, std::size_t size) {
    const char* rest = static_cast<const char*>(bytes);
    while (size > 0) {
        // A worker that is gone is an error to be told, not a signal that ends the master.
        const ssize_t sent = send(channel, rest, size, MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR) {
            return false;
        }
        rest += sent > 0 ? sent : 0;
        size -= sent > 0 ? static_cast<std::size_t>(sent) : 0;
    }
    return true;
}

bool receivebytes(int channel, void* bytes, std::size_t size) {
    char* rest = static_cast<char*>(bytes);
    while (size > 0) {
        const ssize_t got = recv(channel, rest, size, 0);
        // 0: the other side has closed, as the master does in the end, or is gone.
        if (got == 0 || (got < 0 && errno != EINTR)) {
            return false;
        }
        rest += got > 0 ? got : 0;
        size -= got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return true;
}

struct message {
    std::size_t number;
    bool flag;
    std::string texts[2];
};

bool sendmessage(int channel, const message& m) {
    message_head head = {};
    head.number = m.number;
    head.flag = m.flag;
    head.sizes[0] = m.texts[0].size();
    head.sizes[1] = m.texts[1].size();
    return sendbytes(channel, &head, sizeof head) &&
           sendbytes(channel, m.texts[0].data(), head.sizes[0]) &&
           sendbytes(channel, m.texts[1].data(), head.sizes[1]);
}

bool receivemessage(int channel, message& m) {
    message_head head = {};
    if (!receivebytes(channel, &head, sizeof head)) {
        return false;
    }
    m.number = head.number;
    m.flag = head.flag;
    m.texts[0].resize(head.sizes[0]);
    m.texts[1].resize(head.sizes[1]);
    return receivebytes(channel, m.texts[0].data(), head.sizes[0]) &&
           receivebytes(channel, m.texts[1].data(), head.sizes[1]);
}

// The worker's whole life. The search asks now and then whether the master is still there.
[[noreturn]] void work(int channel, const answer_function& answer) {
    interrupted = [] { return getppid() != master; };
    message asked;
    while (receivemessage(channel, asked)) {
        const line_answer found =
            answer({asked.texts[0], asked.number, asked.flag, asked.texts[1]});
        if (!sendmessage(channel, {
                                      0, found.good, {found.out, found.aside}
        })) {
            break;
        }
    }
    _exit(all_good); // not exit: what would be flushed and undone there is the master's
}

[[noreturn]] void giveup(const std::string& why) {
    complain(why);
    std::exit(bad_usage);
}

// A worker that a signal ended which was meant for all of them takes the master along in silence.
[[noreturn]] void loseworker(const worker& lost) {
    int status = 0;
    waitpid(lost.process, &status, 0);
    const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    if (signal == SIGINT || signal == SIGTERM || signal == SIGHUP) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
    flushanswers();
    giveup("a job ended unexpectedly");
}

// The channels of the workers before it are not for this one: it would keep them open, and they
// would never see the end of their input.
worker startworker(const answer_function& answer) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        giveup(std::string("cannot start a job: ") + std::strerror(errno));
    }
    const pid_t self =
        getpid(); // now: after the fork the master may be gone, and its number with it
    const pid_t process = fork();
    if (process < 0) {
        giveup(std::string("cannot start a job: ") + std::strerror(errno));
    }
    if (process == 0) {
        master = self;
        for (const worker& other : workers) {
            close(other.channel);
        }
        close(ends[0]);
        work(ends[1], answer);
    }
    close(ends[1]);
    return {process, ends[0], false, 0};
}

// Only from the front: answers go out in the order of the lines.
void writeready() {
    while (!waiting.empty() && waiting.front().here) {
        allgood = allgood && waiting.front().answer.good;
        putanswer(waiting.front().answer);
        waiting.pop_front();
        firstwaiting++;
    }
    flushanswers();
}

// Which line it is about was noted when it was given: a worker has one at a time.
void takeanswer(worker& from) {
    message found;
    if (!receivemessage(from.channel, found)) {
        loseworker(from);
    }
    from.busy = false;
    waiting[from.job - firstwaiting] = {
        true, {found.flag, found.texts[0], found.texts[1]}
    };
}

// Waits until an answer has come, or input, and takes the answers. Whether there is input; -1 for
// none that is waited for.
bool takeanswers(int input) {
    std::vector<pollfd> polled;
    polled.reserve(workers.size() + 1);
    for (const worker& w : workers) {
        polled.push_back({w.busy ? w.channel : -1, POLLIN, 0}); // poll passes -1 over
    }
    polled.push_back({input, POLLIN, 0});
    while (poll(polled.data(), polled.size(), -1) < 0) {
        assert(errno == EINTR);
    }
    for (std::size_t i = 0; i < workers.size(); i++) {
        if (polled[i].revents != 0) {
            takeanswer(workers[i]);
        }
    }
    writeready();
    return polled.back().revents != 0;
}

bool isbusy(const worker& w) {
    return w.busy;
}

} // namespace

void startjobs(int count, const answer_function& answer) {
    assert(count >= 1 && count <= mostjobs && workers.empty());
    flushanswers();
    for (int i = 0; i < count; i++) {
        workers.push_back(startworker(answer));
    }
}

// A full queue is waited for, too: behind one slow cube all others could be answered and pile up.
void givejob(const asked_line& line) {
    while (std::all_of(workers.begin(), workers.end(), isbusy) ||
           waiting.size() >= jobsahead * workers.size()) {
        takeanswers(-1);
    }
    worker& idle = *std::find_if_not(workers.begin(), workers.end(), isbusy);
    idle.busy = true;
    idle.job = firstwaiting + waiting.size();
    waiting.push_back({});
    const message asked = {
        line.number, line.overlong, {std::string(line.source), std::string(line.text)}
    };
    if (!sendmessage(idle.channel, asked)) {
        loseworker(idle);
    }
}

void waitforinput(const line_reader& reader) {
    while (!takeanswers(reader.file)) {
        continue;
    }
}

bool endjobs() {
    while (!waiting.empty()) {
        takeanswers(-1);
    }
    // First all of the channels, then all of the ends: so they end side by side.
    for (const worker& w : workers) {
        close(w.channel);
    }
    for (const worker& w : workers) {
        waitpid(w.process, nullptr, 0);
    }
    workers.clear();
    return allgood;
}
