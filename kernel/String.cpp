#include "kernel/String.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <new>

#include "kernel/Allocator.h"

namespace OVR {

/// The header of a text. The text follows in the same block of memory.
struct String::Block {
    std::atomic<uint32_t> users{1};
    size_t size = 0;
    size_t capacity = 0;

    char* Text() { return reinterpret_cast<char*>(this + 1); }

    void SetSize(size_t newSize) {
        size = newSize;
        Text()[newSize] = '\0';
    }

    static Block* Create(size_t capacity);
    static void Release(Block* block) noexcept;
};

String::Block* String::Block::Create(size_t capacity) {
    void* memory = Allocator::pInstance->Alloc(sizeof(Block) + capacity + 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    auto* block = new (memory) Block;
    block->capacity = capacity;
    return block;
}

void String::Block::Release(Block* block) noexcept {
    if (block != nullptr && block->users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        block->~Block();
        Allocator::pInstance->Free(block);
    }
}

namespace {

constexpr size_t kMaxSize = SIZE_MAX / 4;

char FoldCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool LessNoCase(char a, char b) {
    return static_cast<unsigned char>(FoldCase(a)) < static_cast<unsigned char>(FoldCase(b));
}

bool Overlap(std::string_view a, std::string_view b) {
    const std::less<> before;
    return before(a.data(), b.data() + b.size()) && before(b.data(), a.data() + a.size());
}

}  // namespace

String::String(std::wstring_view wide) {
    const size_t size = UTF8Util::GetEncodedSize(wide);
    if (size > 0) {
        block_ = Block::Create(size);
        UTF8Util::EncodeString(block_->Text(), size + 1, wide);
        block_->SetSize(size);
    }
}

String::String(const String& other) noexcept : block_(other.block_) {
    if (block_ != nullptr) {
        block_->users.fetch_add(1, std::memory_order_relaxed);
    }
}

String::~String() {
    Block::Release(block_);
}

std::string_view String::View() const {
    return block_ != nullptr ? std::string_view(block_->Text(), block_->size)
                             : std::string_view("");
}

uint32_t String::GetCharAt(size_t position) const {
    const std::string_view text = View();
    const char* cursor = text.data() + UTF8Util::GetByteIndex(text, position);
    return UTF8Util::DecodeNextChar(cursor, text.data() + text.size());
}

void String::Append(std::string_view utf8) {
    const size_t size = GetSize();
    if (utf8.size() <= kMaxSize - size && HasOwnRoomFor(size + utf8.size())) {
        utf8.copy(block_->Text() + size, utf8.size());
        block_->SetSize(size + utf8.size());
    } else {
        Replace(size, 0, utf8);
    }
}

void String::AppendChar(uint32_t ch) {
    char encoded[UTF8Util::kMaxEncodedSize];
    Append({encoded, UTF8Util::EncodeChar(encoded, ch)});
}

void String::Insert(size_t position, std::string_view utf8) {
    Replace(UTF8Util::GetByteIndex(View(), position), 0, utf8);
}

void String::Remove(size_t position, size_t length) {
    const size_t offset = UTF8Util::GetByteIndex(View(), position);
    Replace(offset, UTF8Util::GetByteIndex(View().substr(offset), length), {});
}

String String::Substring(size_t position, size_t length) const {
    const std::string_view rest = View().substr(UTF8Util::GetByteIndex(View(), position));
    const size_t size = UTF8Util::GetByteIndex(rest, length);
    return size == GetSize() ? *this : String(rest.substr(0, size));
}

int String::CompareNoCase(std::string_view other) const {
    const std::string_view text = View();
    if (std::lexicographical_compare(text.begin(), text.end(), other.begin(), other.end(),
                                     LessNoCase)) {
        return -1;
    }
    return std::lexicographical_compare(other.begin(), other.end(), text.begin(), text.end(),
                                        LessNoCase)
               ? 1
               : 0;
}

size_t String::Find(std::string_view utf8, size_t from) const {
    const std::string_view text = View();
    const char* const end = text.data() + text.size();
    const char* cursor = text.data();
    for (size_t position = 0; static_cast<size_t>(end - cursor) >= utf8.size(); ++position) {
        if (position >= from && std::string_view(cursor, utf8.size()) == utf8) {
            return position;
        }
        if (cursor == end) {
            break;
        }
        UTF8Util::DecodeNextChar(cursor, end);
    }
    return kNotFound;
}

uint32_t String::GetHash() const {
    constexpr uint32_t kFnvOffset = 2166136261U;
    constexpr uint32_t kFnvPrime = 16777619U;
    uint32_t hash = kFnvOffset;
    for (const char c : View()) {
        hash = (hash ^ static_cast<unsigned char>(c)) * kFnvPrime;
    }
    return hash;
}

bool String::HasOwnRoomFor(size_t size) const {
    return block_ != nullptr && size <= block_->capacity &&
           block_->users.load(std::memory_order_acquire) == 1;
}

/// Replaces \p removed bytes at \p offset by \p inserted: all edits end here.
void String::Replace(size_t offset, size_t removed, std::string_view inserted) {
    const std::string_view text = View();
    const std::string_view tail = text.substr(offset + removed);
    if (inserted.size() > kMaxSize - text.size()) {
        throw std::bad_alloc();
    }
    const size_t size = offset + inserted.size() + tail.size();
    if (size == 0) {
        Clear();
    } else if (HasOwnRoomFor(size) && !Overlap(text, inserted)) {
        std::memmove(block_->Text() + offset + inserted.size(), tail.data(), tail.size());
        inserted.copy(block_->Text() + offset, inserted.size());
        block_->SetSize(size);
    } else {
        // Texts that grow get twice the room, so many appends copy the text only a few times.
        Block* block = Block::Create(std::max(size, size > text.size() ? text.size() * 2 : 0));
        text.copy(block->Text(), offset);
        inserted.copy(block->Text() + offset, inserted.size());
        tail.copy(block->Text() + offset + inserted.size(), tail.size());
        block->SetSize(size);
        Block::Release(std::exchange(block_, block));
    }
}

}  // namespace OVR
