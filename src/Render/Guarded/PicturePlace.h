#pragma once

#include "../GPUTextureFilter/ViewTransform.h"

/// Matrices on texture coordinates (s, t, 0, 1).

OVR::Matrix4<float> IdentityPlace();

/// \param given 16 floats that take t = 0 at the picture's last row, as surface textures give them;
///              null for a texture whose first row is the picture's.
/// \return the same, but with t = 0 at the picture's first row.
OVR::Matrix4<float> SourcePlace(const float* given);

/// From the output's coordinates to the source's. Exact: its elements are 0, 1 and -1.
///
/// \param rotation clockwise: 0, 90, 180 or 270 degrees.
/// \param mirror   swaps left and right of what is rotated.
OVR::Matrix4<float> TurnedPlace(int rotation, bool mirror);
