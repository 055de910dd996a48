// SPDX-License-Identifier: MIT
#include "base/scratch.h"
#include "base/syscalls.h"
#include "macros/library.h"
#include "macros/macrofile.h"
#include "macros/nullpreferences.h"
#include "nullshell.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

using texts = std::vector<std::string>;
using namespace std::string_literals;

class Macrofile : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetpreferences();
        initlibrary();
        lastmacrofilename.clear();
    }

    // Loads a file of that content.
    void load(const std::string& content) const {
        writefile(path, content);
        ASSERT_EQ(1, loadmacrofile(path.c_str()));
    }

    // The table as "name|string", with "$" for a mark.
    static texts table() {
        texts rows;
        for (int i = 0; i < maccount; i++) {
            rows.push_back(macnames[i] + "|" + (showmac[i] != 0 ? "$" : "") + macstrs[i]);
        }
        return rows;
    }

    static int files(const std::string& folder) {
        const std::filesystem::directory_iterator all(folder);
        return static_cast<int>(std::distance(begin(all), end(all)));
    }

    scratchhome home;
    std::string path = home.file("m.macros");
};

} // namespace

TEST_F(Macrofile, ReadsPairsOfLines) {
    load("one\nRU\ntwo\n3(LD)\n");
    EXPECT_EQ((texts{"one|RU", "two|3(LD)"}), table());
}

TEST_F(Macrofile, ADollarSignMarks) {
    load("a\n$RU\nb\n$$RU\nc\n$\n");
    EXPECT_EQ((texts{"a|$RU", "b|$$RU", "c|$"}), table());
}

