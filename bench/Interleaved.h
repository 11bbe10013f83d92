#pragma once

#include <cstddef>
#include <functional>
#include <vector>

/// Times several pieces of work against each other, one run of each in turn, so that whatever else
/// the machine does meets all of them alike.
class Interleaved {
public:
    using Work = std::function<void()>;

    explicit Interleaved(std::vector<Work> works);

    /// Runs each once, in an order that differs from call to call: all orders are equally frequent,
    /// and none profits from what runs before it.
    /// \return the time of all, in seconds.
    double runRound();

    double medianMilliseconds(size_t work) const;
    /// Median over the rounds of the ratio within each.
    double medianRatio(size_t work, size_t reference) const;
    /// Likewise of the processor time, of all the process's threads: what other load on the machine
    /// leaves alone, and what running on several cores does not make less.
    double medianProcessorRatio(size_t work, size_t reference) const;
    /// Pages that a run had to get from the system.
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
