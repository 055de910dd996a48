// SPDX-License-Identifier: MIT
//
// The colour collector and the dialog of the colour letters, by mouse and keyboard.
//
// The texts of the verdicts are held by coloring_test; here each must be another picture.
#include "input/collectorlayout.h"
#include "input/coloring.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <cstdlib>
#include <vector>

namespace {

constexpr rectangle messageplace = {10, 285, 115, 115};

class Collector : public windowtest {
  protected:
    void SetUp() override {
        vexel.setspeed(1);
        ASSERT_TRUE(showsmodel());
    }

    void open() {
        vexel.choose("Input Cube");
        dialog = vexel.waitdialog();
        settle();
        ASSERT_EQ("Set Cube Face Colors", screen.title(dialog));
        ASSERT_EQ(510, screen.place(dialog).w);
        ASSERT_EQ(470, screen.place(dialog).h);
    }

    // A quiet process alone is no proof: the server may not have drawn yet what it was asked for.
    void settle() const {
        waitfor(60, [this] {
            const picture before = glance();
            return child->isquiet() && glance() == before;
        });
    }

    void click(int x, int y) const {
        const rectangle r = screen.place(dialog);
        screen.click(r.x + x, r.y + y);
        screen.movemouse(screenwidth - 1, screenheight - 1);
    }

    void clickfacelet(int place) const {
        const collector::area at = collector::faceletarea(place);
        click(at.x + 17, at.y + 17);
    }

    void clickcolor(int face) const {
        const collector::area at = collector::colorarea(face);
        click(at.x + 17, at.y + 17);
    }

    void clickfinish() const { click(47, 437); }

    void clickreset() const { click(130, 437); }

    void clickflip() const { click(212, 437); }

    // The dialog as it is at this moment.
    picture glance(rectangle part = {0, 0, 510, 470}) const {
        const rectangle r = screen.place(dialog);
        return screen.screenshot({r.x + part.x, r.y + part.y, part.w, part.h});
    }

    // The same after all that was typed and clicked has been acted on.
    picture look(rectangle part = {0, 0, 510, 470}) const {
        settle();
        return glance(part);
    }

    picture message() const { return look(messageplace); }

    // The colour of a facelet's button, beside its label.
    rgb facelet(int place) const {
        const collector::area at = collector::faceletarea(place);
        return look({at.x + 4, at.y + 4, 1, 1}).at(0, 0);
    }

    // Finish closes the dialog and the main view shows the model's cube.
    void finishes() {
        clickfinish();
        ASSERT_TRUE(vexel.waitnodialog());
        ASSERT_TRUE(showsmodel());
    }

    // A box opens on top of the dialog; Enter closes it and the dialog is still there.
    void isrefused() {
        ASSERT_TRUE(waitfor(10, [this] { return vexel.dialog() != dialog; }));
        screen.focus(vexel.dialog());
        screen.press(XK_Return);
        ASSERT_TRUE(waitfor(10, [this] { return vexel.dialog() == dialog; }));
        screen.focus(dialog);
        ASSERT_TRUE(screen.visible(dialog));
    }

    void typecube(const std::string& letters = "WGRBOY") const {
        for (unsigned char color : cubecolors) {
            screen.type({letters[color]});
        }
    }

    process* child = &vexel.child();
    windowid dialog = 0;
};

} // namespace

TEST_F(Collector, ATypedCubeIsFoundOnTheMainView) {
    domacro("RUfLdB*FDl*URbU");
    open();
    typecube("WGRBOY");
    finishes();
    domacro("DDlB*RfU"); // and another one over it, in small letters
    open();
    typecube("wgrboy");
    finishes();
}

TEST_F(Collector, AClickedCubeIsFoundOnTheMainView) {
    domacro("LDbRuF");
    open();
    for (int place = placecount - 1; place >= 0; --place) {
        clickfacelet(place);
        clickcolor(cubecolors[place]);
    }
    finishes();
    vexel.pushbutton("Rcw"); // the main window works again
    applyturn(6);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Collector, ShowsTheCubeAsItStands) {
    domacro("RUfLdB");
    vexel.playmacro("RUfLdB");
    ASSERT_TRUE(showsmodel());
    open();
    for (int place = 0; place < placecount; place++) {
        const rgb expected = lettercolor("WGRBOY"[cubecolors[place]]);
        EXPECT_TRUE(near(expected, facelet(place))) << place;
    }
}

