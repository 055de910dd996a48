// SPDX-License-Identifier: MIT
#include "macros/claims.h"
#include "macros/library.h"
#include "macros/nullpreferences.h"
#include "model/parser.h"
#include "nullshell.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using texts = std::vector<std::string>;

class Library : public testing::Test {
  protected:
    void SetUp() override {
        resetshell();
        resetpreferences();
        initlibrary();
        initparser();
    }

    static void fill(int count) {
        for (int i = 0; i < count; i++) {
            addmacro(("macro " + std::to_string(i)).c_str(), "RU");
        }
        shell.requests.clear();
    }

    static texts names() { return {macnames, macnames + maccount}; }
};

constexpr struct {
    const char* name;
    const char* moves;
    bool turned; // whether the name also tells how the cubies are turned
} builtins[] = {
    {"Flip UF, UL",               "FRBLUlUbrfluLu",  true },
    {"Flip UF, UB",               "LfUlFbUrFuRfBu",  true },
    {"Rotate UFL->LUF, UFR->RUF", "LdlfdFUfDFLDlu",  true },
    {"Cycle RF->UF->FL",          "rdlFFLDRUFFu",    false},
    {"Cycle UF->UB->DF",          "RlUUrLFF",        true },
    {"Cycle ULF->BLU->RUF",       "fUBuFUbu",        true },
    {"UL<>UF, FUL<>FUR",          "rURurUFRbRBRfRR", false},
};

constexpr const char* oddnames[] = {
    "/a/b", "100%s %n%d", "\"quoted\" 'so'", "", "@>", "a&b", "\\_", " ", "\xff\xfe \t",
};

} // namespace

TEST_F(Library, StartsWithSevenMacrosThatDoWhatTheirNamesSay) {
    addbuiltinmacros();
    ASSERT_EQ(7, maccount);
    for (int i = 0; i < 7; i++) {
        SCOPED_TRACE(builtins[i].name);
        EXPECT_EQ(builtins[i].name, macnames[i]);
        EXPECT_EQ(builtins[i].moves, macstrs[i]);
        EXPECT_EQ(0, showmac[i]);
        const cubeplaces claim = claimed(macnames[i]);
        const cubeplaces made = madeby(macstrs[i]);
        EXPECT_EQ(cubiesof(claim), cubiesof(made));
        EXPECT_EQ(builtins[i].turned, claim == made);
    }
}

TEST_F(Library, AMacroIsAddedAtTheEndAndTheListIsMadeAnew) {
    EXPECT_EQ(1, addmacro("one", "R"));
    EXPECT_EQ(1, addmacro("two", "U"));
    EXPECT_EQ((texts{"one", "two"}), names());
    EXPECT_EQ("U", macstrs[1]);
    EXPECT_EQ((texts{"showmacros()", "showmacros()"}), shell.requests);
}

TEST_F(Library, ADollarSignMarksTheMacroAndIsNotStored) {
    addmacro("plain", "R");
    shell.requests.clear();
    addmacro("marked", "$RU");
    EXPECT_EQ("RU", macstrs[1]);
    EXPECT_EQ(0, showmac[0]);
    EXPECT_EQ(1, showmac[1]);
    EXPECT_EQ((texts{"showmacros()", "macrodisplay(0, 0)"}), shell.requests);
    addmacro("twice", "$$RU");
    EXPECT_EQ("$RU", macstrs[2]);
    addmacro("alone", "$");
    EXPECT_EQ("", macstrs[3]);
    EXPECT_EQ(1, showmac[3]);
}

TEST_F(Library, AMarkThatStoodInTheRowIsNotTheNewMacros) {
    showmac[0] = 1;
    addmacro("plain", "R");
    EXPECT_EQ(0, showmac[0]);
}

TEST_F(Library, TheTableTakesFiveHundredMacrosAndNotOneMore) {
    fill(500);
    EXPECT_EQ(500, maccount);
    EXPECT_TRUE(shell.messages.empty());
    const texts before = names();
    EXPECT_EQ(0, addmacro("one more", "$RU"));
    EXPECT_EQ((texts{"alert: Too many macro definitions"}), shell.messages);
    EXPECT_EQ(before, names());
    EXPECT_EQ(0, std::count(showmac, showmac + maxmacros, 1));
    EXPECT_TRUE(shell.requests.empty());
}

TEST_F(Library, AMacroThatFindsNoRoomIsNotStoredEither) {
    fill(500);
    shell.answers = {"one more"};
    definemacro();
    EXPECT_TRUE(preferencecalls.empty());
    EXPECT_TRUE(shell.requests.empty());
    EXPECT_EQ("alert: Too many macro definitions", shell.messages.back());
}

TEST_F(Library, UsingAMacroFillsTheLineAndAppliesIt) {
    addmacro("a", "3(RU)");
    shell.requests.clear();
    parsing = 1;
    applysavedmacro(0);
    EXPECT_EQ("3(RU)", shell.line);
    EXPECT_EQ("6", shell.readout);
    EXPECT_EQ(0, parsing);
    EXPECT_EQ((texts{"applymacro()"}), shell.requests);
}

