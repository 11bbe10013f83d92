#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

/// The end of a wait that is made of several.
class Deadline {
public:
    /// \param timeoutUs microseconds; negative: there is none.
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
