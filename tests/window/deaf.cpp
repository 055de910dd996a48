// SPDX-License-Identifier: MIT
//
// deaf: a library to load before all others, with which OpenGL promises to answer and does not.
//
// VEXEL_DEAF names where it falls silent: "context" none is made, "current" none is made the
// current one, "error" the server refuses that, "version" it has none, "blank" an empty one.
#include <GL/glx.h>

#include <cstdlib>
#include <dlfcn.h>
#include <string_view>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

bool deafto(std::string_view what) {
    const char* named = std::getenv("VEXEL_DEAF");
    return named != nullptr && named == what;
}

template <class function> function real(const char* name) {
    return reinterpret_cast<function>(dlsym(RTLD_NEXT, name));
}

} // namespace

EXPORTED GLXContext glXCreateContext(Display* dpy, XVisualInfo* visual, GLXContext list,
                                     Bool direct) {
    using function = GLXContext (*)(Display*, XVisualInfo*, GLXContext, Bool);
    return deafto("context") ? nullptr
                             : real<function>("glXCreateContext")(dpy, visual, list, direct);
}

EXPORTED Bool glXMakeCurrent(Display* dpy, GLXDrawable drawable, GLXContext context) {
    if (deafto("error")) {
        XMapWindow(dpy, 1); // there is no such window
    }
    using function = Bool (*)(Display*, GLXDrawable, GLXContext);
    return deafto("current") ? False : real<function>("glXMakeCurrent")(dpy, drawable, context);
}

EXPORTED const GLubyte* glGetString(GLenum name) {
    if (name == GL_VERSION && deafto("version")) {
        return nullptr;
    }
    if (name == GL_VERSION && deafto("blank")) {
        return reinterpret_cast<const GLubyte*>("");
    }
    return real<const GLubyte* (*)(GLenum)>("glGetString")(name);
}
