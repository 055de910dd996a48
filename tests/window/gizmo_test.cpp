// SPDX-License-Identifier: MIT
//
// The gizmo panel as a person uses it.
#include "window/layout.h"
#include "window/windowtest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int panelwidth = 280;
constexpr int panelheight = 417;

// The program with example patterns, four of them marked.
class GizmoPanel : public windowtest {
  protected:
    explicit GizmoPanel(const xserver_settings& screensettings = {})
        : windowtest(screensettings, settings()) {}

    static program_settings settings() {
        program_settings with;
        with.arguments = {VEXEL_EXAMPLES "/patterns.macros"};
        return with;
    }

    // The panel; 0 while it is hidden.
    windowid panel() const {
        for (const windowid w : screen.windows()) {
            const rectangle r = screen.place(w);
            if (r.w == panelwidth && r.h == panelheight) {
                return w;
            }
        }
        return 0;
    }

    bool waitpanel(bool shown) const {
        return waitfor(10, [&] { return (panel() != 0) == shown; });
    }

    void press(int i, int modifiers = 0) const {
        const rectangle r = screen.place(panel());
        screen.click(r.x + 140, r.y + 41 + 24 * i, modifiers);
    }

    // Chooses a command that asks for a line, with the panel in sight, and answers.
    void command(const std::string& entry, const std::string& answer) const {
        const std::vector<windowid> before = screen.windows();
        windowid question = 0;
        vexel.choose(entry);
        ASSERT_TRUE(waitfor(10, [&] {
            for (const windowid w : screen.windows()) {
                question = std::ranges::count(before, w) == 0 ? w : question;
            }
            return question != 0;
        }));
        screen.focus(question);
        screen.emptyline();
        screen.type(answer + "\n");
        ASSERT_TRUE(waitfor(10, [&] { return !screen.visible(question); }));
        vexel.front();
    }
};

class ManagedGizmoPanel : public GizmoPanel {
  protected:
    ManagedGizmoPanel() : GizmoPanel({.windowmanager = true}) {}
};

} // namespace

TEST_F(GizmoPanel, StandsBesideTheWindowFromTheStart) {
    ASSERT_TRUE(waitpanel(true));
    const rectangle r = screen.place(panel());
    const rectangle m = screen.place(vexel.window());
    EXPECT_EQ(m.x + 740, r.x);
    EXPECT_EQ(m.y, r.y);
}

TEST_F(GizmoPanel, AButtonAppliesItsMacroAtOnce) {
    ASSERT_TRUE(waitpanel(true));
    press(0);
    domacro("RRLLUUDDFFBB");
    EXPECT_TRUE(showsmodel());
    press(3);
    domacro("FLFuRUFFLLulBdbLLU");
    EXPECT_TRUE(showsmodel());
    press(4); // "*"
    press(15);
    press(1);
    domacro("UdRlFbUd");
    EXPECT_TRUE(showsmodel());
}

TEST_F(GizmoPanel, TheMacroIsLeftInTheLine) {
    ASSERT_TRUE(waitpanel(true));
    press(1);
    domacro("UdRlFbUd");
    ASSERT_TRUE(showsmodel());
    vexel.front();
    vexel.pushbutton("Apply Macro");
    domacro("UdRlFbUd");
    EXPECT_TRUE(showsmodel());
}

TEST_F(GizmoPanel, ItIsTakenAwayAndComesBackFromTheMenu) {
    ASSERT_TRUE(waitpanel(true));
    screen.close(panel());
    ASSERT_TRUE(waitpanel(false));
    EXPECT_TRUE(showsmodel()); // the program goes on
    vexel.choose("Show Macro Gizmo");
    ASSERT_TRUE(waitpanel(true));
    vexel.choose("Clear Macro Gizmo");
    ASSERT_TRUE(waitpanel(false));
    vexel.choose("Show Macro Gizmo");
    vexel.answer(XK_Return); // "No macros in gizmo"
    EXPECT_EQ(0UL, panel());
    EXPECT_TRUE(showsmodel());
}

TEST_F(GizmoPanel, DeletingAnUnmarkedMacroKeepsTheButtonsTrue) {
    ASSERT_TRUE(waitpanel(true));
    command("Delete Macro", "Four spots"); // before "Superflip" and "Cube in a cube"
    press(2);
    domacro("URRFBRBBRUULBBRudRRFrLBBUUFF");
    EXPECT_TRUE(showsmodel());
}

