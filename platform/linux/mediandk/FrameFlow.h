#pragma once

#include <linux_platform/Host.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

/// Counts the pictures that a codec gives to its window, and limits their pace as the host demands.
/// Thread-safe.
class FrameFlow {
public:
    /// \name The codec's side
    /// \{
    void Open();
    /// Ends all waits.
    void Close();

    /// The fewest pictures to hold back.
    int ReorderDepth() const { return reorderDepth_; }

    /// Waits until the next picture may be dequeued, and takes the turn. The turn lasts until the
    /// picture is latched, or EndTurn(). \return false on a timeout.
    bool TakeTurn(int64_t timeoutUs);
    void EndTurn();
    /// Notes that the window gets a picture now. It may be latched before it is delivered.
    void Offer();
    /// Notes that nobody latches the picture offered last.
    void Withdraw();
    /// Counts a picture that the window got.
    void Deliver(int64_t unit);
    /// Notes that the window got the last picture.
    void End();
    /// \}

    /// The window's side: counts a picture that is shown.
    void Latch();

    /// \name The host's side
    /// \{
    void SetLockStep(bool on);
    void SetStepping(bool on);
    /// Allows the next picture while stepping.
    void Step();
    void SetReorderDepth(int pictures) { reorderDepth_ = pictures; }
    HostResult Wait(int64_t seen, int64_t timeoutUs, HostFrames* frames);
    /// \}

private:
    /// What allows the next picture: nothing, the latch of the previous one, or Step().
    enum class Pace { kFree, kLockStep, kStepping };

    void SetPace(Pace pace);

    std::atomic<int> reorderDepth_{0};
    std::mutex mutex_;
    std::condition_variable changed_;
    HostFrames frames_ = {0, 0, -1};
    bool open_ = false;
    bool ended_ = false;
    Pace pace_ = Pace::kFree;
    bool turnTaken_ = false;
    bool unlatched_ = false;  ///< The window has a picture that was not latched.
};
