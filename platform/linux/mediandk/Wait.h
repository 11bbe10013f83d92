#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

/// The common end of several waits.
class Deadline {
public:
    /// \param timeoutUs microseconds; negative: no limit.
    explicit Deadline(int64_t timeoutUs) : timeoutUs_(timeoutUs) {}

    int64_t LeftUs() const {
        using std::chrono::microseconds;
        const auto passed = std::chrono::steady_clock::now() - start_;
        const int64_t passedUs = std::chrono::duration_cast<microseconds>(passed).count();
        return timeoutUs_ < 0 ? timeoutUs_ : std::max<int64_t>(0, timeoutUs_ - passedUs);
    }

private:
    const int64_t timeoutUs_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Waits until \p ready.
/// \param timeoutUs microseconds; negative: no limit.
/// \return false on a timeout.
template <class Ready>
bool WaitFor(std::condition_variable& changed, std::unique_lock<std::mutex>& lock,
             int64_t timeoutUs, Ready ready) {
    // The clock cannot express the end of a much longer wait.
    constexpr std::chrono::microseconds kLongest = std::chrono::hours(24 * 365);
    const std::chrono::microseconds timeout(timeoutUs);
    if (timeoutUs < 0 || timeout > kLongest) {
        changed.wait(lock, ready);
        return true;
    }
    return changed.wait_for(lock, timeout, ready);
}
