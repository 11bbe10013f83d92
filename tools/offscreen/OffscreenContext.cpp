#include "offscreen/OffscreenContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <iomanip>
#include <sstream>

namespace {

[[noreturn]] void Fail(const char* step) {
    std::ostringstream message;
    message << "no EGL: " << step << " failed (0x" << std::hex << std::uppercase
            << std::setfill('0') << std::setw(4) << eglGetError() << ")";
    throw OffscreenError(message.str());
}

EGLDisplay OpenDisplay() {
    EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (display == EGL_NO_DISPLAY) {
        Fail("eglGetPlatformDisplay");
    }
    if (eglInitialize(display, nullptr, nullptr) == EGL_FALSE) {
        Fail("eglInitialize");
    }
    return display;
}

EGLContext CreateContext(EGLDisplay display) {
    // Contexts without surfaces need no configuration (EGL_KHR_no_config_context).
    static constexpr EGLint kAttributes[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_NONE};
    eglBindAPI(EGL_OPENGL_ES_API);
    EGLContext context = eglCreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, kAttributes);
    if (context == EGL_NO_CONTEXT) {
        Fail("eglCreateContext");
    }
    return context;
}

}  // namespace

OffscreenContext::OffscreenContext() : display_(OpenDisplay()) {
    context_ = CreateContext(display_);
    if (eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_) == EGL_FALSE) {
        eglDestroyContext(display_, context_);
        Fail("eglMakeCurrent");
    }
}

OffscreenContext::~OffscreenContext() {
    // The display stays, since the whole process shares it.
    eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display_, context_);
}
