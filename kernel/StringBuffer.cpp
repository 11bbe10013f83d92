#include "kernel/StringBuffer.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <new>

#include "kernel/UTF8Util.h"

namespace OVR {
namespace {

constexpr size_t kMaxCapacity = UINT32_MAX / 2;

}  // namespace

void StringBuffer::Reserve(size_t size) {
    if (size >= storage_.Capacity) {
        storage_.Reserve(CapacityFor(size - size_));
        SetSize(size_);
    }
}

void StringBuffer::AppendFormat(const char* format, ...) {
    va_list args;
    va_start(args, format);
    AppendFormatV(format, args);
    va_end(args);
}

void StringBuffer::AppendFormatV(const char* format, va_list args) {
    va_list firstTry;
    va_copy(firstTry, args);
    const int result = std::vsnprintf(storage_.Data + size_, Room(), format, firstTry);
    va_end(firstTry);
    const auto length = static_cast<size_t>(std::max(result, 0));
    if (length >= Room()) {
        SetSize(size_);
        Reserve(size_ + length);
        static_cast<void>(std::vsnprintf(storage_.Data + size_, Room(), format, args));
    }
    SetSize(size_ + length);
}

void StringBuffer::AppendGrowing(std::string_view utf8) {
    // In new memory, because the appended text may be part of the old.
    Array<char> grown;
    grown.Reserve(CapacityFor(utf8.size()));
    View().copy(grown.Data, size_);
    utf8.copy(grown.Data + size_, utf8.size());
    storage_ = std::move(grown);
    SetSize(size_ + utf8.size());
}

void StringBuffer::AppendEncoded(uint32_t ch) {
    char encoded[UTF8Util::kMaxEncodedSize];
    Append({encoded, UTF8Util::EncodeChar(encoded, ch)});
}

/// Enough for \p added bytes behind the text, and at least twice the old capacity.
uint32_t StringBuffer::CapacityFor(size_t added) const {
    if (added >= kMaxCapacity - size_) {
        throw std::bad_alloc();
    }
    const size_t doubled = std::min(size_t{storage_.Capacity} * 2, kMaxCapacity);
    return static_cast<uint32_t>(std::max(size_ + added + 1, doubled));
}

}  // namespace OVR