TEST_F(Macrofile, AMissingFileIsRefused) {
    EXPECT_EQ(0, loadmacrofile(home.file("none").c_str()));
    EXPECT_EQ(0, loadmacrofile(""));
    EXPECT_EQ(0, maccount);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(Macrofile, AnEmptyFileHoldsNoMacros) {
    load("");
    EXPECT_EQ(0, maccount);
}

TEST_F(Macrofile, WhatIsNoFileIsRefusedAtOnce) {
    makepipe(path);
    EXPECT_EQ(0, loadmacrofile(path.c_str()));
    EXPECT_EQ(0, loadmacrofile(home.file("").c_str()));
    EXPECT_EQ(0, maccount);
}

TEST_F(Macrofile, TheLastNewlineMayBeMissing) {
    load("one\nRU");
    EXPECT_EQ((texts{"one|RU"}), table());
}

TEST_F(Macrofile, ANameWithoutAStringGetsTheStringBeforeIt) {
    load("one\nRU\ntwo\n$LD\nthree\n");
    EXPECT_EQ((texts{"one|RU", "two|$LD", "three|$LD"}), table());
}

TEST_F(Macrofile, ASingleLineGivesAnEmptyString) {
    load("only\n");
    EXPECT_EQ((texts{"only|"}), table());
}

TEST_F(Macrofile, EmptyLinesCount) {
    load("\n\n\nRU\nname\n\n");
    EXPECT_EQ((texts{"|", "|RU", "name|"}), table());
}

TEST_F(Macrofile, LinesOfOtherSystemsAreReadLikeOurs) {
    const std::string whole(97, 'R');
    load("one\r\nRU\r\n\r\n$\r\n" + whole + "\r\n" + whole + "\r\nlast\r\nU");
    EXPECT_EQ((texts{"one|RU", "|$", whole + "|" + whole, "last|U"}), table());
}

TEST_F(Macrofile, AnyOtherCarriageReturnIsPartOfTheText) {
    load("one\nR\rU\ntwo\n\r\r\nthree\nU\r");
    EXPECT_EQ((texts{"one|R\rU", "two|\r", "three|U\r"}), table());
}

TEST_F(Macrofile, AByteOrderMarkIsPassedOver) {
    load("\xef\xbb\xbfone\n\xef\xbb\xbfRU\n\xef\xbb\xbftwo\nF\n");
    EXPECT_EQ((texts{"one|\xef\xbb\xbfRU", "\xef\xbb\xbftwo|F"}), table());
    initlibrary();
    load("\xef\xbb\xbf\xef\xbb\xbfone\nRU\n"); // only the first one is the file's
    EXPECT_EQ((texts{"\xef\xbb\xbfone|RU"}), table());
    initlibrary();
    load("\xef\xbbone\nRU\n");
    EXPECT_EQ((texts{"\xef\xbbone|RU"}), table());
    initlibrary();
    load("\xef\xbb\xbf");
    load("\xef");
    EXPECT_EQ((texts{"\xef|"}), table());
}

TEST_F(Macrofile, ANameHoldsNoLineBreak) {
    load("one\rtwo\nRU\n");
    EXPECT_EQ((texts{"one two|RU"}), table());
}

TEST_F(Macrofile, ANulEndsTheTextOfItsLine) {
    load("one\0xyz\nRU\0LD\n\0\n\0$RU\ntwo\nF\n"s);
    EXPECT_EQ((texts{"one|RU", "|", "two|F"}), table());
}

TEST_F(Macrofile, ALineOfNinetySevenCharactersIsReadWhole) {
    const std::string name(97, 'n');
    const std::string moves(97, 'R');
    load(name + "\n" + moves + "\n");
    EXPECT_EQ((texts{name + "|" + moves}), table());
}

TEST_F(Macrofile, ALineOfNinetyEightCharactersIsFollowedByAnEmptyOne) {
    const std::string name(98, 'n');
    const std::string moves(98, 'R');
    load(name + "\n" + moves + "\nnext\nU\n");
    EXPECT_EQ((texts{name + "|", moves + "|", "next|U"}), table());
}

TEST_F(Macrofile, ALongerLineIsSplitAndShiftsThePairs) {
    const std::string whole(98, 'R');
    load("name\n" + whole + "UF\nnext\nU\n");
    EXPECT_EQ((texts{"name|" + whole, "UF|next", "U|next"}), table());
}

TEST_F(Macrofile, ALastLineOfNinetyEightCharactersWithoutItsNewlineIsOneLine) {
    const std::string whole(98, 'R');
    load("name\n" + whole);
    EXPECT_EQ((texts{"name|" + whole}), table());
}

TEST_F(Macrofile, NamesInTheTableAreAddedAgain) {
    addbuiltinmacros();
    std::FILE* file = std::fopen(path.c_str(), "w");
    printmacrodefs(file);
    std::fclose(file);
    const texts before = table();
    ASSERT_EQ(1, loadmacrofile(path.c_str()));
    ASSERT_EQ(14, maccount);
    const texts after = table();
    EXPECT_EQ(before, texts(after.begin(), after.begin() + 7));
    EXPECT_EQ(before, texts(after.begin() + 7, after.end()));
}

TEST_F(Macrofile, ReadingEndsWhereTheTableIsFull) {
    std::string content;
    for (int i = 0; i < 600; i++) {
        content += "macro " + std::to_string(i) + "\nRU\n";
    }
    load(content);
    EXPECT_EQ(500, maccount);
    EXPECT_EQ("macro 499", macnames[499]);
    EXPECT_EQ((texts{"alert: Too many macro definitions"}), shell.messages);
}

TEST_F(Macrofile, AnEndlessFileIsReadUntilTheTableIsFull) {
    writefile(path, "");
    std::filesystem::resize_file(path, std::uintmax_t{1} << 40); // of zeros, and no room is used
    EXPECT_EQ(1, loadmacrofile(path.c_str()));
    EXPECT_EQ(500, maccount);
    EXPECT_EQ(1U, shell.messages.size());
}

TEST_F(Macrofile, AnyBytesLoadOrAreRefused) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; round++) {
        initlibrary();
        std::string content(random() % 4000, ' ');
        for (char& c : content) {
            c = random() % 8 == 0 ? "\n\0$\r"[random() % 4] : static_cast<char>(random() % 256);
        }
        load(content);
        ASSERT_LE(maccount, maxmacros);
        for (int i = 0; i < maccount; i++) {
            ASSERT_LT(macnames[i].size(), 99U);
            ASSERT_LT(macstrs[i].size(), 99U);
        }
    }
}

TEST_F(Macrofile, WritesEveryMacroAndNoMark) {
    addmacro("one", "RU");
    addmacro("", "$LD");
    addmacro("three %s", "");
    shell.answers = {path};
    dumpmacfile();
    EXPECT_EQ("one\nRU\n\nLD\nthree %s\n\n", readfile(path));
    EXPECT_EQ((texts{"file: Save Macros in File:  []"}), shell.messages);
}

TEST_F(Macrofile, WhatIsWrittenIsReadBack) {
    addbuiltinmacros();
    shell.answers = {path};
    dumpmacfile();
    const texts before = table();
    initlibrary();
    ASSERT_EQ(1, loadmacrofile(path.c_str()));
    EXPECT_EQ(before, table());
}

