#pragma once

#include <cstddef>

#include "kernel/Export.h"

namespace OVR {

/// \name Wide-character text in fixed buffers
///
/// \p destSize counts wide characters, the terminator's included. Whatever is written is
/// terminated; with a \p destSize of 0 nothing is. Source and destination do not overlap.
/// @{

/// Copies \p src. \return the length of \p src: \p destSize or more when the copy was cut.
OVR_EXPORT size_t OVR_wcscpy(wchar_t* dest, size_t destSize, const wchar_t* src);

/// As OVR_wcscpy, but of the first \p count characters of \p src at most.
OVR_EXPORT size_t OVR_wcsncpy(wchar_t* dest, size_t destSize, const wchar_t* src, size_t count);

/// Appends \p src. \return the length of both: \p destSize or more when the text was cut.
OVR_EXPORT size_t OVR_wcscat(wchar_t* dest, size_t destSize, const wchar_t* src);

OVR_EXPORT size_t OVR_wcslen(const wchar_t* text);

/// \return less than, equal to or greater than 0 as \p a sorts before, with or behind \p b.
OVR_EXPORT int OVR_wcscmp(const wchar_t* a, const wchar_t* b);

/// @}

}  // namespace OVR
