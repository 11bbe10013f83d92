#pragma once

#include <cstdarg>
#include <cstddef>
#include <string_view>
#include <utility>

#include "kernel/Array.h"
#include "kernel/Export.h"
#include "kernel/String.h"

namespace OVR {

/// Builds a UTF-8 text piece by piece, in room that doubles when it runs out.
///
/// Text appended may be part of the buffer itself, but not that of AppendFormat's arguments. Throws
/// std::bad_alloc when the allocator has no memory; the text then stays as it was.
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
    /// Empties the text; the room stays.
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
    /// Bytes from the end of the text, its NUL included; 0 before the first text.
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

    Array<char> storage_;  ///< Room only: its Size is not used.
    size_t size_ = 0;
};

}  // namespace OVR
