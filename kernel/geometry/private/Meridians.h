#pragma once

#include <algorithm>
#include <cmath>

#include "kernel/geometry/private/Grid.h"

namespace OVR {

/// Cosine and sine of an angle.
struct Direction {
    float cos;
    float sin;
};

/// The directions of a round mesh's columns. All rows share them.
using Meridians = Array<Direction>;

/// \param angleOf the angle of a column, in radians.
template <typename AngleOf>
Meridians MakeMeridians(const Grid& grid, AngleOf angleOf) {
    Meridians meridians;
    SizeOnce(meridians, grid.Columns());
    for (uint32_t x = 0; x < meridians.Size; ++x) {
        const float angle = angleOf(x);
        meridians[x] = {std::cos(angle), std::sin(angle)};
    }
    return meridians;
}

/// A circle around the y axis: one row of a round mesh.
struct Parallel {
    float radius;
    float y;
};

inline Parallel ParallelOfSphere(float latitude, float sphereRadius) {
    return {std::cos(latitude) * sphereRadius, std::sin(latitude) * sphereRadius};
}

/// Fills the positions of row \p y.
inline void FillPositionRow(VertexAttribs& attribs, const Meridians& meridians, uint32_t y,
                            const Parallel& parallel) {
    std::transform(meridians.begin(), meridians.end(),
                   attribs.position.Data + size_t{y} * meridians.Size,
                   [parallel](const Direction& meridian) {
                       return Vector3<float>{meridian.cos * parallel.radius, parallel.y,
                                             meridian.sin * parallel.radius};
                   });
}

}  // namespace OVR
