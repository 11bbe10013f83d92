#pragma once

#include <chrono>

/// Tells when the frames of a clip are due.
class Pacer {
public:
    using Clock = std::chrono::steady_clock;

    /// The frame of this time of the clip is shown at \p now.
    void Start(Clock::time_point now, double seconds) {
        start_ = now;
        seconds_ = seconds;
    }

    Clock::time_point Due(double seconds) const {
        const std::chrono::duration<double> ahead(seconds - seconds_);
        return start_ + std::chrono::duration_cast<Clock::duration>(ahead);
    }

private:
    Clock::time_point start_;
    double seconds_ = 0.0;
};
