// SPDX-License-Identifier: MIT
#include "base/scratch.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/preferences.h"
#include "model/turns.h"
#include "nullshell.h"
#include "render/colors.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using texts = std::vector<std::string>;

constexpr char storename[] = ".fltk/org.vexel/vexel/preferences.prefs";

class Preferences : public testing::Test {
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
        for (int i = 0; i < maccount; ++i) {
            rows.push_back(macnames[i] + "|" + (showmac[i] != 0 ? "$" : "") + macstrs[i]);
        }
        return rows;
    }

    // Gives other users these permissions of the folders above the store.
    void openfolders(fs::perms others) const {
        for (const char* name : {".fltk", ".fltk/org.vexel", ".fltk/org.vexel/vexel"}) {
            fs::permissions(home.file(name), fs::perms::owner_all | others);
        }
    }

    int leftovers() const {
        const fs::directory_iterator all(fs::path(store).parent_path());
        return static_cast<int>(std::ranges::count_if(
            all, [](const auto& entry) { return entry.path().filename().string()[0] == '.'; }));
    }

    scratchhome home;
    std::string store = home.file(storename);
};

} // namespace

TEST_F(Preferences, AnEmptyStoreGivesTheStandardSpeedAndNothingElse) {
    std::strcpy(colortable, "KSVDPC");
    TURNTIME = 7;
    readprefs();
    EXPECT_EQ(100, TURNTIME);
    EXPECT_STREQ("KSVDPC", colortable);
    EXPECT_EQ("", lastmacrofilename);
    EXPECT_EQ(0, maccount);
    EXPECT_FALSE(fs::exists(store));
}

TEST_F(Preferences, SettingsAreFoundAgain) {
    TURNTIME = 42;
    lastmacrofilename = "/tmp/100% mine & yours.macros";
    std::strcpy(colortable, "KSVDPC");
    writeprefs();
    addprefmacro("one", "RU");
    readagain();
    EXPECT_EQ(42, TURNTIME);
    EXPECT_EQ("/tmp/100% mine & yours.macros", lastmacrofilename);
    EXPECT_STREQ("KSVDPC", colortable);
    EXPECT_EQ((texts{"one|RU"}), table());
}

TEST_F(Preferences, ColoursAreReadOnlyWithAStoredMacro) {
    std::strcpy(colortable, "KSVDPC");
    writeprefs();
    readagain();
    EXPECT_STREQ("WGRBOY", colortable);
    EXPECT_TRUE(holds("colors:KSVDPC"));
}

TEST_F(Preferences, MissingColoursAreTheStandardOnesWithAStoredMacro) {
    addprefmacro("one", "RU");
    reset();
    std::strcpy(colortable, "KSVDPC");
    readprefs();
    EXPECT_STREQ("WGRBOY", colortable);
}

TEST_F(Preferences, ColourLettersAreTakenAsTheyStandAndNeverMoreThanSix) {
    for (const char* letters : {"WGRBOYKSVDPCX", "wgrboy", "??????", "WG", ""}) {
        edit(std::string("mac0:one\ncolors:") + letters + "\n");
        readagain();
        EXPECT_EQ(std::string(letters).substr(0, 6), colortable);
    }
}

TEST_F(Preferences, ASpeedOutsideItsRangeReadsAsTheStandardOne) {
    constexpr struct {
        const char* text;
        int speed;
    } rows[] = {
        {"1",           1  },
        {"999",         999},
        {"500",         500},
        {"0",           100},
        {"1000",        100},
        {"-5",          100},
        {"abc",         100},
        {"",            100},
        {"7x",          7  },
        {"99999999999", 100},
    };

    for (const auto& row : rows) {
        edit(std::string("speed:") + row.text + "\n");
        readagain();
        EXPECT_EQ(row.speed, TURNTIME) << row.text;
    }
}

TEST_F(Preferences, NumbersMayHaveGapsAndTheFirstFreeOneIsTakenNext) {
    edit("mac5:five\nval5:U\nmac0:zero\nval0:R\n");
    readagain();
    EXPECT_EQ((texts{"zero|R", "five|U"}), table());
    addprefmacro("next", "F");
    EXPECT_TRUE(holds("mac1:next"));
    EXPECT_TRUE(holds("val1:F"));
    readagain();
    EXPECT_EQ((texts{"zero|R", "next|F", "five|U"}), table());
}

TEST_F(Preferences, AMissingStringIsEmptyAndAStringWithoutANameIsNothing) {
    edit("mac0:zero\nval1:U\ngizmo1:1\nmac2\nval2:F\n");
    readagain();
    EXPECT_EQ((texts{"zero|", "|F"}), table());
}

TEST_F(Preferences, AMacroNamedLikeABuiltInOneIsAddedASecondTime) {
    addprefmacro("Flip UF, UL", "R");
    reset();
    addbuiltinmacros();
    readprefs();
    EXPECT_EQ(8, maccount);
    EXPECT_EQ("Flip UF, UL", macnames[7]);
}

