#include "kernel/UTF8Util.h"

#include <cstring>

namespace OVR {
namespace UTF8Util {
namespace {

static_assert(sizeof(wchar_t) == sizeof(uint32_t), "a wide character is one code point");

constexpr uint8_t kContinuationLow = 0x80;
constexpr uint8_t kContinuationHigh = 0xBF;

/// The sequence that follows from its first byte.
struct Sequence {
    uint8_t continuations;  ///< Bytes that follow; 0 if the first byte is invalid.
    uint8_t payload;        ///< Bits of the first byte that belong to the character.
    /// Range of the second byte. It excludes overlong forms, surrogates and values out of range.
    uint8_t low = kContinuationLow;
    uint8_t high = kContinuationHigh;
};

Sequence SequenceOf(uint8_t lead) {
    if (lead < 0xC2 || lead > 0xF4) {
        return {0, 0};
    }
    switch (lead) {
        case 0xE0: return {2, 0x0F, 0xA0, kContinuationHigh};
        case 0xED: return {2, 0x0F, kContinuationLow, 0x9F};
        case 0xF0: return {3, 0x07, 0x90, kContinuationHigh};
        case 0xF4: return {3, 0x07, kContinuationLow, 0x8F};
        default: break;
    }
    if (lead < 0xE0) {
        return {1, 0x1F};
    }
    return lead < 0xF0 ? Sequence{2, 0x0F} : Sequence{3, 0x07};
}

uint32_t DecodeMultibyte(const char*& cursor, const char* end) {
    const auto lead = static_cast<uint8_t>(*cursor++);
    Sequence sequence = SequenceOf(lead);
    if (sequence.continuations == 0) {
        return kReplacementChar;
    }
    uint32_t ch = lead & sequence.payload;
    for (; sequence.continuations > 0; --sequence.continuations) {
        const auto byte = cursor != end ? static_cast<uint8_t>(*cursor) : uint8_t{0};
        if (byte < sequence.low || byte > sequence.high) {
            return kReplacementChar;
        }
        ++cursor;
        ch = ch << 6 | (byte & 0x3FU);
        sequence.low = kContinuationLow;
        sequence.high = kContinuationHigh;
    }
    return ch;
}

/// \param cursor not \p end.
uint32_t Next(const char*& cursor, const char* end) {
    const auto lead = static_cast<uint8_t>(*cursor);
    if (lead < 0x80) {
        ++cursor;
        return lead;
    }
    return DecodeMultibyte(cursor, end);
}

/// Size of the ASCII characters in front of \p utf8, in whole words.
size_t AsciiSize(std::string_view utf8) {
    constexpr uint64_t kHighBits = 0x8080808080808080;
    size_t size = 0;
    for (uint64_t word = 0; size + sizeof(word) <= utf8.size(); size += sizeof(word)) {
        std::memcpy(&word, utf8.data() + size, sizeof(word));
        if ((word & kHighBits) != 0) {
            break;
        }
    }
    return size;
}

bool IsChar(uint32_t ch) {
    return ch <= 0x10FFFF && (ch < 0xD800 || ch > 0xDFFF);
}

uint32_t CharOf(wchar_t wide) {
    return static_cast<uint32_t>(wide);
}

}  // namespace

size_t GetLength(std::string_view utf8) {
    size_t length = AsciiSize(utf8);
    const char* cursor = utf8.data() + length;
    const char* const end = utf8.data() + utf8.size();
    for (; cursor != end; ++length) {
        Next(cursor, end);
    }
    return length;
}

size_t GetByteIndex(std::string_view utf8, size_t index) {
    const size_t ascii = AsciiSize(utf8.substr(0, index));
    const char* cursor = utf8.data() + ascii;
    const char* const end = utf8.data() + utf8.size();
    for (index -= ascii; index > 0 && cursor != end; --index) {
        Next(cursor, end);
    }
    return static_cast<size_t>(cursor - utf8.data());
}

size_t GetEncodedSize(uint32_t ch) {
    if (ch < 0x80) {
        return 1;
    }
    if (ch < 0x800) {
        return 2;
    }
    return ch < 0x10000 || !IsChar(ch) ? 3 : 4;
}

size_t GetEncodedSize(std::wstring_view wide) {
    size_t size = 0;
    for (const wchar_t ch : wide) {
        size += GetEncodedSize(CharOf(ch));
    }
    return size;
}

size_t EncodeChar(char* dest, uint32_t ch) {
    static constexpr uint8_t kLeads[] = {0x00, 0x00, 0xC0, 0xE0, 0xF0};
    if (!IsChar(ch)) {
        ch = kReplacementChar;
    }
    const size_t size = GetEncodedSize(ch);
    for (size_t i = size - 1; i > 0; --i, ch >>= 6) {
        dest[i] = static_cast<char>(kContinuationLow | (ch & 0x3FU));
    }
    dest[0] = static_cast<char>(kLeads[size] | ch);
    return size;
}

uint32_t DecodeNextChar(const char*& cursor, const char* end) {
    return cursor != end ? Next(cursor, end) : 0;
}

size_t EncodeString(char* dest, size_t destSize, std::wstring_view wide) {
    size_t size = 0;
    size_t terminator = 0;
    for (const wchar_t ch : wide) {
        const size_t next = size + GetEncodedSize(CharOf(ch));
        if (next < destSize) {
            EncodeChar(dest + size, CharOf(ch));
            terminator = next;
        }
        size = next;
    }
    if (destSize > 0) {
        dest[terminator] = '\0';
    }
    return size;
}

size_t DecodeString(wchar_t* dest, size_t destSize, std::string_view utf8) {
    const char* cursor = utf8.data();
    const char* const end = cursor + utf8.size();
    size_t length = 0;
    for (; cursor != end; ++length) {
        const uint32_t ch = DecodeNextChar(cursor, end);
        if (length + 1 < destSize) {
            dest[length] = static_cast<wchar_t>(ch);
        }
    }
    if (destSize > 0) {
        dest[length < destSize ? length : destSize - 1] = L'\0';
    }
    return length;
}

}  // namespace UTF8Util
}  // namespace OVR
