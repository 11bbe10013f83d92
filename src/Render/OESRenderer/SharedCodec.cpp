#include "SharedCodec.h"

#include <android/log.h>

#include <thread>

#include "render/VELog.h"

bool SharedCodec::shutDown(std::chrono::milliseconds longestWait) {
    AMediaCodec* handle = codec;
    gate.close();
    AMediaCodec_stop(handle);
    pause(longestWait);
    codec = nullptr;
    if (gate.handOver()) {
        LogWithFileTag(ANDROID_LOG_INFO, "src/Render/OESRenderer/SharedCodec.cpp",
                       "a decoder call takes longer than %d ms: the decoder is deleted after it",
                       static_cast<int>(longestWait.count()));
        return false;
    }
    AMediaCodec_delete(handle);
    return true;
}

void SharedCodec::pause(std::chrono::milliseconds longestWait) {
    using std::chrono::steady_clock;
    constexpr std::chrono::microseconds kPause(100);
    gate.close();
    const auto end = steady_clock::now() + longestWait;
    while (gate.inCall() && steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
    }
}
