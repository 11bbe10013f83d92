#pragma once

#include <chrono>
#include <deque>

/// Figures of the frames that were shown within the last second.
class Figures {
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;

    /// \param drawing how long the renderer took
    /// \param latency from when the frame was asked for until it was on the screen
    void NoteShown(Clock::time_point now, Milliseconds drawing, Milliseconds latency);

    double FramesPerSecond(Clock::time_point now) const;
    double Drawing() const { return Mean(&Frame::drawing); }
    double Latency() const { return Mean(&Frame::latency); }

private:
    struct Frame {
        Clock::time_point shown;
        Milliseconds drawing;
        Milliseconds latency;
    };

    double Mean(Milliseconds Frame::*value) const;

    std::deque<Frame> frames_;
};
