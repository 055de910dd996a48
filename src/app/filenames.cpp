// SPDX-License-Identifier: MIT
#include "app/filenames.h"

#include <FL/filename.H>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <strings.h>
#include <system_error>
#include <tuple>

namespace {

namespace fs = std::filesystem;

// Names that differ in case alone have an order, too, so that a listing is the same every time.
bool before(const file_entry& a, const file_entry& b) {
    if (a.folder != b.folder) {
        return a.folder;
    }
    const int order = strcasecmp(a.name.c_str(), b.name.c_str());
    return order != 0 ? order < 0 : a.name < b.name;
}

bool wanted(const file_entry& entry, const std::string& pattern, bool hidden) {
    if (entry.name.starts_with('.') && !hidden) {
        return false;
    }
    return entry.folder || pattern.empty() ||
           fl_filename_match(entry.name.c_str(), pattern.c_str()) != 0;
}

// The home folder of a user, of the one who runs the program for an empty name; "" if unknown.
std::string homeof(const std::string& user) {
    if (user.empty()) {
        const char* home = std::getenv("HOME");
        return home == nullptr ? "" : home;
    }
    const passwd* record = getpwnam(user.c_str());
    return record == nullptr ? "" : record->pw_dir;
}

std::string commonbeginning(const std::string& a, const std::string& b) {
    const auto [end, ignored] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return {a.begin(), end};
}

} // namespace

// One that fails on the way gives what came before.
file_listing listfolder(const std::string& folder, const std::string& pattern, bool hidden) {
    file_listing listing;
    std::error_code failure;
    fs::directory_iterator at(folder, failure);
    for (; !failure && at != fs::directory_iterator(); at.increment(failure)) {
        std::error_code unknown; // of a link that leads nowhere: a file
        const file_entry entry = {at->path().filename().string(), at->is_directory(unknown)};
        if (wanted(entry, pattern, hidden)) {
            listing.entries.push_back(entry);
        }
    }
    listing.failure = failure ? failure.message() : "";
    std::ranges::sort(listing.entries, before);
    return listing;
}

bool isfolder(const std::string& path) {
    std::error_code unknown;
    return fs::is_directory(path, unknown);
}

std::string startfolder() {
    std::error_code gone;
    const fs::path folder = fs::current_path(gone);
    return gone ? "/" : folder.string();
}

std::string expandhome(const std::string& typed) {
    if (!typed.starts_with('~')) {
        return typed;
    }
    const std::size_t end = std::min(typed.find('/'), typed.size());
    const std::string home = homeof(typed.substr(1, end - 1));
    return home.empty() ? typed : home + typed.substr(end);
}

std::string pathof(const std::string& folder, const std::string& typed) {
    // An absolute path takes the folder's place.
    return (fs::path(folder) / expandhome(typed)).lexically_normal().string();
}

completion completename(const std::string& folder, const std::string& pattern,
                        const std::string& typed) {
    const std::string begun = namepart(typed);
    const std::string before_it = folderpart(typed);
    completion result = {typed, 0};
    std::string common;
    bool into = false; // whether the last candidate is a folder; asked of an only one
    for (const file_entry& entry :
         listfolder(pathof(folder, before_it), pattern, begun.starts_with('.')).entries) {
        if (entry.name.starts_with(begun)) {
            common = result.candidates == 0 ? entry.name : commonbeginning(common, entry.name);
            into = entry.folder;
            result.candidates++;
        }
    }
    if (result.candidates > 0) {
        result.text = before_it + common + (result.candidates == 1 && into ? "/" : "");
    }
    return result;
}

std::string folderpart(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1); // npos + 1 is 0
}

std::string namepart(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}
