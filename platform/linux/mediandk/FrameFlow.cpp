#include "FrameFlow.h"

#include "Wait.h"

void FrameFlow::Open() {
    const std::lock_guard<std::mutex> lock(mutex_);
    open_ = true;
    ended_ = false;
    turnTaken_ = false;
    unlatched_ = false;
}

void FrameFlow::Close() {
    const std::lock_guard<std::mutex> lock(mutex_);
    open_ = false;
    changed_.notify_all();
}

bool FrameFlow::TakeTurn(int64_t timeoutUs) {
    std::unique_lock<std::mutex> lock(mutex_);
    // A picture of before the lock-step may still be unlatched, although its turn ended.
    const auto free = [this] {
        const bool held = turnTaken_ || (pace_ == Pace::kLockStep && unlatched_);
        return !open_ || pace_ == Pace::kFree || !held;
    };
    if (!WaitFor(changed_, lock, timeoutUs, free)) {
        return false;
    }
    turnTaken_ = true;
    return true;
}

void FrameFlow::EndTurn() {
    const std::lock_guard<std::mutex> lock(mutex_);
    turnTaken_ = false;
    changed_.notify_all();
}

void FrameFlow::Offer() {
    const std::lock_guard<std::mutex> lock(mutex_);
    unlatched_ = true;
}

void FrameFlow::Withdraw() {
    const std::lock_guard<std::mutex> lock(mutex_);
    turnTaken_ = false;
    unlatched_ = false;
    changed_.notify_all();
}

void FrameFlow::Deliver(int64_t unit) {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++frames_.delivered;
    frames_.unit = unit;
    changed_.notify_all();
}

void FrameFlow::End() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ended_ = true;
    turnTaken_ = false;
    changed_.notify_all();
}

void FrameFlow::Latch() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++frames_.latched;
    unlatched_ = false;
    turnTaken_ = turnTaken_ && pace_ == Pace::kStepping;
    changed_.notify_all();
}

void FrameFlow::SetLockStep(bool on) {
    SetPace(on ? Pace::kLockStep : Pace::kFree);
}

void FrameFlow::SetStepping(bool on) {
    SetPace(on ? Pace::kStepping : Pace::kFree);
}

void FrameFlow::SetPace(Pace pace) {
    const std::lock_guard<std::mutex> lock(mutex_);
    pace_ = pace;
    changed_.notify_all();
}

void FrameFlow::Step() {
    EndTurn();
}

HostResult FrameFlow::Wait(int64_t seen, int64_t timeoutUs, HostFrames* frames) {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto done = [this, seen] { return frames_.delivered > seen || ended_ || !open_; };
    const bool inTime = WaitFor(changed_, lock, timeoutUs, done);
    if (frames != nullptr) {
        *frames = frames_;
    }
    if (!inTime) {
        return HOST_TIMED_OUT;
    }
    if (frames_.delivered > seen) {
        return HOST_READY;
    }
    return ended_ ? HOST_ENDED : HOST_CLOSED;
}
