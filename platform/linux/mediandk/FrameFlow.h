#pragma once

#include <linux_platform/Host.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

/// Counts the pictures on their way from a codec to its window, and in lock-step lets one at a time
/// pass; keeps what the host has to say. Thread-safe.
class FrameFlow {
public:
    /// \name The codec's side
    /// \{
    void Open();
    /// Ends all waits.
    void Close();

    /// How many pictures to hold back at least.
    int ReorderDepth() const { return reorderDepth_; }

    /// Waits until the next picture may be dequeued, and takes the turn: it lasts until the picture
    /// is latched, or EndTurn(). \return false when out of time.
    bool TakeTurn(int64_t timeoutUs);
    void EndTurn();
    /// A picture is on the window.
    void Deliver(int64_t unit);
    /// All pictures are.
    void End();
    /// \}

    /// The window's side: its newest picture is being shown.
    void Latch();

    /// \name The host's side
    /// \{
    void SetLockStep(bool on);
    void SetStepping(bool on);
    /// Lets the next picture pass, while stepping.
    void Step();
    void SetReorderDepth(int pictures) { reorderDepth_ = pictures; }
    HostResult Wait(int64_t seen, int64_t timeoutUs, HostFrames* frames);
    /// \}

private:
    /// What lets the next picture pass: nothing need be done, the one before is latched, or Step().
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
};
