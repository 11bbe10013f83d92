#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

#include "kernel/Export.h"
#include "kernel/UTF8Util.h"

namespace OVR {

/// A UTF-8 text in memory of the kernel's allocator. Copies share one block; an edit copies a
/// shared block first. The empty text has no block.
///
/// Positions and lengths count characters, sizes count bytes. The string stores any bytes
/// unchanged; UTF8Util says which characters they are. A position behind the end means the end.
/// Arguments may be parts of the string itself. Throws std::bad_alloc without memory.
///
/// \thread copies may be used, edited and destroyed on different threads at the same time; a single
///         object needs a lock.
class OVR_EXPORT String {
public:
    /// Goes through the characters. Valid until the string is edited or destroyed.
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using iterator_concept = std::forward_iterator_tag;
        using value_type = uint32_t;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = uint32_t;

        Iterator() = default;
        Iterator(const char* cursor, const char* end) : cursor_(cursor), end_(end) {}

        uint32_t operator*() const {
            const char* cursor = cursor_;
            return UTF8Util::DecodeNextChar(cursor, end_);
        }
        Iterator& operator++() {
            UTF8Util::DecodeNextChar(cursor_, end_);
            return *this;
        }
        Iterator operator++(int) {  // NOLINT(cert-dcl21-cpp): a constant could not be moved from
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return cursor_ == other.cursor_; }
        bool operator!=(const Iterator& other) const { return cursor_ != other.cursor_; }

    private:
        const char* cursor_ = nullptr;
        const char* end_ = nullptr;
    };
    using const_iterator = Iterator;

    static constexpr size_t kNotFound = SIZE_MAX;

    String() noexcept = default;
    String(std::string_view utf8) { Append(utf8); }
    String(const char* utf8) : String(std::string_view(utf8)) {}
    String(const char* utf8, size_t size) : String(std::string_view(utf8, size)) {}
    explicit String(std::wstring_view wide);
    ~String();

    String(const String& other) noexcept;
    String(String&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    String& operator=(String other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }

    /// Bytes, without the NUL behind the text.
    size_t GetSize() const { return View().size(); }
    size_t GetLength() const { return UTF8Util::GetLength(View()); }
    bool IsEmpty() const { return block_ == nullptr; }
    /// Never null; NUL-terminated.
    const char* ToCStr() const { return View().data(); }
    std::string_view View() const;
    operator std::string_view() const { return View(); }

    /// The character at \p position; 0 behind the end.
    uint32_t GetCharAt(size_t position) const;
    Iterator begin() const { return {View().data(), View().data() + View().size()}; }
    Iterator end() const { return {View().data() + View().size(), View().data() + View().size()}; }

    void Append(std::string_view utf8);
    void Append(const char* utf8) { Append(std::string_view(utf8)); }
    void AppendChar(uint32_t ch);
    void Insert(size_t position, std::string_view utf8);
    void Remove(size_t position, size_t length = 1);
    void Clear() { *this = String(); }
    String Substring(size_t position, size_t length = kNotFound) const;

    /// Less than, equal to or greater than 0, in the order of code points.
    int Compare(std::string_view other) const { return View().compare(other); }
    /// As Compare, but A to Z equal a to z.
    int CompareNoCase(std::string_view other) const;
    /// \name Comparison with any text, from both sides, in the order of Compare
    /// They are found where one side is a String; what they call is the standard library's.
    /// @{
    friend bool operator==(std::string_view a, std::string_view b) { return a == b; }
    friend bool operator!=(std::string_view a, std::string_view b) { return a != b; }
    friend bool operator<(std::string_view a, std::string_view b) { return a < b; }
    friend bool operator<=(std::string_view a, std::string_view b) { return a <= b; }
    friend bool operator>(std::string_view a, std::string_view b) { return a > b; }
    friend bool operator>=(std::string_view a, std::string_view b) { return a >= b; }
    /// @}

    /// Position of the first \p utf8 at \p from or behind; kNotFound if there is none. An empty
    /// text is at every position up to the length, as in the standard library.
    size_t Find(std::string_view utf8, size_t from = 0) const;

    /// Equal for equal bytes, in every process and on every processor.
    uint32_t GetHash() const;

private:
    struct Block;

    bool HasOwnRoomFor(size_t size) const;
    void Replace(size_t offset, size_t removed, std::string_view inserted);

    Block* block_ = nullptr;
};

}  // namespace OVR
