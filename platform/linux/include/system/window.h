#pragma once

/// \file
/// Functions of windows for decoders, in addition to <android/native_window.h>.

#include <android/native_window.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Whether the platform is in strict mode, which HostPlatform_setStrict describes.
int native_window_is_strict(void);
void native_window_set_strict(int on);

/// Another reference to the window, released by ANativeWindow_release. In strict mode it is a
/// separate handle to the same consumer.
ANativeWindow* native_window_new_reference(ANativeWindow* window);

/// Sets the time stamp of the next buffers, in nanoseconds.
int native_window_set_buffers_timestamp(ANativeWindow* window, int64_t timestampNs);

/// Sets the part of the next buffers that has the picture, in pixels. Right and bottom are outside
/// of it. Null selects the whole buffer.
int native_window_set_crop(ANativeWindow* window, const ARect* crop);

/// A picture in a form of the producer's, such as YUV, which is read when the consumer latches it.
typedef struct NativeWindowPicture {
    int32_t width;
    int32_t height;
    /// Writes \p rows rows, from \p row on, without gaps, first row first, in RGBA. \p row is even.
    /// Runs on the consumer's thread.
    void (*read)(void* context, int32_t row, int32_t rows, uint8_t* rgba);
    /// Runs once, when the picture is no longer needed, on any thread. It must not call the window.
    void (*free)(void* context);
    void* context;
} NativeWindowPicture;

/// Posts a picture with the window's time stamp, crop and transform, like
/// ANativeWindow_unlockAndPost. \return -ENODEV if the consumer was released; the picture then
/// remains the caller's.
int native_window_post_picture(ANativeWindow* window, const NativeWindowPicture* picture);

/// Calls \p listener with \p context, on the consumer's thread, whenever the consumer latches a
/// buffer. All windows of a consumer share one listener. It must not call the window.
void native_window_set_latch_listener(ANativeWindow* window, void (*listener)(void* context),
                                      void* context);

/// Removes the listener if it has that context. It is not called after the return.
void native_window_remove_latch_listener(ANativeWindow* window, void* context);

#ifdef __cplusplus
}  // extern "C"
#endif
