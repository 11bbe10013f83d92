#pragma once

/// \file
/// The engine's functions for writing to the Android log. Priorities are those of
/// android_LogPriority. No argument may be null. Android cuts a message at about 4,000 bytes, the
/// tag included.
///
/// \thread any.

#include "render/VEExport.h"

/// Logs one printf-style message under the base name of a source file.
///
/// A message of 512 bytes or more is formatted in memory from the heap. If there is none, the
/// process crashes.
///
/// \param priority the engine uses 4 (ANDROID_LOG_INFO), and 6 (ANDROID_LOG_ERROR) before it
///                 aborts.
/// \param filePath a path with '/' between its parts. The tag is what follows the last '/', up to
///                 the first '.', at most 127 bytes.
VE_EXPORT void LogWithFileTag(int priority, const char* filePath, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

/// Logs one printf-style message with the tag \p tag. Android cuts the message at 1,023 bytes.
///
/// \return what __android_log_vprint returns: more than 0 if the message was written, otherwise a
///         negative error number.
VE_EXPORT int LogWithTag(int priority, const char* tag, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
