#include "window/Playback.h"

bool Playback::Advance() {
    constexpr int kMostDropped = 8;
    const double frame = stage_.FrameSeconds();
    for (int late = 0;; ++late) {
        if (!waiting_ && !TakeNext()) {
            dropped_ -= late > 0 ? 1 : 0;  // The last frame stays, even if it is late.
            return late > 0;
        }
        const Clock::time_point now = Clock::now();
        const double seconds = stage_.Seconds();
        waiting_ = now < pacer_.Due(seconds);
        due_ = pacer_.Due(waiting_ ? seconds : seconds + frame);
        if (waiting_ || now < due_) {
            return !waiting_;
        }
        if (late == kMostDropped) {
            Restart();  // The machine is too slow: the clip plays slowly instead.
            return true;
        }
        ++dropped_;
    }
}

/// \return false, and stops, after the last frame.
bool Playback::TakeNext() {
    atEnd_ = !stage_.Next();
    playing_ = playing_ && !atEnd_;
    return !atEnd_;
}

void Playback::Toggle() {
    playing_ = !playing_;
    if (playing_ && atEnd_) {
        stage_.Seek(0.0);
    }
    Restart();
}

void Playback::Step() {
    playing_ = false;
    TakeNext();
}

void Playback::SeekBy(double seconds) {
    stage_.Seek(stage_.Seconds() + seconds);
    Restart();
}

void Playback::Restart() {
    waiting_ = false;
    atEnd_ = false;
    pacer_.Start(Clock::now(), stage_.Seconds());
    due_ = pacer_.Due(stage_.Seconds() + stage_.FrameSeconds());
}
