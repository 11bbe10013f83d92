#include "Interleaved.h"

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <numeric>
#include <utility>

#include "Median.h"

namespace {

double SecondsOf(const Interleaved::Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Seconds(const timeval& time) {
    constexpr double kMicrosecond = 1e-6;
    return static_cast<double>(time.tv_sec) + kMicrosecond * static_cast<double>(time.tv_usec);
}

double ProcessorSeconds() {
    double seconds = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage = {};
        getrusage(who, &usage);
        seconds += Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
    }
    return seconds;
}

/// Of the whole process, since threads of the driver also touch new pages.
long PageFaults() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

}  // namespace

Interleaved::Interleaved(std::vector<Work> works)
    : works_(std::move(works)),
      order_(works_.size()),
      times_(works_.size()),
      processorTimes_(works_.size()),
      pageFaults_(works_.size()) {
    std::iota(order_.begin(), order_.end(), size_t{0});
}

double Interleaved::runRound() {
    double total = 0;
    std::shuffle(order_.begin(), order_.end(), random_);
    for (const size_t work : order_) {
        const long faultsBefore = PageFaults();
        const double processorBefore = ProcessorSeconds();
        times_[work].push_back(SecondsOf(works_[work]));
        processorTimes_[work].push_back(ProcessorSeconds() - processorBefore);
        pageFaults_[work] += PageFaults() - faultsBefore;
        total += times_[work].back();
    }
    return total;
}

double Interleaved::medianMilliseconds(size_t work) const {
    return 1000 * Median(times_[work]);
}

double Interleaved::medianProcessorMilliseconds(size_t work) const {
    return 1000 * Median(processorTimes_[work]);
}

double Interleaved::medianRatio(size_t work, size_t reference) const {
    return MedianRatio(times_[work], times_[reference]);
}

double Interleaved::medianProcessorRatio(size_t work, size_t reference) const {
    return MedianRatio(processorTimes_[work], processorTimes_[reference]);
}

double Interleaved::meanPageFaults(size_t work) const {
    return static_cast<double>(pageFaults_[work]) / static_cast<double>(times_[work].size());
}
