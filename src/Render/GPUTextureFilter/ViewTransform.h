#pragma once

#include "kernel/Matrix4.h"
#include "kernel/Vector.h"

/// The matrices of a view. Points are columns: clip = projection × view × point.

/// Right-handed perspective projection onto the clip cube [-1, 1]³.
/// \param fovYDegrees vertical field of view. \param aspect width / height.
OVR::Matrix4<float> Perspective(double fovYDegrees, float aspect, float zNear, float zFar);

/// Right-handed view from \p eye towards \p target. All NaN (but for the last row) when the two
/// coincide.
OVR::Matrix4<float> LookAt(const OVR::Vector3<float>& eye, const OVR::Vector3<float>& target,
                           const OVR::Vector3<float>& up);

/// left × right: \p right is applied first.
OVR::Matrix4<float> Multiply(const OVR::Matrix4<float>& left, const OVR::Matrix4<float>& right);