TEST_F(Library, NumbersBeyondTheTableDoNothing) {
    fill(3);
    shell.line = "kept";
    for (const int i : {-1, 3, 499, 500, 1000000}) {
        applysavedmacro(i);
    }
    EXPECT_EQ("kept", shell.line);
    EXPECT_TRUE(shell.requests.empty());
}

TEST_F(Library, TheEntryOfAnEmptyTableIsAnEmptyMacro) {
    shell.line = "RU";
    applysavedmacro(0);
    EXPECT_EQ("", shell.line);
    EXPECT_EQ("0", shell.readout);
}

TEST_F(Library, DefiningStoresTheMacroLineUnderANewName) {
    fill(2);
    shell.line = "RUru";
    shell.answers = {"mine"};
    definemacro();
    EXPECT_EQ((texts{"line: Name for new macro []"}), shell.messages);
    EXPECT_EQ("mine", macnames[2]);
    EXPECT_EQ("RUru", macstrs[2]);
    EXPECT_EQ((texts{"showmacros()", "choosemacro(2)"}), shell.requests);
    EXPECT_EQ((texts{"addprefmacro(mine, RUru)"}), preferencecalls);
}

TEST_F(Library, ANameInUseIsRefused) {
    fill(2);
    shell.answers = {"macro 1"};
    definemacro();
    EXPECT_EQ("alert: macro 1: name in use", shell.messages.back());
    EXPECT_EQ(2, maccount);
    EXPECT_TRUE(preferencecalls.empty());
}

TEST_F(Library, CancelledQuestionsDoNothing) {
    fill(2);
    showmac[1] = 1;
    storednames = {"macro 0", "macro 1"};
    definemacro();
    deletedefinedmacro();
    addmactogizmo();
    deletemacfromgizmo();
    EXPECT_EQ((texts{"line: Name for new macro []", "line: Name of macro to delete [macro 0]",
                     "line: Name of macro to add to gizmo [macro 0]",
                     "line: Name of macro to delete gizmo [macro 0]"}),
              shell.messages);
    EXPECT_EQ(2, maccount);
    EXPECT_EQ(1, showmac[1]);
    EXPECT_TRUE(shell.requests.empty());
    EXPECT_TRUE(preferencecalls.empty());
}

TEST_F(Library, QuestionsOfferTheChosenName) {
    fill(3);
    shell.chosen = 2;
    deletedefinedmacro();
    addmactogizmo();
    deletemacfromgizmo();
    EXPECT_EQ((texts{"line: Name of macro to delete [macro 2]",
                     "line: Name of macro to add to gizmo [macro 2]",
                     "line: Name of macro to delete gizmo [macro 2]"}),
              shell.messages);
}

TEST_F(Library, TheLastOfAFullTableIsOffered) {
    fill(500);
    shell.chosen = 499;
    addmactogizmo();
    EXPECT_EQ("line: Name of macro to add to gizmo [macro 499]", shell.messages.back());
}

TEST_F(Library, UnknownNamesAreReported) {
    fill(1);
    for (void (*command)() : {deletedefinedmacro, addmactogizmo, deletemacfromgizmo}) {
        shell.answers = {"nobody"};
        command();
        EXPECT_EQ("alert: No macro named: nobody", shell.messages.back());
    }
    EXPECT_EQ(1, maccount);
    EXPECT_TRUE(shell.requests.empty());
    EXPECT_TRUE(preferencecalls.empty());
}

TEST_F(Library, DeletingMovesTheLaterMacrosDown) {
    fill(4);
    macstrs[2] = "two";
    showmac[3] = 1;
    shell.answers = {"macro 1"};
    deletedefinedmacro();
    EXPECT_EQ((texts{"macro 0", "macro 2", "macro 3"}), names());
    EXPECT_EQ("two", macstrs[1]);
    EXPECT_EQ(0, showmac[1]);
    EXPECT_EQ(1, showmac[2]);
    EXPECT_EQ("", macnames[3]);
}

TEST_F(Library, DeletingAMarkedMacroRefreshesThePanel) {
    fill(3);
    showmac[1] = 1;
    shell.answers = {"macro 1"};
    deletedefinedmacro();
    EXPECT_EQ((texts{"showmacros()", "macrodisplay(0, 0)"}), shell.requests);
}

TEST_F(Library, DeletingAnUnmarkedMacroOnlyRenumbersThePanel) {
    fill(3);
    showmac[2] = 1;
    shell.answers = {"macro 1"};
    deletedefinedmacro();
    EXPECT_EQ((texts{"showmacros()", "refreshmacrodisplay()"}), shell.requests);
}

TEST_F(Library, OnlyTheFirstOfEqualNamesIsDeleted) {
    addmacro("same", "R");
    addmacro("same", "U");
    shell.answers = {"same"};
    deletedefinedmacro();
    ASSERT_EQ(1, maccount);
    EXPECT_EQ("U", macstrs[0]);
}

