#pragma once

#include <chrono>
#include <cstdint>

#include "Stage.h"
#include "window/sound/Sound.h"

/// Knows when the frames of a clip are due.
class Pacer {
public:
    using Clock = std::chrono::steady_clock;

    /// The frame of this time of the clip is shown at \p now.
    void Start(Clock::time_point now, double seconds) {
        start_ = now;
        seconds_ = seconds;
    }

    /// The time of the clip at \p now.
    double At(Clock::time_point now) const {
        return seconds_ + std::chrono::duration<double>(now - start_).count();
    }

    Clock::time_point Due(double seconds) const {
        const std::chrono::duration<double> ahead(seconds - seconds_);
        return start_ + std::chrono::duration_cast<Clock::duration>(ahead);
    }

private:
    Clock::time_point start_;
    double seconds_ = 0.0;
};

/// Plays a clip at its pace; pauses, steps and seeks. The sound leads.
class Playback {
public:
    using Clock = Pacer::Clock;

    Playback(Stage& stage, Sound& sound) : stage_(stage), sound_(sound) {}

    /// Takes the frame that is due. Drops frames that are late by a frame's time or more.
    /// \return whether there is a new frame to draw. \throws ToolError
    bool Advance();
    /// When to call Advance() again, while playing.
    Clock::time_point Due() const;
    bool Playing() const { return playing_; }

    /// Counts the current frame as shown.
    void Shown();

    /// Pauses or goes on; after the last frame, from the beginning. \throws ToolError
    void Toggle();
    /// Pauses on the next frame. \throws ToolError
    void Step();
    /// Pauses on the frame before. \throws ToolError
    void StepBack();
    /// \throws ToolError
    void Seek(double seconds);
    /// Pauses on the last frame. \throws ToolError
    void SeekToEnd();
    void ToggleLoop() { loops_ = !loops_; }

    /// The time of the clip now.
    double Seconds() const;
    /// When picture and sound end; 0 if not known.
    double EndSeconds() const;
    bool Loops() const { return loops_; }
    bool AtEnd() const { return atEnd_; }
    /// The stage has a frame already that must not show yet.
    bool Waiting() const { return waiting_; }

    int64_t FramesShown() const { return shown_; }
    int64_t Dropped() const { return dropped_; }
    /// How far the picture shown last was ahead of the sound, in seconds; none without sound.
    std::optional<double> AheadOfSound() const { return aheadOfSound_; }

private:
    bool TakeNext();
    bool End();
    void Pause();
    void Restart();
    void FollowSound();

    Stage& stage_;
    Sound& sound_;
    Pacer pacer_;
    Clock::time_point due_;
    bool playing_ = false;
    bool loops_ = false;
    bool atEnd_ = false;
    bool pictureEnded_ = false;  ///< The last frame stays until the sound ends.
    bool waiting_ = false;       ///< The current frame is not due yet.
    int64_t shown_ = 0;
    int64_t dropped_ = 0;
    std::optional<double> aheadOfSound_;
};
