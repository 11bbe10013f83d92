#pragma once

/// \file
/// The engine's functions for writing to the Android log. Priorities are those of
/// android_LogPriority.
///
/// \thread any.

#include "render/VEExport.h"

/// Logs one printf-style message of any length. The tag is the base name of a source file.
///
/// \param priority the engine uses 4 (ANDROID_LOG_INFO), and 6 (ANDROID_LOG_ERROR) before it
/// aborts. \param filePath a path with '/' between its parts. The tag is what follows the last '/',
/// up to
///                 the first '.', at most 127 characters.
VE_EXPORT void LogWithFileTag(int priority, const char* filePath, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

/// Logs one printf-style message with the tag \p tag. The system may shorten a long message.
///
/// \return what __android_log_vprint returns.
VE_EXPORT int LogWithTag(int priority, const char* tag, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
