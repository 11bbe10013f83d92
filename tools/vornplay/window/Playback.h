#pragma once

#include <cstdint>

#include "Stage.h"
#include "window/Pacer.h"

/// Moves a clip on at its pace, or as it is told to.
class Playback {
public:
    using Clock = Pacer::Clock;

    explicit Playback(Stage& stage) : stage_(stage) {}

    /// Takes the frame that is due. Frames that come a whole one too late are left out.
    /// \return whether there is a new one to be drawn. \throws ToolError
    bool Advance();
    /// When Advance() is to be called again, while playing.
    Clock::time_point Due() const { return due_; }
    bool Playing() const { return playing_; }

    /// The frame at hand was drawn: it is the one that others follow.
    void Shown() { ++shown_; }

    /// Pauses or goes on; after the last frame, from the beginning. \throws ToolError
    void Toggle();
    /// Pauses, one frame further. \throws ToolError
    void Step();
    /// \throws ToolError
    void SeekBy(double seconds);
    /// The stage was opened anew, or time was lost: goes on from the frame at hand.
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
    bool waiting_ = false;  ///< The frame at hand is not due yet.
    int64_t shown_ = 0;
    int64_t dropped_ = 0;
};
