#include "SharedCodec.h"

#include <android/log.h>

#include <thread>

#include "render/VELog.h"

bool SharedCodec::shutDown(std::chrono::milliseconds longestWait) {
    AMediaCodec* codec = codec_;
    gate_.close();
    AMediaCodec_stop(codec);
    pause(longestWait);
    codec_ = nullptr;
    if (gate_.handOver()) {
        LogWithFileTag(ANDROID_LOG_INFO, "src/Render/OESRenderer/SharedCodec.cpp",
                       "a decoder call takes longer than %d ms: the decoder is deleted after it",
                       static_cast<int>(longestWait.count()));
        return false;
    }
    AMediaCodec_delete(codec);
    return true;
}

void SharedCodec::pause(std::chrono::milliseconds longestWait) {
    using std::chrono::steady_clock;
    constexpr std::chrono::microseconds kPause(100);
    gate_.close();
    const auto end = steady_clock::now() + longestWait;
    while (gate_.inCall() && steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
    }
}
