// The mouse drops stickers and moves the view. camera_test.cpp has the numbers; this shows that
// they are used.

#include <cmath>

#include "PlayerWindow.h"

namespace {

constexpr Size kSize = {320, 240};
constexpr Rgba kBar = {24, 24, 24, 255};
constexpr Rgba kGray = {90, 90, 90, 255};
constexpr Rgba kMagenta = {255, 0, 255, 255};

struct Spot {
    double x = 0.0;
    double y = 0.0;
    int count = 0;
};

/// The middle of what is magenta.
Spot FindSticker(const Image& image) {
    Spot spot;
    for (int y = 0; y < image.size.height; ++y) {
        for (int x = 0; x < image.size.width; ++x) {
            if (image.Pixel(x, y) == kMagenta) {
                spot = {spot.x + x + 0.5, spot.y + y + 0.5, spot.count + 1};
            }
        }
    }
    return {spot.x / spot.count, spot.y / spot.count, spot.count};
}

class MouseTest : public PlayerWindow {
protected:
    void SetUp() override {
        PlayerWindow::SetUp();
        WriteImage("in.png", Solid(kSize, kGray));
        WriteImage("sticker.png", Solid({4, 4}, kMagenta));
    }

    /// Clicks, and expects a sticker around that place of the picture, and there only.
    void ExpectStickerAt(int windowX, int windowY, double x, double y) {
        Click(windowX, windowY);
        const Spot spot = FindSticker(Save().image);
        EXPECT_GT(spot.count, 0) << windowX << "," << windowY;
        EXPECT_NEAR(spot.x, x, 1.5) << windowX << "," << windowY;
        EXPECT_NEAR(spot.y, y, 1.5) << windowX << "," << windowY;
        Click(windowX, windowY, 3);
    }
};

}  // namespace

TEST_F(MouseTest, DropsStickersUnderThePointer) {
    Open("in.png --sticker sticker.png --view 0.2,0,4,0");
    Resize({600, 240});  // Bars of 140 on both sides.
    ExpectStickerAt(240, 100, 100, 100);
    Click(50, 20);
    EXPECT_EQ(FindSticker(Save().image).count, 0) << "on the bar";
    Drag(240, 100, 290, 130);
    ExpectStickerAt(340, 140, 200, 140);
    MoveTo(200, 60);
    for (int i = 0; i < 12; ++i) {
        Wheel(false);
    }
    ExpectStickerAt(300, 120, 160, 120);
    Key("x");
    ExpectStickerAt(310, 100, 170, 100);
}

TEST_F(MouseTest, DropsStickersUnderThePointerOnDenseWaylandScreens) {
    OpenOnWayland("in.png --sticker sticker.png", {800, 480}, 2);  // Bars of 80 on both sides.
    EXPECT_TRUE(Sees([](const Image& screen) {
        return screen.Pixel(79, 100) == kBar && screen.Pixel(80, 100) == kGray &&
               screen.Pixel(719, 477) == kGray && screen.Pixel(720, 477) == kBar;
    })) << "does not fill the screen";
    ExpectStickerAt(620, 421, 270, 210);
    Click(280, 120);
    MoveTo(20, 20);  // The pointer hides what it is on.
    EXPECT_TRUE(Sees([](const Image& screen) {
        const Spot shown = FindSticker(screen);
        return std::abs(shown.x - 280) < 2 && std::abs(shown.y - 120) < 2;
    })) << "is in the wrong place on the screen";
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_F(MouseTest, RightClicksTakeTheLastStickerAway) {
    Open("in.png --sticker sticker.png");
    Click(60, 100);
    const Spot first = FindSticker(Save().image);
    Click(260, 100);
    EXPECT_EQ(FindSticker(Save().image).count, 2 * first.count);
    Click(10, 10, 3);
    EXPECT_NEAR(FindSticker(Save().image).x, first.x, 0.01);
    Click(10, 10, 3);
    EXPECT_EQ(FindSticker(Save().image).count, 0);
    Click(10, 10, 3);
    EXPECT_TRUE(SeesText("No sticker left"));
}

TEST_F(MouseTest, HasADefaultSticker) {
    Open("in.png");
    const Image before = Save().image;
    Click(160, 120);
    EXPECT_GT(CountDifferent(Save().image, before, 8), 200);
}
