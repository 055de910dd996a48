// SPDX-License-Identifier: MIT
#include "tools/lines.h"

#include "tools/messages.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::size_t portion = 1 << 16;          // bytes read at a time; a pipe holds as many
constexpr std::size_t keptback = 1 << 16;         // bytes of answers
constexpr std::string_view mark = "\xef\xbb\xbf"; // U+FEFF, which some editors put before a text

// State

std::string answers;

} // namespace

// A terminal that is named as a file must not become the one that can interrupt us: O_NOCTTY.
bool openlines(line_reader& reader, const char* path) {
    const bool standard = std::string_view(path) == "-";
    reader = {};
    reader.name = standard ? "standard input" : path;
    reader.file = standard ? STDIN_FILENO : open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY);
    return reader.file >= 0;
}

void closelines(line_reader& reader) {
    if (reader.file > STDIN_FILENO) {
        close(reader.file);
    }
    reader.file = -1;
}

namespace {

// Where the next newline is, npos if none has been read. What has been searched is remembered: a
// line of megabytes comes in portions, and would be searched from its beginning with each.
std::size_t findnewline(line_reader& reader) {
    const std::size_t found = reader.held.find('\n', reader.searched);
    reader.searched = found == std::string::npos ? reader.held.size() : found;
    return found;
}

void dropheld(line_reader& reader) {
    reader.held.erase(0, reader.begin);
    reader.searched -= reader.begin;
    reader.begin = 0;
}

} // namespace

bool lineready(line_reader& reader) {
    return reader.ended || findnewline(reader) != std::string::npos;
}

// A line that grows beyond all use is forgotten as it comes, so that a file of one endless line
// takes no more memory than any other.
void readmore(line_reader& reader) {
    dropheld(reader);
    if (reader.held.size() > longestline) {
        reader.overlong = true;
        reader.held.clear();
        reader.searched = 0;
    }
    const std::size_t used = reader.held.size();
    reader.held.resize(used + portion);
    ssize_t got = 0;
    do {
        got = read(reader.file, &reader.held[used], portion);
    } while (got < 0 && errno == EINTR);
    reader.failure = got < 0 ? errno : 0;
    reader.ended = got <= 0;
    reader.held.resize(used + (got > 0 ? static_cast<std::size_t>(got) : 0));
    if (reader.number == 0 && reader.held.starts_with(mark) && used < mark.size()) {
        reader.begin = mark.size();
        reader.searched = mark.size();
    }
}

// The last line of a file counts without its newline, too.
bool nextline(line_reader& reader, input_line& line) {
    while (!lineready(reader)) {
        flushanswers(); // the read may wait for somebody who waits for these
        readmore(reader);
    }
    const std::size_t newline = findnewline(reader);
    const std::size_t end = newline == std::string::npos ? reader.held.size() : newline;
    if (newline == std::string::npos && reader.begin == end && !reader.overlong) {
        return false;
    }
    line.text = std::string_view(reader.held).substr(reader.begin, end - reader.begin);
    line.overlong = reader.overlong || line.text.size() > longestline;
    if (line.overlong) {
        line.text = {};
    }
    reader.begin = newline == std::string::npos ? end : end + 1;
    reader.searched = reader.begin;
    reader.overlong = false;
    reader.number++;
    return true;
}

// Answers

void put(std::string_view text) {
    answers += text;
    if (answers.size() >= keptback) {
        flushanswers();
    }
}

namespace {

// A reader that has had enough, as "head" has, is no failure: the program ends as filters do there,
// by the signal, also where it was started with the signal ignored.
[[noreturn]] void endunwritten(int reason) {
    if (reason == EPIPE) {
        std::signal(SIGPIPE, SIG_DFL);
        std::raise(SIGPIPE);
    }
    complain(std::string("write error: ") + std::strerror(reason));
    std::exit(bad_usage);
}

} // namespace

// A pipe may take less than it is given, and a signal may come in between.
void flushanswers() {
    std::string_view rest = answers;
    while (!rest.empty()) {
        const ssize_t written = write(STDOUT_FILENO, rest.data(), rest.size());
        if (written < 0 && errno != EINTR) {
            endunwritten(errno);
        }
        rest.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    answers.clear();
}

void sayandexit(std::string_view text) {
    put(text);
    flushanswers();
    std::exit(all_good);
}
