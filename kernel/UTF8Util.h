#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "kernel/Export.h"

namespace OVR {

/// Converts to and from UTF-8. A character is a Unicode code point, and fits into one wchar_t.
///
/// No function fails. Invalid input (overlong forms, surrogates, values above U+10FFFF, incomplete
/// sequences, stray bytes) becomes U+FFFD: one for each sequence up to the first byte that does not
/// belong to it. That byte starts the next character.
namespace UTF8Util {

constexpr uint32_t kReplacementChar = 0xFFFD;
constexpr size_t kMaxEncodedSize = 4;

/// Characters in \p utf8.
OVR_EXPORT size_t GetLength(std::string_view utf8);

/// Byte offset of character \p index, counted from 0; the size of \p utf8 if there is none.
OVR_EXPORT size_t GetByteIndex(std::string_view utf8, size_t index);

/// Bytes that \p ch takes.
OVR_EXPORT size_t GetEncodedSize(uint32_t ch);
/// Bytes that \p wide takes, without terminator.
OVR_EXPORT size_t GetEncodedSize(std::wstring_view wide);

/// Writes \p ch to \p dest, which has room for kMaxEncodedSize bytes. \return the number of bytes.
OVR_EXPORT size_t EncodeChar(char* dest, uint32_t ch);

/// Reads the character at \p cursor and moves \p cursor behind it. \return 0 at \p end.
OVR_EXPORT uint32_t DecodeNextChar(const char*& cursor, const char* end);

/// \name Whole strings
/// They write whole characters and a terminator, at most \p destSize elements in all.
/// \return the size of the whole text without terminator: \p destSize or more if it was cut.
/// @{
OVR_EXPORT size_t EncodeString(char* dest, size_t destSize, std::wstring_view wide);
OVR_EXPORT size_t DecodeString(wchar_t* dest, size_t destSize, std::string_view utf8);
/// @}

}  // namespace UTF8Util
}  // namespace OVR
