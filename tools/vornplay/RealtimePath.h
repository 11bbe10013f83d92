#pragma once

#include <chrono>

#include "DecodePath.h"

/// Plays at the clip's pace as an application does: hands units over when they are due, draws
/// whatever frame is the newest once a frame's time, and waits for none. Only at the end the frames
/// that the decoder still holds are shown one by one.
class RealtimePath : public PlatformPath {
public:
    using PlatformPath::PlatformPath;

    bool DrawNext(const View& view, bool last) override;
    /// Frames that were not shown in time are not lost.
    int64_t Lost() const override { return File().Missing(); }
    const char* Name() const override { return "realtime"; }
    int64_t Shown(int64_t drawn) const override;
    int64_t Dropped() const override { return Feed().Units() - Shown(0); }
    std::string Summary(int64_t drawn) const override;

private:
    using Clock = std::chrono::steady_clock;

    void FeedUntil(double seconds);

    Clock::time_point start_;
    int64_t ticks_ = 0;
    HostFrames frames_ = {0, 0, -1};
};
