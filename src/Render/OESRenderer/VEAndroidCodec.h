#pragma once

#include <jni.h>

#include "SharedCodec.h"

struct ANativeWindow;

/// The platform's decoder, which renders into a Java Surface. It does not report failures: a unit
/// is dropped if there is no free buffer, and a failed decoder gives no pictures.
///
/// \thread flush and shutDown: the creating thread. update: the decoder thread, at the same time.
class AndroidCodec {
public:
    /// Creates, configures and starts a decoder. The results are not checked.
    ///
    /// \param surface  an android.view.Surface.
    /// \param mimeType a static string.
    AndroidCodec(JNIEnv* env, jobject surface, int width, int height, const char* mimeType);
    AndroidCodec(const AndroidCodec&) = delete;
    AndroidCodec& operator=(const AndroidCodec&) = delete;

    /// Waits up to 2 ms for a free buffer and queues one access unit. Without a buffer the unit is
    /// dropped.
    ///
    /// \param size in bytes, at most that of an input buffer. 0 or less does nothing.
    void flush(const void* data, int size);

    /// Waits up to 1 ms for a decoded picture and releases it to the surface.
    /// \return false if there is no decoder or if it failed. Then it may not have waited.
    bool update();

    /// Stops and deletes the decoder. Later calls of flush and update return at once. Waits up to
    /// 50 ms for a call of update. If that call takes longer, it deletes the decoder at its end.
    /// Call shutDown once, before the destructor, which releases nothing.
    void shutDown();

private:
    ANativeWindow* window;
    SharedCodec codec;
};
