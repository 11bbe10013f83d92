// Host programs: counts, waits and lock-step.

#include <gtest/gtest.h>
#include <linux_platform/Host.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "CodecClient.h"
#include "TestWindow.h"

namespace {

constexpr int64_t kLongUs = 10'000'000;
constexpr int64_t kShortUs = 20'000;

struct Release {
    void operator()(HostDecoder* decoder) const { HostDecoder_release(decoder); }
};
using Host = std::unique_ptr<HostDecoder, Release>;

/// Releases every picture to the window, on its own thread.
class Drainer {
public:
    explicit Drainer(AMediaCodec* codec) : thread_([this, codec] { Run(codec); }) {}
    ~Drainer() {
        stop_ = true;
        thread_.join();
    }
    Drainer(const Drainer&) = delete;
    Drainer& operator=(const Drainer&) = delete;

private:
    void Run(AMediaCodec* codec) {
        while (!stop_) {
            AMediaCodecBufferInfo info;
            const ssize_t index = AMediaCodec_dequeueOutputBuffer(codec, &info, 1000);
            if (index >= 0) {
                AMediaCodec_releaseOutputBuffer(codec, static_cast<size_t>(index), info.size != 0);
            }
        }
    }

    std::atomic<bool> stop_{false};
    std::thread thread_;
};

class HostOfDecoder : public testing::Test {
protected:
    HostOfDecoder() {
        stream.picture = [](int index) { return Gray(static_cast<uint8_t>(30 + 4 * index)); };
        HostDecoder_setLockStep(host.get(), 1);
    }

    TestStream stream;
    TestWindow window;
    CodecClient client{stream, window.window, 90};
    const Host host{HostDecoder_acquire()};
};

TEST_F(HostOfDecoder, LockStepHoldsForThePictureThatIsThereAlready) {
    HostDecoder_setLockStep(host.get(), 0);
    client.Feed(Encode(stream, 8));
    const auto next = [&](int64_t timeoutUs) {
        AMediaCodecBufferInfo info;
        ssize_t index = AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED;
        while (index == AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED) {
            index = AMediaCodec_dequeueOutputBuffer(client.Get(), &info, timeoutUs);
        }
        return index;
    };
    for (ssize_t index = next(kLongUs); index >= 0; index = next(kShortUs)) {
        AMediaCodec_releaseOutputBuffer(client.Get(), static_cast<size_t>(index), true);
    }
    HostDecoder_setLockStep(host.get(), 1);
    HostDecoder_endStream(host.get(), -1);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(next(10 * kShortUs), AMEDIACODEC_INFO_TRY_AGAIN_LATER);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::microseconds(10 * kShortUs));
    window.queue->Release(window.queue->Acquire());
    EXPECT_GE(next(kLongUs), 0);
}

TEST_F(HostOfDecoder, LockStepGoesOnWhenPicturesAreLatchedAtOnce) {
    window.queue->SetListener([this] { window.queue->Release(window.queue->Acquire()); });
    client.Feed(Encode(stream, 8));
    const Drainer drainer(client.Get());
    HostDecoder_endStream(host.get(), -1);
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), 7, kLongUs, nullptr), HOST_READY);
}

TEST_F(HostOfDecoder, SteppingHoldsAPictureThatWasShown) {
    constexpr int kCount = 8;
    HostDecoder_setStepping(host.get(), 1);
    client.Feed(Encode(stream, kCount));
    const Drainer drainer(client.Get());
    HostDecoder_endStream(host.get(), -1);
    HostFrames frames;
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(HostDecoder_waitForFrame(host.get(), i, -1, &frames), HOST_READY);
        const bool shown = i % 3 != 1;
        if (shown) {
            auto frame = window.queue->Acquire();
            EXPECT_NEAR(ReadPixels(*frame)[0], (30 + 4 * i - 16) * 255.0 / 219, 2) << i;
            window.queue->Release(std::move(frame));
        }
        EXPECT_EQ(HostDecoder_waitForFrame(host.get(), i + 1, kShortUs, &frames), HOST_TIMED_OUT);
        EXPECT_EQ(frames.delivered, i + 1);
        HostDecoder_step(host.get());
    }
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), kCount, -1, &frames), HOST_ENDED);
    EXPECT_EQ(frames.latched, 5);
}

TEST(HostOfDecoders, AppliesToTheThreadsNewestAsLongAsThatLives) {
    {
        const CodecClient outer(TestStream{});
        const Host first(HostDecoder_acquire());
        std::thread([] { EXPECT_EQ(HostDecoder_acquire(), nullptr); }).join();
        TestStream large;
        large.width = 1920;
        large.height = 1080;
        const CodecClient inner(large);
        const Host second(HostDecoder_acquire());
        EXPECT_EQ(HostDecoder_inputCapacity(first.get()), size_t{1} << 20);
        EXPECT_EQ(HostDecoder_inputCapacity(second.get()), 1920U * 1080 * 3);
        EXPECT_EQ(HostDecoder_waitForInput(second.get(), 0), HOST_READY);
        AMediaCodec_stop(inner.Get());
        EXPECT_EQ(HostDecoder_waitForInput(second.get(), -1), HOST_CLOSED);
        EXPECT_EQ(HostDecoder_endStream(second.get(), -1), HOST_CLOSED);
        EXPECT_EQ(HostDecoder_inputCapacity(second.get()), 0U);
    }
    EXPECT_EQ(HostDecoder_acquire(), nullptr);
}

TEST_F(HostOfDecoder, DoesNotWaitForPicturesThatNobodyCanShow) {
    window.queue->Abandon();
    client.Feed(Encode(stream, 12));
    const Drainer drainer(client.Get());
    HostDecoder_endStream(host.get(), -1);
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), 0, kLongUs, nullptr), HOST_ENDED);
}

}  // namespace
