#pragma once

/// \file
/// What decoders need of a window beyond <android/native_window.h>.

#include <android/native_window.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Time stamp, in nanoseconds, of the buffers posted from now on.
int native_window_set_buffers_timestamp(ANativeWindow* window, int64_t timestampNs);

/// Has \p listener called with \p context, on the consumer's thread, whenever that takes a buffer
/// of the window to show it. There is one listener for all windows of a consumer. It must not call
/// the window.
void native_window_set_latch_listener(ANativeWindow* window, void (*listener)(void* context),
                                      void* context);

/// Takes back the listener of that context, which is not called any more on return. One of another
/// context stays.
void native_window_remove_latch_listener(ANativeWindow* window, void* context);

#ifdef __cplusplus
}  // extern "C"
#endif
