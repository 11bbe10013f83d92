// Drives the text utilities by the input's bytes: a string, its shared copies and a buffer are
// edited and compared with a slow model after each step. The model's bytes come from std::string,
// its characters from a reader of its own.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "ReferenceText.h"
#include "kernel/Allocator.h"
#include "kernel/String.h"
#include "kernel/StringBuffer.h"
#include "kernel/UTF8Util.h"

namespace {

using OVR::String;
using OVR::StringBuffer;
namespace Utf8 = OVR::UTF8Util;

constexpr size_t kMaxTextSize = 512;
constexpr size_t kMaxPieceSize = 24;

[[noreturn]] void Fail(int line, const char* condition) {
    std::cerr << line << ": not " << condition << '\n';
    std::abort();
}

#define CHECK(condition)                \
    do {                                \
        if (!(condition)) {             \
            Fail(__LINE__, #condition); \
        }                               \
    } while (false)

void CheckDecoding(const std::string& utf8) {
    const std::vector<ReferenceChar> expected = ReadUtf8(utf8);
    const std::vector<char> exact(utf8.begin(), utf8.end());
    const char* cursor = exact.data();
    const char* const end = cursor + exact.size();
    for (const ReferenceChar& ch : expected) {
        const char* const before = cursor;
        CHECK(Utf8::DecodeNextChar(cursor, end) == ch.value);
        CHECK(cursor == before + ch.bytes.size());
    }
    CHECK(cursor == end);
}

/// To wide characters and back gives the same text, with the broken parts replaced.
void CheckConversion(const std::string& utf8, size_t room) {
    std::vector<wchar_t> wide(room);
    const size_t length = Utf8::DecodeString(wide.data(), room, utf8);
    CHECK(length == ReadUtf8(utf8).size());
    if (room == 0) {
        return;
    }
    const std::wstring_view written(wide.data(), std::min(length, room - 1));
    CHECK(wide[written.size()] == L'\0');
    std::vector<char> back(room);
    const size_t size = Utf8::EncodeString(back.data(), room, written);
    CHECK(size == Utf8::GetEncodedSize(written));
    CHECK(std::find(back.begin(), back.end(), '\0') != back.end());
    CHECK(String(written).GetSize() == size);
}

/// A string and what it should hold.
struct Pair {
    String text;
    std::string model;

    void Check() const {
        CHECK(text.View() == model);
        CHECK(text.ToCStr()[text.GetSize()] == '\0');
        const std::vector<ReferenceChar> chars = ReadUtf8(model);
        CHECK(text.GetLength() == chars.size());
        CHECK(std::equal(text.begin(), text.end(), chars.begin(), chars.end(),
                         [](uint32_t a, const ReferenceChar& b) { return a == b.value; }));
        CheckDecoding(model);
    }
};

/// Byte offset of the character number \p position.
size_t OffsetOf(const std::string& model, size_t position) {
    std::vector<ReferenceChar> chars = ReadUtf8(model);
    chars.resize(std::min(position, chars.size()));
    return Join(chars).size();
}

void CheckSearch(const Pair& pair, const std::string& piece, size_t from) {
    const std::vector<ReferenceChar> chars = ReadUtf8(pair.model);
    size_t expected = String::kNotFound;
    size_t offset = 0;
    for (size_t i = 0; i <= chars.size() && expected == String::kNotFound; ++i) {
        if (i >= from && pair.model.compare(offset, piece.size(), piece) == 0) {
            expected = i;
        }
        offset += i < chars.size() ? chars[i].bytes.size() : 0;
    }
    CHECK(pair.text.Find(piece, from) == expected);
}

void Insert(Pair& pair, size_t position, const std::string& piece) {
    pair.text.Insert(position, piece);
    pair.model.insert(OffsetOf(pair.model, position), piece);
}

void Remove(Pair& pair, size_t position, size_t length) {
    pair.text.Remove(position, length);
    const size_t begin = OffsetOf(pair.model, position);
    pair.model.erase(begin, OffsetOf(pair.model, position + length) - begin);
}

void Keep(Pair& pair, size_t position, size_t length) {
    pair.text = pair.text.Substring(position, length);
    const size_t begin = OffsetOf(pair.model, position);
    pair.model = pair.model.substr(begin, OffsetOf(pair.model, position + length) - begin);
}

void AppendOwnPart(Pair& pair, size_t position) {
    const size_t offset = OffsetOf(pair.model, position);
    pair.text.Append(pair.text.View().substr(offset));
    pair.model += pair.model.substr(offset);
}

void AppendChar(Pair& pair, uint32_t ch) {
    pair.text.AppendChar(ch);
    char encoded[Utf8::kMaxEncodedSize];
    pair.model.append(encoded, Utf8::EncodeChar(encoded, ch));
}

void CheckBuffer(StringBuffer& buffer, std::string& model, const std::string& piece) {
    buffer.Append(piece);
    buffer.AppendFormat("%s%zu", piece.c_str(), piece.size());
    model += piece + piece.substr(0, piece.find('\0')) + std::to_string(piece.size());
    if (model.size() > kMaxTextSize) {
        buffer.Clear();
        model.clear();
    }
    CHECK(buffer.View() == model);
    CHECK(buffer.ToString().View() == model);
}

void EditOnce(Pair& pair, FuzzedDataProvider& input) {
    const auto position = input.ConsumeIntegralInRange<size_t>(0, 40);
    const auto length = input.ConsumeIntegralInRange<size_t>(0, 40);
    const std::string piece = input.ConsumeRandomLengthString(kMaxPieceSize);
    switch (input.ConsumeIntegralInRange<int>(0, 6)) {
        case 0: Insert(pair, position, piece); break;
        case 1: Remove(pair, position, length); break;
        case 2: Keep(pair, position, length); break;
        case 3: AppendOwnPart(pair, position); break;
        case 4: AppendChar(pair, input.ConsumeIntegral<uint32_t>()); break;
        case 5: CheckSearch(pair, piece, position); break;
        default: CheckConversion(pair.model, length); break;
    }
    if (pair.model.size() > kMaxTextSize) {
        pair = Pair();
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    OVR::Allocator::pInstance = OVR::DefaultAllocator::InitSystemSingleton();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    Pair pairs[3];
    StringBuffer buffer;
    std::string bufferModel;
    while (input.remaining_bytes() > 0) {
        Pair& pair = pairs[input.ConsumeIntegralInRange<size_t>(0, 2)];
        EditOnce(pair, input);
        CheckBuffer(buffer, bufferModel, pair.model.substr(0, kMaxPieceSize));
        if (input.ConsumeBool()) {
            pairs[input.ConsumeIntegralInRange<size_t>(0, 2)] = pair;
        }
        for (const Pair& each : pairs) {
            each.Check();
        }
        CHECK((pairs[0].text == pairs[1].text) == (pairs[0].model == pairs[1].model));
        CHECK((pairs[0].text < pairs[1].text) == (pairs[0].model < pairs[1].model));
    }
    return 0;
}
