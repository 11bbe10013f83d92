#pragma once

#include "kernel/Matrix4.h"
#include "kernel/Vector.h"

using Point = OVR::Vector3<float>;
using Matrix = OVR::Matrix4<float>;

/// The place and the direction from which a scene is drawn.
struct Camera {
    Point eye;
    Point target;
    float fovDegrees;  ///< Vertical.
    Point up = {0, 1, 0};

    /// Transforms the mesh's coordinates to clip space. \p aspect is width divided by height.
    Matrix ViewProjection(float aspect) const;
};
