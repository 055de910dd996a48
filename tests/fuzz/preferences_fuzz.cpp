// SPDX-License-Identifier: MIT
//
// Any bytes as the preferences store. It is read, changed in every way and read again: nothing
// breaks, reading writes nothing, and what was stored is there.
#include "fuzz/fuzz.h"
#include "fuzz/scratchfile.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"
#include "model/turns.h"
#include "nullshell.h"
#include "render/colors.h"

#include <cstring>

namespace {

void start() {
    resetshell();
    initlibrary();
    std::strcpy(colortable, "WGRBOY");
    readprefs();
    must(TURNTIME >= 1 && TURNTIME <= 999, "the speed is one that can be set");
    must(maccount <= maxmacros, "the table is not overrun");
    must(std::strlen(colortable) <= 6, "there are six colour letters at most");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const scratchfile store(".fltk/org.vexel/vexel/preferences.prefs");
    setenv("HOME", store.folder().c_str(), 1);
    const std::string bytes = textfrom(data, size);
    store.write(bytes);
    start();
    must(store.read() == bytes, "reading writes nothing");
    const bool there = isprefmacro("fuzz") != 0;
    addprefmacro("fuzz", "RUru");
    addgizmomac("fuzz");
    TURNTIME = 17;
    writeprefs();
    start();
    if (TURNTIME != 17) {
        must(store.read() == bytes, "a store that cannot be changed is left alone");
        return 0;
    }
    must(isprefmacro("fuzz") == 1 || there || store.read().find("fuzz") != std::string::npos,
         "a stored macro is there");
    deletegizmomac("fuzz");
    deleteprefmacro("fuzz");
    deleteallgizmoprefs();
    start();
    must(TURNTIME == 17, "the store can still be read");
    return 0;
}
