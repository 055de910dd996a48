// SPDX-License-Identifier: MIT
//
// The keyboard alone: the menus, the keys that work wherever it is, and other alphabets.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <csignal>
#include <functional>

namespace {

class Keyboard : public windowtest {
  protected:
    Keyboard() { vexel.setspeed(1); }

    windowid openmenu() const {
        windowid found = 0;
        waitfor(10, [&] {
            const std::vector<windowid> all = menus();
            found = all.empty() ? 0 : all.back();
            return found != 0;
        });
        return found;
    }

    // The menus below the bar; the bar itself is one too while the keyboard is in it.
    std::vector<windowid> menus() const {
        const rectangle bar = screen.place(vexel.window());
        std::vector<windowid> found;
        for (const windowid w : screen.popups(vexel.window())) {
            if (screen.place(w).y > bar.y + menubarplace.h / 2) {
                found.push_back(w);
            }
        }
        return found;
    }

    // Which row of an open menu is marked; -1 for none.
    int markedrow(windowid menu, int rows) const {
        const rectangle m = screen.place(menu);
        if (m.h == 0) {
            return -1;
        }
        const rgb background = vexel.part(menubarplace).commonest();
        int marked = -1;
        for (int row = 0; row < rows; row++) {
            const int y = m.y + m.h * (2 * row + 1) / (2 * rows);
            if (screen.screenshot({m.x + 4, y - 4, m.w - 8, 8}).commonest() != background) {
                marked = row;
            }
        }
        return marked;
    }

    bool running() { return vexel.child().running(); }

    // Walks from F10 to the entry and waits until it is marked.
    void walkto(const std::string& entry) const {
        const menu_place where = findmenu(entry);
        screen.press(XK_F10);
        windowid menu = openmenu();
        ASSERT_NE(menu, 0UL) << vexel.keeppicture("no-menu");
        for (int i = 0; i < where.menu; i++) {
            const windowid before = menu;
            screen.press(XK_Right);
            ASSERT_TRUE(waitfor(10, [&] {
                menu = openmenu();
                return menu != 0 && menu != before;
            }));
        }
        for (int i = 0; i <= where.row; i++) {
            if (markedrow(menu, where.rows) == where.row) {
                break;
            }
            const int before = markedrow(menu, where.rows);
            screen.press(XK_Down);
            ASSERT_TRUE(waitfor(10, [&] { return markedrow(menu, where.rows) != before; }));
        }
        ASSERT_EQ(markedrow(menu, where.rows), where.row) << vexel.keeppicture("no-row");
    }

    void choosebykeys(const std::string& entry) const {
        walkto(entry);
        screen.press(XK_Return);
        ASSERT_TRUE(waitfor(10, [this] { return menus().empty(); }));
    }

    void leavebox() const {
        const windowid box = vexel.waitdialog();
        if (screen.title(box) == "Set Cube Face Colors") {
            vexel.clickdialog(47, 437); // Finish
        } else {
            screen.press(XK_Escape);
        }
        ASSERT_TRUE(vexel.waitnodialog());
    }
};

} // namespace

TEST_F(Keyboard, F10AndTheArrowsReachEveryCommandThatOpensABox) {
    for (const char* entry :
         {"Load Macro File", "Dump Macro File", "Display Permutation", "Print EPS File",
          "Input Cube", "Show Macro Gizmo", "Set Cube Speed", "Set Cube Colors", "Define Macro",
          "Delete Macro", "Add Macro to Gizmo", "Delete Macro from Gizmo", "About Vexel"}) {
        SCOPED_TRACE(entry);
        ASSERT_NO_FATAL_FAILURE(choosebykeys(entry));
        ASSERT_NO_FATAL_FAILURE(leavebox());
    }
}

TEST_F(Keyboard, F10AndTheArrowsReachTheOthers) {
    vexel.typemacro("R"); // with the keyboard in the line
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Apply Macro"));
    applyturn(6);
    ASSERT_TRUE(showsmodel());
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Undo"));
    applyturn(7);
    ASSERT_TRUE(showsmodel());
    vexel.pushbutton("Ucw"); // with the keyboard on a button
    applyturn(0);
    ASSERT_TRUE(showsmodel());
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Show Rear Cube"));
    EXPECT_TRUE(waitfor(10, [this] { return !vexel.shows(cubecolors); }));
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Show Rear Cube"));
    ASSERT_TRUE(showsmodel());
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Reset Cube"));
    initcubies();
    ASSERT_TRUE(showsmodel());
    for (const char* entry : {"Long Solve", "Very Long Solve", "Clear Macro Gizmo"}) {
        ASSERT_NO_FATAL_FAILURE(choosebykeys(entry));
    }
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Delete All Macros"));
    ASSERT_NO_FATAL_FAILURE(choosebykeys("Quit"));
    EXPECT_EQ(vexel.child().waitexit(30), std::optional<int>(0));
}

