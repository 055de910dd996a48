// SPDX-License-Identifier: MIT
#include "macros/prefstore.h"

#include "base/readfile.h"
#include "base/safestore.h"

#include <FL/Fl_Preferences.H>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

constexpr char vendor[] = "org.vexel";
constexpr char application[] = "vexel/preferences";
constexpr char groupname[] = "./Vexelprefs"; // as the store has it

constexpr std::size_t maxpath = 256; // what the toolkit's buffers hold, with the NUL

// The entries of our group in a text of the store.
storeentries ourentries(const std::string& text) {
    return readgroups(text)[groupname];
}

// Changes

storeentries changed(storeentries entries, const storeedits& changes) {
    for (const auto& [name, value] : changes) {
        entries.erase(name);
        if (value) {
            entries[name] = *value;
        }
    }
    return entries;
}

// Has the toolkit make the changes in the store that it finds in the folder, and write it. What the
// system said last, in case that did not go well.
int applybytoolkit(const storeedits& changes, const std::string& folder) {
    {
        Fl_Preferences root(folder.c_str(), vendor, application);
        Fl_Preferences group(root, groupname + 2); // below the root, "."
        for (const auto& [name, value] : changes) {
            if (value) {
                group.set(name.c_str(), value->c_str());
            } else {
                group.deleteEntry(name.c_str());
            }
        }
        errno = 0;
    } // here it is written
    return errno;
}

// Nothing of it needs to be on the disk: it goes with the folder that it is in.
bool writecopy(const fs::path& copy, const std::string& text) {
    std::ofstream file;
    if (!text.empty()) { // else the toolkit makes it
        file.open(copy, std::ios::binary);
        file << text << std::flush;
    }
    return file.good();
}

// Makes the changes in the text of a store, by way of a copy in the folder, and says why that
// failed. The toolkit does not tell whether it could write: the copy is read again.
std::string rewrite(std::string& text, const std::string& folder, const storeedits& changes) {
    auto wanted = readgroups(text);
    wanted[groupname] = changed(wanted[groupname], changes);
    const fs::path copy = fs::path(folder) / (std::string(application) + ".prefs");
    if (copy.string().size() >= maxpath) {
        return whynot(ENAMETOOLONG);
    }
    std::error_code failed;
    fs::create_directories(copy.parent_path(), failed);
    if (failed || !writecopy(copy, text)) {
        return whynot(failed ? failed.value() : errno);
    }
    const int toolkiterror = applybytoolkit(changes, folder);
    if (readregular(copy, text, maxstoresize) == 0 && storefault(text).empty()) {
        auto written = readgroups(text);
        std::erase_if(wanted, [](const auto& group) { return group.second.empty(); });
        std::erase_if(written, [](const auto& group) { return group.second.empty(); });
        if (wanted == written) {
            return "";
        }
    }
    return toolkiterror != 0 ? whynot(toolkiterror) : "The copy is not as it should be";
}

} // namespace

// The toolkit would take the store of the whole system without a HOME.
std::string storepath() {
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') {
        return "";
    }
    return std::string(home) + "/.fltk/" + vendor + "/" + application + ".prefs";
}

storeentries stored() {
    std::string text;
    const std::string path = storepath();
    const bool readable = !path.empty() && readstore(path, text).empty();
    return readable && storefault(text).empty() ? ourentries(text) : storeentries();
}

std::string changestored(const storedecision& decide) {
    const std::string path = storepath();
    if (path.empty()) {
        return "There is no home folder";
    }
    // Why the text cannot be changed; "" if it says already what it should.
    const auto difference = [&](const std::string& text, storeedits& changes) {
        std::string fault = storefault(text);
        const storeentries before = fault.empty() ? ourentries(text) : storeentries();
        changes = fault.empty() ? decide(before) : storeedits();
        changes = changed(before, changes) == before ? storeedits() : changes;
        return fault;
    };
    std::string text;
    storeedits changes;
    // A store in which there is nothing to change is not even locked.
    if (readstore(path, text).empty() && difference(text, changes).empty() && changes.empty()) {
        return "";
    }
    return changestore(path, [&](std::string& now, const std::string& folder) {
        const std::string fault = difference(now, changes);
        return changes.empty() ? fault : rewrite(now, folder, changes);
    });
}