TEST_F(Collector, EachKindOfIllegalCubeHasItsMessage) {
    open();
    clickreset();
    std::vector<picture> seen = {message()};
    const auto isempty = [this, &seen] { return glance(messageplace) == seen.front(); };
    const auto isnew = [this, &seen, &isempty] {
        EXPECT_TRUE(waitfor(10, [&] { return !isempty(); }));
        seen.push_back(message());
        for (std::size_t i = 0; i + 1 < seen.size(); i++) {
            EXPECT_FALSE(seen[i] == seen.back()) << i << " and " << seen.size() - 1;
        }
        clickreset();
        EXPECT_TRUE(waitfor(10, isempty));
    };
    clickfacelet(8); // a corner, twisted one way and the other
    clickflip();
    isnew();
    clickflip();
    clickflip();
    isnew();
    clickfacelet(7); // a flipped edge
    clickflip();
    isnew();
    clickfacelet(19); // UF and UR swapped
    clickcolor(3);
    clickfacelet(28);
    clickcolor(2);
    isnew();
    clickfacelet(28); // a second UF
    clickcolor(2);
    isnew();
    clickfacelet(28); // an edge with one colour
    clickcolor(0);
    isnew();
    clickfacelet(29); // a corner with one colour twice
    clickcolor(0);
    isnew();
    vexel.keeppicture("collector");
}

TEST_F(Collector, FinishRefusesAnIllegalCube) {
    open();
    clickfacelet(7);
    clickflip();
    clickfinish();
    isrefused();
    clickflip();
    finishes();
}

// The solved cube with a green centre on U: its edges and corners alone would pass.
TEST_F(Collector, FinishRefusesTwoCentresOfOneColourAndKeepsWhatWasEntered) {
    open();
    const picture blank = message();
    clickfacelet(4);
    clickcolor(1);
    EXPECT_FALSE(message() == blank);
    const picture entered = look();
    clickfinish();
    isrefused();
    EXPECT_TRUE(look() == entered);
    clickfacelet(4);
    clickcolor(0);
    finishes();
}

// On a fresh dialog the message area is empty, and stays so.
TEST_F(Collector, FlipOnACentreChangesNothing) {
    open();
    for (int face = 0; face < cubefacecount; face++) {
        clickfacelet(9 * face + 4);
        const picture before = look();
        clickflip();
        EXPECT_TRUE(look() == before) << face;
    }
}

TEST_F(Collector, ARefusedCubeIsShownRecoloured) {
    domacro(">U");
    vexel.playmacro(">U");
    ASSERT_TRUE(showsmodel());
    open();
    clickfacelet(7);
    clickflip();
    clickfinish();
    isrefused();
    initcubies();
    collector::flip(7);
    for (int place = 0; place < placecount; place++) {
        const rgb expected = lettercolor("WGRBOY"[cubecolors[place]]);
        EXPECT_TRUE(near(expected, facelet(place))) << place;
    }
    clickflip();
    collector::flip(7);
    finishes();
}

TEST_F(Collector, ClosingTheWindowIsFinish) {
    open();
    clickfacelet(7);
    clickflip();
    screen.close(dialog);
    isrefused();
    clickflip();
    screen.close(dialog);
    ASSERT_TRUE(vexel.waitnodialog());
    EXPECT_TRUE(showsmodel());
    vexel.pushbutton("Ucw");
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Collector, TheSelectionGoesRoundByKeys) {
    open();
    screen.press(XK_BackSpace); // to 53
    screen.type("B");           // and on to 0
    screen.type("Y");           // and on to 1
    screen.press(XK_space);     // and on to 2
    screen.type("G");
    cubecolors[53] = 3;
    cubecolors[0] = 5;
    cubecolors[2] = 1;
    for (int place : {0, 1, 2, 3, 53}) {
        const rgb expected = lettercolor("WGRBOY"[cubecolors[place]]);
        EXPECT_TRUE(near(expected, facelet(place))) << place;
    }
}

TEST_F(Collector, OtherKeysDoNothing) {
    open();
    const picture before = look();
    screen.type("aexkz1234567890.-\n");
    for (unsigned long key : {XK_Escape, XK_Tab, XK_Left, XK_Right, XK_Delete, XK_F1, XK_Home}) {
        screen.press(key);
    }
    EXPECT_TRUE(look() == before);
    EXPECT_TRUE(screen.visible(dialog));
}

// A button or a text with the keyboard would take the space key for itself.
TEST_F(Collector, ClicksLeaveTheKeyboardWithTheDialog) {
    open();
    clickcolor(0);
    clickreset();
    click(messageplace.x + 50, messageplace.y + 50);
    clickfacelet(53);
    screen.press(XK_space); // to 0
    screen.type("R");
    screen.press(XK_BackSpace);
    screen.type("B"); // 0 again
    EXPECT_TRUE(near(lettercolor('B'), facelet(0)));
    EXPECT_TRUE(near(lettercolor('Y'), facelet(53)));
    EXPECT_TRUE(near(lettercolor('W'), facelet(1)));
}