TEST_F(Macrofile, CancelledQuestionsDoNothing) {
    addmacro("one", "RU");
    shell.requests.clear();
    dumpmacfile();
    snarfmacros();
    EXPECT_EQ(1, maccount);
    EXPECT_TRUE(preferencecalls.empty());
    EXPECT_TRUE(shell.requests.empty());
    EXPECT_EQ(0, files(home.file("")));
}

TEST_F(Macrofile, WhatCannotBeWrittenIsReportedWithTheReason) {
    addbuiltinmacros();
    const std::string pipe = home.file("pipe");
    makepipe(pipe);

    const struct {
        std::string name;
        const char* reason;
    } rows[] = {
        {home.file("none/x"), "No such file or directory"},
        {home.file(""),       "Is a directory"           },
        {pipe,                "No such device or address"},
        {"",                  "No such file or directory"},
    };

    for (const auto& row : rows) {
        shell.answers = {row.name};
        dumpmacfile();
        EXPECT_EQ("alert: Couldn't open " + row.name + " for writing\n" + row.reason,
                  shell.messages.back());
    }
}

TEST_F(Macrofile, AFullDiskLeavesTheOldFileWhole) {
    addbuiltinmacros();
    writefile(path, "old\nRU\n");
    for (const long room : {0L, 10L, 200L}) {
        const fulldisk disk(room);
        shell.answers = {path};
        dumpmacfile();
        EXPECT_EQ("alert: Couldn't open " + path + " for writing\nFile too large",
                  shell.messages.back());
    }
    EXPECT_EQ("old\nRU\n", readfile(path));
    EXPECT_EQ(1, files(home.file("")));
}

TEST_F(Macrofile, WhatWasThereIsKeptUnlessThisRunWroteIt) {
    writefile(path, "a thesis");
    addmacro("one", "RU");
    shell.answers = {path};
    dumpmacfile();
    addmacro("two", "RU");
    shell.answers = {path};
    dumpmacfile();
    EXPECT_EQ("one\nRU\ntwo\nRU\n", readfile(path));
    EXPECT_EQ("a thesis", readfile(path + "~"));
    EXPECT_EQ(2, files(home.file("")));
}

// What does not come back whole

TEST_F(Macrofile, ADumpTellsOnceWhatWillNotComeBackWhole) {
    addmacro("good", std::string(97, 'R').c_str());
    addmacro("long", std::string(150, 'U').c_str());
    addmacro("after", "F");
    shell.answers = {path};
    dumpmacfile();
    ASSERT_EQ(2U, shell.messages.size());
    EXPECT_EQ("alert: Not to come back whole from this file:\nlong\nafter\n"
              "A line of more than 97 characters is read as several.",
              shell.messages.back());
    EXPECT_NE(std::string::npos, readfile(path).find("\n" + std::string(150, 'U') + "\n"));
}

TEST_F(Macrofile, EachWayOfNotComingBackIsSeen) {
    const std::string most(97, 'R');
    const std::string more(98, 'R');

    const struct {
        const char* what;
        std::string name, moves;
        bool whole;
    } rows[] = {
        {"97 and 97",     most,            most,   true },
        {"a longer name", more,            "R",    false},
        {"longer moves",  "a",             more,   false},
        {"nothing",       "",              "",     true },
        {"a mark",        "a",             "$$R",  false},
        {"a line break",  "a",             "R\nU", false},
        {"a last return", "a",             "R\r",  false},
        {"a byte mark",   "\xef\xbb\xbf-", "R",    false},
    };

    for (const auto& row : rows) {
        SetUp();
        addmacro(row.name.c_str(), row.moves.c_str());
        addmacro("b", "U");
        shell.answers = {path};
        dumpmacfile();
        EXPECT_EQ(row.whole ? 1U : 2U, shell.messages.size()) << row.what;
    }
}

TEST_F(Macrofile, ManyAndLongNamesMakeNoLongMessage) {
    for (int i = 0; i < 30; i++) {
        addmacro((std::to_string(i) + std::string(200, 'n')).c_str(), "R");
    }
    shell.answers = {path};
    dumpmacfile();
    const std::string text = shell.messages.back();
    EXPECT_NE(std::string::npos, text.find("\n9" + std::string(59, 'n') + "...\nand 20 more\n"));
    EXPECT_EQ(std::string::npos, text.find("\n10n"));
}