TEST_F(Library, AStoredMacroIsDeletedFromTheStoreAfterAYes) {
    fill(2);
    storednames = {"macro 0", "macro 1"};
    shell.answers = {"macro 0", "yes"};
    deletedefinedmacro();
    EXPECT_EQ("yesno: Delete from preferences file as well?", shell.messages.back());
    EXPECT_EQ((texts{"deleteprefmacro(macro 0)"}), preferencecalls);
    shell.answers = {"macro 1"}; // and no
    deletedefinedmacro();
    EXPECT_EQ("yesno: Delete from preferences file as well?", shell.messages.back());
    EXPECT_EQ(1U, preferencecalls.size());
    EXPECT_EQ(0, maccount);
}

TEST_F(Library, AMacroOnlyInTheStoreIsDeletedThereAndMissedHere) {
    fill(1);
    storednames = {"elsewhere"};
    shell.answers = {"elsewhere", "yes"};
    deletedefinedmacro();
    EXPECT_EQ((texts{"deleteprefmacro(elsewhere)"}), preferencecalls);
    EXPECT_EQ("alert: No macro named: elsewhere", shell.messages.back());
}

TEST_F(Library, DeletingAllEmptiesTheTableAndLeavesTheStore) {
    fill(5);
    showmac[2] = 1;
    storednames = {"macro 3"};
    deleteallmacros();
    EXPECT_EQ(0, maccount);
    EXPECT_EQ(maxmacros, std::count(macnames, macnames + maxmacros, ""));
    EXPECT_EQ(maxmacros, std::count(macstrs, macstrs + maxmacros, ""));
    EXPECT_EQ(0, std::count(showmac, showmac + maxmacros, 1));
    EXPECT_EQ((texts{"showmacros()", "refreshmacrodisplay()"}), shell.requests);
    EXPECT_TRUE(preferencecalls.empty());
    EXPECT_TRUE(shell.messages.empty());
    addmacro("new", "R");
    EXPECT_EQ(0, showmac[0]);
}

TEST_F(Library, AMarkIsSetShownAndStored) {
    fill(3);
    shell.answers = {"macro 1"};
    addmactogizmo();
    EXPECT_EQ(1, showmac[1]);
    EXPECT_EQ((texts{"macrodisplay(0, 0)"}), shell.requests);
    EXPECT_EQ((texts{"addgizmomac(macro 1)"}), preferencecalls);
}

TEST_F(Library, AMarkIsTakenAwayHereAndInTheStore) {
    fill(3);
    showmac[1] = showmac[2] = 1;
    shell.answers = {"macro 1"};
    deletemacfromgizmo();
    EXPECT_EQ(0, showmac[1]);
    EXPECT_EQ(1, showmac[2]);
    EXPECT_EQ((texts{"macrodisplay(0, 0)"}), shell.requests);
    EXPECT_EQ((texts{"deletegizmomac(macro 1)"}), preferencecalls);
}

TEST_F(Library, ClearingTakesAllMarksAwayAndHidesThePanel) {
    fill(3);
    showmac[0] = showmac[2] = 1;
    clearmacrogizmo();
    EXPECT_EQ(0, std::count(showmac, showmac + maxmacros, 1));
    EXPECT_EQ((texts{"hidemacrodisplay()"}), shell.requests);
    EXPECT_EQ((texts{"deleteallgizmoprefs()"}), preferencecalls);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(Library, NamesOfAnyKindAreKeptAndFoundAsGiven) {
    texts all(std::begin(oddnames), std::end(oddnames));
    all.emplace_back(1024, 'n');
    all.emplace_back(100000, '%');
    for (const std::string& name : all) {
        shell.answers = {name};
        definemacro();
    }
    EXPECT_EQ(all, names());
    for (const std::string& name : all) {
        shell.answers = {name};
        definemacro();
        EXPECT_EQ("alert: " + name + ": name in use", shell.messages.back());
        shell.answers = {name};
        deletedefinedmacro();
    }
    EXPECT_EQ(0, maccount);
}

TEST_F(Library, NamesInMessagesAreShownAsGiven) {
    for (const char* name : oddnames) {
        shell.answers = {name};
        deletedefinedmacro();
        EXPECT_EQ(std::string("alert: No macro named: ") + name, shell.messages.back());
    }
}

TEST_F(Library, ANameNeverHoldsALineBreak) {
    shell.answers = {"two\nlines\r\n"};
    definemacro();
    EXPECT_EQ((texts{"two lines  "}), names());
    EXPECT_EQ((texts{"addprefmacro(two lines  , )"}), preferencecalls);
    shell.answers = {"two\rlines\n\n"};
    definemacro();
    EXPECT_EQ("alert: two lines  : name in use", shell.messages.back());
    shell.answers = {"two\nlines\n\n"};
    addmactogizmo();
    EXPECT_EQ(1, showmac[0]);
    shell.answers = {"two\nlines\n\n"};
    deletedefinedmacro();
    EXPECT_EQ(0, maccount);
}