TEST_F(Collector, FlipOnEveryPieceThreeTimesOrTwiceRestoresIt) {
    domacro("RUfLdB");
    open();
    typecube();
    const picture valid = message();
    for (int place = 0; place < placecount; place++) {
        SCOPED_TRACE(place);
        clickfacelet(place);
        const picture before = look();
        const auto restored = [this, &before] { return glance() == before; };
        const auto changed = [&restored] { return !restored(); };
        if (place % 9 == 4) { // a centre
            clickflip();
            ASSERT_TRUE(look() == before);
            continue;
        }
        clickflip();
        ASSERT_TRUE(waitfor(10, changed));
        if (place % 9 % 2 == 0) { // a corner
            clickflip();
            settle();
            ASSERT_TRUE(changed());
        }
        clickflip();
        ASSERT_TRUE(waitfor(10, restored));
    }
    EXPECT_TRUE(message() == valid);
    finishes();
}

TEST_F(Collector, ResetMakesTheCubeSolved) {
    domacro("RUfLdB");
    vexel.playmacro("RUfLdB");
    ASSERT_TRUE(showsmodel());
    open();
    clickreset();
    initcubies();
    finishes();
}

TEST_F(Collector, OpensOnTheFirstFaceletEachTime) {
    open();
    const picture first = look();
    clickfacelet(40);
    EXPECT_FALSE(look() == first);
    clickreset(); // "Valid Cube!"
    finishes();
    open();
    EXPECT_TRUE(look() == first);
}

TEST_F(Collector, TurnsGoOnBehindIt) {
    vexel.setspeed(999);
    vexel.playmacro("U");
    vexel.choose("Input Cube");
    dialog = vexel.waitdialog();
    settle();
    const picture opened = glance();
    applyturn(0);
    for (int place = 0; place < placecount; place++) {
        const rgb expected = lettercolor("WGRBOY"[place / 9]); // as before the turn
        EXPECT_TRUE(near(expected, facelet(place))) << place;
    }
    EXPECT_TRUE(glance() == opened);
    finishes();
}

TEST_F(Collector, LabelsAreWhiteOnBlueAndBlackOnly) {
    vexel.choose("Set Cube Colors");
    vexel.answer("KBWSXY");
    vexel.setcolors("KBWSXY");
    open();
    for (int face = 0; face < cubefacecount; face++) {
        const collector::area at = collector::colorarea(face);
        const picture label = look({at.x + 6, at.y + 6, 23, 23});
        const rgb background = label.commonest();
        int most = 0; // how far a pixel is from the background, brighter or darker
        for (int i = 0; i < 23 * 23; i++) {
            const rgb is = label.at(i % 23, i / 23);
            const int brighter =
                is.red + is.green + is.blue - background.red - background.green - background.blue;
            most = std::abs(brighter) > std::abs(most) ? brighter : most;
        }
        EXPECT_EQ(face<2, most> 0) << face;
        EXPECT_GT(std::abs(most), 200) << face;
    }
}

TEST_F(Collector, TakesTheLettersOfTheColourTable) {
    vexel.choose("Set Cube Colors");
    vexel.answer("ksvdpc");
    vexel.setcolors("KSVDPC");
    domacro("RUfLdB");
    open();
    typecube("KSVDPC");
    finishes();
}

TEST_F(Collector, BadColourLettersChangeNothing) {
    for (const char* letters : {"WGRBOW", "WGRBOZ", "WGR", "wgrbw", "", "%s%s%s", "WGR BO"}) {
        SCOPED_TRACE(letters);
        vexel.choose("Set Cube Colors");
        const windowid question = vexel.waitdialog();
        screen.emptyline();
        screen.type(letters);
        screen.press(XK_Return);
        ASSERT_TRUE(waitfor(10, [this, question] {
            return vexel.dialog() != 0 && (vexel.dialog() != question || !screen.visible(question));
        }));
        vexel.answer(XK_Return);
        ASSERT_TRUE(showsmodel());
    }
    vexel.choose("Set Cube Colors"); // given up
    vexel.answer(XK_Escape);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Collector, MoreThanSixColourLettersAreCutOff) {
    vexel.choose("Set Cube Colors");
    vexel.answer("YOBRGWxyz");
    vexel.setcolors("YOBRGW");
    EXPECT_TRUE(showsmodel());
}