// The toolkit forgets the marked row when the mouse leaves, and would read behind its tables.
TEST_F(Keyboard, NoKeyInAMenuThatTheMouseHasLeftDoesHarm) {
    const rectangle r = screen.place(vexel.window());
    for (const unsigned long key : {XK_Up, XK_BackSpace, XK_ISO_Left_Tab, XK_Tab, XK_Down, XK_Left,
                                    XK_Right, XK_Home, XK_Page_Up, XK_space}) {
        for (const rectangle place : {
                 choiceplace, rectangle{10, 4, 20, 14}
        }) {
            SCOPED_TRACE(testing::Message() << XKeysymToString(key) << " at " << place.x);
            screen.click(r.x + place.x + place.w / 2, r.y + place.y + place.h / 2);
            ASSERT_TRUE(waitfor(10, [this] { return !menus().empty(); }));
            screen.movemouse(screenwidth - 1, screenheight - 1);
            ASSERT_TRUE(vexel.waitquiet());
            const int modifiers = key == XK_ISO_Left_Tab ? shift_key : 0;
            for (int i = 0; i < 3; ++i) {
                screen.press(key == XK_ISO_Left_Tab ? XK_Tab : key, modifiers);
            }
            screen.press(XK_Escape);
            // A key may close the menu and the next one open it again: once all were seen to.
            ASSERT_TRUE(waitfor(
                10, [this] { return !running() || (vexel.waitquiet(1) && menus().empty()); }));
            ASSERT_TRUE(running());
        }
    }
}

// What comes while the program is busy it sees at once: a click beside the menu, and letters.
TEST_F(Keyboard, WhatIsTypedBehindAClosedMenuDoesNoHarm) {
    const rectangle r = screen.place(vexel.window());
    for (const bool escape : {true, false}) {
        screen.click(r.x + choiceplace.x + 40, r.y + choiceplace.y + 10);
        ASSERT_TRUE(waitfor(10, [this] { return !menus().empty(); }));
        ASSERT_TRUE(vexel.waitquiet());
        kill(vexel.child().pid(), SIGSTOP);
        if (escape) {
            screen.press(XK_Escape);
        } else {
            screen.click(r.x + macroplace.x + 100, r.y + macroplace.y - 200);
        }
        screen.press(XK_Up);
        screen.press(XK_BackSpace);
        kill(vexel.child().pid(), SIGCONT);
        ASSERT_TRUE(waitfor(10, [this] { return menus().empty() || !running(); }));
        ASSERT_TRUE(vexel.waitquiet());
        ASSERT_TRUE(running());
    }
}

TEST_F(Keyboard, NoKeyDoesHarmWhileTheButtonIsHeldOutsideAMenu) {
    const rectangle r = screen.place(vexel.window());
    screen.movemouse(r.x + choiceplace.x + 40, r.y + choiceplace.y + 10);
    screen.button(1, true);
    ASSERT_NE(openmenu(), 0UL);
    screen.movemouse(screenwidth - 1, screenheight - 1);
    ASSERT_TRUE(vexel.waitquiet());
    screen.press(XK_Up);
    screen.press(XK_BackSpace);
    screen.button(1, false);
    EXPECT_TRUE(waitfor(10, [this] { return menus().empty() || !running(); }));
    EXPECT_TRUE(running());
}

