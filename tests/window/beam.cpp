// SPDX-License-Identifier: MIT
//
// beam: a library to load before all others, that imitates a screen drawn 60 times a second.
//
// A swap of buffers waits for the screen's next beat, as it does on a machine with vertical sync,
// until the program has asked for an interval of 0 by the one extension that is offered:
// VEXEL_BEAM names it, "EXT", "MESA" or "SGI", or is anything else for none. Each request is one
// line in the file that VEXEL_BEAM_LOG names: extension and interval.
#include <GL/glx.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <string>
#include <thread>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

int interval = 1; // beats of the screen that a swap waits for

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

int request(const char* extension, int wanted) {
    if (std::FILE* log = std::fopen(environment("VEXEL_BEAM_LOG").c_str(), "a")) {
        std::fprintf(log, "%s %d\n", extension, wanted);
        std::fclose(log);
    }
    if (environment("VEXEL_BEAM") == extension) {
        interval = wanted;
    }
    return 0;
}

void setext(Display*, GLXDrawable drawable, int wanted) {
    request(drawable != 0 ? "EXT" : "no drawable", wanted);
}

int setmesa(unsigned wanted) {
    return request("MESA", static_cast<int>(wanted));
}

int setsgi(int wanted) {
    return request("SGI", wanted);
}

void waitforbeat() {
    using namespace std::chrono;
    constexpr nanoseconds beat(1'000'000'000 / 60);
    const auto since = steady_clock::now().time_since_epoch();
    std::this_thread::sleep_for(beat - since % beat);
}

template <class function> function real(const char* name) {
    return reinterpret_cast<function>(dlsym(RTLD_NEXT, name));
}

} // namespace

EXPORTED void glXSwapBuffers(Display* dpy, GLXDrawable drawable) {
    real<void (*)(Display*, GLXDrawable)>("glXSwapBuffers")(dpy, drawable);
    if (interval > 0) {
        waitforbeat();
    }
}

EXPORTED const char* glXQueryExtensionsString(Display*, int) {
    static std::string offered;
    // A name that only begins like one of the three must not be taken for it.
    offered = "GLX_ARB_get_proc_address GLX_EXT_swap_control_tear";
    if (environment("VEXEL_BEAM") != "") {
        offered += " GLX_" + environment("VEXEL_BEAM") + "_swap_control";
    }
    return offered.c_str();
}

EXPORTED void (*glXGetProcAddressARB(const GLubyte* name))() {
    using address = void (*)();
    const auto* letters = reinterpret_cast<const char*>(name);
    if (std::strcmp(letters, "glXSwapIntervalEXT") == 0) {
        return reinterpret_cast<address>(setext);
    }
    if (std::strcmp(letters, "glXSwapIntervalMESA") == 0) {
        return reinterpret_cast<address>(setmesa);
    }
    if (std::strcmp(letters, "glXSwapIntervalSGI") == 0) {
        return reinterpret_cast<address>(setsgi);
    }
    return real<address (*)(const GLubyte*)>("glXGetProcAddressARB")(name);
}
