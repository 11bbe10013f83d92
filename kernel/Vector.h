#pragma once

#include "kernel/Export.h"

namespace OVR {

/// Two components; the layout is that of T[2].
template <typename T>
struct OVR_EXPORT Vector2 {
    T x;
    T y;

    static const Vector2 ZERO;
};

/// Three components; the layout is that of T[3].
template <typename T>
struct OVR_EXPORT Vector3 {
    T x;
    T y;
    T z;

    static const Vector3 ZERO;
};

/// Four components; the layout is that of T[4].
template <typename T>
struct OVR_EXPORT Vector4 {
    T x;
    T y;
    T z;
    T w;

    static const Vector4 ZERO;
};

extern template struct Vector2<float>;
extern template struct Vector2<double>;
extern template struct Vector3<float>;
extern template struct Vector3<double>;
extern template struct Vector4<float>;
extern template struct Vector4<double>;

}  // namespace OVR
