#include <gtest/gtest.h>

#include <algorithm>

#include "CodecClient.h"

namespace {

using Kind = TestOutput::Kind;

constexpr int kCount = 30;

uint8_t Level(int index) {
    return static_cast<uint8_t>(40 + 5 * index);
}

TestStream GreyRamp(const std::string& encoder, int bFrames) {
    TestStream stream;
    stream.encoder = encoder;
    stream.bFrames = bFrames;
    stream.picture = [](int index) { return Grey(Level(index)); };
    if (encoder == "mjpeg") {
        stream.layout = AV_PIX_FMT_YUVJ420P;
        stream.range = AVCOL_RANGE_JPEG;
    }
    return stream;
}

CodecClient::Setup SetupFor(const TestStream& stream) {
    return {stream.MimeType(), stream.width, stream.height, nullptr, {}};
}

std::vector<TestOutput> DecodeAll(CodecClient& client, const std::vector<TestUnit>& units) {
    auto outputs = client.Feed(units);
    const auto rest = client.Finish();
    outputs.insert(outputs.end(), rest.begin(), rest.end());
    return outputs;
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

struct Case {
    const char* encoder;
    int bFrames;
};

std::string NameOf(const testing::TestParamInfo<Case>& info) {
    return info.param.encoder + ("_b" + std::to_string(info.param.bFrames));
}

class EveryStream : public testing::TestWithParam<Case> {};

TEST_P(EveryStream, ComesOutCompleteInDisplayOrderAfterItsFormat) {
    const TestStream stream = GreyRamp(GetParam().encoder, GetParam().bFrames);
    CodecClient client(SetupFor(stream));
    const auto outputs = DecodeAll(client, Encode(stream, kCount));

    EXPECT_EQ(outputs.front().kind, Kind::kFormat);
    EXPECT_EQ(outputs.front().width, stream.width);
    EXPECT_EQ(outputs.front().height, stream.height);
    EXPECT_EQ(FormatCount(outputs), 1U);
    ExpectRamp(Pictures(outputs));
}

INSTANTIATE_TEST_SUITE_P(Streams, EveryStream,
                         testing::Values(Case{"libx264", 0}, Case{"libx264", 3}, Case{"mjpeg", 0}),
                         NameOf);

// The application of a device decodes with all time stamps 0.
TEST(Codec, OrdersPicturesWithoutTimeStamps) {
    const TestStream stream = GreyRamp("libx264", 3);
    auto units = Encode(stream, kCount);
    for (TestUnit& unit : units) {
        unit.timeUs = 0;
    }
    CodecClient client(SetupFor(stream));
    auto pictures = Pictures(DecodeAll(client, units));
    for (size_t index = 0; index < pictures.size(); ++index) {
        EXPECT_EQ(pictures[index].timeUs, 0);
        pictures[index].timeUs = static_cast<int64_t>(index) * kFrameTimeUs;
    }
    ExpectRamp(pictures);
}

TEST(Codec, AnnouncesASizeThatChangesInMidStream) {
    TestStream small = GreyRamp("libx264", 2);
    TestStream large = small;
    large.width = 646;  // Cropped from a multiple of 16.
    large.height = 362;
    auto units = Encode(small, 8);
    const auto more = Encode(large, 8);
    units.insert(units.end(), more.begin(), more.end());

    CodecClient client(SetupFor(small));
    const auto outputs = DecodeAll(client, units);
    ASSERT_EQ(outputs.size(), 2U + 16U + 1U);
    EXPECT_EQ(FormatCount(outputs), 2U);
    EXPECT_EQ(outputs[0].width, small.width);
    EXPECT_EQ(outputs[9].kind, Kind::kFormat);
    EXPECT_EQ(outputs[9].width, large.width);
    EXPECT_EQ(outputs[9].height, large.height);
}

TEST(Codec, TakesParameterSetsFromTheFormat) {
    TestStream stream = GreyRamp("libx264", 0);
    stream.parameterSetsApart = true;
    CodecClient::Setup setup = SetupFor(stream);
    const auto units = Encode(stream, kCount, &setup.parameterSets);
    CodecClient client(setup);
    ExpectRamp(Pictures(DecodeAll(client, units)));
}

TEST(Codec, SkipsBrokenUnits) {
    for (const char* encoder : {"libx264", "mjpeg"}) {
        const TestStream stream = GreyRamp(encoder, 0);
        auto units = Encode(stream, kCount);
        units[12].bytes.assign(5000, 0xA5);
        units[13].bytes.resize(units[13].bytes.size() / 2);
        units[14].bytes.resize(1);

        CodecClient client(SetupFor(stream));
        const auto pictures = Pictures(DecodeAll(client, units));
        ASSERT_GE(pictures.size(), 20U) << encoder;
        for (int index = 20; index < kCount; ++index) {  // From the next key picture on.
            const auto& picture = pictures[pictures.size() - static_cast<size_t>(kCount - index)];
            EXPECT_EQ(picture.timeUs, index * kFrameTimeUs) << encoder;
            EXPECT_NEAR(picture.luma, Level(index), 2) << encoder;
        }
    }
}

TEST(Codec, FlushForgetsEverythingButTheFormat) {
    const TestStream stream = GreyRamp("libx264", 3);
    const auto units = Encode(stream, kCount);
    CodecClient client(SetupFor(stream));
    client.Feed({units.begin(), units.begin() + 15});
    ASSERT_EQ(AMediaCodec_flush(client.Get()), AMEDIA_OK);
    const auto outputs = DecodeAll(client, units);
    EXPECT_EQ(FormatCount(outputs), 0U);
    ExpectRamp(Pictures(outputs));
    // The stream ended; only a flush makes it go on.
    ASSERT_EQ(AMediaCodec_flush(client.Get()), AMEDIA_OK);
    ExpectRamp(Pictures(DecodeAll(client, units)));
}

// Memory: what a client does not take stays compressed.
TEST(Codec, DecodesFewPicturesAhead) {
    constexpr size_t kInputBuffers = 8;
    constexpr size_t kOutputBuffers = 3;
    const TestStream stream = GreyRamp("libx264", 0);
    CodecClient client(SetupFor(stream));
    size_t taken = 0;
    for (const TestUnit& unit : Encode(stream, kCount)) {
        const ssize_t index = AMediaCodec_dequeueInputBuffer(client.Get(), 200'000);
        if (index < 0) {
            break;
        }
        const auto slot = static_cast<size_t>(index);
        std::copy(unit.bytes.begin(), unit.bytes.end(),
                  AMediaCodec_getInputBuffer(client.Get(), slot, nullptr));
        AMediaCodec_queueInputBuffer(client.Get(), slot, 0, unit.bytes.size(), unit.timeUs, 0);
        ++taken;
    }
    // The decoder holds on to the buffer of a unit whose picture finds no room.
    EXPECT_EQ(taken, kInputBuffers + kOutputBuffers);
}

}  // namespace