TEST_F(Preferences, OnlyAStoredOneIsAMark) {
    edit("mac0:a\nval0:R\ngizmo0:1\nmac1:b\nval1:R\ngizmo1:0\nmac2:c\nval2:R\ngizmo2:2\n"
         "mac3:d\nval3:R\ngizmo3:yes\nmac4:e\nval4:R\n");
    readagain();
    EXPECT_EQ((texts{"a|$R", "b|R", "c|R", "d|R", "e|R"}), table());
}

TEST_F(Preferences, ADollarSignInAStoredStringDoesNotMark) {
    edit("mac0:a\nval0:$R\nmac1:b\nval1:$R\ngizmo1:1\n");
    readagain();
    EXPECT_EQ((texts{"a|R", "b|$R"}), table());
}

TEST_F(Preferences, MarksAreSetAndTakenAwayByName) {
    addprefmacro("one", "R");
    addprefmacro("two", "U");
    addgizmomac("two");
    addgizmomac("none");
    readagain();
    EXPECT_EQ((texts{"one|R", "two|$U"}), table());
    deletegizmomac("one");
    deletegizmomac("none");
    EXPECT_TRUE(holds("gizmo1:1"));
    deletegizmomac("two");
    readagain();
    EXPECT_EQ((texts{"one|R", "two|U"}), table());
    EXPECT_EQ(std::string::npos, content().find("gizmo"));
}

TEST_F(Preferences, TheMarkOfAMacroThatIsNotStoredMakesNoStore) {
    addgizmomac("Flip UF, UL");
    EXPECT_FALSE(fs::exists(store));
}

TEST_F(Preferences, AllMarksAreDeletedButThoseThatAreZero) {
    edit("gizmo0:1\ngizmo1:0\ngizmo2:-1\ngizmo3:7\ngizmo199:1\ngizmo200:1\nmac0:a\n");
    deleteallgizmoprefs();
    const std::string left = content();
    for (const char* gone : {"gizmo0:", "gizmo2:", "gizmo3:", "gizmo199:"}) {
        EXPECT_EQ(std::string::npos, left.find(gone)) << gone;
    }
    EXPECT_TRUE(holds("gizmo1:0"));
    EXPECT_TRUE(holds("gizmo200:1"));
    EXPECT_TRUE(holds("mac0:a"));
}

TEST_F(Preferences, DeletingAMacroDeletesAllThatIsStoredOfIt) {
    addprefmacro("one", "R");
    addprefmacro("two", "U");
    addprefmacro("two", "F");
    addgizmomac("two");
    EXPECT_EQ(1, isprefmacro("two"));
    EXPECT_EQ(1, deleteprefmacro("two"));
    EXPECT_EQ(std::string::npos, content().find("gizmo1"));
    readagain();
    EXPECT_EQ((texts{"one|R", "two|F"}), table());
    EXPECT_EQ(1, deleteprefmacro("two"));
    EXPECT_EQ(0, isprefmacro("two"));
    EXPECT_EQ(0, deleteprefmacro("two"));
}

TEST_F(Preferences, MacrosBeyondTwoHundredLoseNoneOfTheFirst) {
    for (int i = 0; i < 203; ++i) {
        addprefmacro(("m" + std::to_string(i)).c_str(), "R");
    }
    EXPECT_TRUE(holds("mac202:m202"));
    EXPECT_EQ(1, isprefmacro("m199"));
    EXPECT_EQ(0, isprefmacro("m200"));
    readagain();
    ASSERT_EQ(200, maccount);
    EXPECT_EQ("m0", macnames[0]);
    EXPECT_EQ("m199", macnames[199]);
}

TEST_F(Preferences, NamesAndTextsOfAnyKindAreFoundAsGiven) {
    const texts all = {
        "/a/b", "100%s%n", "\"q\" 'q'", "",         "@>&", "a\\b\\",       " lead and tail ",
        "a:b",  "[x]",     "+more",     ";comment", "#c",  "\xc3\xa9\xff", "tab\there"};
    for (const std::string& text : all) {
        addprefmacro(text.c_str(), text.c_str());
    }
    for (const std::string& text : all) {
        EXPECT_EQ(1, isprefmacro(text.c_str())) << text;
    }
    readagain();
    ASSERT_EQ(std::ssize(all), maccount);
    for (int i = 0; i < maccount; ++i) {
        EXPECT_EQ(all[i], macnames[i]);
        EXPECT_EQ(all[i], macstrs[i]);
    }
}

TEST_F(Preferences, LongTextsAreStoredWholeAndReadCut) {
    const std::string name(1024, 'n');
    addprefmacro(name.c_str(), std::string(1024, 'R').c_str());
    EXPECT_EQ(1, isprefmacro(name.c_str())) << "as given";
    readagain();
    EXPECT_EQ((texts{std::string(198, 'n') + "|" + std::string(198, 'R')}), table());
    EXPECT_EQ(1, isprefmacro(macnames[0].c_str())) << "as read";
    EXPECT_EQ(0, isprefmacro(std::string(199, 'n').c_str()));
    EXPECT_EQ(1, deleteprefmacro(macnames[0].c_str()));
    readagain();
    EXPECT_EQ(0, maccount);
}

