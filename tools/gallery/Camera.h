#pragma once

#include "kernel/Matrix4.h"
#include "kernel/Vector.h"

using Point = OVR::Vector3<float>;
using Matrix = OVR::Matrix4<float>;

/// Where a mesh is looked at from.
struct Camera {
    Point eye;
    Point target;
    float fovDegrees;  ///< Vertical.
    Point up = {0, 1, 0};

    /// From the mesh's coordinates to clip space. \p aspect is width by height.
    Matrix ViewProjection(float aspect) const;
};
