#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "kernel/Export.h"

namespace OVR {

/// UTF-8 in and out. A character is a Unicode code point; wchar_t holds a whole one.
///
/// Nothing fails: what is not a character (overlong forms, surrogates, values above U+10FFFF, cut
/// or stray bytes) reads and writes as U+FFFD. A broken sequence counts as one such character up to
/// the byte that breaks it, which starts the next.
namespace UTF8Util {

constexpr uint32_t kReplacementChar = 0xFFFD;
constexpr size_t kMaxEncodedSize = 4;

/// Characters in \p utf8.
OVR_EXPORT size_t GetLength(std::string_view utf8);

/// Byte offset of the character number \p index; the size of \p utf8 when it has no such character.
OVR_EXPORT size_t GetByteIndex(std::string_view utf8, size_t index);

/// Bytes that \p ch takes.
OVR_EXPORT size_t GetEncodedSize(uint32_t ch);
/// Bytes that \p wide takes, without a terminator.
OVR_EXPORT size_t GetEncodedSize(std::wstring_view wide);

/// Writes \p ch to \p dest, which has room for kMaxEncodedSize bytes. \return the bytes written.
OVR_EXPORT size_t EncodeChar(char* dest, uint32_t ch);

/// The character at \p cursor, which moves behind it, by one byte at least; 0 at \p end.
OVR_EXPORT uint32_t DecodeNextChar(const char*& cursor, const char* end);

/// \name Whole strings
/// Write at most \p destSize elements, the last of them a terminator, and no part of a character.
/// \return what the whole text takes without the terminator: \p destSize or more when it was cut.
/// @{
OVR_EXPORT size_t EncodeString(char* dest, size_t destSize, std::wstring_view wide);
OVR_EXPORT size_t DecodeString(wchar_t* dest, size_t destSize, std::string_view utf8);
/// @}

}  // namespace UTF8Util
}  // namespace OVR