TEST_F(GizmoPanel, DeletingAllMacrosTakesItAway) {
    ASSERT_TRUE(waitpanel(true));
    vexel.choose("Delete All Macros");
    EXPECT_TRUE(waitpanel(false));
    EXPECT_TRUE(showsmodel());
}

TEST_F(GizmoPanel, AMarkIsFoundInTheNextRun) {
    ASSERT_TRUE(waitpanel(true));
    vexel.choose("Clear Macro Gizmo");
    ASSERT_TRUE(waitpanel(false));
    vexel.typemacro("RUF");
    vexel.choose("Define Macro");
    vexel.answer("mine");
    command("Add Macro to Gizmo", "mine");
    ASSERT_TRUE(waitpanel(true));
    program_settings again;
    again.home = vexel.home();
    vexel.choose("Quit");
    ASSERT_EQ(0, vexel.child().waitexit(30));
    const program second(screen, again);
    ASSERT_TRUE(waitpanel(true));
    press(0);
    domacro("RUF");
    const verdict seen = second.waitforcube(cubecolors);
    EXPECT_TRUE(seen) << seen.why;
}

TEST_F(ManagedGizmoPanel, StandsBesideTheWindowAndLeavesItTheKeyboard) {
    ASSERT_TRUE(waitpanel(true));
    const rectangle r = screen.place(panel());
    const rectangle m = screen.place(vexel.window());
    EXPECT_NEAR(m.x + 740, r.x, 4); // a frame's side
    EXPECT_LE(r.x + r.w, screenwidth);
    EXPECT_NEAR(m.y, r.y, 40); // a frame's title
    vexel.altletter('r');
    applyturn(6);
    EXPECT_TRUE(showsmodel());
}

TEST_F(ManagedGizmoPanel, APressHandsTheKeyboardBack) {
    ASSERT_TRUE(waitpanel(true));
    press(0);
    initcubies();
    domacro("RRLLUUDDFFBB");
    ASSERT_TRUE(showsmodel());
    ASSERT_TRUE(waitfor(10, [&] { return screen.focused() == vexel.window(); }));
    vexel.altletter('u'); // with the mouse still over the panel
    applyturn(0);
    ASSERT_TRUE(showsmodel());
    screen.press('z', ctrl_key);
    applyturn(1);
    EXPECT_TRUE(showsmodel());
    screen.press('r', ctrl_key);
    initcubies();
    EXPECT_TRUE(showsmodel());
}

TEST_F(ManagedGizmoPanel, KeysPressedInItReachTheMainWindow) {
    ASSERT_TRUE(waitpanel(true));

    const struct {
        unsigned long key;
        int modifiers;
        int turn;
    } rows[] = {
        {'u', alt_key,             0},
        {'r', alt_key | shift_key, 7},
        {'z', ctrl_key,            6},
    };

    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        screen.focus(panel());
        screen.press(row.key, row.modifiers);
        applyturn(row.turn);
        ASSERT_TRUE(showsmodel());
    }
    vexel.typemacro("F");
    screen.focus(panel());
    initcubies();
    applyturn(0);
    applyturn(8);
    vexel.holdkey(XK_Right, cubecolors); // a step through the line, which had the keyboard
    screen.focus(panel());
    screen.press('q', ctrl_key);
    EXPECT_EQ(vexel.child().waitexit(30), std::optional<int>(0));
}

TEST_F(ManagedGizmoPanel, EscapeClosesThePanelAlone) {
    ASSERT_TRUE(waitpanel(true));
    screen.focus(panel());
    screen.press(XK_Escape);
    EXPECT_TRUE(waitpanel(false));
    EXPECT_TRUE(showsmodel());
}

TEST_F(ManagedGizmoPanel, BelongsToTheMainWindowAndHasAName) {
    ASSERT_TRUE(waitpanel(true));
    EXPECT_TRUE(waitfor(10, [&] { // a property comes after the window
        return screen.property(panel(), "_NET_WM_NAME") == "Macro Gizmo" &&
               screen.number(panel(), "WM_TRANSIENT_FOR") == vexel.window();
    }));
    screen.minimise(vexel.window());
    EXPECT_TRUE(waitpanel(false));
    screen.activate(vexel.window());
    EXPECT_TRUE(waitpanel(true));
}
