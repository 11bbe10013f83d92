#pragma once

#include <limits>

namespace OVR {

/// Scalar constants of the kernel, for float and double.
template <typename T>
struct Math {
    static constexpr T Pi = static_cast<T>(3.14159265358979323846L);
    static constexpr T MaxValue = std::numeric_limits<T>::max();
};

}  // namespace OVR
