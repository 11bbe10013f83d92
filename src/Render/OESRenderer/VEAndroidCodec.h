#pragma once

#include <jni.h>

#include <atomic>

struct AMediaCodec;
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

    /// Waits up to 1 ms for a decoded frame and releases it to the surface.
    void update();

    /// Stops and deletes the decoder; flush and update then return at once. Call it once, before
    /// the object goes: the destructor releases nothing.
    void shutDown();

private:
    ANativeWindow* window;
    /// Atomic, since shutDown takes it away from under update.
    std::atomic<AMediaCodec*> codec;
};
