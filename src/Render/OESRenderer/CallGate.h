#pragma once

#include <atomic>

/// Lets one thread use an object while another closes it. Whoever is last may delete the object.
///
/// The user brackets each use with enter and leave. The closer calls close, waits for the use under
/// way for as long as it likes, and then either finds the user gone or hands the object over.
///
/// \tparam Atomic std::atomic, or a replacement by which a test steps through all interleavings.
template <template <class> class Atomic = std::atomic>
class BasicCallGate {
public:
    /// \name The user's thread
    /// \{
    /// \return whether the use may begin; not after close().
    bool enter() {
        unsigned open = 0;
        return state.compare_exchange_strong(open, kInCall);
    }
    /// \return whether the object was handed over: the user deletes it.
    [[nodiscard]] bool leave() { return (state.fetch_and(~kInCall) & kHandedOver) != 0; }
    /// \}

    /// \name The closer's thread
    /// \{
    /// No use begins from now on.
    void close() { state.fetch_or(kClosed); }
    /// Ends close().
    void open() { state.fetch_and(~kClosed); }
    bool inCall() const { return (state.load() & kInCall) != 0; }
    /// After close(). \return false when the user has left: the closer deletes the object.
    [[nodiscard]] bool handOver() {
        unsigned busy = kClosed | kInCall;
        return state.compare_exchange_strong(busy, kClosed | kInCall | kHandedOver);
    }
    /// \}

private:
    static constexpr unsigned kInCall = 1;
    static constexpr unsigned kClosed = 2;
    static constexpr unsigned kHandedOver = 4;

    Atomic<unsigned> state{0};
};

using CallGate = BasicCallGate<>;
