#include "window/Playback.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::chrono::milliseconds kSoundCheck(50);

}  // namespace

bool Playback::Advance() {
    constexpr int kMostDropped = 8;
    constexpr std::chrono::seconds kLongestStop(1);
    FollowSound();
    const double frame = stage_.FrameSeconds();
    for (int late = 0;; ++late) {
        if (!waiting_ && !TakeNext()) {
            dropped_ -= late > 0 ? 1 : 0;  // The last frame stays, even if it is late.
            return late > 0 || End();
        }
        const Clock::time_point now = Clock::now();
        const double seconds = stage_.Seconds();
        waiting_ = now < pacer_.Due(seconds);
        due_ = pacer_.Due(waiting_ ? seconds : seconds + frame);
        if (waiting_ || now < due_) {
            return !waiting_;
        }
        // The machine is too slow, or it was asleep: the clip goes on from here.
        if (late == kMostDropped || now - due_ > kLongestStop) {
            Restart();
            return true;
        }
        ++dropped_;
    }
}

Playback::Clock::time_point Playback::Due() const {
    return sound_.IsThere() ? std::min(due_, Clock::now() + kSoundCheck) : due_;
}

/// \return false after the last frame
bool Playback::TakeNext() {
    pictureEnded_ = pictureEnded_ || !stage_.Next();
    return !pictureEnded_;
}

/// Stops once the sound has ended, or begins again. \return whether there is a new frame to draw
bool Playback::End() {
    if (sound_.SecondsHeard().has_value()) {
        due_ = Clock::now() + kSoundCheck;
        return false;
    }
    if (loops_) {
        Seek(0.0);
        return true;
    }
    Pause();
    atEnd_ = true;
    return false;
}

/// Corrects the pacer little by little, so that the jitter of the sound's clock does not show.
void Playback::FollowSound() {
    constexpr double kPart = 0.1;
    constexpr double kLeastJump = 0.04;
    const std::optional<double> heard = sound_.SecondsHeard();
    if (heard.has_value()) {
        const Clock::time_point now = Clock::now();
        const double error = *heard - pacer_.At(now);
        const bool jumps = std::abs(error) > kLeastJump;
        pacer_.Start(now, pacer_.At(now) + (jumps ? error : error * kPart));
    }
}

void Playback::Shown() {
    ++shown_;
    const std::optional<double> heard = sound_.SecondsHeard();
    aheadOfSound_.reset();
    if (playing_ && heard.has_value()) {
        aheadOfSound_ = stage_.Seconds() - *heard;
    }
}

void Playback::Toggle() {
    if (playing_) {
        Pause();
        return;
    }
    playing_ = true;
    if (atEnd_) {
        stage_.Seek(0.0);
    }
    Restart();
}

void Playback::Pause() {
    playing_ = false;
    waiting_ = false;
    sound_.Play(false);
}

void Playback::Step() {
    const bool taken = waiting_;
    Pause();
    atEnd_ = !taken && !TakeNext();
}

void Playback::StepBack() {
    Pause();
    stage_.StepBack();
    Restart();
}

void Playback::Seek(double seconds) {
    stage_.Seek(seconds);
    Restart();
}

void Playback::SeekToEnd() {
    Pause();
    stage_.SeekToEnd();
    Restart();
}

/// Goes on from the current frame.
void Playback::Restart() {
    waiting_ = false;
    atEnd_ = false;
    pictureEnded_ = false;
    sound_.Seek(stage_.Seconds(), stage_.StampsRestart());
    sound_.Play(playing_);
    pacer_.Start(Clock::now(), stage_.Seconds());
    due_ = pacer_.Due(stage_.Seconds() + stage_.FrameSeconds());
}

double Playback::Seconds() const {
    if (atEnd_) {
        return std::max(EndSeconds(), stage_.Seconds());
    }
    return playing_ ? std::min(pacer_.At(Clock::now()), std::max(EndSeconds(), stage_.Seconds()))
                    : stage_.Seconds();
}

double Playback::EndSeconds() const {
    return std::max(stage_.EndSeconds(), sound_.EndSeconds());
}
