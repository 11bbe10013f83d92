#pragma once

/// \file
/// What decoders need of a window beyond <android/native_window.h>.

#include <android/native_window.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Time stamp, in nanoseconds, of the buffers posted from now on.
int native_window_set_buffers_timestamp(ANativeWindow* window, int64_t timestampNs);

#ifdef __cplusplus
}  // extern "C"
#endif
