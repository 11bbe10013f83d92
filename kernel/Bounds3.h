#pragma once

#include <algorithm>

#include "kernel/Math.h"
#include "kernel/Vector.h"

namespace OVR {

/// An axis-aligned box. In a cleared box the minimum is above the maximum, so the first point added
/// becomes both corners.
template <typename T>
struct Bounds3 {
    Vector3<T> Min = {Math<T>::MaxValue, Math<T>::MaxValue, Math<T>::MaxValue};
    Vector3<T> Max = {-Math<T>::MaxValue, -Math<T>::MaxValue, -Math<T>::MaxValue};

    void Clear() { *this = Bounds3(); }

    void AddPoint(const Vector3<T>& p) {
        Min = {std::min(Min.x, p.x), std::min(Min.y, p.y), std::min(Min.z, p.z)};
        Max = {std::max(Max.x, p.x), std::max(Max.y, p.y), std::max(Max.z, p.z)};
    }
};

}  // namespace OVR
