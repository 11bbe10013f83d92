#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// One small rectangle just below an anchor point: 0.1 wide, centred on the anchor's x, reaching
/// from 0.2 to 0.4 below its y, at z = 0.
///
///            + (x, y)
///
///     0 ┌─────────┐ 1   y - 0.2, v = 1     The texture's first row lands at the bottom, and the
///       │  0.1    │                        front faces wind clockwise seen from +z: both the
///     2 └─────────┘ 3   y - 0.4, v = 0     opposite of BuildTesselatedQuad, on purpose.
///
/// \param x, y     anchor, in the units of the square [-1, 1] × [-1, 1]; any float is accepted.
/// \param twoSided adds the two triangles with reversed winding.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor (white, alpha 0
///         throughout); the caller frees it.
OVR_EXPORT GlGeometry BuildTesselatedQuadInside(float x, float y, bool twoSided);

}  // namespace OVR
