// The window's font: several scripts, boxes for what no font has, and lines that fit.

#include <gtest/gtest.h>

#include <algorithm>

#include "window/hud/Font.h"
#include "window/hud/TimeLine.h"

namespace {

std::vector<uint8_t> Letters(Font& font, const std::string& text) {
    Image image({font.Width(text), font.LineHeight()});
    font.Write(image, 0, 0, text, {255, 255, 255});
    return image.pixels;
}

}  // namespace

TEST(TextTest, WritesSeveralScriptsAndBoxesForTheRest) {
    Font font(15);
    const std::vector<uint8_t> box = Letters(font, "\U0010FFFD");
    EXPECT_TRUE(std::any_of(box.begin(), box.end(), [](uint8_t value) { return value != 0; }));
    for (const std::string letter : {"A", "ß", "Ω", "Ж", "é", "←"}) {
        EXPECT_NE(Letters(font, letter), box) << letter;
        EXPECT_EQ(Letters(font, letter), Letters(font, letter));
    }
    EXPECT_GT(font.Width("Ελλάδα"), 4 * font.Width("Ε"));
    EXPECT_EQ(Letters(font, "a\xFF"), Letters(font, "a")) << "what is not UTF-8 is left out";
}

TEST(TextTest, LongLinesEndInAnEllipsis) {
    Font font(12);
    const std::string text = "Saved Αρχείο файл a long name.png";
    EXPECT_EQ(font.Shortened(text, font.Width(text)), text);
    for (int width = font.Width("…"); width < font.Width(text); width += 7) {
        const std::string shortened = font.Shortened(text, width);
        EXPECT_LE(font.Width(shortened), width);
        EXPECT_EQ(shortened.substr(shortened.size() - 3), "…");
    }
    EXPECT_EQ(font.Shortened(text, -5), "…");
}

TEST(TextTest, TimesAreWrittenAsOnClocks) {
    EXPECT_EQ(TimeText(0.0), "0:00");
    EXPECT_EQ(TimeText(59.999), "0:59");
    EXPECT_EQ(TimeText(3723.0), "1:02:03");
    EXPECT_EQ(TimeText(59.9996, 3), "1:00.000");
    EXPECT_EQ(TimeText(12.48, 3), "0:12.480");
}
