#pragma once

#include <jni.h>

#include "SharedCodec.h"

struct ANativeWindow;

/// The platform's decoder, which draws its pictures into a Java Surface. No function reports a
/// failure of the decoder. A decoder that failed gives no pictures.
///
/// \thread constructor, flush and shutDown: the GL thread. update: the decoder thread, also during
///         the other calls.
class AndroidCodec {
public:
    /// Creates, configures and starts a decoder. The results are not checked.
    ///
    /// \param surface  an android.view.Surface.
    /// \param mimeType a static string.
    AndroidCodec(JNIEnv* env, jobject surface, int width, int height, const char* mimeType);
    AndroidCodec(const AndroidCodec&) = delete;
    AndroidCodec& operator=(const AndroidCodec&) = delete;

    /// Copies one access unit into an input buffer of the decoder and queues the buffer. Waits up
    /// to 2 ms for a free buffer. If there is none, the unit is dropped.
    ///
    /// \param size in bytes, at most that of an input buffer. 0 or less does nothing.
    void flush(const void* data, int size);

    /// Waits up to 1 ms for a decoded picture and sends it to the surface.
    /// \return false if there is no decoder or if it failed. Then update may return without
    /// waiting.
    bool update();

    /// Stops the decoder, waits up to 50 ms for a call of update in progress, and deletes the
    /// decoder. If that call takes longer, update deletes the decoder before it returns. Later
    /// calls of flush and update return at once. Call shutDown once: the destructor releases
    /// nothing.
    void shutDown();

private:
    ANativeWindow* window;
    SharedCodec codec;
};
