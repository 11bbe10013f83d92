#include "Phases.h"

#include "Median.h"

void Phases::start() {
    next_ = 0;
    begin_ = std::chrono::steady_clock::now();
}

void Phases::lap() {
    const auto now = std::chrono::steady_clock::now();
    milliseconds_.at(next_).push_back(
        std::chrono::duration<double, std::milli>(now - begin_).count());
    begin_ = now;
    ++next_;
}

double Phases::medianMilliseconds(size_t phase) const {
    return Median(milliseconds_.at(phase));
}
