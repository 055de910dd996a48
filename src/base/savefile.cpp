// SPDX-License-Identifier: MIT
#include "base/savefile.h"

#include "base/readfile.h"
#include "base/replacefile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <new>

namespace {

// State

std::map<std::string, std::string> written; // what this run has saved last under each name

// One name for all that lead to the same file.
std::string samename(const std::string& path) {
    std::error_code error;
    const std::filesystem::path name = std::filesystem::weakly_canonical(path, error);
    return error ? path : name.string();
}

} // namespace

std::string contentof(const filewriter& write) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* file = open_memstream(&text, &size);
    if (file == nullptr) {
        throw std::bad_alloc();
    }
    write(file);
    std::fclose(file);
    std::string content(text, size);
    std::free(text);
    return content;
}

std::string savefile(const std::string& path, const filewriter& write) {
    const std::string content = contentof(write);
    const auto ours = written.find(samename(path));
    std::string before;
    // A file larger than both is neither, and need not be read for that.
    const std::size_t most =
        std::max(content.size(), ours == written.end() ? 0 : ours->second.size());
    const bool known = readregular(path, before, most) == 0 &&
                       (before == content || (ours != written.end() && before == ours->second));
    const int error = replacefile(path, content, known ? oldcontent::dropped : oldcontent::kept);
    if (error == 0) {
        written[samename(path)] = content;
    }
    return whynot(error);
}
