#pragma once

#include <chrono>
#include <cstdint>
#include <string>

/// Shows progress on stderr: on a terminal a bar that is updated in place, else a line every few
/// seconds.
class Progress {
public:
    /// \param total frames to expect, 0 if not known
    Progress(bool quiet, int64_t total);
    /// Removes the bar from the terminal.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(int64_t frames);

private:
    using Clock = std::chrono::steady_clock;

    std::string Bar(int64_t frames) const;
    std::string Figures(int64_t frames, double seconds) const;

    bool quiet_;
    bool terminal_;
    int64_t total_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point shown_ = start_;
};
