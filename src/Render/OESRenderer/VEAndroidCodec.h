#pragma once

#include <jni.h>

#include "SharedCodec.h"

struct ANativeWindow;

/// The platform's decoder, rendering into a Java Surface. Failures are not reported: units that
/// find no room are dropped, and frames that never come are not missed.
///
/// \thread flush and shutDown: the creating thread. update: the decoder thread, at the same time.
class AndroidCodec {
public:
    /// Configures and starts a decoder, whose result nobody checks.
    /// \param surface an android.view.Surface. \param mimeType a static string.
    AndroidCodec(JNIEnv* env, jobject surface, int width, int height, const char* mimeType);
    AndroidCodec(const AndroidCodec&) = delete;
    AndroidCodec& operator=(const AndroidCodec&) = delete;

    /// Queues one access unit, waiting up to 2 ms for a free buffer; without one it is dropped.
    /// \param size bytes, not more than an input buffer holds; 0 or less does nothing.
    void flush(const void* data, int size);

    /// Waits up to 1 ms for a decoded picture and releases it to the surface.
    /// \return false without a decoder, and when it failed: it may not have waited.
    bool update();

    /// Stops and deletes the decoder; flush and update then return at once. Waits up to 50 ms for a
    /// call of update, which deletes the decoder itself if it takes longer. Call it once, before
    /// the object goes: the destructor releases nothing.
    void shutDown();

private:
    ANativeWindow* window;
    SharedCodec codec;
};
