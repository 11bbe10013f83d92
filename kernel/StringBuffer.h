#pragma once

#include <cstdarg>
#include <cstddef>
#include <string_view>
#include <utility>

#include "kernel/Array.h"
#include "kernel/Export.h"
#include "kernel/String.h"

namespace OVR {

/// Builds a UTF-8 text from pieces. Its memory doubles when it is full.
///
/// Appended text may be part of the buffer itself, except in arguments of AppendFormat. Throws
/// std::bad_alloc without memory; the text then stays as it was.
class OVR_EXPORT StringBuffer {
public:
    StringBuffer() = default;
    StringBuffer(StringBuffer&& other) noexcept { *this = std::move(other); }
    StringBuffer& operator=(StringBuffer&& other) noexcept {
        storage_ = std::move(other.storage_);
        std::swap(size_, other.size_);
        return *this;
    }

    /// Bytes, without the NUL behind the text.
    size_t GetSize() const { return size_; }
    bool IsEmpty() const { return size_ == 0; }
    /// Never null; NUL-terminated.
    const char* ToCStr() const { return storage_.Data != nullptr ? storage_.Data : ""; }
    std::string_view View() const { return {ToCStr(), size_}; }
    String ToString() const { return View(); }

    /// Makes room for a text of \p size bytes.
    void Reserve(size_t size);
    /// Empties the text and keeps the memory.
    void Clear() { SetSize(0); }

    void Append(std::string_view utf8) {
        if (utf8.size() < Room()) {
            char* end = storage_.Data + size_;
            utf8.copy(end, utf8.size());
            end[utf8.size()] = '\0';
            size_ += utf8.size();
        } else {
            AppendGrowing(utf8);
        }
    }
    void AppendChar(uint32_t ch) {
        if (ch < 0x80 && Room() > 1) {
            char* end = storage_.Data + size_++;
            end[0] = static_cast<char>(ch);
            end[1] = '\0';
        } else {
            AppendEncoded(ch);
        }
    }
    void AppendFormat(const char* format, ...) OVR_PRINTF(2, 3);
    void AppendFormatV(const char* format, va_list args) OVR_PRINTF(2, 0);

private:
    /// Free bytes behind the text; its NUL takes one of them. 0 without memory.
    size_t Room() const { return storage_.Capacity - size_; }
    void SetSize(size_t size) {
        size_ = size;
        if (storage_.Data != nullptr) {
            storage_.Data[size] = '\0';
        }
    }
    void AppendGrowing(std::string_view utf8);
    void AppendEncoded(uint32_t ch);
    uint32_t CapacityFor(size_t added) const;

    Array<char> storage_;  ///< Only Data and Capacity are used.
    size_t size_ = 0;
};

}  // namespace OVR
