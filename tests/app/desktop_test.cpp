// SPDX-License-Identifier: MIT
//
// What the window manager is asked, as one would hear it.
#include "app/desktop.h"
#include "app/mainwindow.h"
#include "app/rig.h"

#include <FL/Fl_Window.H>
#include <FL/x.H>

#include <gtest/gtest.h>
#include <memory>

TEST(Desktop, TheKeyboardIsAskedForAsAProgramAsks) {
    openwindow();
    const std::unique_ptr<Display, int (*)(Display*)> manager(XOpenDisplay(screen().name().c_str()),
                                                              XCloseDisplay);
    ASSERT_NE(manager, nullptr);
    XSelectInput(manager.get(), DefaultRootWindow(manager.get()), SubstructureNotifyMask);
    XSync(manager.get(), False);
    fl_event_time = 4711;
    takekeyboard();
    XFlush(fl_display);
    XEvent event = {};
    ASSERT_TRUE(waitfor(
        10, [&] { return XCheckTypedEvent(manager.get(), ClientMessage, &event) != False; }));
    EXPECT_EQ(event.xclient.window, fl_xid(form));
    EXPECT_EQ(event.xclient.message_type, XInternAtom(fl_display, "_NET_ACTIVE_WINDOW", True));
    EXPECT_EQ(event.xclient.format, 32);
    EXPECT_EQ(event.xclient.data.l[0], 1);    // no pager, which would be obeyed in any case
    EXPECT_EQ(event.xclient.data.l[1], 4711); // when the user last did something
}
