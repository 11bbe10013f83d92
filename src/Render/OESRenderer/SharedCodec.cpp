#include "SharedCodec.h"

#include <android/log.h>

#include <chrono>
#include <thread>

#include "render/VELog.h"

void SharedCodec::shutDown() {
    AMediaCodec* codec = codec_;
    gate_.close();
    AMediaCodec_stop(codec);
    waitForCall();
    if (gate_.handOver()) {
        LogWithFileTag(ANDROID_LOG_INFO, "src/Render/OESRenderer/SharedCodec.cpp",
                       "a decoder call takes longer than 50 ms: the decoder is deleted after it");
    } else {
        AMediaCodec_delete(codec);
    }
    codec_ = nullptr;
}

void SharedCodec::waitForCall() const {
    using std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kLongest(50);
    constexpr std::chrono::microseconds kPause(100);
    const auto end = steady_clock::now() + kLongest;
    while (gate_.inCall() && steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
    }
}
