// SPDX-License-Identifier: MIT
//
// prefrig: a store of the test's own, and the program's state as in a fresh process.
//
// Callers   preferences_test, prefstore_test.
#pragma once

#include "base/scratch.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"
#include "model/turns.h"
#include "nullshell.h"
#include "render/colors.h"

#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using texts = std::vector<std::string>;

class preferencestest : public testing::Test {
  protected:
    void SetUp() override { reset(); }

    // As in a fresh process.
    static void reset() {
        resetshell();
        initlibrary();
        initturns();
        std::strcpy(colortable, "WGRBOY");
        lastmacrofilename.clear();
    }

    static void readagain() {
        reset();
        readprefs();
    }

    // A store with these lines in our group.
    void edit(const std::string& lines) const {
        writefile(store, "; a\n; b\n; c\n\n[.]\n\n\n[./Vexelprefs]\n\n" + lines);
    }

    std::string content() const { return readfile(store); }

    bool holds(const std::string& line) const {
        return content().find("\n" + line + "\n") != std::string::npos;
    }

    // The table as "name|string", with "$" for a mark.
    static texts table() {
        texts rows;
        for (int i = 0; i < maccount; i++) {
            rows.push_back(macnames[i] + "|" + (showmac[i] != 0 ? "$" : "") + macstrs[i]);
        }
        return rows;
    }

    // Gives other users these permissions of the folders above the store.
    void openfolders(std::filesystem::perms others) const {
        for (const char* name : {".fltk", ".fltk/org.vexel", ".fltk/org.vexel/vexel"}) {
            std::filesystem::permissions(home.file(name),
                                         std::filesystem::perms::owner_all | others);
        }
    }

    int leftovers() const {
        return filesin(std::filesystem::path(store).parent_path()) - 2;
    } // but the lock

    // What the store cannot be changed for, each time it is tried.
    void expecttold(const std::string& reason) const {
        for (void (*change)() : {writeprefs, +[] { addprefmacro("told", "R"); }}) {
            shell.messages.clear();
            TURNTIME = TURNTIME % 900 + 1;
            change();
            EXPECT_EQ((texts{"alert: Couldn't write " + store + "\n" + reason}), shell.messages);
        }
    }

    scratchhome home;
    std::string store = home.file(".fltk/org.vexel/vexel/preferences.prefs");
};
