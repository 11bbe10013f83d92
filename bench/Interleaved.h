#pragma once

#include <cstddef>
#include <functional>
#include <vector>

/// Measures several pieces of work in turn, so that other load on the machine affects all alike.
class Interleaved {
public:
    using Work = std::function<void()>;

    explicit Interleaved(std::vector<Work> works);

    /// Runs each piece once. The order changes from call to call, and all orders are equally
    /// frequent.
    /// \return the total time in seconds.
    double runRound();

    double medianMilliseconds(size_t work) const;
    /// Median of the ratios within each round.
    double medianRatio(size_t work, size_t reference) const;
    /// The same for the processor time of all threads of the process. Other load hardly changes it.
    double medianProcessorRatio(size_t work, size_t reference) const;
    /// Pages that the system gave to a run.
    double meanPageFaults(size_t work) const;

private:
    using Times = std::vector<std::vector<double>>;  ///< Seconds, by work and round.

    static double MedianRatio(const Times& times, size_t work, size_t reference);

    std::vector<Work> works_;
    std::vector<size_t> order_;
    Times times_;
    Times processorTimes_;
    std::vector<long> pageFaults_;  ///< Sums, by work.
};
