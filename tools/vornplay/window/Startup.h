#pragma once

#include <chrono>
#include <string>

/// What the time from the start of the process to the first picture goes into.
class Startup {
public:
    /// \param phase began with the process and ends now.
    explicit Startup(const std::string& phase) { Note(phase); }

    /// Ends the next phase.
    void Note(const std::string& phase);
    /// Such as "first picture after 300 ms: process 20, window 120, ...".
    std::string Text() const;

private:
    using Clock = std::chrono::steady_clock;

    const Clock::time_point begin_ = Clock::now() - ProcessAge();
    Clock::time_point last_ = begin_;
    std::string phases_;

    static Clock::duration ProcessAge();
};
