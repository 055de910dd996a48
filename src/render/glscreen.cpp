// SPDX-License-Identifier: MIT
#include "render/glscreen.h"

#include <FL/Fl_Gl_Window.H>
#include <FL/gl.h>
#include <FL/x.H>
#include <GL/glx.h>

#include <memory>
#include <string>

namespace {

bool failed = false; // an X error came up while failures were looked for

int noteerror(Display*, XErrorEvent*) {
    failed = true;
    return 0;
}

// OpenGL without a driver may make contexts, give no version or an empty one, and draw nothing.
bool hasversion() {
    const GLubyte* version = glGetString(GL_VERSION);
    return version != nullptr && *version != '\0';
}

// Whether OpenGL answers in a window of this visual. The window is never shown.
bool answersin(XVisualInfo* visual, GLXContext context) {
    const Window root = RootWindow(fl_display, visual->screen);
    XSetWindowAttributes attributes = {};
    attributes.colormap = XCreateColormap(fl_display, root, visual->visual, AllocNone);
    const Window window = XCreateWindow(fl_display, root, 0, 0, 1, 1, 0, visual->depth, InputOutput,
                                        visual->visual, CWColormap | CWBorderPixel, &attributes);
    const bool answers = glXMakeCurrent(fl_display, window, context) != 0 && hasversion();
    glXMakeCurrent(fl_display, 0, nullptr);
    XDestroyWindow(fl_display, window);
    XFreeColormap(fl_display, attributes.colormap);
    return answers;
}

bool answersin(XVisualInfo* visual) {
    const GLXContext context = glXCreateContext(fl_display, visual, nullptr, 1);
    if (context == nullptr) {
        return false;
    }
    const bool answers = answersin(visual, context);
    glXDestroyContext(fl_display, context);
    return answers;
}

bool openglanswers() {
    int wanted[] = {GLX_RGBA, GLX_DOUBLEBUFFER, 0};
    const std::unique_ptr<XVisualInfo, int (*)(void*)> visual(
        glXChooseVisual(fl_display, fl_screen, wanted), XFree);
    XSync(fl_display, 0);
    failed = false;
    const XErrorHandler before = XSetErrorHandler(noteerror);
    const bool answers = visual != nullptr && answersin(visual.get());
    XSync(fl_display, 0);
    XSetErrorHandler(before);
    return answers && !failed;
}

bool isoffered(const std::string& extension) {
    const char* all = glXQueryExtensionsString(fl_display, fl_screen);
    return all != nullptr &&
           (' ' + std::string(all) + ' ').find(' ' + extension + ' ') != std::string::npos;
}

template <class function> function find(const char* name) {
    const auto* letters = reinterpret_cast<const GLubyte*>(name);
    return reinterpret_cast<function>(glXGetProcAddressARB(letters));
}

} // namespace

bool viewpossible() {
    return Fl_Gl_Window::can_do(FL_RGB | FL_DOUBLE) != 0 && openglanswers();
}

void dontwaitforbeam() {
    if (isoffered("GLX_EXT_swap_control")) {
        const auto setinterval = find<PFNGLXSWAPINTERVALEXTPROC>("glXSwapIntervalEXT");
        setinterval(fl_display, glXGetCurrentDrawable(), 0);
    } else if (isoffered("GLX_MESA_swap_control")) {
        find<PFNGLXSWAPINTERVALMESAPROC>("glXSwapIntervalMESA")(0);
    } else if (isoffered("GLX_SGI_swap_control")) {
        // By its description it takes no 0, and where it does not, nothing is lost.
        find<PFNGLXSWAPINTERVALSGIPROC>("glXSwapIntervalSGI")(0);
    }
}
