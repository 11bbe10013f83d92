#include "kernel/String.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <thread>

#include "CountingAllocator.h"
#include "kernel/StringBuffer.h"

namespace {

using OVR::String;
using OVR::StringBuffer;

TEST(String, CopiesShareUntilOneIsEdited) {
    CountingAllocator allocator;
    String text("gr\xC3\xBC\xC3\x9F");
    const String copy = text;
    EXPECT_EQ(allocator.made, 1);
    EXPECT_EQ(copy.ToCStr(), text.ToCStr());
    text.Append("z");
    EXPECT_EQ(allocator.made, 2);
    EXPECT_STREQ(text.ToCStr(), "gr\xC3\xBC\xC3\x9Fz");
    text = copy;
    text.Remove(0);
    EXPECT_STREQ(copy.ToCStr(), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(String(std::move(text)), "r\xC3\xBC\xC3\x9F");
}

TEST(String, PositionsCountCharacters) {
    String text(L"a\u00E9\u20AC\U0001F600z");
    EXPECT_EQ(text.GetSize(), 11U);
    EXPECT_EQ(text.GetLength(), 5U);
    EXPECT_EQ(text.GetCharAt(3), 0x1F600U);
    EXPECT_EQ(text.GetCharAt(5), 0U);
    EXPECT_EQ(text.Substring(1, 2), "\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(text.Find("\xE2\x82\xAC"), 2U);
    EXPECT_EQ(text.Find("\xA9"), String::kNotFound);
    EXPECT_EQ(text.Find("z", 5), String::kNotFound);
    EXPECT_EQ(text.Find(""), 0U);
    EXPECT_EQ(text.Find("", 5), 5U);
    EXPECT_EQ(text.Find("", 6), String::kNotFound);
    EXPECT_EQ(std::u32string(text.begin(), text.end()), U"a\u00E9\u20AC\U0001F600z");
    EXPECT_EQ(*++std::find(text.begin(), text.end(), 0x20ACU), 0x1F600U);
    auto position = text.begin();
    EXPECT_EQ(*position++, U'a');
    EXPECT_EQ(*position, 0xE9U);

    text.Insert(2, "-");
    EXPECT_EQ(text, "a\xC3\xA9-\xE2\x82\xAC\xF0\x9F\x98\x80z");
    text.Remove(1, 4);
    text.Insert(99, "\xC3\xA9");
    text.AppendChar(0x10FFFF);
    EXPECT_EQ(text, "az\xC3\xA9\xF4\x8F\xBF\xBF");
    text.Remove(7);
    text.Remove(1, String::kNotFound);
    EXPECT_EQ(text, "a");
}

TEST(String, ComparesByCodePoint) {
    EXPECT_LT(String("Zebra").Compare("apple"), 0);
    EXPECT_GT(String("Zebra").CompareNoCase("apple"), 0);
    EXPECT_NE(String("\xC3\x89").CompareNoCase("\xC3\xA9"), 0);  // ASCII only.
    EXPECT_LT(String("abc").CompareNoCase("ABCD"), 0);
    EXPECT_LT(String("\xEF\xBF\xBD"), String("\xF0\x90\x80\x80"));
    EXPECT_NE(String("a", 1), std::string_view("a\0", 2));
}

/// All comparisons of \p less with a greater text, in both orders.
template <typename A, typename B>
void ExpectOrder(const A& less, const B& greater) {
    EXPECT_TRUE(less < greater && less <= greater && less != greater);
    EXPECT_TRUE(greater > less && greater >= less && greater != less);
    EXPECT_FALSE(less == greater || less > greater || less >= greater);
    EXPECT_FALSE(greater == less || greater < less || greater <= less);
}

TEST(String, ComparesWithTextsFromBothSides) {
    const String b("b");
    EXPECT_TRUE(b == String("b") && b <= "b" && "b" >= b);
    ExpectOrder(String("a"), b);
    ExpectOrder("a", b);
    ExpectOrder(b, "c");
    ExpectOrder(b, std::string("c"));
    ExpectOrder(std::string_view("a"), b);
    EXPECT_EQ(String("same").GetHash(), String(L"same").GetHash());
    EXPECT_EQ(String(L"x"), "x");
}

TEST(String, TakesPartsOfItself) {
    String text("abc");
    text.Append(text);
    text.Insert(1, text);
    EXPECT_EQ(text, "aabcabcbcabc");
    text.Append(text.View().substr(10));
    text = text.Substring(10, 4);
    EXPECT_EQ(text, "bcbc");

    StringBuffer buffer;
    for (int i = 0; i < 8; ++i) {
        buffer.Append("ab");
        buffer.Append(buffer.View());
    }
    std::string expected;
    for (int i = 0; i < 510; ++i) {
        expected += "ab";
    }
    EXPECT_EQ(buffer.View(), expected);
}

TEST(String, ManyAppendsAllocateFewTimes) {
    CountingAllocator allocator;
    String text;
    StringBuffer buffer;
    for (int i = 0; i < 100000; ++i) {
        text.Append("x");
        buffer.AppendChar('x');
    }
    EXPECT_LT(allocator.made, 60);
    EXPECT_EQ(text, buffer.View());
}

TEST(String, IsUntouchedWhereMemoryRunsOut) {
    CountingAllocator allocator(3);
    String text("text");
    const String copy = text;
    EXPECT_NO_THROW(text.Append(" and more"));
    EXPECT_THROW(text.Append(std::string(100, 'x')), std::bad_alloc);
    EXPECT_EQ(text, "text and more");
    StringBuffer buffer;
    EXPECT_THROW(buffer.AppendFormat("%d", 1), std::bad_alloc);
    EXPECT_STREQ(buffer.ToCStr(), "");
}

TEST(String, SharedTextsAreUsedByManyThreads) {
    const String shared("shared");
    std::array<std::thread, 4> threads;
    for (std::thread& thread : threads) {
        thread = std::thread([copy = shared] {
            for (int i = 0; i < 2000; ++i) {
                String own = copy;
                const String other = own;
                own.Append("!");
                ASSERT_EQ(other.GetSize() + 1, own.GetSize());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(shared, "shared");
}

TEST(String, BufferBuildsTextFromPieces) {
    StringBuffer buffer;
    EXPECT_STREQ(buffer.ToCStr(), "");
    buffer.AppendChar(0x20AC);
    buffer.AppendFormat("=%d/%s", 42, "six");
    EXPECT_STREQ(buffer.ToCStr(), "\xE2\x82\xAC=42/six");
    EXPECT_FALSE(buffer.IsEmpty());
    const String text = buffer.ToString();
    buffer.Clear();
    EXPECT_TRUE(buffer.IsEmpty());
    EXPECT_STREQ(buffer.ToCStr(), "");
    EXPECT_EQ(text.GetLength(), 8U);
}

TEST(String, BufferFormatsFillTheRoomToTheByte) {
    for (size_t size = 1; size < 64; ++size) {
        StringBuffer buffer;
        buffer.Append("12345");
        const std::string piece(size, 'p');
        buffer.AppendFormat("%s", piece.c_str());
        ASSERT_EQ(buffer.View(), "12345" + piece);
        ASSERT_EQ(buffer.ToCStr()[buffer.GetSize()], '\0');
    }
}

}  // namespace
