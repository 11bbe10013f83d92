// Edits strings and their shared copies as the input says. After each step the characters
// are compared with those that ICU reads. The results of edits are checked by the tests of the
// kernel; here the sanitizers watch them.

#include <fuzzer/FuzzedDataProvider.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Check.h"
#include "kernel/String.h"
#include "kernel/UTF8Util.h"

namespace {

using OVR::String;
namespace Utf8 = OVR::UTF8Util;

constexpr size_t kMaxTextSize = 512;
constexpr size_t kMaxPieceSize = 24;

/// A broken or whole character of a text: what it reads as, and its bytes.
struct ReferenceChar {
    uint32_t value;
    std::string bytes;
};

std::vector<ReferenceChar> ReadUtf8(const std::string& utf8) {
    std::vector<ReferenceChar> text;
    const auto size = static_cast<int32_t>(utf8.size());
    for (int32_t end = 0; end < size;) {
        const int32_t start = end;
        UChar32 ch = 0;
        U8_NEXT_OR_FFFD(utf8.data(), end, size, ch);
        text.push_back({static_cast<uint32_t>(ch), utf8.substr(start, end - start)});
    }
    return text;
}

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

void CheckReading(const String& text) {
    const std::string bytes(text.View());
    const std::vector<ReferenceChar> chars = ReadUtf8(bytes);
    CHECK(text.ToCStr()[text.GetSize()] == '\0');
    CHECK(text.GetLength() == chars.size());
    CHECK(std::equal(text.begin(), text.end(), chars.begin(), chars.end(),
                     [](uint32_t a, const ReferenceChar& b) { return a == b.value; }));
    CheckDecoding(bytes);
}

void EditOnce(String& text, FuzzedDataProvider& input) {
    const auto position = input.ConsumeIntegralInRange<size_t>(0, 40);
    const auto length = input.ConsumeIntegralInRange<size_t>(0, 40);
    const std::string piece = input.ConsumeRandomLengthString(kMaxPieceSize);
    switch (input.ConsumeIntegralInRange<int>(0, 6)) {
        case 0: text.Insert(position, piece); break;
        case 1: text.Remove(position, length); break;
        case 2: text = text.Substring(position, length); break;
        case 3: text.Append(text.View().substr(std::min(position, text.GetSize()))); break;
        case 4: text.AppendChar(input.ConsumeIntegral<uint32_t>()); break;
        case 5: text.Find(piece, position); break;
        default: CheckConversion(std::string(text.View()), length); break;
    }
    if (text.GetSize() > kMaxTextSize) {
        text = String();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    String texts[3];
    while (input.remaining_bytes() > 0) {
        String& text = texts[input.ConsumeIntegralInRange<size_t>(0, 2)];
        const String shared = text;
        const std::string before(text.View());
        EditOnce(text, input);
        CHECK(shared.View() == before);
        CheckReading(text);
        if (input.ConsumeBool()) {
            texts[input.ConsumeIntegralInRange<size_t>(0, 2)] = text;
        }
    }
    return 0;
}
