#include <android/native_window_jni.h>
#include <android_view_Surface.h>
#include <system/window.h>

#include "Jni.h"
#include "NativeWindow.h"
#include "TextureConsumer.h"

namespace {

bool IsSurface(JNIEnv* env, jobject object) {
    jclass type = env->FindClass("android/view/Surface");
    const bool result = type != nullptr && env->IsInstanceOf(object, type) != JNI_FALSE;
    env->ExceptionClear();
    env->DeleteLocalRef(type);
    return result;
}

}  // namespace

extern "C" {

jlong Java_android_view_Surface_nativeCreate(JNIEnv* env, jclass /*type*/, jobject surfaceTexture) {
    const auto* consumer = FromJava<TextureConsumer>(LongField(env, surfaceTexture, "consumer"));
    if (consumer->Queue()->IsAbandoned()) {
        Throw(env, "java/lang/IllegalArgumentException", "the SurfaceTexture was released");
        return 0;
    }
    return ToJava(new ANativeWindow(consumer->Queue()));
}

void Java_android_view_Surface_nativeDestroy(JNIEnv* /*env*/, jclass /*type*/, jlong window) {
    ANativeWindow_release(FromJava<ANativeWindow>(window));
}

ANativeWindow* ANativeWindow_fromSurface(JNIEnv* env, jobject surface) {
    if (surface == nullptr || !IsSurface(env, surface)) {
        return nullptr;
    }
    // Surface.release() holds the monitor, too.
    env->MonitorEnter(surface);
    auto* window = FromJava<ANativeWindow>(LongField(env, surface, "window"));
    if (window != nullptr) {
        window = native_window_new_reference(window);
    }
    env->MonitorExit(surface);
    return window;
}

}  // extern "C"