TEST_F(Keyboard, LettingGoOutsideAMenuChoosesNothing) {
    vexel.pushbutton("Rcw");
    applyturn(6);
    ASSERT_TRUE(showsmodel());
    const rectangle r = screen.place(vexel.window());
    screen.movemouse(r.x + 20, r.y + 10); // "File"
    screen.button(1, true);
    const windowid menu = openmenu();
    const rectangle m = screen.place(menu);
    screen.movemouse(m.x + m.w / 2, m.y + m.h / 12); // "Reset Cube"
    ASSERT_TRUE(waitfor(10, [&] { return markedrow(menu, 6) == 0; }));
    screen.movemouse(screenwidth - 1, screenheight - 1);
    EXPECT_TRUE(waitfor(10, [&] { return markedrow(menu, 6) == -1; }));
    screen.button(1, false);
    EXPECT_TRUE(waitfor(10, [this] { return menus().empty(); }));
    EXPECT_TRUE(vexel.waitquiet());
    EXPECT_TRUE(showsmodel());
}

TEST_F(Keyboard, AButtonThatClosedAMenuMayBeMovedAndLetGo) {
    const rectangle r = screen.place(vexel.window());
    const auto tobutton = [&](const char* label) {
        const rectangle place = findbutton(label).place;
        screen.movemouse(r.x + place.x + 5, r.y + place.y + 5);
    };
    for (const bool bar : {true, false}) {
        if (bar) {
            screen.press(XK_F10);
        } else {
            screen.click(r.x + choiceplace.x + 40, r.y + choiceplace.y + 10);
        }
        ASSERT_TRUE(waitfor(10, [this] { return !menus().empty(); }));
        tobutton("Ucw");
        ASSERT_TRUE(vexel.waitquiet());
        screen.button(1, true);
        ASSERT_TRUE(waitfor(10, [this] { return menus().empty() || !running(); }));
        tobutton("Fcw");
        ASSERT_TRUE(vexel.waitquiet());
        screen.button(1, false);
        ASSERT_TRUE(vexel.waitquiet());
        ASSERT_TRUE(running());
    }
    vexel.pushbutton("Rcw");
    applyturn(6);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Keyboard, TheArrowsGoOnFromTheMarkThatTheMouseHasLeft) {
    const rectangle r = screen.place(vexel.window());
    screen.click(r.x + 20, r.y + 10); // "File"
    const windowid menu = openmenu();
    const rectangle m = screen.place(menu);
    screen.movemouse(m.x + m.w / 2, m.y + m.h * 7 / 12); // its fourth row
    ASSERT_TRUE(waitfor(10, [&] { return markedrow(menu, 6) == 3; }));
    screen.movemouse(screenwidth - 1, screenheight - 1);
    screen.press(XK_Up);
    EXPECT_TRUE(waitfor(10, [&] { return markedrow(menu, 6) == 2; }));
    screen.press(XK_Down);
    EXPECT_TRUE(waitfor(10, [&] { return markedrow(menu, 6) == 3; }));
    screen.press(XK_Escape);
    EXPECT_TRUE(waitfor(10, [this] { return menus().empty(); }));
}

TEST_F(Keyboard, EscapeLeavesTheMenusAndChangesNothing) {
    ASSERT_NO_FATAL_FAILURE(walkto("Apply Macro"));
    screen.press(XK_Escape);
    EXPECT_TRUE(waitfor(10, [this] { return menus().empty(); }));
    screen.press('u', alt_key);
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Keyboard, CtrlZUndoesATurnWhereverTheKeyboardIs) {
    const rectangle length = lengthplace;
    const rectangle line = macroplace;

    const struct {
        const char* name;
        std::function<void()> go;
    } places[] = {
        {"view",        [this] { vexel.clickview(0.05, 0.5); }               },
        {"line",        [this] { vexel.typemacro("RU"); }                    },
        {"end of line", [&] { vexel.click(line.x + line.w - 5, line.y + 8); }},
        {"read-out",    [&] { vexel.click(length.x + 9, length.y + 9); }     },
        {"button",      [this] { screen.press(XK_Tab); }                     },
    };

    for (const auto& place : places) {
        SCOPED_TRACE(place.name);
        vexel.pushbutton("Fcw");
        applyturn(8);
        ASSERT_TRUE(showsmodel());
        place.go();
        ASSERT_TRUE(vexel.waitquiet());
        const picture text = vexel.part({line.x + 2, line.y + 2, 40, line.h - 4});
        screen.press('z', ctrl_key);
        applyturn(9);
        EXPECT_TRUE(showsmodel());
        EXPECT_EQ(vexel.part({line.x + 2, line.y + 2, 40, line.h - 4}), text);
    }
}

