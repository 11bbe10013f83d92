#pragma once

#include <chrono>
#include <cstdint>
#include <string>

/// Tells on stderr how far the work is: a bar rewritten in place on a terminal, else a line now and
/// then.
class Progress {
public:
    /// \param total frames to expect, 0 if not known
    Progress(bool quiet, int64_t total);
    /// Takes the bar off the terminal.
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
