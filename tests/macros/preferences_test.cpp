// SPDX-License-Identifier: MIT
#include "macros/prefrig.h"

namespace {

class Preferences : public preferencestest {};

} // namespace

TEST_F(Preferences, AnEmptyStoreGivesTheStandardSpeedAndNothingElse) {
    std::strcpy(colortable, "KSVDPC");
    TURNTIME = 7;
    readprefs();
    EXPECT_EQ(100, TURNTIME);
    EXPECT_STREQ("KSVDPC", colortable);
    EXPECT_EQ("", lastmacrofilename);
    EXPECT_EQ(0, maccount);
    EXPECT_FALSE(std::filesystem::exists(store));
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
    EXPECT_FALSE(std::filesystem::exists(store));
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
    for (int i = 0; i < 203; i++) {
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
    for (int i = 0; i < maccount; i++) {
        EXPECT_EQ(all[i], macnames[i]);
        EXPECT_EQ(all[i], macstrs[i]);
    }
}

TEST_F(Preferences, TheMarkOfTheFirstMacroIsSetAndTakenAwayLikeOthers) {
    addprefmacro("one", "R");
    addgizmomac("one");
    EXPECT_TRUE(holds("gizmo0:1"));
    deletegizmomac("one");
    EXPECT_EQ(std::string::npos, content().find("gizmo"));
    addgizmomac("one");
    deleteallgizmoprefs();
    EXPECT_EQ(std::string::npos, content().find("gizmo"));
    EXPECT_EQ(1, deleteprefmacro("one"));
    EXPECT_EQ(std::string::npos, content().find("mac0"));
    EXPECT_EQ(std::string::npos, content().find("val0"));
}

TEST_F(Preferences, NoMacroHasANumberBelowNought) {
    edit("mac0:one\ngizmo-1:1\nmac-1:minus\nval-1:R\n");
    deletegizmomac("none");
    EXPECT_EQ(0, deleteprefmacro("minus"));
    EXPECT_TRUE(holds("gizmo-1:1"));
    EXPECT_TRUE(holds("mac-1:minus"));
}

TEST_F(Preferences, AMacroThatWillBeReadCutIsToldWithBothLengths) {
    const struct {
        std::size_t name, moves;
        bool told;
    } rows[] = {
        {198, 198, false},
        {199, 198, true },
        {198, 199, true },
        {3,   496, true },
    };

    for (const auto& row : rows) {
        shell.messages.clear();
        addprefmacro(std::string(row.name, 'n').c_str(), std::string(row.moves, 'R').c_str());
        const std::string text =
            "alert: The next start will read 198 characters of a macro's name and 198 of its "
            "moves.\nThis name has " +
            std::to_string(row.name) + ", these moves have " + std::to_string(row.moves) + ".";
        EXPECT_EQ(row.told ? texts{text} : texts(), shell.messages);
    }
}

TEST_F(Preferences, AStoredNameWithALineBreakIsFoundAsItIsRead) {
    edit("mac0:two\\nlines\nval0:R\n");
    readagain();
    EXPECT_EQ((texts{"two lines|R"}), table());
    EXPECT_EQ(1, isprefmacro("two lines"));
    EXPECT_EQ(1, deleteprefmacro("two lines"));
    EXPECT_EQ(0, isprefmacro("two lines"));
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
