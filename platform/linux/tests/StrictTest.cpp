// Strict mode, and the faults and habits that a host sets for a decoder.

#include <gtest/gtest.h>
#include <linux_platform/Host.h>
#include <system/window.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

#include "CodecClient.h"
#include "TestWindow.h"

namespace {

constexpr int64_t kLongUs = 10'000'000;

TestStream OddStream() {
    TestStream stream;
    stream.width = 322;
    stream.height = 182;
    stream.picture = [](int index) { return Gray(static_cast<uint8_t>(80 + 10 * index)); };
    return stream;
}

class Strict : public testing::Test {
protected:
    Strict() { HostPlatform_setStrict(1); }
    ~Strict() override { HostPlatform_setStrict(0); }

    const TestStream stream = OddStream();
};

TEST_F(Strict, GivesInputBuffersTheCapacityThatIsAskedFor) {
    const auto units = Encode(stream, 1);
    HostBehavior behavior = {};
    behavior.inputCapacity = units[0].bytes.size();
    HostDecoder_setBehavior(nullptr, &behavior);
    CodecClient client(stream);
    size_t capacity = 0;
    ASSERT_EQ(AMediaCodec_dequeueInputBuffer(client.Get(), 0), 0);
    ASSERT_NE(AMediaCodec_getInputBuffer(client.Get(), 0, &capacity), nullptr);
    EXPECT_EQ(capacity, units[0].bytes.size());
    EXPECT_LT(AMediaCodec_queueInputBuffer(client.Get(), 0, 1, capacity, 0, 0), 0);
    EXPECT_EQ(client.Decode(units).size(), 1U);
}

TEST_F(Strict, PadsPicturesInGreenOutsideOfTheCrop) {
    const TestWindow target;
    HostBehavior behavior = {};
    behavior.rotation = 180;
    HostDecoder_setBehavior(nullptr, &behavior);
    CodecClient client(stream, target.window, 270);
    client.Decode(Encode(stream, 3));

    AMediaFormat* format = AMediaCodec_getOutputFormat(client.Get());
    EXPECT_STREQ(AMediaFormat_toString(format),
                 "color-format: 19, color-range: 2, color-standard: 2, crop-bottom: 181, "
                 "crop-left: 0, crop-right: 321, crop-top: 0, height: 192, mime: video/raw, "
                 "slice-height: 192, stride: 384, width: 384");
    AMediaFormat_delete(format);
    const auto frame = target.queue->Acquire();
    ASSERT_NE(frame, nullptr);
    ASSERT_EQ(frame->width, 384);
    ASSERT_EQ(frame->height, 192);
    EXPECT_EQ(frame->crop.right, 322);
    EXPECT_EQ(frame->crop.bottom, 182);
    EXPECT_EQ(frame->transform, ANATIVEWINDOW_TRANSFORM_ROTATE_90);
    EXPECT_EQ(frame->timestampNs, 2 * kFrameTimeUs * 1000);
    const auto rgba = ReadPixels(*frame);
    const auto* pixels = reinterpret_cast<const uint32_t*>(rgba.data());
    int wrong = 0;
    for (int i = 0; i < 384 * 192; ++i) {
        const bool padding = i % 384 >= 322 || i / 384 >= 182;
        wrong += (pixels[i] == 0xFF00FF00) == padding ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
}

#if defined(__SANITIZE_ADDRESS__)
#define VORN_ASAN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VORN_ASAN
#endif
#endif
#ifdef VORN_ASAN

using StrictDeathTest = Strict;

/// Deletes the codec while a call waits for its output.
void DeleteUnderACall(const TestStream& stream) {
    auto client = std::make_unique<CodecClient>(stream);
    std::thread waiting([codec = client->Get()] {
        AMediaCodecBufferInfo info;
        AMediaCodec_dequeueOutputBuffer(codec, &info, -1);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    client = nullptr;
    waiting.join();
}

TEST_F(StrictDeathTest, HandlesAndBuffersDieWithTheirRelease) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    AMediaCodec* codec = AMediaCodec_createDecoderByType("video/avc");
    EXPECT_EQ(AMediaCodec_delete(codec), AMEDIA_OK);
    EXPECT_DEATH(AMediaCodec_stop(codec), "heap-use-after-free");
    EXPECT_DEATH(AMediaCodec_stop(nullptr), "null pointer");
    EXPECT_DEATH(DeleteUnderACall(stream), "heap-use-after-free");

    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_delete(format);
    EXPECT_DEATH(AMediaFormat_setInt32(format, "width", 1), "heap-use-after-free");

    const TestWindow target;
    ANativeWindow* window = native_window_new_reference(target.window);
    ANativeWindow_release(window);
    EXPECT_DEATH(ANativeWindow_getWidth(window), "heap-use-after-free");

    const CodecClient client(stream);
    size_t capacity = 0;
    ASSERT_EQ(AMediaCodec_dequeueInputBuffer(client.Get(), 0), 0);
    uint8_t* buffer = AMediaCodec_getInputBuffer(client.Get(), 0, &capacity);
    EXPECT_DEATH(buffer[capacity] = 0, "heap-buffer-overflow");
    EXPECT_EQ(AMediaCodec_queueInputBuffer(client.Get(), 0, 0, capacity, 0, 0), AMEDIA_OK);
    EXPECT_DEATH(buffer[0] = 0, "heap-use-after-free");
}

#endif

/// Decodes one picture, call by call. \return the call that failed with \p error, or 0.
uint32_t FailingCall(AMediaCodec* codec, int error) {
    if (codec == nullptr) {
        return HOST_CALL_CREATE;
    }
    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, 322);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, 182);
    const int configured = AMediaCodec_configure(codec, format, nullptr, nullptr, 0);
    AMediaFormat_delete(format);
    if (configured == error) {
        return HOST_CALL_CONFIGURE;
    }
    if (AMediaCodec_start(codec) == error) {
        return HOST_CALL_START;
    }
    if (AMediaCodec_dequeueInputBuffer(codec, kLongUs) == error) {
        return HOST_CALL_DEQUEUE_INPUT;
    }
    uint8_t* buffer = AMediaCodec_getInputBuffer(codec, 0, nullptr);
    if (buffer == nullptr) {
        return HOST_CALL_GET_INPUT;
    }
    const auto unit = Encode(OddStream(), 1)[0].bytes;
    std::copy(unit.begin(), unit.end(), buffer);
    if (AMediaCodec_queueInputBuffer(codec, 0, 0, unit.size(), 0,
                                     AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM) == error) {
        return HOST_CALL_QUEUE_INPUT;
    }
    AMediaCodecBufferInfo info;
    ssize_t index = AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED;
    while (index == AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED) {
        index = AMediaCodec_dequeueOutputBuffer(codec, &info, kLongUs);
    }
    if (index == error) {
        return HOST_CALL_DEQUEUE_OUTPUT;
    }
    if (AMediaCodec_releaseOutputBuffer(codec, static_cast<size_t>(index), false) == error) {
        return HOST_CALL_RELEASE_OUTPUT;
    }
    format = AMediaCodec_getOutputFormat(codec);
    if (format == nullptr) {
        return HOST_CALL_GET_OUTPUT_FORMAT;
    }
    AMediaFormat_delete(format);
    return AMediaCodec_flush(codec) == error ? HOST_CALL_FLUSH : 0;
}

TEST(Behavior, FailsInTheChosenCallOnlyAndOnce) {
    for (const int error : {AMEDIA_ERROR_UNKNOWN, AMEDIA_ERROR_IO, AMEDIACODEC_ERROR_RECLAIMED}) {
        for (uint32_t call = HOST_CALL_CREATE; call < HOST_CALL_ALL; call <<= 1U) {
            HostBehavior behavior = {};
            behavior.failing = call;
            behavior.error = error == AMEDIA_ERROR_UNKNOWN ? 0 : error;
            HostDecoder_setBehavior(nullptr, &behavior);
            for (const uint32_t expected : {call, 0U}) {
                AMediaCodec* codec = AMediaCodec_createDecoderByType("video/avc");
                EXPECT_EQ(FailingCall(codec, error), expected) << error;
                AMediaCodec_delete(codec);
            }
        }
    }
}

TEST(Behavior, ChangesInMidStream) {
    const TestStream stream = OddStream();
    CodecClient client(stream);
    HostDecoder* host = HostDecoder_acquire();
    HostBehavior behavior = {};
    behavior.failing = HOST_CALL_ALL;
    behavior.error = AMEDIACODEC_ERROR_RECLAIMED;
    behavior.failAfterPictures = 2;
    behavior.notices = 1;
    behavior.outputDelayUs = 20'000;
    HostDecoder_setBehavior(host, &behavior);
    for (const TestUnit& unit : Encode(stream, 3)) {
        EXPECT_EQ(QueueUnit(client.Get(), unit, kLongUs), 0);
    }
    std::vector<ssize_t> results;
    const auto start = std::chrono::steady_clock::now();
    while (results.empty() || results.back() != AMEDIACODEC_ERROR_RECLAIMED) {
        AMediaCodecBufferInfo info;
        results.push_back(AMediaCodec_dequeueOutputBuffer(client.Get(), &info, kLongUs));
    }
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(7 * 20));
    EXPECT_EQ(results, (std::vector<ssize_t>{-3, -2, -2, 0, -3, -2, 1, 1101}));
    EXPECT_EQ(QueueUnit(client.Get(), {}, 0), AMEDIACODEC_ERROR_RECLAIMED);

    HostDecoder_setBehavior(host, nullptr);
    HostDecoder_release(host);
    EXPECT_EQ(client.Finish().size(), 1U);
}

}  // namespace
