// SPDX-License-Identifier: MIT
#include "macros/preferences.h"

#include "base/replacefile.h"
#include "base/storetext.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "model/turns.h"
#include "render/colors.h"

#include <FL/Fl_Preferences.H>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr char vendor[] = "org.vexel";
constexpr char application[] = "vexel/preferences";
constexpr char groupname[] = "Vexelprefs";
constexpr std::size_t maxpath = 1024;

constexpr int maxprefmacros = 200; // the numbers that are read
constexpr int filenamesize = 499;  // bytes read of "macrofilename", the NUL among them
constexpr int textsize = 199;      // the same of "mac%d" and "val%d"
constexpr int standardspeed = 100; // without a good "speed"
constexpr int maxspeed = 999;

// The store

// Where it lies; empty where it cannot be: without a HOME, in which case the toolkit would take the
// store of the whole system, or too deep for the toolkit's buffers.
std::string storepath() {
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') {
        return "";
    }
    const std::string path = std::string(home) + "/.fltk/" + vendor + "/" + application + ".prefs";
    return path.size() < maxpath ? path : "";
}

// Calls use with the group of the store, which it must not change; not at all where there is none
// or where the toolkit had better not read it.
void readstore(const std::function<void(Fl_Preferences&)>& use) {
    const std::string path = storepath();
    if (path.empty() || soundstore(path.c_str()) == 0) {
        return;
    }
    Fl_Preferences root(Fl_Preferences::USER, vendor, application);
    if (root.groupExists(groupname) != 0) { // opening it would make it, and have the store written
        Fl_Preferences group(root, groupname);
        use(group);
    }
}

// Changes something in the group it is given, or returns false.
using storechange = std::function<bool(Fl_Preferences&)>;

// What a store says, in the order in which it says it; a group counts as an entry without a value.
using entrylist = std::vector<std::pair<std::string, std::string>>;

// Appends all groups and entries of a group.
void collectentries(Fl_Preferences& group, entrylist& list) {
    for (int i = 0; i < group.entries(); ++i) {
        char* value = nullptr;
        group.get(group.entry(i), value, "");
        list.emplace_back(group.entry(i), value);
        std::free(value);
    }
    for (int i = 0; i < group.groups(); ++i) {
        const std::string name = group.group(i);
        list.emplace_back(name, "");
        Fl_Preferences child(group, name.c_str());
        collectentries(child, list);
    }
}

// Has change work on the copy of the store in folder. The toolkit writes it, and does not tell
// whether it could: false if the copy does not say afterwards what it should, or is not changed.
bool changecopy(const std::string& folder, const storechange& change) {
    entrylist wanted;
    entrylist written;
    {
        Fl_Preferences root(folder.c_str(), vendor, application);
        Fl_Preferences group(root, groupname);
        if (!change(group)) {
            return false;
        }
        collectentries(root, wanted);
    } // here it is written
    Fl_Preferences root(folder.c_str(), vendor, application);
    Fl_Preferences group(root, groupname);
    collectentries(root, written);
    return wanted == written;
}

