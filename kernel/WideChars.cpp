#include "kernel/WideChars.h"

#include <algorithm>
#include <cwchar>
#include <string_view>

namespace OVR {
namespace {

size_t CopyBounded(wchar_t* dest, size_t destSize, std::wstring_view src) {
    if (destSize > 0) {
        const size_t copied = std::min(src.size(), destSize - 1);
        std::wmemcpy(dest, src.data(), copied);
        dest[copied] = L'\0';
    }
    return src.size();
}

/// The length of \p text, at most \p limit. Reads no more than \p limit characters.
size_t BoundedLength(const wchar_t* text, size_t limit) {
    const wchar_t* terminator = std::wmemchr(text, L'\0', limit);
    return terminator != nullptr ? static_cast<size_t>(terminator - text) : limit;
}

}  // namespace

size_t OVR_wcscpy(wchar_t* dest, size_t destSize, const wchar_t* src) {
    return CopyBounded(dest, destSize, src);
}

size_t OVR_wcsncpy(wchar_t* dest, size_t destSize, const wchar_t* src, size_t count) {
    return CopyBounded(dest, destSize, {src, BoundedLength(src, count)});
}

size_t OVR_wcscat(wchar_t* dest, size_t destSize, const wchar_t* src) {
    if (destSize == 0) {
        return OVR_wcslen(src);
    }
    // A destination without a terminator is full: the terminator replaces its last character.
    const size_t used = std::min(BoundedLength(dest, destSize), destSize - 1);
    return used + CopyBounded(dest + used, destSize - used, src);
}

size_t OVR_wcslen(const wchar_t* text) {
    return std::wcslen(text);
}

int OVR_wcscmp(const wchar_t* a, const wchar_t* b) {
    return std::wcscmp(a, b);
}

}  // namespace OVR
