#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// \param values at least one
inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Of the ratios of values at the same place.
inline double MedianRatio(const std::vector<double>& values,
                          const std::vector<double>& references) {
    std::vector<double> ratios;
    ratios.reserve(values.size());
    for (size_t i = 0; i < values.size(); ++i) {
        ratios.push_back(values[i] / references[i]);
    }
    return Median(std::move(ratios));
}