TEST_F(Preferences, ALongFileNameIsReadCut) {
    lastmacrofilename = std::string(600, 'f');
    writeprefs();
    readagain();
    EXPECT_EQ(std::string(498, 'f'), lastmacrofilename);
}

TEST_F(Preferences, WhatElseIsInTheStoreStays) {
    writefile(store, "; a\n; b\n; c\n\n[.]\nroot:1\n[./Other]\nx:\\\\y\n# kept\n"
                     "[./Vexelprefs]\nmine:z\n[./Vexelprefs/sub]\ndeep:w\n");
    writeprefs();
    for (const char* line : {"root:1", "x:\\\\y", "# kept", "mine:z", "deep:w", "speed:120"}) {
        EXPECT_TRUE(holds(line)) << line;
    }
}

TEST_F(Preferences, AStoreOfTenThousandKeysIsReadAndChanged) {
    std::string lines;
    for (int i = 0; i < 5000; ++i) {
        const std::string n = std::to_string(i);
        lines += "mac" + n + ":m" + n + "\nval" + n + ":R\n";
    }
    edit(lines);
    readagain();
    EXPECT_EQ(200, maccount);
    addprefmacro("last", "U");
    EXPECT_TRUE(holds("mac4999:m4999"));
    EXPECT_TRUE(holds("mac5000:last"));
}

TEST_F(Preferences, AStoreTheToolkitWouldStumbleOverIsLeftAlone) {
    for (const char* lines : {"[oops]\nspeed:7\n", "#c\n+7\n", "speed:7\nmac0:a\\\n"}) {
        edit(lines);
        const std::string before = content();
        readagain();
        EXPECT_EQ(100, TURNTIME);
        EXPECT_EQ(0, maccount);
        EXPECT_EQ(0, isprefmacro("a"));
        writeprefs();
        addprefmacro("b", "R");
        deleteallgizmoprefs();
        EXPECT_EQ(before, content());
    }
}

TEST_F(Preferences, AFullDiskLeavesTheStoreWhole) {
    addprefmacro("one", std::string(150, 'R').c_str());
    const std::string before = content();
    for (const long room : {0L, 1L, 50L, 150L, static_cast<long>(before.size())}) {
        const fulldisk disk(room);
        addprefmacro("two", std::string(190, 'U').c_str());
        addgizmomac("one");
        EXPECT_EQ(before, content()) << room;
    }
    EXPECT_EQ(0, leftovers());
    readagain();
    EXPECT_EQ(1, maccount);
}

TEST_F(Preferences, AHomeThatCannotBeWrittenIsNoReasonToStop) {
    addprefmacro("one", "R");
    fs::permissions(store, fs::perms::owner_read | fs::perms::others_read);
    openfolders(fs::perms::others_read | fs::perms::others_exec);
    const std::string before = content();
    EXPECT_TRUE(asnobody([] {
        readagain();
        EXPECT_EQ(1, maccount);
        writeprefs();
        addprefmacro("two", "U");
        EXPECT_EQ(0, deleteprefmacro("one"));
        deleteallgizmoprefs();
    }));
    EXPECT_EQ(before, content());
}

TEST_F(Preferences, AStoreThatCannotBeReadIsNotReplaced) {
    addprefmacro("one", "R");
    const std::string before = content();
    fs::permissions(store, fs::perms::none);
    openfolders(fs::perms::others_all);
    EXPECT_TRUE(asnobody([] {
        readagain();
        EXPECT_EQ(0, maccount);
        addprefmacro("two", "U");
    }));
    fs::permissions(store, fs::perms::owner_all);
    EXPECT_EQ(before, content());
}

TEST_F(Preferences, WithoutAHomeThereIsNoStore) {
    const std::string old = std::getenv("HOME");
    for (const std::string& place :
         {std::string(), std::string("/dev/null"), old + "/file", std::string(2000, 'h')}) {
        writefile(old + "/file", "x");
        setenv("HOME", place.c_str(), 1);
        readagain();
        writeprefs();
        addprefmacro("one", "R");
        EXPECT_EQ(0, isprefmacro("one"));
        EXPECT_EQ(100, TURNTIME);
    }
    unsetenv("HOME");
    readagain();
    addprefmacro("one", "R");
    EXPECT_EQ(0, isprefmacro("one"));
    setenv("HOME", old.c_str(), 1);
    EXPECT_FALSE(fs::exists(store));
}

TEST_F(Preferences, AStoreBehindALinkStaysThere) {
    writefile(home.file("dots/real"), "; a\n; b\n; c\n\n[./Vexelprefs]\nspeed:7\n");
    fs::create_directories(fs::path(store).parent_path());
    fs::create_symlink(home.file("dots/real"), store);
    addprefmacro("one", "R");
    EXPECT_TRUE(fs::is_symlink(store));
    readagain();
    EXPECT_EQ(7, TURNTIME);
    EXPECT_EQ(1, maccount);
}
