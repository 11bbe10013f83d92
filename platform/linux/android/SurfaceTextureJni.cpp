#include <android_graphics_SurfaceTexture.h>

#include "FrameListener.h"
#include "Jni.h"
#include "TextureConsumer.h"

namespace {

TextureConsumer& Consumer(jlong handle) {
    return *FromJava<TextureConsumer>(handle);
}

void ThrowFor(JNIEnv* env, TextureConsumer::Result result) {
    constexpr char kIllegalState[] = "java/lang/IllegalStateException";
    constexpr char kRuntime[] = "java/lang/RuntimeException";
    switch (result) {
        case TextureConsumer::Result::kDone: break;
        case TextureConsumer::Result::kNoContext:
            Throw(env, kIllegalState, "no GL context is current");
            break;
        case TextureConsumer::Result::kOtherContext:
            Throw(env, kIllegalState, "another GL context is current than at the first update");
            break;
        case TextureConsumer::Result::kDetached:
            Throw(env, kIllegalState, "the SurfaceTexture is detached");
            break;
        case TextureConsumer::Result::kAttached:
            Throw(env, kRuntime, "the SurfaceTexture is attached");
            break;
        case TextureConsumer::Result::kReleased:
            Throw(env, kRuntime, "the SurfaceTexture was released");
            break;
        case TextureConsumer::Result::kFailed:
            Throw(env, kRuntime, "no image of the picture's size could be made");
            break;
    }
}

}  // namespace

extern "C" {

jlong Java_android_graphics_SurfaceTexture_nativeCreate(JNIEnv* /*env*/, jclass /*type*/,
                                                        jint texture) {
    return ToJava(new TextureConsumer(static_cast<unsigned>(texture)));
}

void Java_android_graphics_SurfaceTexture_nativeDestroy(JNIEnv* /*env*/, jclass /*type*/,
                                                        jlong handle) {
    Consumer(handle).Release();
    delete &Consumer(handle);
}

void Java_android_graphics_SurfaceTexture_nativeUpdateTexImage(JNIEnv* env, jobject /*self*/,
                                                               jlong handle) {
    ThrowFor(env, Consumer(handle).Update());
}

void Java_android_graphics_SurfaceTexture_nativeDetach(JNIEnv* env, jobject /*self*/,
                                                       jlong handle) {
    ThrowFor(env, Consumer(handle).Detach());
}

void Java_android_graphics_SurfaceTexture_nativeAttach(JNIEnv* env, jobject /*self*/, jlong handle,
                                                       jint texture) {
    ThrowFor(env, Consumer(handle).Attach(static_cast<unsigned>(texture)));
}

void Java_android_graphics_SurfaceTexture_nativeSetDefaultBufferSize(JNIEnv* /*env*/,
                                                                     jobject /*self*/, jlong handle,
                                                                     jint width, jint height) {
    Consumer(handle).Queue()->SetDefaultSize(width, height);
}

jlong Java_android_graphics_SurfaceTexture_nativeGetTimestamp(JNIEnv* /*env*/, jobject /*self*/,
                                                              jlong handle) {
    return Consumer(handle).Timestamp();
}

void Java_android_graphics_SurfaceTexture_nativeGetTransformMatrix(JNIEnv* env, jobject /*self*/,
                                                                   jlong handle,
                                                                   jfloatArray values) {
    const Matrix matrix = Consumer(handle).Transform();
    env->SetFloatArrayRegion(values, 0, static_cast<jsize>(matrix.size()), matrix.data());
}

void Java_android_graphics_SurfaceTexture_nativeListen(JNIEnv* env, jobject self, jlong handle,
                                                       jboolean listening) {
    FrameQueue& queue = *Consumer(handle).Queue();
    if (listening == JNI_FALSE) {
        queue.SetListener(nullptr);
        return;
    }
    const auto listener = std::make_shared<FrameListener>(env, self);
    queue.SetListener([listener] { listener->Notify(); });
}

void Java_android_graphics_SurfaceTexture_nativeRelease(JNIEnv* /*env*/, jobject /*self*/,
                                                        jlong handle) {
    Consumer(handle).Release();
}

jboolean Java_android_graphics_SurfaceTexture_nativeIsReleased(JNIEnv* /*env*/, jobject /*self*/,
                                                               jlong handle) {
    return static_cast<jboolean>(Consumer(handle).Queue()->IsAbandoned());
}

}  // extern "C"
