// The native method of Producer.java.
#include <android/native_window_jni.h>
#include <jni.h>

#include <cstring>

extern "C" JNIEXPORT void JNICALL Java_org_vornrenderer_Producer_post(JNIEnv* env, jclass /*type*/,
                                                                      jobject surface,
                                                                      jobject pixels,
                                                                      jint transform) {
    ANativeWindow* window = ANativeWindow_fromSurface(env, surface);
    ANativeWindow_setBuffersTransform(window, transform);
    ANativeWindow_Buffer buffer = {};
    if (ANativeWindow_lock(window, &buffer, nullptr) == 0) {
        const auto size = static_cast<size_t>(buffer.stride) * static_cast<size_t>(buffer.height);
        std::memcpy(buffer.bits, env->GetDirectBufferAddress(pixels), size * 4);
        ANativeWindow_unlockAndPost(window);
    }
    ANativeWindow_release(window);
}
