// SPDX-License-Identifier: MIT
//
// Rough handling: events in any order, macro texts of any bytes and any length.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <random>
#include <stdexcept>

namespace {

class Storm : public windowtest {
  protected:
    Storm() { vexel.setspeed(3); }

    int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }

    // Any place of the window but the menu bar, where the way to Quit is short.
    void anyclick() {
        const int modifiers = below(8);
        vexel.click(below(windowwidth), 24 + below(windowheight - 24), modifiers, 1 + below(3));
    }

    void anykey() {
        const unsigned long keys[] = {XK_Left,   XK_Right, XK_Return, XK_Tab,       XK_Home,
                                      XK_Delete, XK_Up,    XK_Down,   XK_BackSpace, XK_Page_Up,
                                      'u',       'f',      'b',       'l',          'r',
                                      'd',       's',      '3',       'z',          'a'};
        const unsigned long key = keys[below(20)];
        const int modifiers = below(8);
        screen.hold(modifiers);
        screen.key(key, true);
        if (below(2) == 0) {
            anyclick();
        }
        screen.key(key, false);
        screen.release(modifiers);
    }

    void anyturn() { vexel.pushbutton(buttonplaces[below(24)].label, below(2) * shift_key); }

    void anymacro() {
        const std::string characters = "UDLRFBudlrfb*>()0123456789s[]'2 x";
        std::string macro;
        for (int i = below(12); i > 0; --i) {
            macro += characters[static_cast<std::size_t>(below(33))];
        }
        vexel.playmacro(macro, below(2) * shift_key);
    }

    void anyevent() {
        switch (below(8)) {
        case 0:
        case 1: anyclick(); break;
        case 2:
        case 3: anyturn(); break;
        case 4: anymacro(); break;
        default: anykey(); break;
        }
    }

    // Sends whatever is open away and stops whatever goes on; a demo stops at any command.
    void calm() {
        for (int i = 0; i < 20 && vexel.child().running(); i++) {
            screen.press(XK_Escape);
            if (vexel.dialog() != 0) {
                try {
                    vexel.answer(XK_Escape);
                } catch (const std::runtime_error&) {
                    continue; // the wait panel was taken for the box that came after it
                }
            } else if (vexel.waitquiet(1)) {
                return;
            } else {
                vexel.pushbutton("Reset Cube");
            }
        }
    }

    // Proves that the program is well: it solves the cube and turns it.
    void expectwell() {
        calm();
        ASSERT_TRUE(vexel.child().running()) << vexel.output();
        vexel.setspeed(1);
        vexel.pushbutton("Reset Cube");
        initcubies();
        ASSERT_TRUE(showsmodel());
        vexel.pushbutton("Rcw");
        applyturn(6);
        EXPECT_TRUE(showsmodel());
        EXPECT_EQ(vexel.output(), "");
    }

    std::string anybytes(int size, int lowest, int highest) {
        std::string bytes;
        for (int i = 0; i < size; i++) {
            bytes += static_cast<char>(lowest + below(highest - lowest + 1));
        }
        return bytes;
    }

    std::mt19937 random{20}; // the same storm in each run
};

std::string times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; i++) {
        all += text;
    }
    return all;
}

} // namespace

TEST_F(Storm, EventsInAnyOrderDoNoHarm) {
    for (int i = 0; i < 800 && vexel.child().running(); i++) {
        anyevent();
        if (i % 20 == 0 && vexel.dialog() != 0) {
            calm();
        }
    }
    expectwell();
}

TEST_F(Storm, MacrosOfAnyBytesAreRefusedOrPlayed) {
    for (int size : {1, 40, 3000, 100000}) {
        SCOPED_TRACE(size);
        vexel.pastemacro(anybytes(size, 1, 255));
        screen.press(XK_Return);
        vexel.answer(XK_Return); // the one message
    }
    expectwell();
}

TEST_F(Storm, LongMacrosAreCounted) {
    const std::string deep = times(10000, "1(") + "R" + times(10000, ")");
    vexel.pastemacro(deep);
    screen.press(XK_Return);
    applyturn(6);
    EXPECT_TRUE(showsmodel(60));
    vexel.pastemacro(times(20000, "R"));
    screen.press(XK_Return);
    vexel.answer(XK_Escape); // Really?  No
    vexel.pastemacro(times(10000, "9("));
    screen.press(XK_Return);
    vexel.answer(XK_Return); // never closed
    vexel.pastemacro(times(9, "9999999999(") + "RU" + times(9, ")"));
    vexel.pushbutton("Apply Macro"); // at once, however often that is
    expectwell();
}
