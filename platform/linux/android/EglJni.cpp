// The native methods of android.opengl.EGL14.
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <android_opengl_EGL14.h>

#include <vector>

#include "Jni.h"
#include "TextureConsumer.h"

namespace {

std::vector<EGLint> List(JNIEnv* env, jintArray array) {
    std::vector<EGLint> list(static_cast<size_t>(env->GetArrayLength(array)));
    env->GetIntArrayRegion(array, 0, static_cast<jsize>(list.size()), list.data());
    return list;
}

void* Handle(jlong value) {
    return FromJava<void>(value);
}

jboolean Truth(EGLBoolean value) {
    return value == EGL_TRUE ? JNI_TRUE : JNI_FALSE;
}

jlong Pbuffer(jlong display, jlong config, const EGLint* attributes) {
    return ToJava(eglCreatePbufferSurface(Handle(display), Handle(config), attributes));
}

}  // namespace

extern "C" {

jint Java_android_opengl_EGL14_nativeError(JNIEnv* /*env*/, jclass /*type*/) {
    return eglGetError();
}

jlong Java_android_opengl_EGL14_nativeDisplay(JNIEnv* /*env*/, jclass /*type*/) {
    return ToJava(
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr));
}

jboolean Java_android_opengl_EGL14_nativeInitialize(JNIEnv* /*env*/, jclass /*type*/,
                                                    jlong display) {
    eglBindAPI(EGL_OPENGL_ES_API);
    return Truth(eglInitialize(Handle(display), nullptr, nullptr));
}

jlong Java_android_opengl_EGL14_nativeConfig(JNIEnv* env, jclass /*type*/, jlong display,
                                             jintArray attributes) {
    std::vector<EGLint> list = List(env, attributes);
    for (size_t i = 0; i + 1 < list.size(); i += 2) {
        if (list[i] == EGL_SURFACE_TYPE) {
            list[i + 1] = EGL_PBUFFER_BIT;
        }
    }
    EGLConfig config = nullptr;
    EGLint count = 0;
    eglChooseConfig(Handle(display), list.data(), &config, 1, &count);
    return ToJava(config);
}

jlong Java_android_opengl_EGL14_nativeContext(JNIEnv* env, jclass /*type*/, jlong display,
                                              jlong config, jintArray attributes) {
    return ToJava(eglCreateContext(Handle(display), Handle(config), EGL_NO_CONTEXT,
                                   List(env, attributes).data()));
}

jlong Java_android_opengl_EGL14_nativePbuffer(JNIEnv* env, jclass /*type*/, jlong display,
                                              jlong config, jintArray attributes) {
    return Pbuffer(display, config, List(env, attributes).data());
}

jlong Java_android_opengl_EGL14_nativeWindow(JNIEnv* env, jclass /*type*/, jlong display,
                                             jlong config, jobject window) {
    auto& queue = *FromJava<TextureConsumer>(LongField(env, window, "consumer"))->Queue();
    auto frame = queue.Dequeue(0, 0);
    if (frame == nullptr) {
        return 0;
    }
    const EGLint size[] = {EGL_WIDTH, frame->width, EGL_HEIGHT, frame->height, EGL_NONE};
    queue.Recycle(std::move(frame));
    return Pbuffer(display, config, size);
}

jboolean Java_android_opengl_EGL14_nativeMakeCurrent(JNIEnv* /*env*/, jclass /*type*/,
                                                     jlong display, jlong draw, jlong read,
                                                     jlong context) {
    return Truth(eglMakeCurrent(Handle(display), Handle(draw), Handle(read), Handle(context)));
}

jboolean Java_android_opengl_EGL14_nativeSwap(JNIEnv* /*env*/, jclass /*type*/, jlong display,
                                              jlong surface) {
    return Truth(eglSwapBuffers(Handle(display), Handle(surface)));
}

jboolean Java_android_opengl_EGL14_nativeDestroySurface(JNIEnv* /*env*/, jclass /*type*/,
                                                        jlong display, jlong surface) {
    return Truth(eglDestroySurface(Handle(display), Handle(surface)));
}

jboolean Java_android_opengl_EGL14_nativeDestroyContext(JNIEnv* /*env*/, jclass /*type*/,
                                                        jlong display, jlong context) {
    return Truth(eglDestroyContext(Handle(display), Handle(context)));
}

jboolean Java_android_opengl_EGL14_nativeReleaseThread(JNIEnv* /*env*/, jclass /*type*/) {
    return Truth(eglReleaseThread());
}

}  // extern "C"
