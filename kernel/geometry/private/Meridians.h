#pragma once

#include <cmath>

#include "kernel/Vector.h"

namespace OVR {

/// Cosine and sine of an angle. The builders keep one for each meridian: all rows share them.
struct Direction {
    float cos;
    float sin;
};

inline Direction DirectionOf(float radians) {
    return {std::cos(radians), std::sin(radians)};
}

/// A parallel of a sphere around the y axis.
struct Ring {
    float radius;
    float y;
};

inline Ring RingAt(float latitude, float sphereRadius) {
    return {std::cos(latitude) * sphereRadius, std::sin(latitude) * sphereRadius};
}

inline Vector3<float> PointOn(const Ring& ring, const Direction& longitude) {
    return {longitude.cos * ring.radius, ring.y, longitude.sin * ring.radius};
}

}  // namespace OVR
