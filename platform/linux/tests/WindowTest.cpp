#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <string>

#include "CodecClient.h"
#include "TestWindow.h"

namespace {

using Rgb = std::array<double, 3>;

void Post(const TestWindow& target, uint8_t value) {
    ANativeWindow_Buffer buffer;
    ASSERT_EQ(ANativeWindow_lock(target.window, &buffer, nullptr), 0);
    *static_cast<uint8_t*>(buffer.bits) = value;
    ASSERT_EQ(ANativeWindow_unlockAndPost(target.window), 0);
}

// Luma weights of red and blue.
constexpr double kRed601 = 0.299;
constexpr double kBlue601 = 0.114;
constexpr double kRed709 = 0.2126;
constexpr double kBlue709 = 0.0722;

Yuv ToYuv(const Rgb& rgb, AVColorSpace colours, AVColorRange range) {
    const double red = colours == AVCOL_SPC_BT709 ? kRed709 : kRed601;
    const double blue = colours == AVCOL_SPC_BT709 ? kBlue709 : kBlue601;
    const double y = red * rgb[0] + (1 - red - blue) * rgb[1] + blue * rgb[2];
    const double u = (rgb[2] - y) / (2 * (1 - blue));
    const double v = (rgb[0] - y) / (2 * (1 - red));
    const bool full = range == AVCOL_RANGE_JPEG;
    const auto round = [](double value) { return static_cast<uint8_t>(std::lround(value)); };
    return {round(full ? y : 16 + y * 219 / 255), round(128 + u * (full ? 1 : 224.0 / 255)),
            round(128 + v * (full ? 1 : 224.0 / 255))};
}

/// Of 8-bit YUV and of compression; and, on ARM, of the blue that libyuv cuts: only its constants
/// for x86 are mended.
#if defined(__arm__) || defined(__aarch64__)
constexpr int kTolerance = 6;
#else
constexpr int kTolerance = 3;
#endif

constexpr std::array<Rgb, 4> kColours = {
    {{200, 30, 60}, {40, 190, 80}, {50, 70, 210}, {250, 240, 230}}};

struct Case {
    const char* encoder;
    AVPixelFormat layout;
    AVColorSpace colours;
    AVColorRange range;
};

std::string NameOf(const testing::TestParamInfo<Case>& info) {
    return std::string(av_get_pix_fmt_name(info.param.layout)) + "_" +
           av_color_space_name(info.param.colours) + "_" + av_color_range_name(info.param.range);
}

class EveryColourSystem : public testing::TestWithParam<Case> {};

TEST_P(EveryColourSystem, ReachesTheWindowInRgbFirstRowFirst) {
    const auto& [encoder, layout, colours, range] = GetParam();
    TestStream stream;
    stream.encoder = encoder;
    stream.width = 322;
    stream.height = 182;
    stream.layout = layout;
    stream.colours = colours;
    stream.range = range;
    stream.picture = [&stream](int) {
        TestStream::Quarters quarters;
        for (size_t i = 0; i < quarters.size(); ++i) {
            quarters[i] = ToYuv(kColours[i], stream.colours, stream.range);
        }
        return quarters;
    };
    const TestWindow target;
    CodecClient client({stream.MimeType(), stream.width, stream.height, target.window, {}});
    client.Feed(Encode(stream, 3));
    client.Finish();

    const auto frame = target.queue->Acquire();
    ASSERT_NE(frame, nullptr);
    ASSERT_EQ(frame->width, stream.width);
    ASSERT_EQ(frame->height, stream.height);
    EXPECT_EQ(frame->timestampNs, 2 * kFrameTimeUs * 1000);
    for (size_t quarter = 0; quarter < kColours.size(); ++quarter) {
        const size_t x = quarter % 2 == 0 ? 40 : 280;
        const size_t y = quarter < 2 ? 40 : 140;
        const uint8_t* pixel = &frame->pixels[4 * (y * 322 + x)];
        for (size_t channel = 0; channel < 3; ++channel) {
            EXPECT_NEAR(pixel[channel], kColours[quarter][channel], kTolerance)
                << "quarter " << quarter << ", channel " << channel;
        }
        EXPECT_EQ(pixel[3], 255);
    }
}

constexpr auto k601 = AVCOL_SPC_BT470BG;
constexpr auto k709 = AVCOL_SPC_BT709;
constexpr auto kFull = AVCOL_RANGE_JPEG;
constexpr auto kLimited = AVCOL_RANGE_MPEG;

INSTANTIATE_TEST_SUITE_P(H264, EveryColourSystem,
                         testing::Values(Case{"libx264", AV_PIX_FMT_YUV420P, k601, kLimited},
                                         Case{"libx264", AV_PIX_FMT_YUV420P, k601, kFull},
                                         Case{"libx264", AV_PIX_FMT_YUV420P, k709, kLimited},
                                         Case{"libx264", AV_PIX_FMT_YUV420P, k709, kFull},
                                         Case{"libx264", AV_PIX_FMT_YUV422P, k601, kLimited},
                                         Case{"libx264", AV_PIX_FMT_YUV422P, k709, kFull},
                                         Case{"libx264", AV_PIX_FMT_YUV444P, k601, kFull},
                                         Case{"libx264", AV_PIX_FMT_YUV444P, k709, kLimited}),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Jpeg, EveryColourSystem,
                         testing::Values(Case{"mjpeg", AV_PIX_FMT_YUVJ420P, k601, kFull},
                                         Case{"mjpeg", AV_PIX_FMT_YUVJ422P, k601, kFull},
                                         Case{"mjpeg", AV_PIX_FMT_YUVJ444P, k601, kFull}),
                         NameOf);

TEST(Window, KeepsTheNewestFrameInLittleMemory) {
    const TestWindow target;
    ASSERT_EQ(ANativeWindow_setBuffersGeometry(target.window, 8, 4, WINDOW_FORMAT_RGBA_8888), 0);
    std::set<uint8_t*> memory;
    for (uint8_t value = 0; value < 50; ++value) {
        Post(target, value);
        if (value % 3 == 0) {
            auto frame = target.queue->Acquire();
            ASSERT_NE(frame, nullptr);
            EXPECT_EQ(frame->pixels[0], value);
            EXPECT_EQ(target.queue->Acquire(), nullptr);
            memory.insert(frame->pixels.get());
            target.queue->Recycle(std::move(frame));
        }
    }
    EXPECT_LE(memory.size(), 3U);
}

TEST(Window, RefusesWhatDoesNotFitItsState) {
    const TestWindow target;
    ANativeWindow_Buffer buffer;
    ARect dirty;
    EXPECT_LT(ANativeWindow_setBuffersGeometry(target.window, 8, 0, 0), 0);
    EXPECT_LT(ANativeWindow_setBuffersGeometry(target.window, 8, 8, 4), 0);
    EXPECT_LT(ANativeWindow_unlockAndPost(target.window), 0);
    target.queue->SetDefaultSize(6, 5);
    EXPECT_EQ(ANativeWindow_lock(target.window, &buffer, &dirty), 0);
    EXPECT_EQ(buffer.width, 6);
    EXPECT_EQ(dirty.bottom, 5);
    EXPECT_LT(ANativeWindow_lock(target.window, &buffer, nullptr), 0);
    target.queue->Abandon();
    ANativeWindow_unlockAndPost(target.window);
    EXPECT_EQ(target.queue->Acquire(), nullptr);
    EXPECT_LT(ANativeWindow_lock(target.window, &buffer, nullptr), 0);
}

}  // namespace
