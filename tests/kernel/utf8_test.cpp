// UTF-8 against the cases that decoders are known to get wrong, and the bounded wide-character
// functions.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kernel/UTF8Util.h"
#include "kernel/WideChars.h"

namespace {

namespace Utf8 = OVR::UTF8Util;

/// Decodes from memory of exactly the text's size, where reading on is caught.
std::u32string Decode(const std::string& utf8) {
    const std::vector<char> exact(utf8.begin(), utf8.end());
    const char* cursor = exact.data();
    const char* const end = cursor + exact.size();
    std::u32string text;
    while (cursor != end) {
        const char* const before = cursor;
        text.push_back(Utf8::DecodeNextChar(cursor, end));
        if (cursor <= before || cursor > end) {
            ADD_FAILURE() << "the cursor went from " << before - exact.data() << " to "
                          << cursor - exact.data();
            break;
        }
    }
    EXPECT_EQ(Utf8::GetLength({exact.data(), exact.size()}), text.size());
    return text;
}

TEST(Utf8, EveryCharacterGoesThereAndBack) {
    for (uint32_t ch = 0; ch <= 0x110000; ++ch) {
        char encoded[Utf8::kMaxEncodedSize];
        const size_t size = Utf8::EncodeChar(encoded, ch);
        ASSERT_EQ(size, Utf8::GetEncodedSize(ch)) << ch;
        const char* cursor = encoded;
        const uint32_t decoded = Utf8::DecodeNextChar(cursor, encoded + size);
        ASSERT_EQ(cursor, encoded + size) << ch;
        const bool valid = ch <= 0x10FFFF && (ch < 0xD800 || ch > 0xDFFF);
        ASSERT_EQ(decoded, valid ? ch : Utf8::kReplacementChar) << ch;
    }
}

TEST(Utf8, MalformedSequencesAreReplacedUpToTheByteThatBreaksThem) {
    const struct {
        const char* utf8;
        const char32_t* text;
    } cases[] = {
        // Stray continuations and bytes that never occur.
        {"\x80", U"\uFFFD"},
        {"\xFE\xFF", U"\uFFFD\uFFFD"},
        {"\xF8\x88\x80\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        // Cut off at the end, and by what follows.
        {"\xF0\x9F\x98", U"\uFFFD"},
        {"\xE2\x82z", U"\uFFFDz"},
        {"\xF0\x9F\x98\xC3\xA9", U"\uFFFD\u00E9"},
        {"\xE2\xE2\x82\xAC", U"\uFFFD\u20AC"},
        // Overlong forms.
        {"\xC0\xAF", U"\uFFFD\uFFFD"},
        {"\xE0\x9F\xBF", U"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x8F\xBF\xBF", U"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xC0\x80", U"\uFFFD\uFFFD"},
        // A pair of surrogates.
        {"\xED\xA0\xBD\xED\xB8\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        // Beyond the last character.
        {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF5\x80\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decode(c.utf8), c.text) << ::testing::PrintToString(c.utf8);
    }
    EXPECT_EQ(Decode(std::string("a\0b", 3)), std::u32string(U"a\0b", 3));
    const char* cursor = "";
    EXPECT_EQ(Utf8::DecodeNextChar(cursor, cursor), 0U);
}

TEST(Utf8, WholeStringsAreCutBetweenCharacters) {
    constexpr wchar_t kWide[] = L"a\u00E9\u20AC\U0001F600";
    constexpr char kUtf8[] = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(Utf8::GetEncodedSize(kWide), 10U);
    const size_t written[] = {0, 0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10};
    for (size_t room = 0; room <= 11; ++room) {
        std::vector<char> utf8(room + 1, 'x');
        EXPECT_EQ(Utf8::EncodeString(utf8.data(), room, kWide), 10U);
        EXPECT_EQ(utf8[room], 'x');
        if (room > 0) {
            EXPECT_EQ(std::string(utf8.data()), std::string(kUtf8, written[room]));
        }
    }
    for (size_t room = 0; room <= 5; ++room) {
        std::vector<wchar_t> wide(room + 1, L'x');
        EXPECT_EQ(Utf8::DecodeString(wide.data(), room, kUtf8), 4U);
        EXPECT_EQ(wide[room], L'x');
        if (room > 0) {
            EXPECT_EQ(std::wstring(wide.data()), std::wstring(kWide, room - 1));
        }
    }
    const wchar_t bad[] = {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0xFFFFFFFF), 0};
    char utf8[8];
    EXPECT_EQ(Utf8::EncodeString(utf8, sizeof(utf8), bad), 6U);
    EXPECT_STREQ(utf8, "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, WideCopiesAreBoundedAndTerminated) {
    wchar_t text[4] = {L'x', L'x', L'x', L'x'};
    EXPECT_EQ(OVR::OVR_wcscpy(text, 0, L"a"), 1U);
    EXPECT_EQ(text[0], L'x');
    EXPECT_EQ(OVR::OVR_wcscpy(text, 4, L"abcdef"), 6U);
    EXPECT_STREQ(text, L"abc");
    const wchar_t unterminated[] = {L'p', L'q'};
    EXPECT_EQ(OVR::OVR_wcsncpy(text, 4, unterminated, 2), 2U);
    EXPECT_EQ(OVR::OVR_wcscat(text, 4, L"zw"), 4U);
    EXPECT_STREQ(text, L"pqz");
    text[3] = L'!';
    EXPECT_EQ(OVR::OVR_wcscat(text, 4, L"q"), 4U);  // No terminator in sight.
    EXPECT_STREQ(text, L"pqz");
    EXPECT_GT(OVR::OVR_wcscmp(L"\U0001F600", L"\uFFFD"), 0);
}

}  // namespace