TEST_F(Keyboard, CtrlZUndoesTheTurnsOfAMacroJustPlayed) {
    vexel.playmacro("RU"); // the keyboard stays in the line
    domacro("RU");
    ASSERT_TRUE(showsmodel());
    screen.press('z', ctrl_key);
    domacro("u");
    ASSERT_TRUE(showsmodel());
}

TEST_F(Keyboard, AClickIntoTheViewTakesItThere) {
    const rectangle r = {macroplace.x + 2, macroplace.y + 2, macroplace.w - 4, macroplace.h - 4};
    for (const auto& [fx, fy, code] : {std::tuple(0.05, 0.5, -1), std::tuple(0.6, 0.4, 8)}) {
        vexel.typemacro("R");
        ASSERT_TRUE(vexel.waitquiet());
        vexel.clickview(fx, fy);
        applyturn(code);
        ASSERT_TRUE(showsmodel());
        const picture before = vexel.part(r);
        screen.type("ULD\n"); // letters and Enter mean nothing to the view
        ASSERT_TRUE(vexel.waitquiet());
        EXPECT_EQ(vexel.part(r), before);
        EXPECT_TRUE(showsmodel());
    }
}

TEST_F(Keyboard, AltLetterGoesByTheKeyInAnyAlphabet) {
    constexpr char letters[] = "udlrfb";
    unsigned char keys[6] = {};
    for (int i = 0; i < 6; i++) {
        keys[i] = screen.place(letters[i]);
    }
    for (const char* layout : {"ru", "gr", "il", "ara", "us,ru"}) {
        screen.setlayout(layout);
        screen.lockgroup(std::string(layout) == "us,ru" ? 1 : 0);
        for (const bool inline_ : {false, true}) {
            inline_ ? vexel.click(macroplace.x + 20, macroplace.y + 9) : vexel.clickview(0.05, 0.5);
            for (int i = 0; i < 6; i++) {
                SCOPED_TRACE(std::string(layout) + " " + letters[i] +
                             (inline_ ? " line" : " view"));
                screen.presskey(keys[i], alt_key);
                applyturn(2 * i);
                ASSERT_TRUE(showsmodel());
                screen.presskey(keys[i], alt_key | shift_key);
                applyturn(2 * i + 1);
                ASSERT_TRUE(showsmodel());
            }
        }
    }
}

// On a keyboard of another arrangement the letter counts, not the place.
TEST_F(Keyboard, AltLetterGoesByTheLetterInAnyArrangement) {
    for (const char* layout : {"us(dvorak)", "fr", "de"}) {
        screen.setlayout(layout);
        for (const auto& [letter, code] :
             {std::pair('u', 0), std::pair('l', 4), std::pair('f', 8)}) {
            SCOPED_TRACE(std::string(layout) + " " + letter);
            screen.presskey(screen.place(letter), alt_key);
            applyturn(code);
            ASSERT_TRUE(showsmodel());
        }
    }
}

TEST_F(Keyboard, TheInterruptGoesByTheKeyToo) {
    const unsigned char q = screen.place('q');
    const unsigned char u = screen.place('u');
    screen.setlayout("ru");
    screen.hold(alt_key);
    screen.holdkey(q, true);
    vexel.pushbutton("Rcw");
    ASSERT_TRUE(vexel.waitquiet());
    EXPECT_TRUE(showsmodel());
    screen.holdkey(q, false);
    screen.release(alt_key);
    screen.presskey(u, alt_key);
    applyturn(0);
    EXPECT_TRUE(showsmodel());
}

TEST_F(Keyboard, CtrlLetterGoesByTheKeyToo) {
    const unsigned char r = screen.place('r');
    const unsigned char z = screen.place('z');
    for (const bool inline_ : {false, true}) {
        SCOPED_TRACE(inline_ ? "line" : "view");
        screen.setlayout("us");
        vexel.pushbutton("Rcw");
        applyturn(6);
        ASSERT_TRUE(showsmodel());
        vexel.pushbutton("Ucw");
        applyturn(0);
        ASSERT_TRUE(showsmodel());
        screen.setlayout("ru");
        inline_ ? vexel.click(macroplace.x + 20, macroplace.y + 9) : vexel.clickview(0.05, 0.5);
        screen.presskey(z, ctrl_key);
        applyturn(1);
        ASSERT_TRUE(showsmodel());
        screen.presskey(r, ctrl_key);
        initcubies();
        ASSERT_TRUE(showsmodel());
    }
}
