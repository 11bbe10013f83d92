#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

/// How long the steps of a run take, over many runs.
class Phases {
public:
    explicit Phases(size_t count) : milliseconds_(count) {}

    /// Begins the first step of a run.
    void start();
    /// Ends a step; the steps come in their order.
    void lap();

    double medianMilliseconds(size_t phase) const;

private:
    std::vector<std::vector<double>> milliseconds_;  ///< [phase][run]
    std::chrono::steady_clock::time_point begin_;
    size_t next_ = 0;
};
