#pragma once

#include "kernel/Matrix4.h"
#include "kernel/Vector.h"

// The matrices of a view. Points are columns: clip = projection × view × point.

/// Right-handed perspective projection onto the clip cube [-1, 1]³.
/// \param fovYDegrees vertical field of view. \param aspect width / height.
OVR::Matrix4<float> Perspective(double fovYDegrees, float aspect, float zNear, float zFar);

/// Right-handed view from \p eye towards \p target. When the two are the same point, all
/// elements are NaN except the last row.
OVR::Matrix4<float> LookAt(const OVR::Vector3<float>& eye, const OVR::Vector3<float>& target,
                           const OVR::Vector3<float>& up);

/// \return left × right.
OVR::Matrix4<float> Multiply(const OVR::Matrix4<float>& left, const OVR::Matrix4<float>& right);

/// The projection of the renderers' camera: a vertical field of view of 47 degrees, aspect 1.
OVR::Matrix4<float> CameraProjection();

/// The camera at (\p x, \p y, 3 - zoom / 2), which looks at (x, y, 0). At zoom 6 it stands in the
/// picture's plane and the matrix is NaN. Above 6 it looks at the picture from behind.
// Frozen: zoom 6
OVR::Matrix4<float> CameraView(float x, float y, float zoom);
