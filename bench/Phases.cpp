#include "Phases.h"

#include <algorithm>

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
    std::vector<double> values = milliseconds_.at(phase);
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
