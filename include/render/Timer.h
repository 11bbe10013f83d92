#pragma once

#include <sys/time.h>

#include <cstdint>

#include "render/VEExport.h"

/// Measures time with the system's wall clock, in steps of a microsecond. If the clock is set
/// meanwhile, the result is wrong and can be negative.
///
/// The elapsed time is the time from start to stop, or to now if stop was not called since. Before
/// the first start it is the time since 1970.
///
/// \thread any, but only one thread at a time may use an object.
class VE_EXPORT Timer {
public:
    Timer();
    ~Timer();

    /// Starts, or starts again at 0.
    void start();
    void stop();

    /// In microseconds.
    double getElapsedTimeInMicroSec();
    /// In milliseconds, with fractions.
    double getElapsedTimeInMilliSec();
    /// In seconds, with fractions.
    double getElapsedTimeInSec();
    /// The same as getElapsedTimeInSec.
    double getElapsedTime();

    /// The low 32 bits of the wall clock's milliseconds since 1970. They can be negative and wrap
    /// after 49.7 days. Use them only for differences, in unsigned arithmetic.
    static int getTimeNowInMilliSec();

private:
    double startTimeInMicroSec = 0.0;
    double endTimeInMicroSec = 0.0;
    int32_t stopped = 0;
    timeval startCount = {};
    timeval endCount = {};
};
