#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <thread>

#include "CodecClient.h"
#include "TestWindow.h"

namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int64_t kForever = -1;
constexpr size_t kMebibyte = 1 << 20;

TestStream FlatStream() {
    TestStream stream;
    stream.picture = [](int) { return Gray(100); };
    return stream;
}

/// \return whether \p call gives "try again later", and not too early.
template <class Call>
bool TriesFor(int64_t timeoutUs, Call call) {
    const auto start = steady_clock::now();
    const ssize_t result = call(timeoutUs);
    return result == AMEDIACODEC_INFO_TRY_AGAIN_LATER &&
           steady_clock::now() - start >= microseconds(timeoutUs);
}

TEST(CodecCalls, OfferEnoughInputAndKeepTimeOuts) {
    TestStream stream;
    stream.width = 1920;
    stream.height = 1080;
    CodecClient client(stream);
    std::set<uint8_t*> buffers;
    for (;;) {
        const ssize_t index = AMediaCodec_dequeueInputBuffer(client.Get(), 0);
        if (index < 0) {
            break;
        }
        size_t capacity = 0;
        buffers.insert(
            AMediaCodec_getInputBuffer(client.Get(), static_cast<size_t>(index), &capacity));
        EXPECT_GE(capacity, kMebibyte);
        EXPECT_GE(capacity, 1920U * 1080 * 3 / 2);
    }
    EXPECT_GE(buffers.size(), 8U);

    AMediaCodecBufferInfo info;
    for (const int64_t timeoutUs : {0, 2000, 30000}) {
        EXPECT_TRUE(TriesFor(timeoutUs, [&](int64_t us) {
            return AMediaCodec_dequeueInputBuffer(client.Get(), us);
        }));
        EXPECT_TRUE(TriesFor(timeoutUs, [&](int64_t us) {
            return AMediaCodec_dequeueOutputBuffer(client.Get(), &info, us);
        }));
    }
}

TEST(CodecCalls, RefuseBuffersThatTheCallerDoesNotHold) {
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

TEST(CodecCalls, FollowTheStates) {
    EXPECT_EQ(AMediaCodec_createDecoderByType("video/unknown"), nullptr);
    AMediaCodec* codec = AMediaCodec_createDecoderByType("video/mjpeg");
    AMediaFormat* format = AMediaFormat_new();
    EXPECT_LT(AMediaCodec_start(codec), 0);
    EXPECT_LT(AMediaCodec_configure(codec, format, nullptr, nullptr, 0), 0) << "without a size";
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, 16);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, 16);
    EXPECT_LT(
        AMediaCodec_configure(codec, format, nullptr, nullptr, AMEDIACODEC_CONFIGURE_FLAG_ENCODE),
        0);
    for (int run = 0; run < 2; ++run) {
        EXPECT_LT(AMediaCodec_dequeueInputBuffer(codec, kForever),
                  AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED);
        EXPECT_EQ(AMediaCodec_getOutputFormat(codec), nullptr);
        EXPECT_EQ(AMediaCodec_configure(codec, format, nullptr, nullptr, 0), AMEDIA_OK);
        EXPECT_LT(AMediaCodec_configure(codec, format, nullptr, nullptr, 0), 0);
        EXPECT_EQ(AMediaCodec_start(codec), AMEDIA_OK);
        EXPECT_LT(AMediaCodec_start(codec), 0);
        EXPECT_GE(AMediaCodec_dequeueInputBuffer(codec, 0), 0);
        EXPECT_EQ(AMediaCodec_stop(codec), AMEDIA_OK);
    }
    AMediaFormat_delete(format);
    AMediaCodec_delete(codec);
}

// A renderer that does not wait for its decoder thread does this.
TEST(CodecCalls, EndWithErrorsWhenAnotherThreadStopsAndDeletes) {
    const auto units = Encode(FlatStream(), 20);
    for (const bool stopFirst : {true, false}) {
        const TestWindow target;
        auto client = std::make_unique<CodecClient>(TestStream(), target.window);
        AMediaCodec* codec = client->Get();
        std::atomic<int> taken{0};
        std::thread consumer([&] {
            AMediaCodecBufferInfo info;
            ssize_t index = 0;
            while (index > AMEDIA_ERROR_BASE) {
                index = AMediaCodec_dequeueOutputBuffer(codec, &info, kForever);
                if (index >= 0) {
                    AMediaCodec_releaseOutputBuffer(codec, static_cast<size_t>(index), true);
                    ++taken;
                }
            }
        });
        for (size_t i = 0; taken < 3; i = (i + 1) % units.size()) {
            EXPECT_EQ(QueueUnit(codec, units[i], kForever), 0);
        }
        if (stopFirst) {
            EXPECT_EQ(AMediaCodec_stop(codec), AMEDIA_OK);
        }
        client = nullptr;
        consumer.join();

        AMediaCodecBufferInfo info;
        size_t size = 0;
        EXPECT_LT(AMediaCodec_dequeueInputBuffer(codec, kForever), AMEDIA_ERROR_BASE);
        EXPECT_LT(AMediaCodec_dequeueOutputBuffer(codec, &info, kForever), AMEDIA_ERROR_BASE);
        EXPECT_EQ(AMediaCodec_getInputBuffer(codec, 0, &size), nullptr);
        EXPECT_LT(AMediaCodec_queueInputBuffer(codec, 0, 0, 1, 0, 0), 0);
        EXPECT_LT(AMediaCodec_releaseOutputBuffer(codec, 0, true), 0);
        EXPECT_LT(AMediaCodec_stop(codec), 0);
        EXPECT_LT(AMediaCodec_delete(codec), 0);
        EXPECT_LT(AMediaCodec_delete(nullptr), 0);
    }
}

}  // namespace
