// SPDX-License-Identifier: MIT
//
// scribble: a library to load before all others, in which a swap of buffers leaves rubbish behind.
//
// OpenGL leaves the back buffer undefined after a swap; software drivers happen to keep a frame in
// it. Here each swap paints the back buffer magenta, so that a program which shows what it did not
// paint can be seen to do so.
#include <GL/gl.h>
#include <GL/glx.h>

#include <dlfcn.h>

extern "C" [[gnu::visibility("default")]] void glXSwapBuffers(Display* dpy, GLXDrawable drawable) {
    using swap_function = void (*)(Display*, GLXDrawable);
    static const auto swap = reinterpret_cast<swap_function>(dlsym(RTLD_NEXT, "glXSwapBuffers"));
    swap(dpy, drawable);
    if (glXGetCurrentContext() == nullptr) {
        return;
    }
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glDisable(GL_SCISSOR_TEST);
    glDrawBuffer(GL_BACK);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(1, 0, 1, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    glPopAttrib();
}
