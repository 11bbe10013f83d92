#pragma once

#include <jni.h>

#include <cstdint>

/// An external OES texture and the android.graphics.SurfaceTexture that fills it. JNI failures are
/// logged. Calls that need what is missing then do nothing.
///
/// \thread the creating thread: \p env and the GL context belong to it.
class OESSurfaceTexture {
public:
    explicit OESSurfaceTexture(JNIEnv* env);
    /// Deletes the texture and the reference to the Java object. Does not call release().
    ~OESSurfaceTexture();
    OESSurfaceTexture(const OESSurfaceTexture&) = delete;
    OESSurfaceTexture& operator=(const OESSurfaceTexture&) = delete;

    /// Calls updateTexImage: the texture gets the newest picture. A Java exception stays pending.
    void Update();
    /// Sets the size in pixels of pictures whose producer sets no size.
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
