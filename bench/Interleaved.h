#pragma once

#include <cstddef>
#include <functional>
#include <random>
#include <vector>

/// Compares the run times of several functions. It runs them in rounds, so that other load on the
/// machine affects all of them alike.
class Interleaved {
public:
    using Work = std::function<void()>;

    explicit Interleaved(std::vector<Work> works);

    /// Runs each function once, in a random order.
    /// \return the time of the round in seconds.
    double runRound();

    /// \param work an index of the vector given to the constructor.
    double medianMilliseconds(size_t work) const;
    /// Of the process and of the programs that it ran, instead of the time that passed. Other load
    /// hardly changes it.
    double medianProcessorMilliseconds(size_t work) const;
    /// The time of \p work divided by that of \p reference, for each round; the median of that.
    double medianRatio(size_t work, size_t reference) const;
    /// The same with the processor time.
    double medianProcessorRatio(size_t work, size_t reference) const;
    /// Page faults of one run, on average.
    double meanPageFaults(size_t work) const;

private:
    using Times = std::vector<std::vector<double>>;  ///< Seconds: [work][round].

    std::vector<Work> works_;
    std::vector<size_t> order_;
    std::minstd_rand random_{std::random_device{}()};
    Times times_;
    Times processorTimes_;
    std::vector<long> pageFaults_;  ///< Of all rounds: [work].
};
