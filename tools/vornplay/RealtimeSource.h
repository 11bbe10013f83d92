#pragma once

#include <chrono>

#include "CompressedSource.h"

/// Plays at the clip's pace as an application does: hands units over when they are due, draws the
/// newest frame once per frame time, and waits for none. After the last unit it shows the frames
/// that the decoder still holds one by one.
class RealtimeSource : public CompressedSource {
public:
    /// As CompressedSource.
    RealtimeSource(VideoFile file, RendererSettings settings, MaskSource nextMask);

    /// Waits until the next picture is due. The frame may be the same as before.
    bool Next() override;
    /// Call once for each Next().
    void Draw(const Shot& shot) override;
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
    int64_t pictures_ = 0;
    int64_t shown_ = 0;  ///< Pictures, those before the start included.
};
