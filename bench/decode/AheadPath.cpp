#include "AheadPath.h"

#include <chrono>

AheadPath::AheadPath(const Clip& clip, ShaderKind kind)
    : decoder_(clip, DecoderThreads::kFrames),
      pass_(clip, kind),
      thread_([this] { decodeAll(); }) {}

AheadPath::~AheadPath() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

bool AheadPath::wantsUnit() {
    const std::lock_guard lock(mutex_);
    return given_ - shown_ < 2 * kPictures;
}

void AheadPath::give() {
    {
        const std::lock_guard lock(mutex_);
        ++given_;
    }
    changed_.notify_all();
}

bool AheadPath::show(int timeoutUs) {
    {
        std::unique_lock lock(mutex_);
        if (!changed_.wait_for(lock, std::chrono::microseconds(timeoutUs),
                               [this] { return decoded_ > shown_; })) {
            return false;
        }
    }
    pass_.draw(pixels_.at(static_cast<size_t>(shown_ % kPictures)));
    {
        const std::lock_guard lock(mutex_);
        ++shown_;
    }
    changed_.notify_all();
    return true;
}

/// The decoder's thread.
void AheadPath::decodeAll() {
    while (wait()) {
        pass_.convert(decoder_.next(), pixels_.at(static_cast<size_t>(decoded_ % kPictures)));
        {
            const std::lock_guard lock(mutex_);
            ++decoded_;
        }
        changed_.notify_all();
    }
}

/// Waits for a unit and for room. \return false at the end
bool AheadPath::wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock,
                  [this] { return ends_ || (given_ > decoded_ && decoded_ - shown_ < kPictures); });
    return !ends_;
}
