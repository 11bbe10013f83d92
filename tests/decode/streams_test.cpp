// Streams of every kind that is played, in every container.

#include <linux_platform/Host.h>

#include <array>

#include "DecodeFixture.h"

namespace {

constexpr int kCount = 25;

struct Kind {
    const char* file;
    const char* encoder;
    AVPixelFormat layout;
    int bFrames;
    AVColorSpace colors;
    AVColorRange range;
    const char* profile = "";
};

class Streams : public DecodeTest, public testing::WithParamInterface<Kind> {};

TEST_P(Streams, ComeOutFrameByFrameAsLibavcodecDecodesThem) {
    const Kind& kind = GetParam();
    TestStream stream = ChangingStream();
    stream.encoder = kind.encoder;
    stream.layout = kind.layout;
    stream.profile = kind.profile;
    stream.bFrames = kind.bFrames;
    stream.colors = kind.colors;
    stream.range = kind.range;
    const std::string path = Path(kind.file);
    WriteMedia(path, stream, kCount);
    EXPECT_EQ(ExpectAsDecoded(path), kCount);
}

constexpr AVColorSpace k601 = AVCOL_SPC_BT470BG;
constexpr AVColorSpace k709 = AVCOL_SPC_BT709;
constexpr AVColorRange kTv = AVCOL_RANGE_MPEG;
constexpr AVColorRange kPc = AVCOL_RANGE_JPEG;
constexpr AVPixelFormat k420 = AV_PIX_FMT_YUV420P;

INSTANTIATE_TEST_SUITE_P(
    , Streams,
    testing::Values(Kind{"baseline.mp4", "libx264", k420, 0, k601, kTv, "baseline"},
                    Kind{"high.mp4", "libx264", k420, 3, k709, kTv, "high"},
                    Kind{"full.mov", "libx264", k420, 2, k601, kPc},
                    Kind{"full_hd.mov", "libx264", k420, 0, k709, kPc},
                    Kind{"fine_hd.mkv", "libx264", AV_PIX_FMT_YUV444P, 0, k709, kTv},
                    Kind{"wide.mkv", "libx264", AV_PIX_FMT_YUV422P, 2, k601, kTv},
                    Kind{"raw.h264", "libx264", k420, 2, k601, kTv},
                    Kind{"h264.avi", "libx264", k420, 0, k601, kTv},
                    Kind{"jpeg.avi", "mjpeg", AV_PIX_FMT_YUVJ420P, 0, k601, kPc},
                    Kind{"jpeg.mov", "mjpeg", AV_PIX_FMT_YUVJ422P, 0, k601, kPc},
                    Kind{"raw.mjpeg", "mjpeg", AV_PIX_FMT_YUVJ444P, 0, k601, kPc}),
    [](const auto& kind) {
        std::string name = kind.param.file;
        name[name.find('.')] = '_';
        return name;
    });

TEST_F(DecodeTest, BeginsAtTheStartAlsoBetweenKeyFrames) {
    TestStream stream = ChangingStream();
    stream.bFrames = 2;
    WriteMedia(Path("clip.mp4"), stream, kCount);
    EXPECT_EQ(ExpectAsDecoded(Path("clip.mp4"), 14 * 0.04), kCount - 14);
}

TEST_F(DecodeTest, LeavesOutThePaddingOfPictures) {
    HostPlatform_setStrict(1);
    TestStream stream = ChangingStream();
    stream.width = 330;
    stream.height = 250;
    WriteMedia(Path("clip.mp4"), stream, kCount);
    EXPECT_EQ(ExpectAsDecoded(Path("clip.mp4")), kCount);
}

TEST_F(DecodeTest, FitsPicturesOfAnotherSizeInMidStream) {
    TestStream small = ChangingStream();
    TestStream large = small;
    large.width = 646;  // Cropped from a multiple of 16.
    large.height = 362;
    av::CodecContext encoder;
    auto units = Encode(small, 5, &encoder);
    for (TestUnit& unit : Encode(large, 5)) {
        unit.timeUs += 5 * kFrameTimeUs;
        unit.decodingTimeUs += 5 * kFrameTimeUs;
        units.push_back(std::move(unit));
    }
    WriteMedia(Path("clip.h264"), *encoder, units);
    EXPECT_EQ(ExpectAsDecoded(Path("clip.h264")), 10);
}

TEST_F(DecodeTest, MeetsEachFrameWithItsMask) {
    constexpr int kPictures = 7;
    WriteMedia(Path("clip.mp4"), ChangingStream(), kPictures);
    std::array<std::array<uint8_t, 4>, kPictures + 1> masks{};
    for (size_t i = 0; i < masks.size(); i += 3) {
        masks.at(i) = {1, 1, 1, static_cast<uint8_t>(100 + i)};  // The others key the picture out.
    }
    RendererSettings settings;
    settings.javaVM = Jvm();
    settings.maskSize = {1, 1};
    size_t next = 0;
    // From the fourth picture on, which is no key frame.
    CompressedSource player(VideoFile(Path("clip.mp4"), 3 * 0.04), settings,
                            [&] { return masks.at(next++).data(); });
    for (size_t i = 0; i < kPictures - 3; ++i) {
        ASSERT_TRUE(player.Next());
        player.Draw({});
        const uint8_t* pixel = player.GetRenderer().ReadBack().At(250, 200);
        if (i % 3 == 0) {
            EXPECT_NEAR(pixel[0], (30 + 37 * (static_cast<int>(i) + 3) % 190 - 16) * 255.0 / 219,
                        2);
            EXPECT_EQ(pixel[3], 100 + i);
        } else {
            EXPECT_EQ(pixel[0], 169);
            EXPECT_EQ(pixel[3], 0);
        }
    }
    EXPECT_FALSE(player.Next());
}

TEST_F(DecodeTest, LeavesOutUnitsLargerThanTheInputBuffer) {
    TestStream stream = ChangingStream();
    stream.MakeJpeg(AV_PIX_FMT_YUVJ420P);
    av::CodecContext encoder;
    auto units = Encode(stream, 6, &encoder);
    for (const size_t index : {2U, 3U}) {
        units[index].bytes.resize((1 << 20) + 1);
    }
    WriteMedia(Path("clip.mkv"), *encoder, units);
    const auto player = Open(Path("clip.mkv"));
    for (const double seconds : {0.0, 0.04, 0.16, 0.2}) {
        ASSERT_TRUE(player->Next());
        EXPECT_NEAR(player->Seconds(), seconds, 0.001);
    }
    EXPECT_FALSE(player->Next());
    EXPECT_EQ(player->Lost(), 2);
}

// Real clips, if scripts/footage has fetched them.
class Footage : public DecodeTest,
                public testing::WithParamInterface<std::pair<const char*, int>> {};

TEST_P(Footage, ComesOutFrameByFrameAsLibavcodecDecodesIt) {
    const auto& [name, count] = GetParam();
    const std::string path = std::string(FOOTAGE "/") + name;
    if (!std::filesystem::exists(path)) {
        GTEST_SKIP() << path << " is not there";
    }
    EXPECT_EQ(ExpectAsDecoded(path), count);
}

// The one has 456 packets, the last of which is not for show.
INSTANTIATE_TEST_SUITE_P(, Footage,
                         testing::Values(std::pair("box.mp4", 455), std::pair("cup.mp4", 217)));

}  // namespace
