// SPDX-License-Identifier: MIT
//
// Any bytes as a macro file. What was loaded and saved is loaded again as it was, whatever fits the
// lines that are read.
#include "fuzz/fuzz.h"
#include "fuzz/scratchfile.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/macrolines.h"
#include "nullshell.h"

#include <algorithm>
#include <vector>

namespace {

struct macro {
    std::string name, moves;
    int marked;

    bool operator==(const macro&) const = default;
};

std::vector<macro> table() {
    std::vector<macro> all;
    for (int i = 0; i < maccount; i++) {
        all.push_back({macnames[i], macstrs[i], showmac[i]});
    }
    return all;
}

std::vector<macro> loaded(const std::string& path) {
    resetshell();
    initlibrary();
    must(loadmacrofile(path.c_str()) == 1, "a file that is there is loaded");
    must(maccount >= 0 && maccount <= maxmacros, "the table is not overrun");
    for (const macro& row : table()) {
        must(row.name.size() < macrolinesize && row.moves.size() < macrolinesize,
             "a line is no longer than what is read of it");
        must(row.name.find_first_of(std::string("\n\0", 2)) == std::string::npos,
             "a name is one line");
    }
    return table();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const scratchfile file("macros");
    file.write(textfrom(data, size));
    std::vector<macro> first = loaded(file.path());
    std::FILE* saved = std::fopen(file.path().c_str(), "w");
    must(saved != nullptr, "the scratch file can be written");
    printmacrodefs(saved);
    std::fclose(saved);
    for (const macro& row : first) {
        if (std::max(row.name.size(), row.moves.size()) == macrolinesize - 1 ||
            row.moves.ends_with('\r')) {
            return 0; // its newline is read as a line of its own, or as the second half of an end
        }
    }
    if (!first.empty() && first[0].name.starts_with("\xef\xbb\xbf")) {
        return 0; // the mark would be passed over
    }
    for (macro& row : first) { // marks are not saved, and a second "$" is one then
        row.marked = row.moves.starts_with('$') ? 1 : 0;
        row.moves.erase(0, row.marked);
    }
    must(loaded(file.path()) == first, "what was saved comes back");
    return 0;
}
