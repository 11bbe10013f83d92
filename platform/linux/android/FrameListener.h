#pragma once

#include <jni.h>

/// Calls a Java SurfaceTexture's onFrameAvailable() on the thread that posts a frame. It does not
/// keep the Java object alive.
class FrameListener {
public:
    FrameListener(JNIEnv* env, jobject surfaceTexture);
    ~FrameListener();
    FrameListener(const FrameListener&) = delete;
    FrameListener& operator=(const FrameListener&) = delete;

    void Notify() const;

private:
    JavaVM* vm_ = nullptr;
    jweak surfaceTexture_;
    jmethodID onFrameAvailable_;
};
