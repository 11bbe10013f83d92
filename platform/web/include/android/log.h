#pragma once

/// \file
/// The Android log, written to the browser's console.

#include <stdarg.h>

#ifdef __cplusplus
extern "C" {
#endif

// NOLINTBEGIN(readability-identifier-naming): Android's names.
typedef enum android_LogPriority {
    ANDROID_LOG_DEBUG = 3,
    ANDROID_LOG_INFO = 4,
    ANDROID_LOG_WARN = 5,
    ANDROID_LOG_ERROR = 6,
} android_LogPriority;

int __android_log_write(int prio, const char* tag, const char* text);
int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap);
// NOLINTEND(readability-identifier-naming)

#ifdef __cplusplus
}  // extern "C"
#endif