// The copy is made in a folder of its own, since it is the toolkit that names the file. Whatever
// fails here leaves the store alone.
void replacestore(const std::string& path, const std::string& folder, const storechange& change) {
    const fs::path copy = fs::path(folder) / (std::string(application) + ".prefs");
    std::error_code error;
    fs::create_directories(copy.parent_path(), error);
    if (fs::exists(path, error) && !fs::copy_file(path, copy, error)) {
        return;
    }
    if (!changecopy(folder, change)) {
        return;
    }
    std::ifstream file(copy, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    static_cast<void>(replacefile(path.c_str(), [&](std::FILE* store) {
        std::fwrite(content.data(), 1, content.size(), store);
    }));
}

// Calls change with the group of a copy of the store and puts the copy in the place of the store.
void changestore(const storechange& change) {
    const std::string path = storepath();
    if (path.empty() || soundstore(path.c_str()) == 0) {
        return;
    }
    // Beside the store, not among the temporary files: another disk may have room where this has
    // none.
    const std::string place = fs::path(path).parent_path().string();
    std::error_code error;
    fs::create_directories(place, error);
    std::string folder = place + "/.vexel-XXXXXX";
    if (mkdtemp(folder.data()) != nullptr) {
        replacestore(path, folder, change);
        fs::remove_all(folder, error);
    }
}

// Its keys. The toolkit looks a key up by walking through all of them: with n keys every function
// here takes n steps for each key it asks for, which is quick enough for ten thousand.

std::string key(const char* kind, int n) {
    return kind + std::to_string(n);
}

std::string gettext(Fl_Preferences& store, const std::string& name, int size) {
    std::vector<char> text(size);
    store.get(name.c_str(), text.data(), "", size);
    return text.data();
}

int getnumber(Fl_Preferences& store, const std::string& name, int standard) {
    int value = standard;
    store.get(name.c_str(), value, standard);
    return value;
}

// Also a macro without a name is one: only a key that is missing makes a gap.
bool hasmacro(Fl_Preferences& store, int n) {
    return store.entryExists(key("mac", n).c_str()) != 0;
}

// Whether macro n has that name: as it stands in the store, or as much of it as is read.
bool isnamed(Fl_Preferences& store, int n, const std::string& name) {
    char* whole = nullptr;
    store.get(key("mac", n).c_str(), whole, "");
    const bool same = whole == name;
    std::free(whole);
    return same || gettext(store, key("mac", n), textsize) == name;
}

// The number of the first macro of that name; -1 if there is none.
int findnumber(Fl_Preferences& store, const std::string& name) {
    for (int n = 0; n < maxprefmacros; ++n) {
        if (hasmacro(store, n) && isnamed(store, n, name)) {
            return n;
        }
    }
    return -1;
}

void readmacro(Fl_Preferences& store, int n) {
    const std::string name = gettext(store, key("mac", n), textsize);
    const std::string moves = gettext(store, key("val", n), textsize);
    if (addmacro(name.c_str(), moves.c_str()) != 0) {
        // Deliberate: NOT-BUGS.md, "A stored string's "$" does not mark the macro"
        showmac[maccount - 1] = getnumber(store, key("gizmo", n), -1) == 1 ? 1 : 0;
    }
}

} // namespace

void readprefs() {
    TURNTIME = standardspeed;
    lastmacrofilename.clear();
    readstore([](Fl_Preferences& store) {
        char folder[400];
        store.getUserdataPath(folder, sizeof folder); // a folder for files of ours; there are none
        const int speed = getnumber(store, "speed", standardspeed);
        TURNTIME = speed >= 1 && speed <= maxspeed ? speed : standardspeed;
        lastmacrofilename = gettext(store, "macrofilename", filenamesize);
        for (int n = 0; n < maxprefmacros; ++n) {
            if (hasmacro(store, n)) {
                readmacro(store, n);
                // Deliberate: NOT-BUGS.md, "Colours are read only with a stored macro"
                store.get("colors", colortable, "WGRBOY", sizeof colortable);
            }
        }
    });
}

void writeprefs() {
    changestore([](Fl_Preferences& store) {
        store.set("macrofilename", lastmacrofilename.c_str());
        store.set("speed", TURNTIME);
        store.set("colors", colortable);
        return true;
    });
}

void addprefmacro(const char* name, const char* text) {
    changestore([=](Fl_Preferences& store) {
        int n = 0;
        while (hasmacro(store, n)) {
            // Deliberate: NOT-BUGS.md, "Macros beyond the two hundredth are stored and not read"
            ++n;
        }
        store.set(key("mac", n).c_str(), name);
        store.set(key("val", n).c_str(), text);
        return true;
    });
}

int isprefmacro(const char* name) {
    int found = 0;
    readstore([&](Fl_Preferences& store) { found = findnumber(store, name) >= 0 ? 1 : 0; });
    return found;
}

int deleteprefmacro(const char* name) {
    int deleted = 0;
    changestore([&](Fl_Preferences& store) {
        const int n = findnumber(store, name);
        if (n >= 0) {
            for (const char* kind : {"mac", "val", "gizmo"}) {
                store.deleteEntry(key(kind, n).c_str());
            }
            deleted = 1;
        }
        return deleted != 0;
    });
    return deleted;
}

void addgizmomac(const char* name) {
    changestore([=](Fl_Preferences& store) {
        const int n = findnumber(store, name);
        // Deliberate: NOT-BUGS.md, "Only a stored macro's mark is remembered"
        if (n >= 0) {
            store.set(key("gizmo", n).c_str(), 1);
        }
        return n >= 0;
    });
}

void deletegizmomac(const char* name) {
    changestore([=](Fl_Preferences& store) {
        const int n = findnumber(store, name);
        return n >= 0 && store.deleteEntry(key("gizmo", n).c_str()) != 0;
    });
}

void deleteallgizmoprefs() {
    changestore([](Fl_Preferences& store) {
        bool deleted = false;
        for (int n = 0; n < maxprefmacros; ++n) {
            if (getnumber(store, key("gizmo", n), -1) != 0) {
                deleted = store.deleteEntry(key("gizmo", n).c_str()) != 0 || deleted;
            }
        }
        return deleted;
    });
}
