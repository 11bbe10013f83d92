#include "PlayerFixture.h"
#include "support/PngFile.h"

using MaskTest = PlayerTest;

namespace {

constexpr Size kMaskSize = {4, 1};
constexpr Size kClipSize = {8, 4};

Image MaskOf(const std::array<Rgba, 4>& pixels) {
    Image mask(kMaskSize);
    int x = 0;
    for (const Rgba& pixel : pixels) {
        std::copy(pixel.begin(), pixel.end(), mask.At(x++, 0));
    }
    return mask;
}

Rgba WithAlpha(Rgba color, uint8_t alpha) {
    color[3] = alpha;
    return color;
}

}  // namespace

TEST_F(MaskTest, MaskKeysByItsAlphaAndItsLastFrameIsHeld) {
    constexpr Rgba kTransparentWhite = {255, 255, 255, 0};
    constexpr Rgba kOpaqueBlack = {0, 0, 0, 255};
    constexpr Rgba kFaintBlack = {0, 0, 0, 90};
    constexpr Rgba kHalfBlue = {0, 0, 99, 128};
    WriteClip("in", 3, kClipSize);
    WriteImage("mask/1.png", MaskOf({kTransparentWhite, kOpaqueBlack, kFaintBlack, kHalfBlue}));
    WriteImage("mask/2.png", MaskOf({kHalfBlue, kTransparentWhite, kOpaqueBlack, kOpaqueBlack}));
    const std::string play = "in/%04d.png --fit --mask mask/%d.png --out out/%d.png";
    PlayWell(play);
    const std::array<int, 4> firstAlpha = {-1, 255, 90, 128};
    const std::array<int, 4> lastAlpha = {128, -1, 255, 255};
    for (int frame = 1; frame <= 3; ++frame) {
        const Image out = Read("out/" + std::to_string(frame) + ".png");
        for (int i = 0; i < 4; ++i) {
            const int alpha = (frame == 1 ? firstAlpha : lastAlpha).at(static_cast<size_t>(i));
            const Rgba shown = WithAlpha(FrameColor(frame), static_cast<uint8_t>(alpha));
            EXPECT_EQ(out.Pixel(2 * i + 1, 2), alpha < 0 ? kKeyedOut : shown) << frame << ", " << i;
        }
    }

    PlayWell(play + " --mask-format rgb");
    const Image opaque = Read("out/1.png");
    EXPECT_EQ(opaque.Pixel(1, 2), kKeyedOut);
    EXPECT_EQ(opaque.Pixel(7, 2), FrameColor(1));
}

TEST_F(MaskTest, MaskWithoutAlphaKeysByItsBrightness) {
    WriteClip("in", 1, kClipSize);
    const std::array<uint8_t, 4> gray = {0, 1, 128, 255};
    WriteGrayPng(Path("mask.png"), kMaskSize, gray.data());
    PlayWell("in/%04d.png --fit --mask mask.png --out out.png");
    const Image out = Read("out.png");
    EXPECT_EQ(out.Pixel(1, 2), kKeyedOut);
    for (int i = 1; i < 4; ++i) {
        EXPECT_EQ(out.Pixel(2 * i, 2), WithAlpha(FrameColor(1), gray.at(static_cast<size_t>(i))));
    }
}

TEST_F(MaskTest, MaskFromAVideoIsBlackWhereTheVideoIs) {
    Image half = Solid({64, 64}, {0, 0, 0, 255});
    for (int y = 0; y < 64; ++y) {
        std::fill_n(half.At(32, y), 32 * Image::kChannels, uint8_t{255});
    }
    WriteImage("half.png", half);
    PlayWell("half.png --fit --out mask.mp4");
    WriteClip("in", 2, {64, 64});
    PlayWell("in/%04d.png --fit --mask mask.mp4 --out out/%d.png");
    const Image out = Read("out/2.png");
    EXPECT_EQ(out.Pixel(8, 32), kKeyedOut);
    EXPECT_EQ(out.Pixel(56, 32), FrameColor(2));
}

TEST_F(MaskTest, MaskIsScaledToItsSizeAndNotMirrored) {
    constexpr Rgba kWhite = {255, 255, 255, 255};
    WriteClip("in", 1, kClipSize);
    WriteImage("mask.png", MaskOf({Rgba{}, Rgba{}, kWhite, kWhite}));
    PlayWell("in/%04d.png --fit --mirror --mask mask.png --mask-size 32x16 --out out.png");
    EXPECT_EQ(Read("out.png").Pixel(1, 2), kKeyedOut);
    EXPECT_EQ(Read("out.png").Pixel(6, 2), FrameColor(1));
}
