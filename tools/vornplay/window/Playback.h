#pragma once

#include <chrono>
#include <cstdint>

#include "Stage.h"

/// Knows when the frames of a clip are due.
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

/// Plays a clip at its pace; pauses, steps and seeks.
class Playback {
public:
    using Clock = Pacer::Clock;

    explicit Playback(Stage& stage) : stage_(stage) {}

    /// Takes the frame that is due. Drops frames that are late by a frame's time or more.
    /// \return whether there is a new frame to draw. \throws ToolError
    bool Advance();
    /// When to call Advance() again, while playing.
    Clock::time_point Due() const { return due_; }
    bool Playing() const { return playing_; }

    /// Counts the current frame as shown.
    void Shown() { ++shown_; }

    /// Pauses or goes on; after the last frame, from the beginning. \throws ToolError
    void Toggle();
    /// Pauses on the next frame. \throws ToolError
    void Step();
    /// \throws ToolError
    void SeekBy(double seconds);
    /// Goes on from the current frame after time was lost, or after the stage was opened again.
    void Restart();

    int64_t FramesShown() const { return shown_; }
    int64_t Dropped() const { return dropped_; }
    bool AtEnd() const { return atEnd_; }

private:
    bool TakeNext();

    Stage& stage_;
    Pacer pacer_;
    Clock::time_point due_;
    bool playing_ = false;
    bool atEnd_ = false;
    bool waiting_ = false;  ///< The current frame is not due yet.
    int64_t shown_ = 0;
    int64_t dropped_ = 0;
};
