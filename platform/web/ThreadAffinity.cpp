// A browser does not tell on which CPUs threads run.

#include "render/ThreadAffinity.h"

#include <android/log.h>

#include <cstdlib>

#include "render/VELog.h"

int GetThreadAffinityMask(int /*tid*/) {
    return 0;
}

int SetThreadAffinityMask(int /*tid*/, int mask) {
    LogWithFileTag(ANDROID_LOG_ERROR, "src/common/VELog.cpp",
                   "No thread can be pinned here: mask=0x%x", static_cast<unsigned>(mask));
    std::abort();
}
