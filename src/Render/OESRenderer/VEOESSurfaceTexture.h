#pragma once

#include <jni.h>

#include <cstdint>

/// An external OES texture and the android.graphics.SurfaceTexture that fills it. JNI failures are
/// logged and leave null: the calls concerned then do nothing.
///
/// \thread the creating thread, to which both \p env and the GL context belong.
class OESSurfaceTexture {
public:
    explicit OESSurfaceTexture(JNIEnv* env);
    /// Deletes the texture and drops the Java object, without its release().
    ~OESSurfaceTexture();
    OESSurfaceTexture(const OESSurfaceTexture&) = delete;
    OESSurfaceTexture& operator=(const OESSurfaceTexture&) = delete;

    /// Latches the newest image into the texture. A Java exception stays pending.
    void Update();
    /// Size in pixels of images whose producer sets none.
    void SetDefaultBufferSize(int width, int height);

    uint32_t GetTextureId() const { return textureId; }
    jobject GetJavaObject() const { return javaObject; }

private:
    void createTexture();
    void createJavaObject(jclass javaClass);

    uint32_t textureId = 0;
    jobject javaObject = nullptr;  ///< A global reference.
    JNIEnv* env;
    jmethodID updateTexImageMethod = nullptr;
    jmethodID setDefaultBufferSizeMethod = nullptr;
};
