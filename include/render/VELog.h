#pragma once

/// \file
/// The engine's logging, into the Android log. Priorities are those of android_LogPriority.
///
/// \thread any.

#include "render/VEExport.h"

/// Logs one printf-style message under the base name of a source file.
///
/// \param priority 4 (ANDROID_LOG_INFO) for all of the engine's own messages.
/// \param filePath a path with '/' between its parts; the tag is what follows the last '/', up to
///                 its first '.', at most 127 characters.
/// Messages of any length come through whole.
VE_EXPORT void LogWithFileTag(int priority, const char* filePath, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

/// Logs one printf-style message under \p tag; the system may cut a long one.
/// \return what __android_log_vprint returns.
VE_EXPORT int LogWithTag(int priority, const char* tag, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
