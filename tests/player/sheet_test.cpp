// The two smaller tools.

#include "PlayerFixture.h"

using SheetTest = PlayerTest;

TEST_F(SheetTest, ContactSheetLaysPicturesOutInRows) {
    const Rgba red = {255, 0, 0, 255};
    const Rgba blue = {0, 0, 255, 255};
    WriteImage("red.png", Solid({40, 20}, red));
    WriteImage("blue.png", Solid({40, 40}, blue));
    const RunResult result = Run(
        CONTACTSHEET, "--out sheet.png --columns 2 --width 80 One=red.png Two=blue.png 3=red.png");
    ASSERT_EQ(result.status, 0) << result.errors;
    const Image sheet = Read("sheet.png");
    EXPECT_EQ(sheet.size.width, 12 + 2 * (80 + 12));
    EXPECT_EQ(sheet.Pixel(12 + 40, 12 + 20), red);
    EXPECT_EQ(sheet.Pixel(12 + 80 + 12 + 40, 12 + 40), blue);
    EXPECT_EQ(sheet.Pixel(12 + 40, 12 + 80 + 14 + 24 + 20), red);
    EXPECT_EQ(Run(CONTACTSHEET, "--out sheet.png red.png").status, 2);
}

TEST_F(SheetTest, MotionMaskMarksWhatMoves) {
    constexpr Size kSize = {320, 240};
    const Image still = Opaque(Noise(kSize, 1));
    for (int i = 0; i < 8; ++i) {
        Image frame = still;
        for (int y = 100; y < 140; ++y) {
            std::fill_n(frame.At(i * 40, y), 4 * 40, i % 2 == 0 ? 255 : 0);
        }
        WriteImage("in/" + std::to_string(i) + ".png", frame);
    }
    const RunResult result =
        Run(MOTIONMASK, "in/%d.png --start 0.08 --frames 3 --out mask/%02d.png");
    ASSERT_EQ(result.status, 0) << result.errors;
    const Image mask = Read("mask/02.png");  // Of frame 3.
    EXPECT_EQ(mask.Pixel(140, 120), (Rgba{255, 255, 255, 255}));
    EXPECT_EQ(mask.Pixel(60, 120), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(mask.Pixel(140, 60), (Rgba{0, 0, 0, 255}));
    EXPECT_FALSE(std::filesystem::exists(Path("mask/04.png")));
}
