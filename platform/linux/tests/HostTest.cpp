// Host programs: counts, waits and lock-step.

#include <gtest/gtest.h>
#include <linux_platform/Host.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

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

    /// Plays all \p units, picture by picture. \return a pixel and the unit of each.
    std::vector<std::pair<int, int64_t>> Play(const std::vector<TestUnit>& units) {
        const Drainer drainer(client.Get());
        for (const TestUnit& unit : units) {
            while (HostDecoder_waitForInput(host.get(), 1000) == HOST_TIMED_OUT) {
                TakePicture(0);
            }
            EXPECT_EQ(QueueUnit(client.Get(), unit, 0), 0);
        }
        while (HostDecoder_endStream(host.get(), 1000) == HOST_TIMED_OUT) {
            TakePicture(0);
        }
        while (TakePicture(kLongUs) == HOST_READY) {
        }
        return std::move(seen);
    }

    HostResult TakePicture(int64_t timeoutUs) {
        HostFrames frames;
        const auto count = static_cast<int64_t>(seen.size());
        const HostResult result = HostDecoder_waitForFrame(host.get(), count, timeoutUs, &frames);
        if (result == HOST_READY) {
            EXPECT_EQ(frames.delivered, count + 1) << "one at a time";
            auto frame = window.queue->Acquire();
            seen.emplace_back(frame->pixels[0], frames.unit);
            window.queue->Recycle(std::move(frame));
        }
        return result;
    }

    TestStream stream;
    TestWindow window;
    CodecClient client{stream, window.window, 90};
    const Host host{HostDecoder_acquire()};
    std::vector<std::pair<int, int64_t>> seen;
};

TEST_F(HostOfDecoder, SeesEveryPictureOnceInLockStep) {
    constexpr int kCount = 40;
    stream.bFrames = 2;
    const auto units = Encode(stream, kCount);
    const auto pictures = Play(units);
    ASSERT_EQ(pictures.size(), static_cast<size_t>(kCount));
    for (int i = 0; i < kCount; ++i) {
        const auto& [level, unit] = pictures[static_cast<size_t>(i)];
        EXPECT_NEAR(level, (30 + 4 * i - 16) * 255 / 219, 2);
        EXPECT_EQ(units[static_cast<size_t>(unit)].timeUs, i * kFrameTimeUs);
    }
}

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
    EXPECT_EQ(next(10 * kShortUs), AMEDIACODEC_INFO_TRY_AGAIN_LATER);
    window.queue->Recycle(window.queue->Acquire());
    EXPECT_GE(next(kLongUs), 0);
}

TEST_F(HostOfDecoder, SteppingHoldsAPictureThatWasShown) {
    constexpr int kCount = 8;
    HostDecoder_setStepping(host.get(), 1);
    client.Feed(Encode(stream, kCount));
    HostDecoder_endStream(host.get(), -1);
    const Drainer drainer(client.Get());
    HostFrames frames;
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(HostDecoder_waitForFrame(host.get(), i, -1, &frames), HOST_READY);
        const bool shown = i % 3 != 1;
        if (shown) {
            auto frame = window.queue->Acquire();
            EXPECT_NEAR(frame->pixels[0], (30 + 4 * i - 16) * 255 / 219, 2) << i;
            window.queue->Recycle(std::move(frame));
        }
        EXPECT_EQ(HostDecoder_waitForFrame(host.get(), i + 1, kShortUs, &frames), HOST_TIMED_OUT);
        EXPECT_EQ(frames.delivered, i + 1);
        HostDecoder_step(host.get());
    }
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), kCount, -1, &frames), HOST_ENDED);
    EXPECT_EQ(frames.latched, 5);
}

TEST_F(HostOfDecoder, KeepsTimeOutsWhileAPictureWaitsToBeShown) {
    client.Feed(Encode(stream, 8));
    AMediaCodecBufferInfo info;
    while (HostDecoder_waitForFrame(host.get(), 0, 0, nullptr) == HOST_TIMED_OUT) {
        const ssize_t index = AMediaCodec_dequeueOutputBuffer(client.Get(), &info, 1000);
        if (index >= 0) {
            AMediaCodec_releaseOutputBuffer(client.Get(), static_cast<size_t>(index), true);
        }
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(AMediaCodec_dequeueOutputBuffer(client.Get(), &info, kShortUs),
              AMEDIACODEC_INFO_TRY_AGAIN_LATER);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::microseconds(kShortUs));

    // A stop ends a wait without limit.
    std::thread stopper([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        AMediaCodec_stop(client.Get());
    });
    EXPECT_LT(AMediaCodec_dequeueOutputBuffer(client.Get(), &info, -1),
              AMEDIACODEC_INFO_TRY_AGAIN_LATER);
    stopper.join();
    HostFrames frames;
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), 1, -1, &frames), HOST_CLOSED);
    EXPECT_EQ(frames.delivered, 1);
    EXPECT_EQ(frames.latched, 0);
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

TEST_F(HostOfDecoder, GoesOnWithAnotherWindow) {
    const auto units = Encode(stream, 4);
    const Drainer drainer(client.Get());
    EXPECT_EQ(QueueUnit(client.Get(), units[0], 0), 0);
    EXPECT_EQ(QueueUnit(client.Get(), units[1], 0), 0);
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), 0, kLongUs, nullptr), HOST_READY);
    const TestWindow other;
    EXPECT_LT(AMediaCodec_setOutputSurface(client.Get(), nullptr), 0);
    EXPECT_EQ(AMediaCodec_setOutputSurface(client.Get(), other.window), AMEDIA_OK);
    EXPECT_EQ(HostDecoder_waitForFrame(host.get(), 1, kLongUs, nullptr), HOST_READY);
    for (const auto& queue : {window.queue, other.queue}) {
        const auto frame = queue->Acquire();
        ASSERT_NE(frame, nullptr);
        EXPECT_EQ(frame->timestampNs, queue == other.queue ? kFrameTimeUs * 1000 : 0);
        EXPECT_EQ(frame->transform, ANATIVEWINDOW_TRANSFORM_ROTATE_90);
    }
}

TEST_F(HostOfDecoder, DoesNotWaitForPicturesThatNobodyCanShow) {
    window.queue->Abandon();
    EXPECT_TRUE(Play(Encode(stream, 12)).empty());
}

}  // namespace
