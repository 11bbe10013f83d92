#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

#include "CodecClient.h"
#include "TestWindow.h"

namespace {

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

void ExpectRamp(const std::vector<TestPicture>& pictures) {
    constexpr int kTolerance = 2;
    ASSERT_EQ(pictures.size(), static_cast<size_t>(kCount));
    for (int index = 0; index < kCount; ++index) {
        const TestPicture& picture = pictures[static_cast<size_t>(index)];
        EXPECT_EQ(picture.timeUs, index * kFrameTimeUs);
        EXPECT_NEAR(picture.luma, Level(index), kTolerance) << "picture " << index;
    }
}

TEST(Codec, SkipsBrokenJpegs) {
    TestStream stream = GrayRamp(0);
    stream.MakeJpeg(AV_PIX_FMT_YUVJ420P);
    auto units = Encode(stream, kCount);
    units[12].bytes.assign(5000, 0xA5);
    units[13].bytes.resize(1);
    CodecClient client(stream);
    const auto pictures = client.Decode(units);
    ASSERT_EQ(pictures.size(), kCount - 2U);
    EXPECT_EQ(pictures[12].timeUs, 14 * kFrameTimeUs);
    EXPECT_NEAR(pictures[12].luma, Level(14), 2);
}

TEST(Codec, FlushForgetsEverything) {
    const TestStream stream = GrayRamp(3);
    const auto units = Encode(stream, kCount);
    CodecClient client(stream);
    client.Feed({units.begin(), units.begin() + 15});
    ASSERT_EQ(AMediaCodec_flush(client.Get()), AMEDIA_OK);
    ExpectRamp(client.Decode(units));
    // After its end, only a flush continues a stream.
    ASSERT_EQ(AMediaCodec_flush(client.Get()), AMEDIA_OK);
    ExpectRamp(client.Decode(units));
}

TEST(Codec, RefusesBuffersThatTheCallerDoesNotHold) {
    CodecClient client(TestStream{});
    AMediaCodec* codec = client.Get();
    EXPECT_EQ(AMediaCodec_getInputBuffer(codec, 0, nullptr), nullptr);
    EXPECT_LT(AMediaCodec_queueInputBuffer(codec, 0, 0, 1, 0, 0), 0);
    EXPECT_LT(AMediaCodec_releaseOutputBuffer(codec, 0, false), 0);
    EXPECT_LT(AMediaCodec_releaseOutputBuffer(codec, 1000, false), 0);

    const auto index = static_cast<size_t>(AMediaCodec_dequeueInputBuffer(codec, 0));
    size_t capacity = 0;
    ASSERT_NE(AMediaCodec_getInputBuffer(codec, index, &capacity), nullptr);
    EXPECT_LT(AMediaCodec_queueInputBuffer(codec, index, 1, capacity, 0, 0), 0);
    EXPECT_LT(AMediaCodec_queueInputBuffer(codec, index, -1, 2, 0, 0), 0);
    EXPECT_EQ(AMediaCodec_queueInputBuffer(codec, index, 0, capacity, 0, 0), AMEDIA_OK);
    EXPECT_LT(AMediaCodec_queueInputBuffer(codec, index, 0, 1, 0, 0), 0);
}

// A renderer that does not wait for its decoder thread does this.
TEST(Codec, CallsEndWithErrorsWhenAnotherThreadStopsAndDeletes) {
    const auto units = Encode(GrayRamp(0), 20);
    for (const bool stopFirst : {true, false}) {
        const TestWindow target;
        auto client = std::make_unique<CodecClient>(TestStream(), target.window);
        AMediaCodec* codec = client->Get();
        std::atomic<int> taken{0};
        std::thread consumer([&] {
            AMediaCodecBufferInfo info;
            ssize_t index = 0;
            while (index > AMEDIA_ERROR_BASE) {
                index = AMediaCodec_dequeueOutputBuffer(codec, &info, -1);
                if (index >= 0) {
                    AMediaCodec_releaseOutputBuffer(codec, static_cast<size_t>(index), true);
                    ++taken;
                }
            }
        });
        for (size_t i = 0; taken < 3; i = (i + 1) % units.size()) {
            EXPECT_EQ(QueueUnit(codec, units[i], -1), 0);
        }
        if (stopFirst) {
            EXPECT_EQ(AMediaCodec_stop(codec), AMEDIA_OK);
        }
        client = nullptr;
        consumer.join();

        AMediaCodecBufferInfo info;
        size_t size = 0;
        EXPECT_LT(AMediaCodec_dequeueInputBuffer(codec, -1), AMEDIA_ERROR_BASE);
        EXPECT_LT(AMediaCodec_dequeueOutputBuffer(codec, &info, -1), AMEDIA_ERROR_BASE);
        EXPECT_EQ(AMediaCodec_getInputBuffer(codec, 0, &size), nullptr);
        EXPECT_LT(AMediaCodec_queueInputBuffer(codec, 0, 0, 1, 0, 0), 0);
        EXPECT_LT(AMediaCodec_releaseOutputBuffer(codec, 0, true), 0);
        EXPECT_LT(AMediaCodec_stop(codec), 0);
        EXPECT_LT(AMediaCodec_delete(codec), 0);
        EXPECT_LT(AMediaCodec_delete(nullptr), 0);
    }
}

}  // namespace
