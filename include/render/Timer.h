#pragma once

#include <sys/time.h>

#include <cstdint>

#include "render/VEExport.h"

/// A stopwatch on the system's wall clock, with a resolution of a microsecond.
///
/// \thread one at a time.
class VE_EXPORT Timer {
public:
    Timer();
    ~Timer();

    void start();
    void stop();

    /// Time from start to stop or, while running, to now.
    double getElapsedTimeInMicroSec();
    double getElapsedTimeInMilliSec();
    double getElapsedTimeInSec();
    /// Seconds.
    double getElapsedTime();

    /// Milliseconds of the wall clock in 32 bits: it wraps, so only differences mean anything.
    static int getTimeNowInMilliSec();

private:
    double startTimeInMicroSec = 0.0;
    double endTimeInMicroSec = 0.0;
    int32_t stopped = 0;
    timeval startCount = {};
    timeval endCount = {};
};
