#pragma once

#include <cstddef>

#include "kernel/Export.h"

namespace OVR {

/// \name Wide-character text in fixed buffers
///
/// \p destSize is the size of \p dest in wide characters, with the terminator. The text in \p dest
/// is cut to it and always terminated; with \p destSize 0 nothing is written. Source and
/// destination must not overlap.
/// @{

/// Copies \p src. \return the length of \p src: \p destSize or more if the copy was cut.
OVR_EXPORT size_t OVR_wcscpy(wchar_t* dest, size_t destSize, const wchar_t* src);

/// As OVR_wcscpy, for at most the first \p count characters of \p src.
OVR_EXPORT size_t OVR_wcsncpy(wchar_t* dest, size_t destSize, const wchar_t* src, size_t count);

/// Appends \p src. \return the length of both: \p destSize or more if the text was cut.
OVR_EXPORT size_t OVR_wcscat(wchar_t* dest, size_t destSize, const wchar_t* src);

OVR_EXPORT size_t OVR_wcslen(const wchar_t* text);

/// \return less than 0 if \p a sorts before \p b, 0 if they are equal, else more than 0.
OVR_EXPORT int OVR_wcscmp(const wchar_t* a, const wchar_t* b);

/// @}

}  // namespace OVR
