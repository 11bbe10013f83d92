// The context and the surface of a GLSurfaceView's thread.
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <android_opengl_GlThread.h>

#include "Jni.h"

namespace {

struct ThreadContext {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLConfig config = nullptr;
    EGLContext context = EGL_NO_CONTEXT;
    EGLSurface surface = EGL_NO_SURFACE;
};

/// \return whether there is a context.
bool Open(ThreadContext& thread) {
    constexpr EGLint kConfig[] = {EGL_SURFACE_TYPE,
                                  EGL_PBUFFER_BIT,
                                  EGL_RENDERABLE_TYPE,
                                  EGL_OPENGL_ES3_BIT,
                                  EGL_RED_SIZE,
                                  8,
                                  EGL_GREEN_SIZE,
                                  8,
                                  EGL_BLUE_SIZE,
                                  8,
                                  EGL_NONE};
    constexpr EGLint kContext[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_NONE};
    thread.display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    EGLint count = 0;
    if (eglInitialize(thread.display, nullptr, nullptr) == EGL_FALSE ||
        eglChooseConfig(thread.display, kConfig, &thread.config, 1, &count) == EGL_FALSE ||
        count == 0) {
        return false;
    }
    eglBindAPI(EGL_OPENGL_ES_API);
    thread.context = eglCreateContext(thread.display, thread.config, EGL_NO_CONTEXT, kContext);
    return thread.context != EGL_NO_CONTEXT;
}

void DropSurface(ThreadContext& thread) {
    eglMakeCurrent(thread.display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    if (thread.surface != EGL_NO_SURFACE) {
        eglDestroySurface(thread.display, thread.surface);
    }
}

}  // namespace

extern "C" {

jlong Java_android_opengl_GlThread_nativeBegin(JNIEnv* env, jclass /*type*/) {
    auto* thread = new ThreadContext;
    if (!Open(*thread)) {
        Throw(env, "java/lang/RuntimeException", "no context of OpenGL ES 3");
    }
    return ToJava(thread);
}

void Java_android_opengl_GlThread_nativeResize(JNIEnv* /*env*/, jclass /*type*/, jlong context,
                                               jint width, jint height) {
    auto& thread = *FromJava<ThreadContext>(context);
    const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    DropSurface(thread);
    thread.surface = eglCreatePbufferSurface(thread.display, thread.config, size);
    eglMakeCurrent(thread.display, thread.surface, thread.surface, thread.context);
}

void Java_android_opengl_GlThread_nativeSwap(JNIEnv* /*env*/, jclass /*type*/, jlong context) {
    const auto& thread = *FromJava<ThreadContext>(context);
    eglSwapBuffers(thread.display, thread.surface);
}

void Java_android_opengl_GlThread_nativeEnd(JNIEnv* /*env*/, jclass /*type*/, jlong context) {
    auto* thread = FromJava<ThreadContext>(context);
    DropSurface(*thread);
    eglDestroyContext(thread->display, thread->context);
    delete thread;
}

}  // extern "C"
