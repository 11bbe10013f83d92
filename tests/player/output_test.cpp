// What is written besides numbered pictures.

#include <cstdlib>

#include "PlayerFixture.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"

namespace {

/// Whether the first three channels agree, up to what H.264 loses.
bool Near(const uint8_t* pixel, const Pixel& expected) {
    constexpr int kLoss = 5;
    for (size_t i = 0; i < 3; ++i) {
        if (std::abs(pixel[i] - expected.at(i)) > kLoss) {
            return false;
        }
    }
    return true;
}

}  // namespace

TEST_F(PlayerTest, OnePictureHoldsTheFirstDrawnFrame) {
    WriteClip("in", 3, {8, 8});
    PlayWell("in/%04d.png --start 0.04 --out out.png");
    EXPECT_EQ(Read("out.png").pixels, Solid({8, 8}, FrameColor(2)).pixels);
}

TEST_F(PlayerTest, Mp4HoldsEveryFrameInItsColours) {
    // The two sizes are of different colour standards.
    for (const auto& [size, colorSpace] : {std::pair(Size{64, 48}, AVCOL_SPC_SMPTE170M),
                                           std::pair(Size{1280, 16}, AVCOL_SPC_BT709)}) {
        WriteClip("in", 10, size);
        PlayWell("in/%04d.png --out out.mp4");
        VideoReader reader(Path("out.mp4"));
        FrameConverter converter(size, AV_PIX_FMT_RGB24);
        int count = 0;
        while (const AVFrame* frame = reader.Next()) {
            EXPECT_EQ(frame->width, size.width);
            EXPECT_EQ(frame->colorspace, colorSpace);
            EXPECT_EQ(frame->color_range, AVCOL_RANGE_MPEG);
            EXPECT_TRUE(Near(converter.Convert(*frame), FrameColor(++count))) << count;
        }
        EXPECT_EQ(count, 10);
        EXPECT_EQ(reader.Lost() + reader.Damaged(), 0);
    }

    // The start is found also where it is no key frame.
    PlayWell("out.mp4 --start 0.2 --frames 1 --out sixth.png");
    const Image sixth = Read("sixth.png");
    EXPECT_TRUE(Near(sixth.At(0, 8), FrameColor(6)));
}

TEST_F(PlayerTest, Mp4ShowsTheBackdropThroughTransparentParts) {
    WriteImage("in.png", Solid({64, 64}, {200, 100, 0, 51}));
    PlayWell("in.png --backdrop '#0064c8' --out plain.mp4");
    PlayWell("plain.mp4 --out plain.png");
    EXPECT_TRUE(Near(Read("plain.png").At(0, 32), {40, 100, 160, 255}));
    PlayWell("in.png --out checker.mp4");
    PlayWell("checker.mp4 --fit --out checker.png");
    const Image checker = Read("checker.png");
    EXPECT_NE(At(checker, 8, 8), At(checker, 24, 8));
}

TEST_F(PlayerTest, BrokenInputIsDrawnAsFarAsItDecodes) {
    WriteClip("in", 5, {16, 16});
    // Pictures of many sizes are scaled to one.
    for (int i = 1; i <= 40; ++i) {
        WriteImage("clip/" + std::to_string(i) + ".png", Pattern({150 + i, 160}));
    }
    PlayWell("clip/%d.png --size 160x160 --out clip.mp4");
    std::filesystem::resize_file(Path("clip.mp4"),
                                 std::filesystem::file_size(Path("clip.mp4")) * 2 / 3);
    RunResult result = Play("clip.mp4 --out out.mp4");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("clip.mp4 is broken: "), std::string::npos) << result.errors;
    EXPECT_GT(std::filesystem::file_size(Path("out.mp4")), 0U);

    std::filesystem::resize_file(Path("in/0003.png"), 40);
    result = Play("in/%04d.png --out out/%d.png");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("in/%04d.png is broken: 1 frames lost"), std::string::npos);
    EXPECT_NE(result.errors.find("4 frames in, 4 out, 1 failed"), std::string::npos);
    EXPECT_EQ(At(Read("out/3.png"), 8, 8), FrameColor(4));
}
