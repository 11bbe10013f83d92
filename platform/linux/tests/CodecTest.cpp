#include <gtest/gtest.h>

#include <algorithm>

#include "CodecClient.h"

namespace {

using Kind = TestOutput::Kind;

constexpr int kCount = 30;

uint8_t Level(int index) {
    return static_cast<uint8_t>(40 + 5 * index);
}

TestStream GrayRamp(int bFrames) {
    TestStream stream;
    stream.bFrames = bFrames;
    stream.picture = [](int index) { return Gray(Level(index)); };
    return stream;
}

size_t FormatCount(const std::vector<TestOutput>& outputs) {
    return static_cast<size_t>(
        std::count_if(outputs.begin(), outputs.end(),
                      [](const TestOutput& output) { return output.kind == Kind::kFormat; }));
}

void ExpectRamp(const std::vector<TestOutput>& pictures) {
    constexpr int kTolerance = 2;
    ASSERT_EQ(pictures.size(), static_cast<size_t>(kCount));
    for (int index = 0; index < kCount; ++index) {
        const TestOutput& picture = pictures[static_cast<size_t>(index)];
        EXPECT_EQ(picture.timeUs, index * kFrameTimeUs);
        EXPECT_NEAR(picture.luma, Level(index), kTolerance) << "picture " << index;
    }
}

TEST(Codec, AnnouncesASizeThatChangesInMidStream) {
    TestStream small = GrayRamp(2);
    TestStream large = small;
    large.width = 646;  // Cropped from a multiple of 16.
    large.height = 362;
    auto units = Encode(small, 8);
    const auto more = Encode(large, 8);
    units.insert(units.end(), more.begin(), more.end());

    CodecClient client(small);
    const auto outputs = client.Decode(units);
    ASSERT_EQ(outputs.size(), 2U + 16U + 1U);
    EXPECT_EQ(FormatCount(outputs), 2U);
    EXPECT_EQ(outputs[0].width, small.width);
    EXPECT_EQ(outputs[9].kind, Kind::kFormat);
    EXPECT_EQ(outputs[9].width, large.width);
    EXPECT_EQ(outputs[9].height, large.height);
}

TEST(Codec, TakesParameterSetsFromTheFormat) {
    TestStream stream = GrayRamp(0);
    stream.parameterSetsApart = true;
    av::CodecContext encoder;
    const auto units = Encode(stream, kCount, &encoder);
    const uint8_t* const sets = encoder->extradata;
    CodecClient client(stream, nullptr, 0, {sets, sets + encoder->extradata_size});
    ExpectRamp(Pictures(client.Decode(units)));
}

TEST(Codec, SkipsBrokenJpegs) {
    TestStream stream = GrayRamp(0);
    stream.MakeJpeg(AV_PIX_FMT_YUVJ420P);
    auto units = Encode(stream, kCount);
    units[12].bytes.assign(5000, 0xA5);
    units[13].bytes.resize(1);
    CodecClient client(stream);
    const auto pictures = Pictures(client.Decode(units));
    ASSERT_EQ(pictures.size(), kCount - 2U);
    EXPECT_EQ(pictures[12].timeUs, 14 * kFrameTimeUs);
    EXPECT_NEAR(pictures[12].luma, Level(14), 2);
}

TEST(Codec, FlushForgetsEverythingButTheFormat) {
    const TestStream stream = GrayRamp(3);
    const auto units = Encode(stream, kCount);
    CodecClient client(stream);
    client.Feed({units.begin(), units.begin() + 15});
    ASSERT_EQ(AMediaCodec_flush(client.Get()), AMEDIA_OK);
    const auto outputs = client.Decode(units);
    EXPECT_EQ(FormatCount(outputs), 0U);
    ExpectRamp(Pictures(outputs));
    // After its end, only a flush continues a stream.
    ASSERT_EQ(AMediaCodec_flush(client.Get()), AMEDIA_OK);
    ExpectRamp(Pictures(client.Decode(units)));
}

// Pictures that a client does not take stay compressed, which saves memory.
TEST(Codec, DecodesFewPicturesAhead) {
    constexpr size_t kInputBuffers = 8;
    constexpr size_t kOutputBuffers = 3;
    const TestStream stream = GrayRamp(0);
    CodecClient client(stream);
    size_t taken = 0;
    for (const TestUnit& unit : Encode(stream, kCount)) {
        taken += QueueUnit(client.Get(), unit, 200'000) == 0 ? 1 : 0;
    }
    // The decoder keeps the input buffer until its picture has an output buffer.
    EXPECT_EQ(taken, kInputBuffers + kOutputBuffers);
}

}  // namespace
