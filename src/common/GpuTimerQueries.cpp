#include "render/GpuTimerQueries.h"

#include <android/log.h>

#include <atomic>
#include <cstdint>

#include "render/VELog.h"

namespace {

// Frozen: log tags
constexpr char kSourceFile[] = "src/common/VELog.cpp";

// Frozen: timer queries
std::atomic<int32_t> allowGpuTimerQueries{0};

}  // namespace

void SetAllowGpuTimerQueries(int allow) {
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "SetAllowGpuTimerQueries( %d )", allow);
    allowGpuTimerQueries = allow;
}
