// The window shows, and saves, what the player writes without a window.

#include "PlayerWindow.h"
#include "support/Backdrop.h"

namespace {

constexpr Size kSize = {640, 480};
/// Above the line of text at the bottom.
constexpr int kClearRows = 440;

/// A mask whose alpha rises from left to right, with a hole.
Image SlopingMask() {
    Image mask({64, 48});
    for (int y = 0; y < mask.size.height; ++y) {
        for (int x = 0; x < mask.size.width; ++x) {
            const bool hole = x > 20 && x < 40 && y > 10 && y < 30;
            const Rgba pixel = {255, 255, 255, static_cast<uint8_t>(hole ? 0 : 4 * x + 3)};
            std::copy(pixel.begin(), pixel.end(), mask.At(x, y));
        }
    }
    return mask;
}

Image OnCheckerboard(const Image& image) {
    Image flat = image;
    Backdrop().Flatten(flat);
    return flat;
}

Image TopOf(const Image& image, int rows) {
    Image top({image.size.width, rows});
    std::copy_n(image.pixels.begin(), top.pixels.size(), top.pixels.begin());
    return top;
}

class ShowingTest : public PlayerWindow {
protected:
    void SetUp() override {
        PlayerWindow::SetUp();
        WriteImage("in.png", Opaque(Noise(kSize, 1)));
        WriteImage("mask.png", SlopingMask());
    }

    Image Drawn(const std::string& options) const {
        PlayWell("in.png --out drawn.png " + options);
        return Read("drawn.png");
    }
};

}  // namespace

TEST_F(ShowingTest, TheWindowLaysThePictureOverACheckerboard) {
    Open("in.png --mask mask.png");
    const Image saved = Save().image;
    EXPECT_EQ(CountDifferent(saved, Drawn("--mask mask.png"), 0), 0);
    const Image expected = TopOf(OnCheckerboard(saved), kClearRows);
    EXPECT_TRUE(Sees([&expected](const Image& seen) {
        return seen.size.height == kSize.height &&
               CountDifferent(TopOf(seen, kClearRows), expected, 1) == 0;
    }));
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_F(ShowingTest, KeysMirrorAndSwitchTheMask) {
    Open("in.png --mask mask.png");
    Key("x");
    EXPECT_EQ(CountDifferent(Save().image, Drawn("--mask mask.png --mirror"), 0), 0);
    Key("x");
    Key("k");
    EXPECT_TRUE(SeesText("Mask: off"));
    EXPECT_EQ(CountDifferent(Save().image, Drawn(""), 0), 0);
    Key("k");
    EXPECT_EQ(CountDifferent(Save().image, Drawn("--mask mask.png"), 0), 0);
}

TEST_F(ShowingTest, TheViewFollowsDragAndWheel) {
    const std::string options = "--view 0,0,2,0 --clear 1,2,3,4";
    Open("in.png " + options);
    Drag(300, 200, 420, 260);
    MoveTo(320, 240);
    for (int i = 0; i < 4; ++i) {
        Wheel(false);
    }
    // The picture is 1.15 times as large as the frame; each step is 1.1 times as far.
    const Image drawn = Drawn("--clear 1,2,3,4 --view=-0.326739,-0.218245,0.1436,0");
    EXPECT_LT(CountDifferent(Save().image, drawn, 0), kSize.width * 10);
}

TEST_F(ShowingTest, FiguresAndKeysComeAndGo) {
    Open("in.png");
    Key("i");
    EXPECT_TRUE(SeesText("640 × 480, from pixels"));
    Key("i");
    EXPECT_TRUE(Sees([](const Image& seen) { return !ShowsText(seen, "from pixels"); }));
    Key("h");
    EXPECT_TRUE(SeesText("save the frame as PNG"));
}

TEST_F(ShowingTest, TextsAndTheSmallestWindowGrowAsTheDesktopWants) {
    static constexpr Size kSmallest = {320, 240};
    SetDotsPerInch(192);
    WriteImage("dark.png", Solid({64, 48}, {10, 20, 30, 255}));
    Open("dark.png");
    Key("l");
    EXPECT_TRUE(Sees([](const Image& seen) {
        return seen.size.width == 2 * kSmallest.width && seen.size.height == 2 * kSmallest.height &&
               ShowsText(seen, "Loop: on", {24});
    }));
    EXPECT_EQ(Quit(), 0) << Log();
}
