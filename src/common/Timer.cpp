#include "render/Timer.h"

namespace {

double InMicroSec(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_usec);
}

}  // namespace

Timer::Timer() = default;

Timer::~Timer() = default;

void Timer::start() {
    stopped = 0;
    gettimeofday(&startCount, nullptr);
}

void Timer::stop() {
    stopped = 1;
    gettimeofday(&endCount, nullptr);
}

double Timer::getElapsedTimeInMicroSec() {
    if (stopped == 0) {
        gettimeofday(&endCount, nullptr);
    }
    startTimeInMicroSec = InMicroSec(startCount);
    endTimeInMicroSec = InMicroSec(endCount);
    return endTimeInMicroSec - startTimeInMicroSec;
}

double Timer::getElapsedTimeInMilliSec() {
    return getElapsedTimeInMicroSec() * 0.001;
}

double Timer::getElapsedTimeInSec() {
    return getElapsedTimeInMicroSec() * 1e-6;
}

double Timer::getElapsedTime() {
    return getElapsedTimeInSec();
}

int Timer::getTimeNowInMilliSec() {
    timeval now = {};
    gettimeofday(&now, nullptr);
    // Frozen: clock
    const uint32_t milliseconds =
        static_cast<uint32_t>(now.tv_sec) * 1000U + static_cast<uint32_t>(now.tv_usec) / 1000U;
    return static_cast<int32_t>(milliseconds);
}
