// SPDX-License-Identifier: MIT
#include "model/modeltest.h"

namespace {

class SavedCube : public ModelTest {};

TEST_F(SavedCube, SavingAndRestoringAlternate) {
    land("U");
    savecube();
    EXPECT_EQ(1, issavedcube);
    EXPECT_EQ("Restore Cube", shell.savebutton);
    EXPECT_EQ(colors(), codes(savecubedata, savecubedata + placecount));
    const codes after_u = colors();
    land("F");
    savecube();
    EXPECT_EQ(0, issavedcube);
    EXPECT_EQ("Save Cube", shell.savebutton);
    EXPECT_EQ(after_u, colors());
    savecube();
    EXPECT_EQ(1, issavedcube);
}

TEST_F(SavedCube, RestoringBringsBackTheColoursOnly) {
    savecube();
    land("U");
    land("F");
    const codes before = places();
    savecube();
    EXPECT_EQ(1, solved());
    EXPECT_EQ(before, places());
    EXPECT_EQ(2, undoptr);
}

TEST_F(SavedCube, TheTwoCopiesAreApart) {
    savecubex();
    land("U");
    savecube();
    land("F");
    restorecubex();
    EXPECT_EQ(1, solved());
    EXPECT_EQ(1, issavedcube);
    savecube();
    EXPECT_EQ(0, solved());
}

} // namespace
