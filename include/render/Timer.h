#pragma once

#include <sys/time.h>

#include <cstdint>

#include "render/VEExport.h"

/// Measures time with the system's wall clock, in steps of a microsecond.
///
/// \thread any, but only one thread at a time may use an object.
class VE_EXPORT Timer {
public:
    Timer();
    ~Timer();

    void start();
    void stop();

    /// Time from start to stop, or to now if stop was not called.
    double getElapsedTimeInMicroSec();
    double getElapsedTimeInMilliSec();
    double getElapsedTimeInSec();
    /// The same as getElapsedTimeInSec.
    double getElapsedTime();

    /// The low 32 bits of the wall clock's milliseconds. Use them only for differences.
    static int getTimeNowInMilliSec();

private:
    double startTimeInMicroSec = 0.0;
    double endTimeInMicroSec = 0.0;
    int32_t stopped = 0;
    timeval startCount = {};
    timeval endCount = {};
};
