// SPDX-License-Identifier: MIT
#include "model/modeltest.h"

#include <algorithm>
#include <cstring>

namespace {

class SavedCube : public ModelTest {};

TEST_F(SavedCube, SavingAndRestoringAlternate) {
    land("U");
    savecube();
    EXPECT_EQ(1, issavedcube);
    EXPECT_EQ("Restore Cube", shell.savebutton);
    EXPECT_TRUE(std::equal(cubecolors, cubecolors + placecount, savecubedata));
    unsigned char after_u[placecount];
    memcpy(after_u, cubecolors, sizeof after_u);
    land("F");
    savecube();
    EXPECT_EQ(0, issavedcube);
    EXPECT_EQ("Save Cube", shell.savebutton);
    EXPECT_TRUE(std::equal(cubecolors, cubecolors + placecount, after_u));
    savecube();
    EXPECT_EQ(1, issavedcube);
}

TEST_F(SavedCube, RestoringBringsBackTheColoursOnly) {
    savecube();
    land("U");
    land("F");
    unsigned char places[placecount];
    memcpy(places, cubefaces, sizeof places);
    savecube();
    EXPECT_EQ(1, solved());
    EXPECT_TRUE(std::equal(cubefaces, cubefaces + placecount, places));
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
