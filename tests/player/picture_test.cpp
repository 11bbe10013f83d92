// What is drawn: frames, mirroring, view and stickers.

#include "Clip.h"
#include "PlayerFixture.h"

using PictureTest = PlayerTest;

TEST_F(PictureTest, EveryFrameComesOutOnceAndInOrder) {
    WriteClip("in", 5, {7, 5});
    for (const std::string options : {"--rgba", "--rgb", "--rgba --fit", "--rgb --fit"}) {
        PlayWell("in/%04d.png " + options + " --out out/%d.png");
        const std::vector<Image> frames = ReadFrames(Path("out/%d.png"));
        ASSERT_EQ(frames.size(), 5U) << options;
        for (int i = 1; i <= 5; ++i) {
            EXPECT_EQ(frames.at(static_cast<size_t>(i) - 1).pixels,
                      Solid({7, 5}, FrameColor(i)).pixels)
                << options << ", frame " << i;
        }
    }
}

TEST_F(PictureTest, FitShowsEachPixelAsItIsAndMirrorSwapsLeftAndRight) {
    const Image picture = Opaque(Noise({33, 21}, 1));
    WriteImage("in.png", picture);
    PlayWell("in.png --fit --out plain.png");
    PlayWell("in.png --fit --rgb --mirror --out mirrored.png");
    EXPECT_EQ(Read("plain.png").pixels, picture.pixels);
    const Image mirrored = Read("mirrored.png");
    for (int y = 0; y < picture.size.height; ++y) {
        for (int x = 0; x < picture.size.width; ++x) {
            ASSERT_EQ(mirrored.Pixel(x, y), picture.Pixel(picture.size.width - 1 - x, y)) << x;
        }
    }
}

TEST_F(PictureTest, ViewMovesWithTheFrameThatIsShown) {
    WriteClip("in", 5, {200, 10});
    PlayWell("in/%04d.png --fit --view-to 1,0,1.4003148,0 --clear 9,8,7,6 --out out/%d.png");
    for (int i = 1; i <= 5; ++i) {
        // Each step moves the picture to the left by an eighth of the frame.
        const Image frame = Read("out/" + std::to_string(i) + ".png");
        const int edge = 200 - (i - 1) * 25;
        EXPECT_EQ(frame.Pixel(edge - 2, 5), FrameColor(i)) << i;
        if (edge < 200) {
            EXPECT_EQ(frame.Pixel(edge + 1, 5), (Rgba{9, 8, 7, 6})) << i;
        }
    }
}

TEST_F(PictureTest, StickersStandUprightAboveTheirPixels) {
    const Rgba red = {255, 0, 0, 255};
    const Rgba half = {0, 255, 0, 128};
    const Rgba ground = {20, 30, 40, 255};
    Image sticker = Solid({4, 4}, half);
    std::copy_n(Solid({4, 2}, red).pixels.begin(), 4 * 2 * 4, sticker.pixels.begin());
    WriteImage("sticker.png", sticker);
    WriteImage("in.png", Solid({200, 100}, ground));
    PlayWell("in.png --fit --sticker sticker.png --at 40,80 --at 150,50 --out out.png");
    const Image out = Read("out.png");
    for (const auto& [x, y] : {std::pair(40, 80), std::pair(150, 50)}) {
        EXPECT_EQ(out.Pixel(x, y - 18), red);
        EXPECT_EQ(out.Pixel(x, y - 12), half);
        EXPECT_EQ(out.Pixel(x, y - 8), ground);
        EXPECT_EQ(out.Pixel(x, y - 22), ground);
        EXPECT_EQ(out.Pixel(x - 4, y - 18), red);
        EXPECT_EQ(out.Pixel(x + 7, y - 18), ground);
        EXPECT_EQ(out.Pixel(x - 7, y - 18), ground);
    }
}
