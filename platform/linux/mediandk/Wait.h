#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

/// Waits until \p ready, at most \p timeoutUs microseconds, or without end where that is negative.
/// \return whether it is ready.
template <class Ready>
bool WaitFor(std::condition_variable& changed, std::unique_lock<std::mutex>& lock,
             int64_t timeoutUs, Ready ready) {
    // Beyond a year the end of the wait may not be a point in time that the clock can express.
    constexpr std::chrono::microseconds kLongest = std::chrono::hours(24 * 365);
    const std::chrono::microseconds timeout(timeoutUs);
    if (timeoutUs < 0 || timeout > kLongest) {
        changed.wait(lock, ready);
        return true;
    }
    return changed.wait_for(lock, timeout, ready);
}
