// SPDX-License-Identifier: MIT
#include "app/filenames.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// A folder of its own, with a few files.
class Filenames : public testing::Test {
  protected:
    Filenames() : folder(fs::temp_directory_path() / "vexel-names-XXXXXX") {
        EXPECT_NE(nullptr, mkdtemp(folder.data()));
        for (const char* name : {"b.macros", "C.txt", "a.macros", ".hidden", "@x"}) {
            std::ofstream(folder + "/" + name) << name;
        }
        fs::create_directory(folder + "/Sub");
        fs::create_directory(folder + "/.sub");
        fs::create_symlink("Sub", folder + "/link");
        fs::create_symlink("nowhere", folder + "/broken");
    }

    ~Filenames() override { fs::remove_all(folder); }

    // The names of a listing, folders with their "/".
    static std::string names(const file_listing& listing) {
        std::string all;
        for (const file_entry& entry : listing.entries) {
            all += entry.name + (entry.folder ? "/ " : " ");
        }
        return all;
    }

    std::string folder;
};

} // namespace

TEST_F(Filenames, FoldersComeFirstAndUpperCaseLikeLower) {
    EXPECT_EQ("link/ Sub/ @x a.macros b.macros broken C.txt ",
              names(listfolder(folder, "", false)));
}

TEST_F(Filenames, HiddenNamesAreToldWhenAskedFor) {
    EXPECT_EQ(".sub/ link/ Sub/ .hidden @x a.macros b.macros broken C.txt ",
              names(listfolder(folder, "", true)));
}

TEST_F(Filenames, APatternChoosesFilesAndLeavesFolders) {
    EXPECT_EQ("link/ Sub/ a.macros b.macros ", names(listfolder(folder, "*.macros", false)));
    EXPECT_EQ("link/ Sub/ b.macros C.txt ", names(listfolder(folder, "{b.*|*.txt}", false)));
}

TEST_F(Filenames, AFolderThatCannotBeReadIsToldWithTheReason) {
    EXPECT_EQ("No such file or directory", listfolder(folder + "/none", "", false).failure);
    EXPECT_EQ("Not a directory", listfolder(folder + "/@x", "", false).failure);
    EXPECT_EQ("File name too long", listfolder("/" + std::string(5000, 'a'), "", false).failure);
    EXPECT_EQ("", listfolder(folder, "", false).failure);
}

TEST_F(Filenames, ALinkToAFolderIsOneAndABrokenOneIsNot) {
    EXPECT_TRUE(isfolder(folder));
    EXPECT_TRUE(isfolder(folder + "/link"));
    EXPECT_FALSE(isfolder(folder + "/broken"));
    EXPECT_FALSE(isfolder(folder + "/@x"));
    EXPECT_FALSE(isfolder("/" + std::string(5000, 'a')));
}

TEST_F(Filenames, ATildeIsTheHomeFolder) {
    setenv("HOME", "/home/of mine", 1);
    const passwd* root = getpwuid(0);
    ASSERT_NE(nullptr, root);
    const std::string rootsfile = "~" + std::string(root->pw_name) + "/x";
    const std::string rootsfilemeant = std::string(root->pw_dir) + "/x";
    const std::string longname = "~" + std::string(4000, 'x');

    const struct {
        std::string typed, meant;
    } rows[] = {
        {"~",                      "/home/of mine"         },
        {"~/",                     "/home/of mine/"        },
        {"~/a~b",                  "/home/of mine/a~b"     },
        {rootsfile,                rootsfilemeant          },
        {"~nobody of that name/x", "~nobody of that name/x"},
        {longname,                 longname                },
        {"a~",                     "a~"                    },
        {"$HOME",                  "$HOME"                 },
        {"",                       ""                      },
    };

    for (const auto& row : rows) {
        EXPECT_EQ(row.meant, expandhome(row.typed));
    }
    unsetenv("HOME");
    EXPECT_EQ("~/a", expandhome("~/a"));
}

TEST_F(Filenames, ATypedNameLiesInTheFolderThatIsShown) {
    setenv("HOME", "/home/mine", 1);

    const struct {
        std::string typed, meant;
    } rows[] = {
        {"a",         "/one/two/a"        },
        {"sub/a",     "/one/two/sub/a"    },
        {"../a",      "/one/a"            },
        {"./a//b",    "/one/two/a/b"      },
        {"..",        "/one/"             },
        {"../../../", "/"                 },
        {"/etc/a",    "/etc/a"            },
        {"~/a",       "/home/mine/a"      },
        {"sub/",      "/one/two/sub/"     },
        {"$x ~ &@%s", "/one/two/$x ~ &@%s"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(row.meant, pathof("/one/two", row.typed)) << row.typed;
        EXPECT_EQ(row.meant, pathof("/one/two/", row.typed)) << row.typed;
    }
}

TEST_F(Filenames, ANameIsCompletedAsFarAsItIsCertain) {
    setenv("HOME", folder.c_str(), 1);
    const std::string linked = folder + "/link/";
    const std::string absolute = folder + "/li";
    const std::string longname(4000, 'a');

    const struct {
        std::string typed, completed;
        int candidates;
    } rows[] = {
        {"a",        "a.macros",     1},
        {"b",        "b",            2},
        {"br",       "broken",       1},
        {"b.macros", "b.macros",     1},
        {"S",        "Sub/",         1},
        {"s",        "s",            0},
        {".",        ".",            2},
        {".h",       ".hidden",      1},
        {"Sub/",     "Sub/",         0},
        {"Sub/../C", "Sub/../C.txt", 1},
        {"~/C",      "~/C.txt",      1},
        {"none/a",   "none/a",       0},
        {absolute,   linked,         1},
        {longname,   longname,       0},
    };

    for (const auto& row : rows) {
        const completion got = completename(folder, "", row.typed);
        EXPECT_EQ(row.completed, got.text);
        EXPECT_EQ(row.candidates, got.candidates) << row.typed;
    }
    EXPECT_EQ("b.macros", completename(folder, "*.macros", "b").text);
}

TEST_F(Filenames, AWorkingFolderThatIsGoneIsTheRoot) {
    const fs::path before = fs::current_path();
    fs::create_directory(folder + "/short");
    fs::current_path(folder + "/short");
    EXPECT_EQ(fs::canonical(folder + "/short"), startfolder());
    fs::remove(folder + "/short");
    EXPECT_EQ("/", startfolder());
    fs::current_path(before);
}