TEST_F(Macrofile, TenNamesOfSixtyLettersAreToldInFull) {
    const std::string moves(150, 'R');
    std::string told;
    for (char c = 'a'; c < 'a' + 10; c++) {
        addmacro(std::string(60, c).c_str(), moves.c_str());
        told += std::string(60, c) + "\n";
    }
    shell.answers = {path};
    dumpmacfile();
    EXPECT_EQ("alert: Not to come back whole from this file:\n" + told +
                  "A line of more than 97 characters is read as several.",
              shell.messages.back());
    addmacro("eleventh", moves.c_str());
    shell.answers = {path};
    dumpmacfile();
    EXPECT_NE(std::string::npos, shell.messages.back().find(told + "and 1 more\n"));
}

TEST_F(Macrofile, AnEmptyTableIsDumpedWithoutAWord) {
    shell.answers = {path};
    dumpmacfile();
    EXPECT_EQ(1U, shell.messages.size());
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(Macrofile, AFileThatMayNotBeWrittenIsLeftAlone) {
    addbuiltinmacros();
    writefile(path, "old\n");
    std::filesystem::permissions(path, std::filesystem::perms::others_read);
    EXPECT_TRUE(asnobody([&] {
        shell.answers = {path};
        dumpmacfile();
        EXPECT_EQ("alert: Couldn't open " + path + " for writing\nPermission denied",
                  shell.messages.back());
    }));
    EXPECT_EQ("old\n", readfile(path));
}

TEST_F(Macrofile, ALinkStaysALinkAndPermissionsStay) {
    addmacro("one", "RU");
    writefile(path, "old\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    const std::string link = home.file("link");
    std::filesystem::create_symlink("m.macros", link);
    shell.answers = {link};
    dumpmacfile();
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ("one\nRU\n", readfile(path));
    EXPECT_EQ(std::filesystem::perms::owner_all, std::filesystem::status(path).permissions());
    EXPECT_EQ("old\n", readfile(path + "~"));
    EXPECT_EQ(3, files(home.file("")));
}

TEST_F(Macrofile, AFileInTheFolderOfTheProcessCanBeWritten) {
    addmacro("one", "RU");
    const std::filesystem::path old = std::filesystem::current_path();
    std::filesystem::current_path(home.file(""));
    shell.answers = {"m.macros"};
    dumpmacfile();
    std::filesystem::current_path(old);
    EXPECT_EQ("one\nRU\n", readfile(path));
}

TEST_F(Macrofile, ALoadedFileIsRememberedAndOffered) {
    writefile(path, "one\nRU\n");
    shell.answers = {path};
    snarfmacros();
    EXPECT_EQ((texts{"one|RU"}), table());
    EXPECT_EQ(path, lastmacrofilename);
    EXPECT_EQ((texts{"writeprefs()"}), preferencecalls);
    snarfmacros();
    EXPECT_EQ("file: Macro File Name  [" + path + "]", shell.messages.back());
}

TEST_F(Macrofile, AFileThatCannotBeOpenedIsToldAndNotRemembered) {
    lastmacrofilename = "before";
    makepipe(path);

    const struct {
        std::string name;
        const char* reason;
    } rows[] = {
        {home.file("none"), "No such file or directory"},
        {home.file(""),     "Is a directory"           },
        {path,              "Not a regular file"       },
    };

    for (const auto& row : rows) {
        shell.answers = {row.name};
        snarfmacros();
        EXPECT_EQ("alert: Couldn't open " + row.name + "\n" + row.reason, shell.messages.back());
    }
    EXPECT_EQ("before", lastmacrofilename);
    EXPECT_TRUE(preferencecalls.empty());
}

// What the program does at its start, seen from below.
TEST_F(Macrofile, LoadingWritesNothing) {
    if (!canwatchcalls()) {
        GTEST_SKIP() << "this kernel does not let system calls be watched";
    }
    writefile(path, "one\nRU\n");
    bool opened = false;
    const watchedwork done = watchcalls([&] { return loadmacrofile(path.c_str()) == 1; },
                                        [&](const systemcall& call) {
                                            EXPECT_FALSE(call.writes)
                                                << call.name << " " << call.path;
                                            opened = opened || call.path == path;
                                            return 0;
                                        });
    EXPECT_TRUE(done.good);
    EXPECT_TRUE(opened);
}
